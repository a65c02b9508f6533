#include <windows.h>
// Behind <windows.h>.
#include <winternl.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/ui/window_fixture.h"

namespace qz7 {
namespace {

// The system's own table of GDI objects: its entries' kinds are 0 where nothing is kept. Asking for
// the count (GetGuiResources) gives no answer under Wine.
std::size_t CountGdiObjects() {
  struct Entry {
    void* object;
    WORD owner_low;
    WORD owner_high;
    WORD unique;
    WORD kind;
    void* user;
  };
  constexpr std::size_t kEntries = 16'384;
  constexpr std::size_t kTableInBlock = 0xF8;  // of a 64-bit process environment block
  const auto* block =
      reinterpret_cast<const std::uint8_t*>(NtCurrentTeb()->ProcessEnvironmentBlock);
  const auto* table = *reinterpret_cast<const Entry* const*>(block + kTableInBlock);
  std::size_t count = 0;
  for (std::size_t i = 0; i < kEntries; ++i) {
    count += table[i].kind != 0 ? 1U : 0U;
  }
  return count;
}

// From the list of all handles of the system; the count of the process alone is always 0 under
// Wine.
std::size_t CountHandles() {
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
  constexpr ULONG kAllHandles = 64;
  const auto query = reinterpret_cast<Query>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation")));
  std::vector<ULONG_PTR> room(1024);
  while (query(kAllHandles, room.data(), static_cast<ULONG>(room.size() * sizeof room[0]),
               nullptr) < 0) {
    room.resize(room.size() * 2);
  }
  const auto* list = reinterpret_cast<const List*>(room.data());
  return static_cast<std::size_t>(
      std::count_if(list->handles, list->handles + list->count,
                    [](const Handle& one) { return one.process == GetCurrentProcessId(); }));
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

ProcessObjects CountNow() {
  RedrawWindow(app.main_window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  HandleMessages();
  ProcessObjects objects;
  objects.gdi_objects = CountGdiObjects();
  EnumThreadWindows(GetCurrentThreadId(), CountWithChildren,
                    reinterpret_cast<LPARAM>(&objects.windows));
  objects.handles = CountHandles();
  return objects;
}

std::string TextOf(const ProcessObjects& objects) {
  return std::to_string(objects.gdi_objects) + " GDI objects, " + std::to_string(objects.windows) +
         " windows, " + std::to_string(objects.handles) + " handles";
}

}  // namespace

ProcessObjects CountObjects() {
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
  return testing::AssertionFailure()
         << TextOf(before) << " before, " << TextOf(CountNow()) << " after";
}

}  // namespace qz7
