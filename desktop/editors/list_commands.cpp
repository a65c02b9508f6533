#include "desktop/editors/list_commands.h"

#include "core/editors/memory_list.h"
#include "core/files/seams.h"
#include "core/image/text_codec.h"
#include "core/interchange/copied_text.h"
#include "desktop/editors/channel_editor_dialog.h"
#include "desktop/editors/channel_rows_dialog.h"
#include "desktop/editors/find_channel_dialog.h"
#include "desktop/toolkit/clipboard.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/held_drawing.h"

namespace qz7 {
namespace {

using RowsCommand = RowsChange (*)(CloneImage& image, Rows rows);

UINT ChannelsFormat() { return RegisterClipboardFormatA("QZ-7H Programmer Channels"); }

// Rows that were selected before are shown where they were; ones that are selected anew come into
// view.
void ShowSelection(HWND list, const std::vector<int>& rows, const std::vector<int>& before) {
  SelectRows(list, rows);
  if (!rows.empty() && rows != before) {
    const bool went_down = !before.empty() && rows.front() > before.front();
    ShowRow(list, went_down ? rows.front() : rows.back());
    ShowRow(list, went_down ? rows.back() : rows.front());
  }
}

// The row under the pointer may have become another channel's.
void ForgetTip(ListWindow& window) { window.tips.row = -1; }

// What a command has done: on the screen, and as a step that can be taken back.
void Finish(HWND dialog, const RowsChange& change, const std::vector<int>& rows_before) {
  if (change.beep) {
    MessageBeep(MB_OK);
    return;
  }
  auto& window = StateOf<ListWindow>(dialog);
  const Document& document = window.document;
  const HWND list = ListOf(dialog);
  const HeldDrawing held(list);
  RedrawRowsFrom(list, document.image, document.region, change.first_row + 1, change.row_count);
  if (change.row_count > 0) {
    ShowSelection(list, change.selection, rows_before);
  }
  ForgetTip(window);
  RecordStep(window.history, document, rows_before, change.selection);
}

void RunOnSelection(HWND dialog, RowsCommand command) {
  const std::vector<int> rows = SelectedRows(ListOf(dialog));
  Finish(dialog, command(StateOf<ListWindow>(dialog).document.image, rows), rows);
}

void TakeStep(HWND dialog, RowsChange (*step)(ListHistory& history, Document& document)) {
  auto& window = StateOf<ListWindow>(dialog);
  const std::vector<int> rows = SelectedRows(ListOf(dialog));
  Finish(dialog, step(window.history, window.document), rows);
}

bool CopySelection(HWND dialog) {
  const CloneImage& image = StateOf<ListWindow>(dialog).document.image;
  const std::vector<ChannelCopy> channels = CopyRows(image, SelectedRows(ListOf(dialog)));
  const bool copied =
      !channels.empty() &&
      PutOnClipboard(dialog, ChannelsFormat(), {TextOfChannels(channels), BytesOfCopies(channels)});
  if (!copied) {
    MessageBeep(MB_OK);
  }
  return copied;
}

void CutSelection(HWND dialog) {
  if (CopySelection(dialog)) {
    RunOnSelection(dialog, ClearRows);
  }
}

std::vector<ChannelCopy> ChannelsOnClipboard(HWND dialog, const Document& document) {
  if (const auto bytes = BytesOnClipboard(dialog, ChannelsFormat())) {
    return CopiesOfBytes(*bytes).value_or(std::vector<ChannelCopy>{});
  }
  const auto text = TextOnClipboard(dialog);
  return text ? ChannelsOfText(document.image, *text, document.region) : std::vector<ChannelCopy>{};
}

void Paste(HWND dialog) {
  Document& document = StateOf<ListWindow>(dialog).document;
  const std::vector<ChannelCopy> channels = ChannelsOnClipboard(dialog, document);
  const std::vector<int> rows = SelectedRows(ListOf(dialog));
  Finish(dialog, PasteRows(document.image, rows, channels), rows);
}

void GoToRow(HWND dialog, int row) {
  SelectRow(ListOf(dialog), row);
  ShowRow(ListOf(dialog), row);
}

void FindNext(HWND dialog) {
  const auto& window = StateOf<ListWindow>(dialog);
  const auto caret = static_cast<int>(SendMessageA(ListOf(dialog), LB_GETCARETINDEX, 0, 0));
  const auto row =
      FindNextRow(window.document.image, window.searched, caret, window.document.region);
  if (row) {
    GoToRow(dialog, *row);
  } else if (!window.searched.empty()) {
    ShowMessage("Not found in any name, comment or frequency:\n" + window.searched, kProgramTitle,
                Buttons::kOk, Icon::kInformation);
  }
}

void Find(HWND dialog) {
  if (AskWhatToFind(StateOf<ListWindow>(dialog).searched)) {
    FindNext(dialog);
  }
}

void FindAgain(HWND dialog) {
  if (StateOf<ListWindow>(dialog).searched.empty()) {
    Find(dialog);
  } else {
    FindNext(dialog);
  }
}

void SelectAll(HWND dialog) {
  const auto count = static_cast<int>(SendMessageA(ListOf(dialog), LB_GETCOUNT, 0, 0));
  if (count > 0) {
    SendMessageA(ListOf(dialog), LB_SELITEMRANGEEX, 0, count - 1);
  }
}

// Each channel that the editor writes is a step.
void Edit(HWND dialog) {
  const HWND list = ListOf(dialog);
  auto& window = StateOf<ListWindow>(dialog);
  const RowToEdit edit = ChannelToEdit(SelectedRows(list));
  if (edit.beep) {
    MessageBeep(MB_OK);
  }
  if (edit.channel == 0) {
    return;
  }
  const auto written = [&](int n) {
    const HeldDrawing held(list);
    const std::vector<int> selected = SelectedRows(list);
    RedrawRowsFrom(list, window.document.image, window.document.region, n, 1);
    SelectRows(list, selected);
    const int row = n - 1;
    ForgetTip(window);
    RecordStep(window.history, window.document, {&row, 1}, {&row, 1});
  };
  const auto shown = [&](int n) { GoToRow(dialog, n - 1); };
  ShowChannelEditorDialog(window.document, edit.channel, {.written = written, .shown = shown});
}

}  // namespace

void RunListCommand(HWND dialog, int command) {
  switch (command) {
    case ID_EDIT_CHANNEL:
      return Edit(dialog);
    case ID_MOVE_UP:
      return RunOnSelection(dialog, MoveRowsUp);
    case ID_MOVE_DOWN:
      return RunOnSelection(dialog, MoveRowsDown);
    case ID_INSERT_CHANNEL:
      return RunOnSelection(dialog, InsertBeforeRows);
    case ID_DELETE_CHANNEL:
      return RunOnSelection(dialog, DeleteRows);
    case ID_CLEAR_CHANNEL:
      return RunOnSelection(dialog, ClearRows);
    case ID_UNDO:
      return TakeStep(dialog, Undo);
    case ID_REDO:
      return TakeStep(dialog, Redo);
    case ID_CUT:
      return CutSelection(dialog);
    case ID_COPY:
      CopySelection(dialog);
      return;
    case ID_PASTE:
      return Paste(dialog);
    case ID_FIND:
      return Find(dialog);
    case ID_FIND_NEXT:
      return FindAgain(dialog);
    case ID_SELECT_ALL_ROWS:
      return SelectAll(dialog);
    default:
      return;
  }
}

void FindTyped(HWND dialog, char c, int row) {
  auto& window = StateOf<ListWindow>(dialog);
  const auto now = static_cast<std::uint32_t>(GetMessageTime());
  const auto found = TypeCharacter(window.typed, window.document.image, c, now, row);
  if (found) {
    GoToRow(dialog, *found);
  } else if (!IsControl(c) && c != ' ') {
    MessageBeep(MB_OK);
  }
}

}  // namespace qz7
