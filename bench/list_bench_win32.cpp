// list_bench: how long the memory list's box takes to be filled with its 240 rows, every channel
// programmed, as a part of one frame of a 60 Hz screen.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "core/files/new_document.h"
#include "core/image/channel_record.h"
#include "desktop/editors/channel_rows_dialog.h"

int main() {
  constexpr int kRuns = 101;
  constexpr double kFrame = 1.0 / 60;
  const auto image = std::make_unique<qz7::CloneImage>();
  qz7::MakeNewImage(*image);
  for (int n = 2; n <= qz7::kChannelCount; ++n) {
    std::copy_n(qz7::GetChannelRecord(*image, 1), qz7::kRecordSize,
                qz7::GetChannelRecord(*image, n));
    qz7::SetProgrammed(*image, n, true);
  }
  const HWND frame = CreateWindowExA(0, "STATIC", "", WS_VISIBLE | WS_POPUP, 0, 0, 500, 400,
                                     nullptr, nullptr, nullptr, nullptr);
  const HWND list = CreateWindowExA(
      0, "LISTBOX", "", WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_HASSTRINGS | LBS_USETABSTOPS, 0, 0,
      500, 400, frame, nullptr, nullptr, nullptr);
  LARGE_INTEGER frequency;
  QueryPerformanceFrequency(&frequency);
  std::vector<double> seconds;
  for (int run = 0; run < kRuns; ++run) {
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    LARGE_INTEGER begun;
    LARGE_INTEGER done;
    QueryPerformanceCounter(&begun);
    qz7::FillRows(list, *image, {});
    UpdateWindow(list);
    QueryPerformanceCounter(&done);
    seconds.push_back(static_cast<double>(done.QuadPart - begun.QuadPart) /
                      static_cast<double>(frequency.QuadPart));
  }
  std::nth_element(seconds.begin(), seconds.begin() + kRuns / 2, seconds.end());
  const double median = seconds[kRuns / 2];
  std::printf("240 rows filled and drawn in %.2f ms: %.2f of a frame (1/60 s)\n", median * 1000,
              median / kFrame);
  return 0;
}
