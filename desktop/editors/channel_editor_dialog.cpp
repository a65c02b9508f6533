#include "desktop/editors/channel_editor_dialog.h"

#include <windows.h>

#include <string>
#include <vector>

#include "core/editors/channel_editor.h"
#include "core/editors/frequency_reading.h"
#include "core/image/clone_image.h"
#include "desktop/editors/icon_picker_dialog.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/edited_field.h"
#include "desktop/toolkit/help.h"
#include "desktop/toolkit/radio_font.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

// The check of the offset field waits until the focus has arrived where it goes.
constexpr UINT kOffsetLeft = WM_APP + 1;

struct EditorWindow {
  Document& document;
  const EditorListener& listener;
  ChannelEditor editor{};
  Font name_font{};
  IconPictures icons{};
  bool showing = false;  // the controls are being filled: their notifications are not the user's
  bool accepted = false;
};

EditorWindow& WindowOf(HWND dialog) { return StateOf<EditorWindow>(dialog); }

// A text that stands there already keeps its cursor.
void ShowText(HWND dialog, int control, const std::string& text) {
  if (ControlText(dialog, control) != text) {
    SetDlgItemTextA(dialog, control, text.c_str());
  }
}

bool IsTouched(HWND dialog, int control) {
  return SendDlgItemMessageA(dialog, control, EM_GETMODIFY, 0, 0) != 0;
}

void ShowSteps(HWND dialog, const ChannelEditor& editor) {
  std::vector<const char*> texts;
  for (const StepChoice& step : editor.steps) {
    texts.push_back(step.text);
  }
  SendDlgItemMessageA(dialog, ID_STEP, CB_RESETCONTENT, 0, 0);
  FillList(dialog, ID_STEP, texts);
  SelectInList(dialog, ID_STEP, StepPosition(editor));
}

// What the frequency texts will be read as. A transmit frequency that follows is none to type.
void ShowReadings(HWND dialog) {
  const auto& window = WindowOf(dialog);
  const ChannelEditor& editor = window.editor;
  ShowText(dialog, ID_RECEIVE_READING,
           ReceiveReading(window.document.image, editor.n, ControlText(dialog, ID_RECEIVE),
                          editor.region));
  ShowText(dialog, ID_OFFSET_READING, OffsetReading(OffsetOf(editor)));
  ShowText(dialog, ID_TRANSMIT_READING,
           HasTransmitField(editor)
               ? TransmitReading(ControlText(dialog, ID_TRANSMIT), editor.region)
               : "");
}

std::optional<ToneMode> ChosenToneType(HWND dialog) {
  return CodeAt<ToneMode>(kToneModeNames, ChosenInList(dialog, ID_TONE_TYPE));
}

void ShowToneUse(HWND dialog) {
  ShowText(dialog, ID_TONE_USE, ToneListUse(ChosenToneType(dialog)));
}

// What follows from other fields: texts, steps, and what can be used.
void ShowFollowers(HWND dialog) {
  auto& window = WindowOf(dialog);
  const ChannelEditor& editor = window.editor;
  window.showing = true;
  ShowText(dialog, ID_RECEIVE, editor.receive);
  ShowText(dialog, ID_TRANSMIT, editor.transmit);
  ShowText(dialog, ID_OFFSET, editor.offset);
  ShowSteps(dialog, editor);
  EnableWindow(GetDlgItem(dialog, ID_TRANSMIT), HasTransmitField(editor));
  EnableWindow(GetDlgItem(dialog, ID_STEP), HasStepChoice(editor));
  window.showing = false;
  ShowReadings(dialog);
}

void ShowMemoryFields(HWND dialog, const ChannelEditor& editor) {
  SetDlgItemTextA(dialog, ID_COMMENT, editor.comment.c_str());
  const int icon = editor.choices.icon < kIconCount ? editor.choices.icon : -1;
  SendDlgItemMessageA(dialog, ID_ICON, LB_SETCURSEL, static_cast<WPARAM>(icon), 0);
  Check(dialog, ID_SKIP, editor.skip);
  Check(dialog, ID_MASKED, editor.masked);
  Check(dialog, ID_OPTION_FLAG, editor.option);
  EnableWindow(GetDlgItem(dialog, ID_MASKED), HasMaskedBox(editor));
}

