#include <array>
#include <string>
#include <vector>

#include "core/editors/settings.h"
#include "core/image/settings_map.h"
#include "desktop/editors/feature_support_dialog.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "desktop/toolkit/picture_list.h"
#include "desktop/toolkit/radio_font.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

constexpr const char* kFirstSymbol = "symbol1";

std::vector<std::string> SymbolNames() {
  return {kFirstSymbol, "symbol2", "symbol3", "symbol4", "symbol5", "symbol6", "symbol7"};
}

struct SettingsDialog {
  const FeatureEditor& editor;
  Font font;
  PictureList symbols{SymbolNames()};
};

const FeatureEditor& EditorOf(HWND dialog) { return StateOf<SettingsDialog>(dialog).editor; }

struct ListControl {
  int control;
  std::optional<int> SettingsControls::*choice;
};
constexpr std::array<ListControl, 6> kLists = {{
    {ID_LEVEL_A, &SettingsControls::level_a},
    {ID_LEVEL_B, &SettingsControls::level_b},
    {ID_SCALE, &SettingsControls::scale},
    {ID_SENSOR_DISPLAY, &SettingsControls::sensor_display},
    {ID_TIME_OF_DAY, &SettingsControls::time_of_day},
    {ID_DISPLAY_SYMBOL, &SettingsControls::display_symbol},
}};

struct TextControl {
  int control;
  std::string SettingsControls::*text;
};
constexpr std::array<TextControl, 3> kTexts = {{
    {ID_NUMBER_A, &SettingsControls::number_a},
    {ID_NUMBER_B, &SettingsControls::number_b},
    {ID_SYMBOL_TEXT, &SettingsControls::symbol_text},
}};

std::vector<Tooltip> PlaceTooltips() {
  return {{ID_LEVEL_A, BytePlace(kLevelA)},
          {ID_LEVEL_B, BytePlace(kLevelB)},
          {ID_SCALE, BytePlace(kScaleValue)},
          {ID_NUMBER_A, BytePlace(kNumberA.offset)},
          {ID_NUMBER_B, BytePlace(kNumberB.offset)},
          {ID_SENSOR_DISPLAY, BytePlace(kSensorDisplay)},
          {ID_TIME_OF_DAY, BytePlace(kTimeOfDay)},
          {ID_DISPLAY_SYMBOL, BytePlace(kDisplaySymbol)},
          {ID_SYMBOL_TEXT, BytePlace(kSymbolText.offset)},
          {ID_SETTING_FIRST, BitPlace(kSwitchesB, kSettingsBit)},
          {ID_SETTING_SECOND, BitPlace(kSwitchesB, kSettingsBit)}};
}

SettingsControls ReadControls(HWND dialog) {
  SettingsControls controls;
  for (const ListControl& list : kLists) {
    controls.*list.choice = ChosenInList(dialog, list.control);
  }
  for (const TextControl& text : kTexts) {
    controls.*text.text = ControlText(dialog, text.control);
  }
  controls.second_choice = ChosenInPair(dialog, ID_SETTING_FIRST);
  return controls;
}

void EnableSymbolText(HWND dialog) {
  EnableWindow(GetDlgItem(dialog, ID_SYMBOL_TEXT), HasSymbolText(ReadControls(dialog)));
}

void ShowControls(HWND dialog, const SettingsControls& controls) {
  for (const ListControl& list : kLists) {
    ShowInList(dialog, list.control, controls.*list.choice);
  }
  for (const TextControl& text : kTexts) {
    SetDlgItemTextA(dialog, text.control, (controls.*text.text).c_str());
  }
  ShowInPair(dialog, ID_SETTING_FIRST, controls.second_choice);
  EnableSymbolText(dialog);
}

void FillLists(HWND dialog) {
  FillList(dialog, ID_LEVEL_A, LevelATexts());
  FillList(dialog, ID_LEVEL_B, LevelBTexts());
  FillList(dialog, ID_SCALE, ScaleTexts());
  FillList(dialog, ID_SENSOR_DISPLAY, kSensorTexts);
  FillList(dialog, ID_TIME_OF_DAY, TimeTexts());
  FillList(dialog, ID_DISPLAY_SYMBOL, kSymbolTexts);
}

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state, PlaceTooltips());
  LimitText(dialog, ID_NUMBER_A, kNumberTextLength);
  LimitText(dialog, ID_NUMBER_B, kNumberTextLength);
  LimitText(dialog, ID_SYMBOL_TEXT, kSymbolTextLength);
  FillLists(dialog);
  Font& font = StateOf<SettingsDialog>(dialog).font;
  font = CreateRadioFont(dialog, kListFontHeight);
  UseFont(dialog, ID_DISPLAY_SYMBOL, font);
  FitPictureList(dialog, ID_DISPLAY_SYMBOL);
  UseFont(dialog, ID_SYMBOL_TEXT, font);
  const FeatureEditor& editor = EditorOf(dialog);
  ShowControls(dialog, LoadSettings(OpeningSource(editor)));
  EnableDefaultsButtons(dialog, !editor.starts_from_defaults);
  return TRUE;
}

void OnShowDefaults(HWND dialog) {
  ShowControls(dialog, LoadSettings(SourceIn(EditorOf(dialog).defaults)));
}

void OnStoreDefaults(HWND dialog) {
  const FeatureEditor& editor = EditorOf(dialog);
  StoreSettings(ReadControls(dialog), TargetIn(editor.defaults));
  EnableDefaultsButtons(dialog, false);
  SaveDefaults(editor);
}

void OnOk(HWND dialog) {
  StoreSettings(ReadControls(dialog), TargetIn(EditorOf(dialog).image));
  EndDialog(dialog, 0);
}

void OnValueControl(HWND dialog, int control, int notification) {
  if (control == ID_DISPLAY_SYMBOL && notification == CBN_SELCHANGE) {
    EnableSymbolText(dialog);
  }
  // The two-way switch alone does not enable the buttons, wanted.
  if (notification == CBN_SELCHANGE || notification == EN_CHANGE) {
    EnableDefaultsButtons(dialog, true);
  }
}

constexpr FeatureCommands kCommands{.help_context = kHelpSettings,
                                    .show_defaults = OnShowDefaults,
                                    .store_defaults = OnStoreDefaults,
                                    .ok = OnOk,
                                    .value = OnValueControl};

// Comes before WM_INITDIALOG.
BOOL OnMeasureItem(MEASUREITEMSTRUCT& item) {
  MeasurePicture(item, kFirstSymbol);
  return TRUE;
}

BOOL OnDrawItem(HWND dialog, const DRAWITEMSTRUCT& item) {
  StateOf<SettingsDialog>(dialog).symbols.Draw(item);
  return TRUE;
}

INT_PTR CALLBACK DlgProcSetting(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return OnInit(dialog, l);
    case WM_MEASUREITEM:
      return OnMeasureItem(MeasuredItem(l));
    case WM_DRAWITEM:
      return OnDrawItem(dialog, DrawnItem(l));
    default:
      return HandleFeatureMessage(kCommands, dialog, message, w);
  }
}

}  // namespace

bool ShowSettingsDialog(const FeatureEditor& editor) {
  SettingsDialog state{.editor = editor, .font = nullptr};
  return RunDialog("DLLDlgSetting", DlgProcSetting, &state) == 0;
}

}  // namespace qz7
