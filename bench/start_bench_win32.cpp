// start_bench PROGRAM OTHER...: how long each takes from its start to a main window that answers
// and on to the first wait for the user, all painted, and the most memory it has held by then, as
// ratios of the first to each other one: the median of all starts, and the least, which other work
// on the machine disturbs the least.
#include <windows.h>
// Behind <windows.h>.
#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int kRuns = 31;
constexpr DWORD kLongestStart = 20'000;

struct Start {
  double answers = 0;  // seconds
  double waits = 0;
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
  start.answers = Now() - began;
  WaitForInputIdle(made.hProcess, kLongestStart);
  start.waits = Now() - began;
  PROCESS_MEMORY_COUNTERS memory{};
  GetProcessMemoryInfo(made.hProcess, &memory, sizeof memory);
  start.peak_megabytes = static_cast<double>(memory.PeakWorkingSetSize) / (1024.0 * 1024.0);
  TerminateProcess(made.hProcess, 0);
  WaitForSingleObject(made.hProcess, INFINITE);
  CloseHandle(made.hThread);
  CloseHandle(made.hProcess);
  return true;
}

std::vector<double> Sorted(const std::vector<Start>& starts, double Start::*value) {
  std::vector<double> values;
  values.reserve(starts.size());
  for (const Start& start : starts) {
    values.push_back(start.*value);
  }
  std::sort(values.begin(), values.end());
  return values;
}

struct Measured {
  std::string program;
  std::vector<Start> starts;
};

void Compare(const Measured& own, const Measured& other, double Start::*value, const char* what) {
  const std::vector<double> ours = Sorted(own.starts, value);
  const std::vector<double> others = Sorted(other.starts, value);
  constexpr int kMiddle = kRuns / 2;
  std::printf("%s: %.3f, %s %.3f: ratio %.2f; least %.3f, %.3f: ratio %.2f\n", what, ours[kMiddle],
              other.program.c_str(), others[kMiddle], ours[kMiddle] / others[kMiddle], ours[0],
              others[0], ours[0] / others[0]);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: start_bench PROGRAM OTHER...\n");
    return 2;
  }
  std::vector<Measured> programs;
  for (int i = 1; i < argc; ++i) {
    programs.push_back({argv[i], {}});
  }
  // In turn, so that all meet the same machine, there and back, so that none always meets what the
  // same other one left behind; the first start of each fills the caches.
  for (int run = -1; run < kRuns; ++run) {
    for (std::size_t i = 0; i < programs.size(); ++i) {
      Measured& one = programs[run % 2 == 0 ? i : programs.size() - 1 - i];
      Start start;
      if (!Measure(one.program, start)) {
        return 1;
      }
      if (run >= 0) {
        one.starts.push_back(start);
      }
    }
  }
  for (std::size_t i = 1; i < programs.size(); ++i) {
    Compare(programs[0], programs[i], &Start::answers, "start to answering, s");
    Compare(programs[0], programs[i], &Start::waits, "start to waiting, s");
    Compare(programs[0], programs[i], &Start::peak_megabytes, "peak memory, MB");
  }
  return 0;
}