void ShowChannel(HWND dialog) {
  auto& window = WindowOf(dialog);
  const ChannelEditor& editor = window.editor;
  SetWindowTextA(dialog, EditorTitle(window.document.image, editor.n).c_str());
  ShowFollowers(dialog);
  CheckRadioButton(dialog, ID_SHIFT_SIMPLEX, ID_SHIFT_ODD_SPLIT,
                   ID_SHIFT_SIMPLEX + PlaceOf(editor.choices.shift));
  SelectInList(dialog, ID_MODE, PlaceOf(editor.choices.mode));
  SelectInList(dialog, ID_POWER, PlaceOf(editor.choices.power));
  SelectInList(dialog, ID_TONE_TYPE, PlaceOf(editor.choices.tone_mode));
  ShowToneUse(dialog);
  SelectInList(dialog, ID_TONE, editor.choices.tone_index);
  SelectInList(dialog, ID_DCS, editor.choices.dcs_index);
  Check(dialog, ID_OPTION_A, editor.choices.option_a);
  Check(dialog, ID_OPTION_B, editor.choices.option_b);
  SetDlgItemTextA(dialog, ID_NAME, editor.choices.name.c_str());
  if (HasMemoryFields(editor)) {
    ShowMemoryFields(dialog, editor);
  }
}

void TakeMemoryFields(HWND dialog, ChannelEditor& editor) {
  if (IsTouched(dialog, ID_COMMENT)) {
    editor.comment = ControlText(dialog, ID_COMMENT);
  }
  const LRESULT icon = SendDlgItemMessageA(dialog, ID_ICON, LB_GETCURSEL, 0, 0);
  if (icon >= 0) {
    editor.choices.icon = static_cast<int>(icon);
  }
  editor.skip = IsChecked(dialog, ID_SKIP);
  editor.masked = IsChecked(dialog, ID_MASKED);
  editor.option = IsChecked(dialog, ID_OPTION_FLAG);
}

// The offset and the shift come with their own notifications. A text that nobody touched keeps the
// bytes that a control may not be able to show.
void TakeFields(HWND dialog) {
  ChannelEditor& editor = WindowOf(dialog).editor;
  editor.receive = ControlText(dialog, ID_RECEIVE);
  editor.transmit = ControlText(dialog, ID_TRANSMIT);
  editor.choices.mode = CodeAt<Mode>(kModeNames, ChosenInList(dialog, ID_MODE));
  editor.choices.power = CodeAt<Power>(kPowerNames, ChosenInList(dialog, ID_POWER));
  editor.choices.tone_mode = ChosenToneType(dialog);
  editor.choices.tone_index = ChosenInList(dialog, ID_TONE);
  editor.choices.dcs_index = ChosenInList(dialog, ID_DCS);
  if (const auto step = ChosenInList(dialog, ID_STEP)) {
    editor.choices.step = editor.steps[static_cast<std::size_t>(*step)].step;
  }
  editor.choices.option_a = IsChecked(dialog, ID_OPTION_A);
  editor.choices.option_b = IsChecked(dialog, ID_OPTION_B);
  if (IsTouched(dialog, ID_NAME)) {
    editor.choices.name = ControlText(dialog, ID_NAME);
  }
  if (HasMemoryFields(editor)) {
    TakeMemoryFields(dialog, editor);
  }
}

// One thing that the user does: what the fields hold, the change, and what follows from it.
template <typename Change>
void Do(HWND dialog, Change&& change) {
  TakeFields(dialog);
  change(WindowOf(dialog).editor);
  ShowFollowers(dialog);
}

void FocusField(HWND dialog, EditorField field) {
  const int control = field == EditorField::kReceive    ? ID_RECEIVE
                      : field == EditorField::kTransmit ? ID_TRANSMIT
                                                        : ID_OFFSET;
  HWND window = GetDlgItem(dialog, control);
  // The transmit frequency follows from the receive frequency unless the split is odd.
  if (!IsWindowEnabled(window)) {
    window = GetDlgItem(dialog, ID_RECEIVE);
  }
  SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window), TRUE);
}

