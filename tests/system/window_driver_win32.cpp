// Looks at and works the windows of other programs, for the tests of the desktop program: a command
// a line on standard input, an answer a line on standard output.
//
// A line is fields with tabs between them; "\t", "\n", "\r" and "\\" stand for what they say. An
// answer starts with "ok" and has the result's fields behind it, or it is "no" and the reason. A
// window is the number of its handle, a control the number of its identifier, a limit milliseconds.
// Both lines are UTF-8.
//
//   wait CLASS TITLE LIMIT      the visible top-level window of that class and title (empty: any)
//   gone WINDOW LIMIT           until it is destroyed
//   front WINDOW LIMIT          until it is the foreground window
//   focus WINDOW LIMIT          until the keyboard is its own or one of its controls'
//   screen_window WINDOW        its number on the screen that Wine shows it on
//   windows                     every visible top-level window: window, class, title
//   controls WINDOW             every visible control: identifier, class, text, 1 if enabled
//   enabled WINDOW              1 or 0
//   command WINDOW IDENTIFIER   posts a menu command
//   press WINDOW CONTROL        clicks a button
//   checked WINDOW CONTROL      1 or 0
//   text WINDOW CONTROL         its text
//   set WINDOW CONTROL TEXT     gives an edit field a text
//   choose WINDOW CONTROL N     selects the place N (from 0) in a list
//   chosen WINDOW CONTROL       the place selected (-1: none)
//   close WINDOW                asks it to close
//   tab_to WINDOW CONTROL       the keyboard goes there, as with the Tab key
//   focused WINDOW              the control that has the keyboard
//   rows WINDOW CONTROL         the texts of a list box
//   selected_rows WINDOW CONTROL  the places selected in it
//   row_area WINDOW CONTROL N   left, top, right, bottom on the screen
//   area WINDOW CONTROL         the same of a control or, without one, of the window
//   inside WINDOW               the same of the window without its frame
//   said WINDOW                 the text that the window itself gives
//   clipboard                   the text on the clipboard
//   set_clipboard TEXT          puts a text there
//   end_session WINDOW          asks whether the session may end; the answer can take its time
//   may_end LIMIT               that answer: 1 or 0
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/system/window_rows_win32.h"

namespace {

constexpr DWORD kLookInterval = 5;

std::string Unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      plain += text[i];
      continue;
    }
    const char c = text[++i];
    plain += c == 't' ? '\t' : c == 'n' ? '\n' : c == 'r' ? '\r' : c;
  }
  return plain;
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    const std::size_t special = std::string_view("\t\n\r\\").find(c);
    if (special == std::string_view::npos) {
      escaped += c;
    } else {
      escaped.append(1, '\\').append(1, "tnr\\"[special]);
    }
  }
  return escaped;
}

Fields SplitLine(std::string_view line) {
  Fields fields;
  for (;;) {
    const std::size_t end = line.find('\t');
    fields.push_back(Unescaped(line.substr(0, end)));
    if (end == std::string_view::npos) {
      return fields;
    }
    line.remove_prefix(end + 1);
  }
}

void WaitUntil(const std::function<bool()>& condition, const std::string& limit,
               const char* reason) {
  const ULONGLONG deadline = GetTickCount64() + static_cast<ULONGLONG>(Number(limit));
  while (!condition()) {
    if (GetTickCount64() >= deadline) {
      throw Refused(reason);
    }
    Sleep(kLookInterval);
  }
}

HWND FindTopWindow(const std::string& class_name, const std::string& title) {
  for (const HWND window : VisibleWindows()) {
    if ((class_name.empty() || ClassOf(window) == class_name) &&
        (title.empty() || TitleOf(window) == title)) {
      return window;
    }
  }
  return nullptr;
}

Fields Wait(const Fields& fields) {
  HWND found = nullptr;
  const auto is_there = [&] {
    found = FindTopWindow(fields[1], fields[2]);
    return found != nullptr;
  };
  WaitUntil(is_there, fields[3], "the window does not come");
  return {NumberOf(found)};
}

