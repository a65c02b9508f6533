// start_bench PROGRAM OTHER: how long each takes from its start to a main window that answers, and
// the most memory it has held by then, as ratios of the first to the second.
#include <windows.h>
// Behind <windows.h>.
#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int kRuns = 15;
constexpr DWORD kLongestStart = 20'000;

struct Start {
  double seconds = 0;
  double peak_megabytes = 0;
};

struct Search {
  DWORD process;
  HWND window;
};

BOOL CALLBACK FindMainWindow(HWND window, LPARAM data) {
  auto& search = *reinterpret_cast<Search*>(data);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != search.process || !IsWindowVisible(window) ||
      GetWindow(window, GW_OWNER) != nullptr) {
    return TRUE;
  }
  search.window = window;
  return FALSE;
}

bool Answers(DWORD process) {
  Search search{process, nullptr};
  EnumWindows(FindMainWindow, reinterpret_cast<LPARAM>(&search));
  return search.window != nullptr && SendMessageTimeoutA(search.window, WM_NULL, 0, 0, SMTO_NORMAL,
                                                         kLongestStart, nullptr) != 0;
}

double Now() {
  LARGE_INTEGER count;
  LARGE_INTEGER frequency;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

bool Measure(std::string command, Start& start) {
  STARTUPINFOA how{};
  how.cb = sizeof how;
  PROCESS_INFORMATION made{};
  const double began = Now();
  if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how,
                      &made)) {
    std::fprintf(stderr, "%s does not start\n", command.c_str());
    return false;
  }
  while (!Answers(made.dwProcessId) && Now() - began < kLongestStart / 1000.0) {
    Sleep(1);
  }
  start.seconds = Now() - began;
  PROCESS_MEMORY_COUNTERS memory{};
  GetProcessMemoryInfo(made.hProcess, &memory, sizeof memory);
  start.peak_megabytes = static_cast<double>(memory.PeakWorkingSetSize) / (1024.0 * 1024.0);
  TerminateProcess(made.hProcess, 0);
  WaitForSingleObject(made.hProcess, INFINITE);
  CloseHandle(made.hThread);
  CloseHandle(made.hProcess);
  return true;
}

double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + kRuns / 2, values.end());
  return values[kRuns / 2];
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: start_bench PROGRAM OTHER\n");
    return 2;
  }
  std::vector<double> seconds[2];
  std::vector<double> megabytes[2];
  // In turn, so that both meet the same machine; the first start of each fills the caches.
  for (int run = -1; run < kRuns; ++run) {
    for (int which = 0; which < 2; ++which) {
      Start start;
      if (!Measure(argv[1 + which], start)) {
        return 1;
      }
      if (run >= 0) {
        seconds[which].push_back(start.seconds);
        megabytes[which].push_back(start.peak_megabytes);
      }
    }
  }
  std::printf("start to answering: %.3f s, other %.3f s: ratio %.2f\n", Median(seconds[0]),
              Median(seconds[1]), Median(seconds[0]) / Median(seconds[1]));
  std::printf("peak memory: %.2f MB, other %.2f MB: ratio %.3f\n", Median(megabytes[0]),
              Median(megabytes[1]), Median(megabytes[0]) / Median(megabytes[1]));
  return 0;
}