// What an accepted channel leaves behind; false for a refused one, whose field gets the focus.
bool FinishChannel(HWND dialog, int n, const ChannelEnd& end) {
  auto& window = WindowOf(dialog);
  if (end.refused != EditorField::kNone) {
    ShowFollowers(dialog);
    FocusField(dialog, end.refused);
    return false;
  }
  window.document.changed = window.document.changed || end.record_changed;
  window.listener.written(n);
  return true;
}

void OnOk(HWND dialog) {
  auto& window = WindowOf(dialog);
  TakeFields(dialog);
  const int n = window.editor.n;
  if (FinishChannel(dialog, n, AcceptChannel(window.document.image, window.editor))) {
    window.accepted = true;
    EndDialog(dialog, n);
  }
}

using Turn = ChannelTurn (*)(CloneImage& image, ChannelEditor& editor);

void OnTurn(HWND dialog, Turn turn) {
  auto& window = WindowOf(dialog);
  TakeFields(dialog);
  const int left = window.editor.n;
  const ChannelTurn turned = turn(window.document.image, window.editor);
  if (turned.beep) {
    MessageBeep(MB_OK);
  } else if (FinishChannel(dialog, left, turned.end)) {
    window.listener.shown(window.editor.n);
    ShowChannel(dialog);
  }
}

void OnOffset(HWND dialog, int notification) {
  auto& window = WindowOf(dialog);
  if (window.showing) {
    return;
  }
  switch (notification) {
    case CBN_EDITCHANGE:
      TypeOffset(window.editor, ControlText(dialog, ID_OFFSET));
      ShowReadings(dialog);
      break;
    case CBN_SELCHANGE:
      if (const auto position = ChosenInList(dialog, ID_OFFSET)) {
        Do(dialog, [&](ChannelEditor& editor) { ChooseOffset(editor, *position); });
      }
      break;
    case CBN_KILLFOCUS:
      PostMessageA(dialog, kOffsetLeft, 0, 0);
      break;
    default:
      break;
  }
}

// Whoever leaves for Cancel, Help or another program is not asked to mend the field first.
bool IsInTheFields(HWND dialog) {
  const HWND focus = GetFocus();
  return focus != nullptr && IsChild(dialog, focus) && focus != GetDlgItem(dialog, IDCANCEL) &&
         focus != GetDlgItem(dialog, ID_HELP) && GetParent(focus) != GetDlgItem(dialog, ID_OFFSET);
}

void OnOffsetLeft(HWND dialog) {
  if (!IsInTheFields(dialog)) {
    return;
  }
  bool accepted = true;
  Do(dialog, [&](ChannelEditor& editor) { accepted = LeaveOffset(editor); });
  if (!accepted) {
    FocusField(dialog, EditorField::kOffset);
  }
}

void OnFrequency(HWND dialog, int control, int notification) {
  if (notification == EN_CHANGE && !WindowOf(dialog).showing) {
    ShowReadings(dialog);
  } else if (notification == EN_KILLFOCUS && control == ID_RECEIVE) {
    Do(dialog, LeaveReceive);
  }
}

void OnShift(HWND dialog, int control) {
  if (IsChecked(dialog, control)) {
    const auto shift = static_cast<Shift>(control - ID_SHIFT_SIMPLEX);
    Do(dialog, [=](ChannelEditor& editor) { ChangeShift(editor, shift); });
  }
}

std::vector<Tooltip> Tooltips() {
  return {{ID_OPTION_A, "Channel record byte 0, bit 4"},
          {ID_OPTION_B, "Channel record byte 0, bit 5"},
          {ID_OPTION_FLAG, "Channel flag byte, bit 3"},
          {ID_BAND_DEFAULTS, "The usual offset and step of the band"}};
}

