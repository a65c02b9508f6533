#include "desktop/interchange/merge_dialog.h"

#include <windows.h>

#include <string>

#include "core/image/decimal.h"
#include "core/interchange/merge_dialog_rules.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

// One more than is used of it: that is wanted.
constexpr std::size_t kLongestKey = kMergeKeyLength + 1;

struct MergeWindow {
  CloneImage& image;
  const CloneImage& working_copy;
  const MergeSource& source;
  MergeOptions& options;
};

void ShowNumber(HWND dialog, int control, int number) {
  SetDlgItemTextA(dialog, control, std::to_string(number).c_str());
}

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  auto& [image, working_copy, source, options] = StateOf<MergeWindow>(dialog);
  LimitText(dialog, ID_MERGE_KEY, kLongestKey);
  const MergeCounts counts = OpenMergeDialog(image, source, options);
  const std::string radio_type = "Radio Type: " + std::string(SourceRadioType(source));
  SetDlgItemTextA(dialog, ID_MERGE_RADIO_TYPE, radio_type.c_str());
  ShowNumber(dialog, ID_MERGE_AVAILABLE, counts.available);
  ShowNumber(dialog, ID_MERGE_SELECTED, counts.selected);
  // A copy, because the field's notification takes the key anew.
  const std::string key = options.key;
  SetDlgItemTextA(dialog, ID_MERGE_KEY, key.c_str());
  Check(dialog, ID_MERGE_USE_KEY, options.use_key);
  Check(dialog, ID_MERGE_ONLY_HAM, options.only_ham);
  Check(dialog, ID_MERGE_OVERWRITE, options.overwrite);
  Check(dialog, ID_MERGE_GROUP_2, options.group == 2);
  ShowNumber(dialog, ID_MERGE_START, options.start);
  return TRUE;
}

void OnGroup2(HWND dialog) {
  auto& [image, working_copy, source, options] = StateOf<MergeWindow>(dialog);
  const bool on = IsChecked(dialog, ID_MERGE_GROUP_2);
  ShowNumber(dialog, ID_MERGE_SELECTED, SetGroup2(image, source, options, on));
  if (!options.overwrite) {
    ShowNumber(dialog, ID_MERGE_START, options.start);
  }
}

void OnKeyEdited(HWND dialog) {
  const MergeWindow& window = StateOf<MergeWindow>(dialog);
  const auto selected =
      EditMergeKey(window.source, window.options, ControlText(dialog, ID_MERGE_KEY));
  if (selected) {
    ShowNumber(dialog, ID_MERGE_SELECTED, *selected);
  }
}

void OnOk(HWND dialog) {
  auto& [image, working_copy, source, options] = StateOf<MergeWindow>(dialog);
  options.group = IsChecked(dialog, ID_MERGE_GROUP_2) ? 2 : 1;
  const int start = DecimalValue(ControlText(dialog, ID_MERGE_START));
  switch (AcceptMerge(image, working_copy, source, options, start)) {
    case MergeAnswer::kMerged:
      EndDialog(dialog, 0);
      break;
    case MergeAnswer::kNothing:
      EndDialog(dialog, -1);
      break;
    case MergeAnswer::kIllegalStart:
      SetFocus(GetDlgItem(dialog, ID_MERGE_START));
      break;
    case MergeAnswer::kNoRoom:
      break;
  }
}

void OnBox(HWND dialog, int box) {
  const MergeWindow& window = StateOf<MergeWindow>(dialog);
  const bool on = IsChecked(dialog, box);
  switch (box) {
    case ID_MERGE_USE_KEY:
      ShowNumber(dialog, ID_MERGE_SELECTED, SetUseKey(window.source, window.options, on));
      break;
    case ID_MERGE_ONLY_HAM:
      ShowNumber(dialog, ID_MERGE_SELECTED, SetOnlyHam(window.source, window.options, on));
      break;
    case ID_MERGE_OVERWRITE:
      window.options.overwrite = on;
      break;
    case ID_MERGE_GROUP_2:
      OnGroup2(dialog);
      break;
    default:
      break;
  }
}

void OnCommand(HWND dialog, int control, int notification) {
  switch (control) {
    case ID_MERGE_KEY:
      if (notification == EN_CHANGE) {
        OnKeyEdited(dialog);
      }
      break;
    case IDOK:
      OnOk(dialog);
      break;
    case IDCANCEL:
      EndDialog(dialog, -1);
      break;
    case ID_HELP:
      ShowHelp(kHelpMerge);
      break;
    default:
      OnBox(dialog, control);
      break;
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcMergeMem(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
}

bool ShowMergeDialog(CloneImage& image, const CloneImage& working_copy, const MergeSource& source,
                     MergeOptions& options) {
  MergeWindow window{
      .image = image, .working_copy = working_copy, .source = source, .options = options};
  return RunDialog("DlgMergeMem", DlgProcMergeMem, &window) == 0;
}

}  // namespace qz7
