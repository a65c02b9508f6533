#include "core/editors/print_text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <utility>

#include "core/files/seams.h"
#include "core/image/channel_text.h"
#include "core/image/settings_map.h"

namespace qz7 {
namespace {

constexpr std::size_t kFirstSize = 5000;
constexpr std::size_t kGrowth = 2500;
constexpr std::size_t kTooLarge = 60000;
constexpr std::size_t kTooLong = 2497;
constexpr std::size_t kWorthShrinking = 100;
constexpr std::size_t kLengthSize = 2;
constexpr std::uint16_t kEndOfList = 0xFFFF;

constexpr std::size_t kLineWidth = 71;
constexpr const char* kColumns = " #   Rx      Tx       CTCSS     P  S M A/N    Comment";

void Discard(PrintText& text) {
  text = PrintText{};
  text.discarded = true;
}

// Gives the block another size; false when the list was discarded instead.
bool Resize(PrintText& text, std::size_t size) {
  std::unique_ptr<std::uint8_t[]> block(new (std::nothrow) std::uint8_t[size]);
  if (!block) {
    Discard(text);
    return false;
  }
  std::copy_n(text.block.get(), text.used, block.get());
  text.block = std::move(block);
  text.size = size;
  return true;
}

// Makes room for `size` more bytes; false when the list was discarded instead.
bool Reserve(PrintText& text, std::size_t size) {
  if (text.used + size <= text.size) {
    return true;
  }
  if (text.size + kGrowth >= kTooLarge) {
    Discard(text);
    return false;
  }
  return Resize(text, text.size + kGrowth);
}

// A run of dashes with the title from column 27 on. The title's own end ends the line, and column
// 43 is a dash again: a title of 17 letters loses its last one. Both are wanted.
std::string SectionHeading(std::string_view title) {
  constexpr std::size_t kTitleColumn = 27;
  constexpr std::size_t kDashColumn = 43;
  std::array<char, kLineWidth + 1> line;
  line.fill('-');
  *std::copy(title.begin(), title.end(), line.begin() + kTitleColumn) = '\0';
  line[kDashColumn] = '-';
  line[kLineWidth] = '\0';
  return line.data();
}

void AppendChannel(PrintText& text, const CloneImage& image, int n, const RegionVariant& region) {
  std::string line;
  if (FormatPrintLine(image, n, region, line)) {
    AppendLine(text, line);
  }
}

void AppendColumns(PrintText& text) {
  AppendLine(text, kColumns);
  AppendLine(text, std::string(kLineWidth, '-'));
}

void AppendMemories(PrintText& text, const CloneImage& image, const RegionVariant& region) {
  AppendLine(text, SectionHeading("Memories"));
  AppendColumns(text);
  for (int n = 1; n <= std::min(GetChannelCount(image), kChannelCount); ++n) {
    if (IsProgrammed(image, n)) {
      AppendChannel(text, image, n, region);
    }
  }
}

void AppendHomeMemories(PrintText& text, const CloneImage& image, const RegionVariant& region) {
  AppendLine(text, SectionHeading("Home Memories"));
  AppendColumns(text);
  for (int k = 2 * kBandCount; k < kSpecialSlotCount; ++k) {
    AppendChannel(text, image, ~k, region);
  }
}

void AppendAutodial(PrintText& text, const CloneImage& image, DtmfDisplay display) {
  AppendLine(text, SectionHeading("Autodial Memories"));
  for (int n = 0; n < kAutodialCount; ++n) {
    const std::string number = AutodialText(image, n, display);
    if (number.empty()) {
      AppendLine(text, "");
    } else {
      AppendFormatted(text, "Ch %d -- %s", n + 1, number.c_str());
    }
  }
}

}  // namespace

PrintText StartPrintText() {
  PrintText text;
  Resize(text, kFirstSize);
  return text;
}

void AppendLine(PrintText& text, std::string_view line) {
  if (text.discarded) {
    return;
  }
  if (line.size() >= kTooLong) {
    Discard(text);
    return;
  }
  const std::size_t size = kLengthSize + line.size() + 1;
  if (!Reserve(text, size)) {
    return;
  }
  std::uint8_t* place = text.block.get() + text.used;
  WriteU16(place, static_cast<std::uint16_t>(line.size()));
  std::copy(line.begin(), line.end(), place + kLengthSize);
  place[kLengthSize + line.size()] = 0;
  text.used += size;
}

void FinishPrintText(PrintText& text) {
  if (text.discarded || !Reserve(text, kLengthSize)) {
    return;
  }
  WriteU16(text.block.get() + text.used, kEndOfList);
  text.used += kLengthSize;
  if (text.size - text.used >= kWorthShrinking) {
    Resize(text, text.used);
  }
}

std::vector<std::string> PrintLines(const PrintText& text) {
  std::vector<std::string> lines;
  const std::uint8_t* place = text.block.get();
  while (!text.discarded && ReadU16(place) != kEndOfList) {
    const std::size_t length = ReadU16(place);
    lines.emplace_back(reinterpret_cast<const char*>(place + kLengthSize), length);
    place += kLengthSize + length + 1;
  }
  return lines;
}

namespace {

void AppendListing(PrintText& text, const CloneImage& image, const std::string& document_name,
                   DtmfDisplay display, const RegionVariant& region) {
  AppendFormatted(text, "%s file: %s", kProgramTitle, document_name.c_str());
  AppendLine(text, "");
  AppendMemories(text, image, region);
  AppendLine(text, "");
  AppendHomeMemories(text, image, region);
  AppendLine(text, "");
  AppendAutodial(text, image, display);
  FinishPrintText(text);
}

}  // namespace

bool BuildPrintText(const CloneImage& image, const std::string& document_name, DtmfDisplay display,
                    const RegionVariant& region, PrintText& text) {
  text = StartPrintText();
  try {
    AppendListing(text, image, document_name, display, region);
  } catch (const std::bad_alloc&) {
    Discard(text);
  }
  if (text.discarded) {
    ShowFileError("Out of memory");
  }
  return !text.discarded;
}

}  // namespace qz7
