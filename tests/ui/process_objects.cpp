#include <windows.h>
// Behind <windows.h>.
#include <uxtheme.h>
#include <winternl.h>

#include <array>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "tests/ui/window_fixture.h"

namespace qz7 {
namespace {

// The system's own table of GDI objects: its entries' kinds are 0 where nothing is kept. Asking for
// the count (GetGuiResources) gives no answer under Wine.
std::map<std::string, int> GdiObjects() {
  struct Entry {
    void* object;
    WORD owner_low;
    WORD owner_high;
    WORD unique;
    BYTE kind;
    BYTE flags;
    void* user;
  };
  constexpr std::size_t kEntries = 16'384;
  constexpr std::size_t kTableInBlock = 0xF8;  // of a 64-bit process environment block
  const auto* block =
      reinterpret_cast<const std::uint8_t*>(NtCurrentTeb()->ProcessEnvironmentBlock);
  const auto* table = *reinterpret_cast<const Entry* const*>(block + kTableInBlock);
  std::map<std::string, int> objects;
  for (const Entry& entry : std::span(table, kEntries)) {
    if (entry.kind != 0) {
      ++objects["GDI object of kind " + std::to_string(entry.kind)];
    }
  }
  return objects;
}

// A function of the system's lowest library that its import library does not offer.
template <typename Function>
Function SystemFunction(const char* name) {
  return reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), name)));
}

// "Event", "Key \\Registry\\Machine\\...": what the handle is of, and its object's name if it has
// one.
std::string DescribeHandle(HANDLE handle) {
  using Query = NTSTATUS(NTAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);
  static const auto query = SystemFunction<Query>("NtQueryObject");
  constexpr ULONG kName = 1;
  constexpr ULONG kKind = 2;
  std::string text;
  for (const ULONG part : {kKind, kName}) {
    alignas(UNICODE_STRING) std::array<std::uint8_t, 2048> answer{};
    if (query(handle, part, answer.data(), answer.size(), nullptr) < 0) {
      continue;
    }
    const auto& said = *reinterpret_cast<const UNICODE_STRING*>(answer.data());
    text += text.empty() || said.Length == 0 ? "" : " ";
    for (std::size_t i = 0; i < said.Length / sizeof(WCHAR); ++i) {
      text += static_cast<char>(said.Buffer[i]);
    }
  }
  return text;
}

// From the list of all handles of the system; the count of the process alone is always 0 under
// Wine.
std::map<std::string, int> OwnHandles() {
  struct Handle {
    void* object;
    ULONG_PTR process;
    ULONG_PTR value;
    ULONG access;
    USHORT creator;
    USHORT kind;
    ULONG attributes;
    ULONG reserved;
  };
  struct List {
    ULONG_PTR count;
    ULONG_PTR reserved;
    Handle handles[1];
  };
  // The function's own enumeration does not name this kind of answer.
  using Query = NTSTATUS(NTAPI*)(ULONG, void*, ULONG, ULONG*);
  static const auto query = SystemFunction<Query>("NtQuerySystemInformation");
  constexpr ULONG kAllHandles = 64;
  std::vector<ULONG_PTR> room(1024);
  while (query(kAllHandles, room.data(), static_cast<ULONG>(room.size() * sizeof room[0]),
               nullptr) < 0) {
    room.resize(room.size() * 2);
  }
  const auto* list = reinterpret_cast<const List*>(room.data());
  std::map<std::string, int> handles;
  for (const Handle& one : std::span(list->handles, list->count)) {
    if (one.process == GetCurrentProcessId()) {
      ++handles[DescribeHandle(reinterpret_cast<HANDLE>(one.value))];
    }
  }
  return handles;
}

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
  ++*reinterpret_cast<std::size_t*>(count);
  return TRUE;
}

BOOL CALLBACK CountWithChildren(HWND window, LPARAM count) {
  ++*reinterpret_cast<std::size_t*>(count);
  EnumChildWindows(window, CountWindow, count);
  return TRUE;
}

