// What it costs to tell a document as JSON and to make it again: for a full document, beside
// opening its file, and for documents of random bytes, which come back the same (these in seconds
// of the processor's own time).

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>
#include <random>
#include <string>

#include "core/files/new_document.h"
#include "core/files/radio_data_file.h"
#include "core/image/channel_record.h"
#include "core/interchange/codeplug.h"
#include "ctl/codeplug_json.h"

namespace qz7 {
namespace {

constexpr RegionVariant kRegion;

// The best of several rounds, in milliseconds.
template <typename Work>
double Milliseconds(Work work) {
  constexpr int kRounds = 15;
  double best = 1e9;
  for (int i = 0; i < kRounds; ++i) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    best = std::min(best, time.count());
  }
  return best;
}

std::string Dump(const CloneImage& image) { return JsonOf(DumpCodeplug(image, kRegion), false); }

void Build(const std::string& json, CloneImage& image) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(json.data());
  const ReadTree read = ParseTree(std::span(bytes, json.size()));
  MakeNewImage(image);
  if (!read.errors.empty() || !BuildCodeplug(read.tree, image, kRegion).empty()) {
    std::fprintf(stderr, "a document is refused\n");
    std::exit(1);
  }
}

// Every channel is programmed, named and commented, and no two are the same.
void FillDocument(CloneImage& image) {
  MakeNewImage(image);
  for (int n = 1; n <= kChannelCount; ++n) {
    std::uint8_t* record = GetChannelRecord(image, n);
    std::copy_n(GetChannelRecord(image, 1), kRecordSize, record);
    StoreReceive(record, Kilohertz(144'000 + 5 * n));
    StoreRecordName(record, "RPT" + std::to_string(n));
    SetProgrammed(image, n, true);
    SetMasked(image, n, false);
    const std::string comment = "Hill " + std::to_string(n) + ", north side";
    std::copy(comment.begin(), comment.end(), ChannelComment(image, n));
  }
}

void FillWithRandomBytes(CloneImage& image, unsigned seed) {
  std::mt19937 engine(seed);
  MakeNewImage(image);
  std::generate(image.begin() + kRadioBlock.offset, image.end(),
                [&] { return static_cast<std::uint8_t>(engine()); });
}

void RunFullDocument(const std::filesystem::path& path) {
  const auto image = std::make_unique<CloneImage>();
  const auto other = std::make_unique<CloneImage>();
  FillDocument(*image);
  WriteRadioDataFile(*image, path);
  const double open = Milliseconds([&] { ReadRadioDataFile(*other, path); });
  const double dump = Milliseconds([&] { Dump(*image); });
  const std::string json = Dump(*image);
  const double build = Milliseconds([&] { Build(json, *other); });
  std::printf("a full document of 240 channels, opened            %7.3f ms\n", open);
  std::printf("  told as JSON (%zu bytes)                      %7.3f ms  %7.1f x the opening\n",
              json.size(), dump, dump / open);
  std::printf("  made of it again                                 %7.3f ms  %7.1f x the opening\n",
              build, build / open);
}

void RunRandomDocuments(int count) {
  const auto image = std::make_unique<CloneImage>();
  const auto other = std::make_unique<CloneImage>();
  const std::clock_t start = std::clock();
  for (int i = 0; i < count; ++i) {
    FillWithRandomBytes(*image, static_cast<unsigned>(i));
    Build(Dump(*image), *other);
    PrepareRadioDataFile(*image);
    PrepareRadioDataFile(*other);
    if (*image != *other) {
      std::fprintf(stderr, "document %d comes back otherwise\n", i);
      std::exit(1);
    }
  }
  const double time = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  std::printf("%d documents of random bytes, there and back   %7.1f s   %7.3f ms each\n", count,
              time, 1000 * time / count);
}

}  // namespace
}  // namespace qz7

int main() {
  const std::filesystem::path path = std::filesystem::temp_directory_path() / "qz7-bench.rdf";
  qz7::RunFullDocument(path);
  std::filesystem::remove(path);
  qz7::RunRandomDocuments(10'000);
  return 0;
}
