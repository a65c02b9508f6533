// What it costs to open and check a document, to rebuild its tables and to write it, in
// microseconds each, beside a plain copy of the same bytes. Everything is measured in one run on
// one machine; the ratios are what counts.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "core/files/file_output.h"
#include "core/files/new_document.h"
#include "core/files/radio_data_file.h"
#include "core/image/channel_record.h"
#include "core/image/derived_tables.h"

namespace qz7 {
namespace {

template <typename Work>
double MicrosecondsEach(int times, Work work) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < times; ++i) {
    work();
  }
  const std::chrono::duration<double, std::micro> all = std::chrono::steady_clock::now() - start;
  return all.count() / times;
}

void Report(const char* what, double microseconds, double copy) {
  std::printf("%-42s %9.2f us   %7.1f x a plain copy\n", what, microseconds, microseconds / copy);
}

void ProgramEveryChannel(CloneImage& image) {
  for (int n = 2; n <= kChannelCount; ++n) {
    std::copy_n(GetChannelRecord(image, 1), kRecordSize, GetChannelRecord(image, n));
    SetProgrammed(image, n, true);
  }
}

std::string CopyFile(const std::string& from, const std::string& to) {
  std::ifstream in(from, std::ios::binary);
  std::string bytes(kCloneImageSize, '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  std::ofstream(to, std::ios::binary).write(bytes.data(), in.gcount());
  return bytes;
}

void Run(const std::string& folder) {
  constexpr int kMany = 20'000;
  constexpr int kFiles = 500;
  const auto image = std::make_unique<CloneImage>();
  const auto other = std::make_unique<CloneImage>();
  const std::string path = folder + "/bench.rdf";
  const std::string copy_path = folder + "/copy.rdf";
  MakeNewImage(*image);
  ProgramEveryChannel(*image);
  WriteRadioDataFile(*image, path);

  volatile std::uint8_t sink = 0;
  const double memory_copy = MicrosecondsEach(kMany, [&] {
    *other = *image;
    sink = (*other)[static_cast<std::size_t>(sink)];
  });
  const double file_copy = MicrosecondsEach(kFiles, [&] { CopyFile(path, copy_path); });
  std::printf("in memory: a plain copy of the 21,282 bytes   %9.2f us\n", memory_copy);
  Report("  rebuild the tables (240 channels)",
         MicrosecondsEach(kMany, [&] { RebuildDerivedTables(*image); }), memory_copy);
  Report("  prepare for writing (checksums, tables)",
         MicrosecondsEach(kMany, [&] { PrepareRadioDataFile(*image); }), memory_copy);
  std::printf("on disk: a plain copy of the file             %9.2f us\n", file_copy);
  Report("  open, read and check",
         MicrosecondsEach(kFiles, [&] { ReadRadioDataFile(*other, path); }), file_copy);
  Report("  prepare and write, flushed to the disk",
         MicrosecondsEach(kFiles, [&] { WriteRadioDataFile(*image, path); }), file_copy);
}

}  // namespace
}  // namespace qz7

int main() {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "qz7-file-bench";
  std::filesystem::create_directories(folder);
  qz7::Run(folder.string());
  std::filesystem::remove_all(folder);
  return 0;
}
