#include "desktop/editors/groups_dialog.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "core/editors/groups.h"
#include "core/files/seams.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/held_drawing.h"
#include "desktop/toolkit/help.h"
#include "desktop/toolkit/radio_font.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

struct GroupsWindow {
  const CloneImage& image;
  CloneImage& working_copy;
  GroupEditor editor{};
  Font font{};
};

GroupsWindow& WindowOf(HWND dialog) { return StateOf<GroupsWindow>(dialog); }

LRESULT Ask(HWND dialog, int list, UINT message, WPARAM w = 0, LPARAM l = 0) {
  return SendDlgItemMessageA(dialog, list, message, w, l);
}

std::optional<int> SelectedRow(HWND dialog, int list) {
  const LRESULT row = Ask(dialog, list, LB_GETCURSEL);
  return row < 0 ? std::nullopt : std::optional(static_cast<int>(row));
}

void AddRow(HWND dialog, int list, const std::string& row) {
  Ask(dialog, list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
}

void FillChannelList(HWND dialog) {
  const auto& window = WindowOf(dialog);
  const CloneImage& image = window.working_copy;
  const HeldDrawing held(GetDlgItem(dialog, ID_GROUP_CHANNELS));
  for (int n = 1; n <= GetChannelCount(image); ++n) {
    AddRow(dialog, ID_GROUP_CHANNELS, GroupChannelRow(image, n, window.editor.region));
  }
}

void ShowGroupList(HWND dialog) {
  const HWND list = GetDlgItem(dialog, ID_GROUP_MEMBERS);
  const HeldDrawing held(list);
  InvalidateRect(list, nullptr, TRUE);  // below the last row, too
  Ask(dialog, ID_GROUP_MEMBERS, LB_RESETCONTENT);
  for (const std::string& row : WindowOf(dialog).editor.rows) {
    AddRow(dialog, ID_GROUP_MEMBERS, row);
  }
}

void OnAdd(HWND dialog) {
  auto& window = WindowOf(dialog);
  const std::size_t before = window.editor.rows.size();
  const GroupEdit edit =
      AddToGroupList(window.working_copy, window.editor, SelectedRow(dialog, ID_GROUP_CHANNELS));
  if (edit != GroupEdit::kDone) {
    MessageBeep(MB_OK);
  }
  if (edit == GroupEdit::kBeepAndTell) {
    ShowMessage("Channel can only be in the group once.", kProgramTitle, Buttons::kOk,
                Icon::kWarning);
  }
  if (window.editor.rows.size() > before) {
    AddRow(dialog, ID_GROUP_MEMBERS, window.editor.rows.back());
    Ask(dialog, ID_GROUP_MEMBERS, LB_SETCURSEL, before);
  }
}

// The row that moves up is selected next, so that several can be removed one after the other.
void OnRemove(HWND dialog) {
  auto& window = WindowOf(dialog);
  const auto row = SelectedRow(dialog, ID_GROUP_MEMBERS);
  if (RemoveFromGroupList(window.editor, row) == GroupEdit::kBeep) {
    MessageBeep(MB_OK);
    return;
  }
  Ask(dialog, ID_GROUP_MEMBERS, LB_DELETESTRING, static_cast<WPARAM>(*row));
  if (!window.editor.rows.empty()) {
    const int last = static_cast<int>(window.editor.rows.size()) - 1;
    Ask(dialog, ID_GROUP_MEMBERS, LB_SETCURSEL, static_cast<WPARAM>(std::min(*row, last)));
  }
}

void OnGroup(HWND dialog) {
  auto& window = WindowOf(dialog);
  const int chosen = ChosenInList(dialog, ID_GROUP).value_or(-1);
  if (chosen >= 0 && chosen != window.editor.group) {
    ChangeGroup(window.working_copy, window.editor, chosen);
    ShowGroupList(dialog);
  }
}

void OnOk(HWND dialog) {
  auto& window = WindowOf(dialog);
  AcceptGroups(window.working_copy, window.editor);
  EndDialog(dialog, 0);
}

void OnCancel(HWND dialog) {
  const auto& window = WindowOf(dialog);
  if (CancelGroups(window.image, window.working_copy, window.editor)) {
    EndDialog(dialog, -1);
  }
}

std::string RowText(const DRAWITEMSTRUCT& item) {
  std::string text(
      static_cast<std::size_t>(SendMessageA(item.hwndItem, LB_GETTEXTLEN, item.itemID, 0)) + 1,
      '\0');
  const LRESULT length =
      SendMessageA(item.hwndItem, LB_GETTEXT, item.itemID, reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length < 0 ? 0 : length));
  return text;
}