Fields Gone(const Fields& fields) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the window may be gone already
  const HWND window = reinterpret_cast<HWND>(Number(fields[1]));
  WaitUntil([&] { return !IsWindow(window); }, fields[2], "the window stays");
  return {};
}

Fields Front(const Fields& fields) {
  const HWND window = WindowOf(fields[1]);
  WaitUntil([&] { return GetForegroundWindow() == window; }, fields[2],
            "another window is in the foreground");
  return {};
}

Fields Focus(const Fields& fields) {
  const HWND window = WindowOf(fields[1]);
  const DWORD thread = GetWindowThreadProcessId(window, nullptr);
  const auto has_focus = [&] {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(thread, &info) && info.hwndFocus != nullptr &&
           (info.hwndFocus == window || IsChild(window, info.hwndFocus));
  };
  WaitUntil(has_focus, fields[2], "the keyboard is elsewhere");
  return {};
}

// Wine keeps the number in a property, which it sets when it makes the screen's window.
Fields ScreenWindow(const Fields& fields) {
  const HANDLE number = GetPropW(WindowOf(fields[1]), L"__wine_x11_whole_window");
  return {std::to_string(reinterpret_cast<std::uintptr_t>(number))};
}

Fields ListWindows(const Fields&) {
  Fields result;
  for (const HWND window : VisibleWindows()) {
    result.insert(result.end(), {NumberOf(window), ClassOf(window), TitleOf(window)});
  }
  return result;
}

Fields ListControls(const Fields& fields) {
  Fields result;
  for (const HWND control : VisibleControls(WindowOf(fields[1]))) {
    result.insert(result.end(), {std::to_string(GetDlgCtrlID(control)), ClassOf(control),
                                 TextOf(control), IsWindowEnabled(control) ? "1" : "0"});
  }
  return result;
}

Fields Enabled(const Fields& fields) { return {IsWindowEnabled(WindowOf(fields[1])) ? "1" : "0"}; }

Fields Command(const Fields& fields) {
  const HWND window = WindowOf(fields[1]);
  if (!IsWindowEnabled(window)) {
    throw Refused("the window is disabled");
  }
  Post(window, WM_COMMAND, static_cast<WPARAM>(Number(fields[2])));
  return {};
}

Fields Press(const Fields& fields) {
  Post(UsableControlOf(fields[1], fields[2], "Button"), BM_CLICK);
  return {};
}

Fields Checked(const Fields& fields) {
  return {Ask(ControlOf(fields[1], fields[2], "Button"), BM_GETCHECK) == BST_CHECKED ? "1" : "0"};
}

Fields Text(const Fields& fields) { return {TextOf(ControlOf(fields[1], fields[2]))}; }

Fields Set(const Fields& fields) {
  Ask(UsableControlOf(fields[1], fields[2], "Edit"), WM_SETTEXT, 0,
      reinterpret_cast<LPARAM>(Wide(fields[3]).c_str()));
  return {};
}

struct ListMessages {
  UINT select;
  UINT selected;
  WORD changed;
};

ListMessages MessagesOf(HWND list) {
  if (ClassOf(list) == "ComboBox") {
    return {CB_SETCURSEL, CB_GETCURSEL, CBN_SELCHANGE};
  }
  if (ClassOf(list) == "ListBox") {
    return {LB_SETCURSEL, LB_GETCURSEL, LBN_SELCHANGE};
  }
  throw Refused("not a list");
}

Fields Choose(const Fields& fields) {
  const HWND list = UsableControlOf(fields[1], fields[2]);
  const ListMessages messages = MessagesOf(list);
  const LONG_PTR place = Number(fields[3]);
  if (Ask(list, messages.select, static_cast<WPARAM>(place)) != place) {
    throw Refused("the list has no such place");
  }
  const int identifier = GetDlgCtrlID(list);
  Ask(GetParent(list), WM_COMMAND, MAKEWPARAM(identifier, messages.changed),
      reinterpret_cast<LPARAM>(list));
  return {};
}

