// What a line of an import file costs, for lists of 1,000, 10,000 and 65,535 lines, beside reading
// the same lines one by one and doing nothing. Everything is measured in one run on one machine;
// that the time a line stays the same, and the ratios, are what counts.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <string>

#include "core/files/new_document.h"
#include "core/interchange/import_columns.h"
#include "core/interchange/import_lines.h"
#include "core/interchange/import_selection.h"

namespace qz7 {
namespace {

constexpr int kRounds = 7;

// The best of several rounds, in milliseconds.
template <typename Work>
double Milliseconds(Work work) {
  double best = std::numeric_limits<double>::max();
  for (int i = 0; i < kRounds; ++i) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    best = std::min(best, time.count());
  }
  return best;
}

// A list with every column, as this program exports it.
std::string MakeList(int lines) {
  std::string list =
      "\"RX Frequency\",\"TX Frequency\",\"Offset\",\"Tone\",\"Skip\",\"Power\","
      "\"Enc Frequency\",\"Dec Frequency\",\"Name\",\"Comment\"\r\n";
  for (int i = 1; i < lines; ++i) {
    std::array<char, 160> line;
    std::snprintf(line.data(), line.size(),
                  "\"14%d.%03d0\",\"0.6000\",\"-\",\"E\",\"\",\"High\",\"88.5\",\"88.5\","
                  "\"RPT%-5d\",\"Hill number %d, north side\"\r\n",
                  4 + i % 4, i % 200 * 5, i, i);
    list += line.data();
  }
  return list;
}

std::size_t ReadAndDoNothing(const std::string& list) {
  ImportLines lines = LinesOf({reinterpret_cast<const std::uint8_t*>(list.data()), list.size()});
  std::size_t bytes = 0;
  while (const auto line = NextLine(lines)) {
    bytes += line->size();
  }
  return bytes;
}

// The whole way from the bytes to the selection's list.
std::size_t ReadRecords(const CloneImage& image, const std::string& list) {
  ImportSession session;
  ImportOptions options;
  options.headers = true;
  TakeImportOptions(session, options);
  ImportLines lines = LinesOf({reinterpret_cast<const std::uint8_t*>(list.data()), list.size()});
  session.line_count = CountLines(lines);
  AcceptColumns(session, OpenColumnDialog(session, lines));
  return OpenSelection(image, session, lines)->listed;
}

// False when a list came back with the wrong number of rows.
bool Measure(const CloneImage& image, int lines) {
  const std::string list = MakeList(lines);
  std::size_t bytes = 0;
  std::size_t listed = 0;
  const double nothing = Milliseconds([&] { bytes = ReadAndDoNothing(list); });
  const double import = Milliseconds([&] { listed = ReadRecords(image, list); });
  std::printf("%6d lines: %8.2f ms, %7.1f ns a line   %5.1f x reading %zu bytes line by line\n",
              lines, import, import * 1e6 / lines, import / nothing, bytes);
  return listed == static_cast<std::size_t>(lines - 1);
}

}  // namespace
}  // namespace qz7

int main() {
  using namespace qz7;
  const auto image = std::make_unique<CloneImage>();
  MakeNewImage(*image);
  for (const int lines : {1'000, 10'000, 65'535}) {
    if (!Measure(*image, lines)) {
      std::fprintf(stderr, "The list of %d lines was not read whole.\n", lines);
      return EXIT_FAILURE;
    }
  }
  return EXIT_SUCCESS;
}