void DrawRowText(const DRAWITEMSTRUCT& item, const std::string& text) {
  constexpr std::array kStops = {14, 56, 72, 81, 92, 101};
  const int unit = LOWORD(GetDialogBaseUnits());
  std::array<int, kStops.size()> stops{};
  for (std::size_t i = 0; i < stops.size(); ++i) {
    stops[i] = kStops[i] * unit / 4;
  }
  TEXTMETRICA metrics{};
  GetTextMetricsA(item.hDC, &metrics);
  const int y = (item.rcItem.top + item.rcItem.bottom - metrics.tmHeight) / 2;
  TabbedTextOutA(item.hDC, item.rcItem.left + 2, y, text.c_str(), static_cast<int>(text.size()),
                 static_cast<int>(stops.size()), stops.data(), item.rcItem.left + 2);
}

void DrawRow(const DRAWITEMSTRUCT& item) {
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  if (item.itemID != static_cast<UINT>(-1)) {
    SetTextColor(item.hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    SetBkMode(item.hDC, TRANSPARENT);
    DrawRowText(item, RowText(item));
  }
  if ((item.itemState & ODS_FOCUS) != 0) {
    DrawFocusRect(item.hDC, &item.rcItem);
  }
}

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  auto& window = WindowOf(dialog);
  FillList(dialog, ID_GROUP, kGroupNames);
  SelectInList(dialog, ID_GROUP, window.editor.group);
  window.font = CreateRadioFont(dialog, kListFontHeight);
  const LONG row_height = CharacterSize(dialog, window.font).cy - 2;
  for (const int list : {ID_GROUP_CHANNELS, ID_GROUP_MEMBERS}) {
    UseFont(dialog, list, window.font);
    Ask(dialog, list, LB_SETITEMHEIGHT, 0, row_height);
  }
  FillChannelList(dialog);
  ShowGroupList(dialog);
  SetFocus(GetDlgItem(dialog, ID_GROUP_CHANNELS));
  return FALSE;
}

void OnList(HWND dialog, int list) {
  if (list == ID_GROUP_CHANNELS) {
    OnAdd(dialog);
  } else {
    OnRemove(dialog);
  }
}

void OnCommand(HWND dialog, int control, int notification) {
  switch (control) {
    case IDOK:
      OnOk(dialog);
      break;
    case IDCANCEL:
      OnCancel(dialog);
      break;
    case ID_HELP:
      ShowHelp(kHelpGroups);
      break;
    case ID_ADD_TO_GROUP:
      OnAdd(dialog);
      break;
    case ID_REMOVE_FROM_GROUP:
      OnRemove(dialog);
      break;
    case ID_GROUP:
      if (notification == CBN_SELCHANGE) {
        OnGroup(dialog);
      }
      break;
    case ID_GROUP_CHANNELS:
    case ID_GROUP_MEMBERS:
      if (notification == LBN_DBLCLK) {
        OnList(dialog, control);
      }
      break;
    default:
      break;
  }
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcGroupList(HWND dialog, UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_DRAWITEM:
      // NOLINTNEXTLINE(performance-no-int-to-ptr): the system passes the pointer as a number
      DrawRow(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
      return TRUE;
    default:
      return HandleDialogMessage({OnInit, OnCommand}, dialog, message, w, l);
  }
}

bool ShowGroupsDialog(const CloneImage& image, CloneImage& working_copy, int g,
                      const RegionVariant& region) {
  GroupsWindow window{.image = image, .working_copy = working_copy};
  window.editor = OpenGroupEditor(working_copy, g, region);
  return RunDialog("DLLDlgGroupList", DlgProcGroupList, &window) == 0;
}

}  // namespace qz7
