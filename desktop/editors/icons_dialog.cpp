#include <string>
#include <vector>

#include "core/editors/icons.h"
#include "desktop/editors/feature_support_dialog.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "desktop/toolkit/picture_list.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

std::vector<std::string> IconNames() {
  std::vector<std::string> names;
  names.reserve(kIconCount);
  for (int icon = 0; icon < kIconCount; ++icon) {
    names.push_back(IconName(icon));
  }
  return names;
}

struct IconsDialog {
  const FeatureEditor& editor;
  PictureList pictures{IconNames()};
  IconChoices choices;  // what the lists hold
};

IconsDialog& DialogStateOf(HWND dialog) { return StateOf<IconsDialog>(dialog); }

void ShowChoices(HWND dialog, const IconChoices& choices) {
  DialogStateOf(dialog).choices = choices;
  for (int i = 0; i < kDisplayIconCount; ++i) {
    ShowInList(dialog, ID_ICON_FIRST + i, choices.icons[static_cast<std::size_t>(i)]);
  }
}

std::vector<Tooltip> PlaceTooltips() {
  std::vector<Tooltip> tooltips;
  tooltips.reserve(kDisplayIconCount);
  for (int i = 0; i < kDisplayIconCount; ++i) {
    tooltips.push_back(
        {ID_ICON_FIRST + i, BytePlace(kDisplayIcons.offset + static_cast<std::size_t>(i))});
  }
  return tooltips;
}

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state, PlaceTooltips());
  // The names are not seen; they let a letter choose its icon.
  const std::vector<std::string> names = IconNames();
  for (int i = 0; i < kDisplayIconCount; ++i) {
    FillList(dialog, ID_ICON_FIRST + i, names);
    FitPictureList(dialog, ID_ICON_FIRST + i);
  }
  const FeatureEditor& editor = DialogStateOf(dialog).editor;
  ShowChoices(dialog, LoadIcons(OpeningSource(editor)));
  EnableDefaultsButtons(dialog, !editor.starts_from_defaults);
  return TRUE;
}

void OnShowDefaults(HWND dialog) {
  ShowChoices(dialog, LoadIcons(SourceIn(DialogStateOf(dialog).editor.defaults)));
}

void OnStoreDefaults(HWND dialog) {
  IconsDialog& state = DialogStateOf(dialog);
  StoreIcons(state.choices, TargetIn(state.editor.defaults));
  EnableDefaultsButtons(dialog, false);
  SaveDefaults(state.editor);
}

void OnOk(HWND dialog) {
  const IconsDialog& state = DialogStateOf(dialog);
  StoreIcons(state.choices, TargetIn(state.editor.image));
  EndDialog(dialog, 0);
}

void OnIconList(HWND dialog, int control, int notification) {
  const std::optional<int> icon = ChosenInList(dialog, control);
  if (notification == CBN_SELCHANGE && icon) {
    ChooseIcon(DialogStateOf(dialog).choices, control - ID_ICON_FIRST, *icon);
    EnableDefaultsButtons(dialog, true);
  }
}

constexpr FeatureCommands kCommands{.help_context = kHelpIcons,
                                    .show_defaults = OnShowDefaults,
                                    .store_defaults = OnStoreDefaults,
                                    .ok = OnOk,
                                    .value = OnIconList};

// Comes before WM_INITDIALOG. All pictures have one size.
BOOL OnMeasureItem(MEASUREITEMSTRUCT& item) {
  MeasurePicture(item, IconName(0).c_str());
  return TRUE;
}

BOOL OnDrawItem(HWND dialog, const DRAWITEMSTRUCT& item) {
  DialogStateOf(dialog).pictures.Draw(item);
  return TRUE;
}

INT_PTR CALLBACK DlgProcIconSelect(HWND dialog, UINT message, WPARAM w, LPARAM l) {
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

bool ShowIconsDialog(const FeatureEditor& editor) {
  IconsDialog state{.editor = editor, .choices = {}};
  return RunDialog("DLLDlgIconSelect", DlgProcIconSelect, &state) == 0;
}

}  // namespace qz7