// The system keeps the drawing contexts that were once in use at the same time, so that their
// number tells how deep painting has been nested so far. With this many always kept, it only tells
// how many were never given back.
void KeepManyContexts() {
  std::array<HDC, 100> contexts{};
  for (HDC& context : contexts) {
    context = GetDC(app.main_window);
  }
  for (HDC context : contexts) {
    ReleaseDC(app.main_window, context);
  }
}

ProcessObjects CountNow() {
  RedrawWindow(app.main_window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  HandleMessages();
  KeepManyContexts();
  // Its picture is there only as long as a field of this program has the screen's keyboard.
  DestroyCaret();
  ProcessObjects objects;
  objects.gdi_objects = GdiObjects();
  EnumThreadWindows(GetCurrentThreadId(), CountWithChildren,
                    reinterpret_cast<LPARAM>(&objects.windows));
  objects.handles = OwnHandles();
  return objects;
}

// What there are more or fewer of than there were, a line each.
std::string Difference(const std::map<std::string, int>& before,
                       const std::map<std::string, int>& now) {
  std::map<std::string, int> changes = now;
  for (const auto& [kind, count] : before) {
    changes[kind] -= count;
  }
  std::string text;
  for (const auto& [kind, change] : changes) {
    if (change != 0) {
      text += "\n" + std::string(change > 0 ? "+" : "") + std::to_string(change) + " " + kind;
    }
  }
  return text;
}

// Every part of the visual style in each of its states, where there is one: its pictures are made
// at their first use.
void DrawVisualStyle() {
  constexpr int kParts = 40;   // more than any kind has
  constexpr int kStates = 12;  // more than any part has
  const HDC context = CreateCompatibleDC(nullptr);
  const RECT place{0, 0, 20, 20};
  for (const wchar_t* kind :
       {L"BUTTON", L"COMBOBOX", L"EDIT", L"HEADER", L"LISTBOX", L"LISTVIEW", L"MENU", L"PROGRESS",
        L"SCROLLBAR", L"SPIN", L"STATUS", L"TAB", L"TOOLBAR", L"TOOLTIP", L"TRACKBAR", L"WINDOW"}) {
    const HTHEME theme = OpenThemeData(nullptr, kind);
    for (int part = 0; theme != nullptr && part <= kParts; ++part) {
      for (int state = 0; state <= kStates; ++state) {
        DrawThemeBackground(theme, context, part, state, &place, nullptr);
      }
    }
    if (theme != nullptr) {
      CloseThemeData(theme);
    }
  }
  DeleteDC(context);
}

// What the system keeps for good from the first use on: pointers, which a frame under the mouse is
// enough to use, icons, a brush of each colour, the visual style, a mutex for texts to a debugger.
void UseWhatTheSystemKeeps() {
  constexpr int kFirst = 32'512;
  constexpr int kLast = 32'671;
  for (int number = kFirst; number <= kLast; ++number) {
    LoadCursorA(nullptr, MAKEINTRESOURCEA(number));
    LoadIconA(nullptr, MAKEINTRESOURCEA(number));
  }
  for (int colour = 0; colour <= COLOR_MENUBAR; ++colour) {
    GetSysColorBrush(colour);
  }
  DrawVisualStyle();
  OutputDebugStringA("");
}

}  // namespace

ProcessObjects CountObjects() {
  UseWhatTheSystemKeeps();
  constexpr int kQuiet = 30;  // counts in a row that say the same
  ProcessObjects last = CountNow();
  int same = 0;
  HandleMessagesUntil([&] {
    const ProcessObjects now = CountNow();
    same = now == last ? same + 1 : 0;
    last = now;
    return same >= kQuiet;
  });
  return last;
}

testing::AssertionResult ComesBackTo(const ProcessObjects& before) {
  if (HandleMessagesUntil([&] { return CountNow() == before; })) {
    return testing::AssertionSuccess();
  }
  const ProcessObjects now = CountNow();
  return testing::AssertionFailure()
         << before.windows << " windows before, " << now.windows << " after; the rest changed by"
         << Difference(before.gdi_objects, now.gdi_objects)
         << Difference(before.handles, now.handles);
}

}  // namespace qz7
