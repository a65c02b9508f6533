#include "desktop/interchange/selection_dialog.h"

#include <windows.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "core/image/decimal.h"
#include "core/interchange/import_doubts.h"
#include "core/interchange/import_placement.h"
#include "core/interchange/import_selection.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/held_drawing.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

// What the dialog ends with.
constexpr INT_PTR kPlaced = 1;
constexpr INT_PTR kUnreadable = 0;
constexpr INT_PTR kCancelled = -1;

// In dialog units.
constexpr std::array<int, 6> kTabStops = {30, 40, 72, 112, 135, 150};

struct SelectionWindow {
  CloneImage& image;
  ImportSession& session;
  ImportLines& lines;
  const RegionVariant& region;
  ImportList list;
  PlacedChannels placed{};
  HFONT row_font = nullptr;
};

void ShowNumber(HWND dialog, int control, int number) {
  SetDlgItemTextA(dialog, control, std::to_string(number).c_str());
}

void HideGroupChoice(HWND dialog) {
  for (const int control : {ID_IMPORT_TO, ID_IMPORT_GROUP_1, ID_IMPORT_GROUP_2}) {
    ShowWindow(GetDlgItem(dialog, control), SW_HIDE);
  }
}

// The rows' letters are a little smaller than the dialog's: a frequency of eight characters has to
// end before the first tab stop, or every column would stand one stop too far to the right.
HFONT MakeRowFont(HWND dialog) {
  LOGFONTA font{};
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system hands the font out as a number
  GetObjectA(reinterpret_cast<HFONT>(SendMessageA(dialog, WM_GETFONT, 0, 0)), sizeof font, &font);
  font.lfHeight = MulDiv(font.lfHeight, 7, 8);
  return CreateFontIndirectA(&font);
}

// The width of 52 letters in the rows' font, of which a list counts its tab stops in quarters of
// the average.
int AlphabetWidth(HWND rows, HFONT font) {
  constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const HDC device = GetDC(rows);
  const HGDIOBJ old = SelectObject(device, font);
  SIZE size{};
  GetTextExtentPoint32A(device, kLetters, sizeof kLetters - 1, &size);
  SelectObject(device, old);
  ReleaseDC(rows, device);
  return size.cx;
}

void SetTabStops(HWND dialog, HWND rows, HFONT font) {
  const int average = (AlphabetWidth(rows, font) / 26 + 1) / 2;
  std::array<INT, kTabStops.size()> stops{};
  for (std::size_t i = 0; i < stops.size(); ++i) {
    RECT area{0, 0, kTabStops[i], 0};
    MapDialogRect(dialog, &area);
    stops[i] = MulDiv(area.right, 4, average);
  }
  SendMessageA(rows, LB_SETTABSTOPS, stops.size(), reinterpret_cast<LPARAM>(stops.data()));
}

void FillRows(HWND rows, const ImportList& list) {
  const HeldDrawing held(rows);
  for (const ImportRecord& record : list.Rows()) {
    SendMessageA(rows, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(FormatImportRow(record).c_str()));
  }
}

void ShowRows(HWND dialog, SelectionWindow& window) {
  const HWND rows = GetDlgItem(dialog, ID_IMPORT_ROWS);
  window.row_font = MakeRowFont(dialog);
  SendMessageA(rows, WM_SETFONT, reinterpret_cast<WPARAM>(window.row_font), FALSE);
  SetTabStops(dialog, rows, window.row_font);
  FillRows(rows, window.list);
}

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  auto& window = StateOf<SelectionWindow>(dialog);
  HideGroupChoice(dialog);
  // Before the lines are listed: that changes what the session keeps.
  const std::string doubts = DoubtsSummary(FindDoubts(window.image, window.session, window.lines));
  auto list = OpenSelection(window.image, window.session, window.lines);
  if (!list) {
    EndDialog(dialog, kUnreadable);
    return TRUE;
  }
  window.list = std::move(*list);
  SetWindowTextA(dialog, ImportCaption(window.session).c_str());
  ShowNumber(dialog, ID_START_MEMORY, DefaultStartChannel(window.image));
  ShowNumber(dialog, ID_AVAILABLE, GetChannelCount(window.image));
  ShowRows(dialog, window);
  ShowNumber(dialog, ID_IN_LIST, window.list.record_count);
  ShowNumber(dialog, ID_SELECTED, 0);
  SetDlgItemTextA(dialog, ID_IMPORT_DOUBTS, doubts.c_str());
  return TRUE;
}

// The number shown is the list's, also where fixed-length fields leave the list empty.
void OnSelectAll(HWND dialog) {
  SendDlgItemMessageA(dialog, ID_IMPORT_ROWS, LB_SETSEL, TRUE, -1);
  ShowNumber(dialog, ID_SELECTED, StateOf<SelectionWindow>(dialog).list.record_count);
}

void OnUnselectAll(HWND dialog) {
  SendDlgItemMessageA(dialog, ID_IMPORT_ROWS, LB_SETSEL, FALSE, -1);
  ShowNumber(dialog, ID_SELECTED, 0);
}

int SelectedCount(HWND dialog) {
  return static_cast<int>(SendDlgItemMessageA(dialog, ID_IMPORT_ROWS, LB_GETSELCOUNT, 0, 0));
}

std::vector<int> SelectedRows(HWND dialog) {
  std::vector<int> rows(static_cast<std::size_t>(SelectedCount(dialog)));
  SendDlgItemMessageA(dialog, ID_IMPORT_ROWS, LB_GETSELITEMS, rows.size(),
                      reinterpret_cast<LPARAM>(rows.data()));
  return rows;
}

void OnOk(HWND dialog) {
  auto& window = StateOf<SelectionWindow>(dialog);
  const int start = DecimalValue(ControlText(dialog, ID_START_MEMORY));
  const std::vector<int> rows = SelectedRows(dialog);
  switch (AcceptSelection(window.image, window.list, rows, start, window.region)) {
    case ImportAnswer::kPlaced:
      window.placed = {.first = start, .count = static_cast<int>(rows.size())};
      EndDialog(dialog, kPlaced);
      break;
    case ImportAnswer::kIllegalStart:
      SetFocus(GetDlgItem(dialog, ID_START_MEMORY));
      break;
    case ImportAnswer::kTooMany:
      break;
  }
}

// Help does nothing here, and nobody reads the overwrite box.
void OnCommand(HWND dialog, int control, int /*notification*/) {
  switch (control) {
    case ID_IMPORT_ROWS:
      ShowNumber(dialog, ID_SELECTED, SelectedCount(dialog));
      break;
    case ID_SELECT_ALL:
      OnSelectAll(dialog);
      break;
    case ID_UNSELECT_ALL:
      OnUnselectAll(dialog);
      break;
    case IDOK:
      OnOk(dialog);
      break;
    case IDCANCEL:
      EndDialog(dialog, kCancelled);
      break;
    default:
      break;
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcSelectList(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
}

std::optional<PlacedChannels> ShowSelectionDialog(CloneImage& image, ImportSession& session,
                                                  ImportLines& lines, const RegionVariant& region) {
  SelectionWindow window{
      .image = image, .session = session, .lines = lines, .region = region, .list = {}};
  const INT_PTR end = RunDialog("DlgSelectList", DlgProcSelectList, &window);
  DeleteObject(window.row_font);
  return end == kPlaced ? std::optional(window.placed) : std::nullopt;
}

}  // namespace qz7
