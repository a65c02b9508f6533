#include "desktop/printing/print_job.h"

#include <algorithm>
#include <cstdint>

#include "core/files/seams.h"

namespace qz7 {
namespace {

void ShowFailure(const char* text) { ShowMessage(text, "ERROR", Buttons::kOk, Icon::kStop); }

void PrintPages(PrintJob& job, const std::vector<PrintPage>& pages, Printer& printer) {
  int number = 0;
  for (const PrintPage& page : pages) {
    job.show_page("Page " + std::to_string(++number));
    printer.StartPage();
    for (const PlacedLine& line : page) {
      printer.DrawLine(line);
    }
    printer.EndPage();
  }
}

void PrintCopies(PrintJob& job, const std::vector<PrintPage>& pages, Printer& printer) {
  for (int copy = 1; copy <= job.copies && !job.aborted; ++copy) {
    if (job.copies > 1) {
      job.show_copy("Copy " + std::to_string(copy) + " of " + std::to_string(job.copies));
    }
    PrintPages(job, pages, printer);
  }
}

}  // namespace

int FittingHeight(int height, int room, const std::function<int(int)>& width_at) {
  const auto fits = [&](int candidate) { return width_at(candidate) <= room; };
  if (height <= 1 || fits(height)) {
    return height;
  }
  const auto shrunk =
      static_cast<std::int64_t>(height) * std::max(room, 0) / std::max(width_at(height), 1);
  int candidate = std::max(static_cast<int>(shrunk), 1);
  while (candidate > 1 && !fits(candidate)) {
    --candidate;
  }
  while (candidate + 1 < height && fits(candidate + 1)) {
    ++candidate;
  }
  return candidate;
}

std::vector<PrintPage> Paginate(const std::vector<std::string>& lines,
                                const DeviceFigures& figures) {
  const int left = figures.horizontal_pixels_per_inch / 2;
  const int top = figures.vertical_pixels_per_inch / 2;
  const int bottom_limit = figures.vertical_resolution - figures.vertical_pixels_per_inch;
  std::vector<PrintPage> pages;
  bool page_open = false;
  int y = 0;
  for (const std::string& line : lines) {
    if (!page_open) {
      pages.emplace_back();
      y = 0;
    }
    pages.back().push_back({line, left, top + y});
    y += figures.line_height;
    page_open = y < bottom_limit;
  }
  return pages;
}

void RunPrintJob(PrintJob& job, const std::vector<std::string>& lines, Printer& printer) {
  job.aborted = false;
  if (!printer.InstallAbort()) {
    ShowFailure("Printing Failed (1).");
    job.aborted = true;
  }
  // Tried after a first failure as well.
  if (!printer.StartDocument(job.document_name)) {
    ShowFailure("Printing Failed (2).");
    job.aborted = true;
  }
  if (!job.aborted) {
    printer.FitFont(lines);
    PrintCopies(job, Paginate(lines, printer.Figures()), printer);
  }
  // Without a full stop, unlike the other two.
  if (!job.aborted && !printer.EndDocument()) {
    ShowFailure("Printing Failed (3)");
  }
}

}  // namespace qz7