Fields Chosen(const Fields& fields) {
  const HWND list = ControlOf(fields[1], fields[2]);
  return {std::to_string(static_cast<int>(Ask(list, MessagesOf(list).selected)))};
}

Fields Close(const Fields& fields) {
  Post(WindowOf(fields[1]), WM_CLOSE);
  return {};
}

Fields TabTo(const Fields& fields) {
  const HWND control = UsableControlOf(fields[1], fields[2]);
  Post(GetParent(control), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
  return {};
}

Fields Focused(const Fields& fields) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(WindowOf(fields[1]), nullptr), &info);
  return {std::to_string(info.hwndFocus != nullptr ? GetDlgCtrlID(info.hwndFocus) : 0)};
}

HANDLE ending = nullptr;  // the thread that asks

DWORD WINAPI AskForEnd(void* window) {
  return SendMessageW(static_cast<HWND>(window), WM_QUERYENDSESSION, 0, 0) != 0 ? 1 : 0;
}

Fields EndSession(const Fields& fields) {
  ending = CreateThread(nullptr, 0, AskForEnd, WindowOf(fields[1]), 0, nullptr);
  return {};
}

Fields MayEnd(const Fields& fields) {
  if (WaitForSingleObject(ending, static_cast<DWORD>(Number(fields[1]))) != WAIT_OBJECT_0) {
    throw Refused("the window does not answer");
  }
  DWORD answer = 0;
  GetExitCodeThread(ending, &answer);
  CloseHandle(ending);
  return {std::to_string(answer)};
}

struct Action {
  std::string_view name;
  std::size_t fields;
  Fields (*run)(const Fields&);
};

constexpr Action kActions[] = {
    {"wait", 4, Wait},           {"gone", 3, Gone},
    {"front", 3, Front},         {"focus", 3, Focus},
    {"windows", 1, ListWindows}, {"controls", 2, ListControls},
    {"enabled", 2, Enabled},     {"command", 3, Command},
    {"press", 3, Press},         {"checked", 3, Checked},
    {"text", 3, Text},           {"set", 4, Set},
    {"choose", 4, Choose},       {"chosen", 3, Chosen},
    {"close", 2, Close},         {"tab_to", 3, TabTo},
    {"focused", 2, Focused},     {"end_session", 2, EndSession},
    {"may_end", 2, MayEnd},      {"screen_window", 2, ScreenWindow},
    {"rows", 3, Rows},           {"selected_rows", 3, SelectedRows},
    {"row_area", 4, RowArea},    {"area", 3, Area},
    {"inside", 2, Inside},       {"said", 2, Said},
    {"clipboard", 1, Clipboard}, {"set_clipboard", 2, SetClipboard},
};

Fields Run(const Fields& fields) {
  for (const Action& action : kActions) {
    if (action.name == fields[0]) {
      if (action.fields != fields.size()) {
        throw Refused("wrong number of fields for " + fields[0]);
      }
      return action.run(fields);
    }
  }
  throw Refused("no such command: " + fields[0]);
}

std::string AnswerTo(const std::string& line) {
  try {
    std::string answer = "ok";
    for (const std::string& field : Run(SplitLine(line))) {
      answer.append("\t").append(Escaped(field));
    }
    return answer;
  } catch (const Refused& refused) {
    return "no\t" + Escaped(refused.what());
  }
}

}  // namespace

int main() {
  SetProcessDPIAware();  // so that its places are those of the screen
  std::string line;
  while (std::getline(std::cin, line)) {
    if (line.ends_with('\r')) {
      line.pop_back();
    }
    std::puts(AnswerTo(line).c_str());
    std::fflush(stdout);
  }
  return 0;
}
