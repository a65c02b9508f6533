#include <windows.h>
// Behind <windows.h>.
#include <winternl.h>

#include <string>

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
  GetProcessHandleCount(GetCurrentProcess(), &objects.handles);
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