void FillLists(HWND dialog) {
  FillList(dialog, ID_OFFSET, kOffsetChoices);
  FillList(dialog, ID_MODE, kModeNames);
  FillList(dialog, ID_POWER, kPowerNames);
  FillList(dialog, ID_TONE_TYPE, kToneModeNames);
  FillList(dialog, ID_TONE, kTones, ToneText);
  FillList(dialog, ID_DCS, kDcsCodes, DcsText);
}

void SetUpTexts(HWND dialog) {
  LimitText(dialog, ID_RECEIVE, kFrequencyTextLength);
  LimitText(dialog, ID_TRANSMIT, kFrequencyTextLength);
  LimitText(dialog, ID_NAME, kNameLength);
  LimitText(dialog, ID_COMMENT, kCommentTextLength);
  constexpr WPARAM kOffsetTextLength = 25;
  SendDlgItemMessageA(dialog, ID_OFFSET, CB_LIMITTEXT, kOffsetTextLength, 0);
  const HWND offset_text = GetWindow(GetDlgItem(dialog, ID_OFFSET), GW_CHILD);
  for (const HWND field :
       {GetDlgItem(dialog, ID_RECEIVE), GetDlgItem(dialog, ID_TRANSMIT), offset_text}) {
    TakeCommasAsPoints(field);
  }
}

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state, Tooltips());
  auto& window = WindowOf(dialog);
  window.name_font = CreateRadioFont(dialog, kNameFontHeight);
  UseFont(dialog, ID_NAME, window.name_font);
  FillLists(dialog);
  SetUpTexts(dialog);
  if (HasMemoryFields(window.editor)) {
    window.icons = LoadIconPictures();
    FillIconPicker(GetDlgItem(dialog, ID_ICON));
  }
  const int show_name = HasNameField(window.editor) ? SW_SHOW : SW_HIDE;
  ShowWindow(GetDlgItem(dialog, ID_NAME_LABEL), show_name);
  ShowWindow(GetDlgItem(dialog, ID_NAME), show_name);
  ShowChannel(dialog);
  return TRUE;
}

void OnButton(HWND dialog, int control) {
  switch (control) {
    case IDOK:
      OnOk(dialog);
      break;
    case IDCANCEL:
      EndDialog(dialog, -1);
      break;
    case ID_HELP:
      ShowHelp(EditorHelpContext(WindowOf(dialog).editor.n));
      break;
    case ID_BAND_DEFAULTS:
      Do(dialog, TakeBandDefaults);
      break;
    case ID_PREVIOUS:
      OnTurn(dialog, TurnToPrevious);
      break;
    case ID_NEXT:
      OnTurn(dialog, TurnToNext);
      break;
    default:
      break;
  }
}

void OnCommand(HWND dialog, int control, int notification) {
  if (control >= ID_SHIFT_SIMPLEX && control <= ID_SHIFT_ODD_SPLIT) {
    if (notification == BN_CLICKED) {
      OnShift(dialog, control);
    }
  } else if (control == ID_OFFSET) {
    OnOffset(dialog, notification);
  } else if (control == ID_RECEIVE || control == ID_TRANSMIT) {
    OnFrequency(dialog, control, notification);
  } else if (control == ID_TONE_TYPE) {
    ShowToneUse(dialog);
  } else if (notification == BN_CLICKED) {
    OnButton(dialog, control);
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcEditMemory(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case kOffsetLeft:
      OnOffsetLeft(dialog);
      return TRUE;
    case WM_DRAWITEM:
      // NOLINTNEXTLINE(performance-no-int-to-ptr): the system passes the pointer as a number
      DrawIconItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(l), WindowOf(dialog).icons);
      return TRUE;
    default:
      return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
  }
}

bool ShowChannelEditorDialog(Document& document, int n, const EditorListener& listener) {
  auto editor = OpenChannelEditor(document.image, n, document.region);
  if (!editor) {
    return false;
  }
  EditorWindow window{.document = document, .listener = listener, .editor = *editor};
  RunDialog(IsSpecialSlot(n) ? "DLLDlgEditVfo" : "DLLDlgEditMemory", DlgProcEditMemory, &window);
  return window.accepted;
}

}  // namespace qz7
