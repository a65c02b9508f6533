#include "core/files/image_difference.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "core/files/document_header.h"
#include "core/image/channel_description.h"
#include "core/image/channel_record.h"
#include "core/image/settings_map.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

// Collects lines, and which bytes of the radio block they account for.
struct Comparison {
  const CloneImage& a;
  const CloneImage& b;
  const RegionVariant& region;
  std::vector<std::string> lines;
  std::vector<bool> told = std::vector<bool>(kCloneImageSize, false);
};

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

void Tell(Comparison& comparison, const std::string& what, const std::string& a,
          const std::string& b) {
  comparison.lines.push_back(what + ": " + a + " -> " + b);
}

bool Differs(const Comparison& comparison, Region region) {
  const auto at = static_cast<std::ptrdiff_t>(region.offset);
  return !std::equal(comparison.a.begin() + at,
                     comparison.a.begin() + at + static_cast<std::ptrdiff_t>(region.size),
                     comparison.b.begin() + at);
}

void MarkTold(Comparison& comparison, Region region) {
  std::fill_n(comparison.told.begin() + static_cast<std::ptrdiff_t>(region.offset), region.size,
              true);
}

Region RecordRegion(const CloneImage& image, int n) {
  return {.offset = static_cast<std::size_t>(GetChannelRecord(image, n) - image.data()),
          .size = kRecordSize};
}

Region FlagRegion(const CloneImage& image, int n) {
  return {.offset = static_cast<std::size_t>(GetChannelFlagByte(image, n) - image.data()),
          .size = 1};
}

// A channel that is programmed on one side only is told whole; one that is on neither side differs
// in nothing that a user can see, and its bytes are told as bytes.
void CompareChannel(Comparison& comparison, int n, bool with_comment) {
  const std::string title = SlotTitle(comparison.a, n);
  const bool in_a = IsSpecialSlot(n) || IsProgrammed(comparison.a, n);
  const bool in_b = IsSpecialSlot(n) || IsProgrammed(comparison.b, n);
  if (!in_a && !in_b) {
    return;
  }
  const std::vector<NamedValue> a = DescribeChannel(comparison.a, n, comparison.region);
  const std::vector<NamedValue> b = DescribeChannel(comparison.b, n, comparison.region);
  if (in_a != in_b) {
    Tell(comparison, title, in_a ? a.front().second : "not programmed",
         in_b ? b.front().second : "not programmed");
    MarkTold(comparison, RecordRegion(comparison.a, n));
    MarkTold(comparison, FlagRegion(comparison.a, n));
    return;
  }
  bool told = false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const bool counts = with_comment || a[i].first != "comment";
    if (counts && a[i].second != b[i].second) {
      Tell(comparison, title, a[i].first + " " + Quoted(a[i].second), Quoted(b[i].second));
      told = told || a[i].first != "comment";
    }
  }
  if (told) {
    MarkTold(comparison, RecordRegion(comparison.a, n));
    MarkTold(comparison, FlagRegion(comparison.a, n));
  }
}

void CompareChannels(Comparison& comparison, bool with_comments) {
  const int count =
      std::min({GetChannelCount(comparison.a), GetChannelCount(comparison.b), kChannelCount});
  for (int n = 1; n <= count; ++n) {
    CompareChannel(comparison, n, with_comments);
  }
  for (int k = 0; k < kSpecialSlotCount; ++k) {
    CompareChannel(comparison, ~k, with_comments);
  }
}

// "12 13 L1", or "empty".
std::string GroupText(const CloneImage& image, Region members) {
  std::string text;
  for (std::size_t at = members.offset; at < members.end(); at += kGroupEntrySize) {
    if (image[at] != kGroupEmpty) {
      text += (text.empty() ? "" : " ") + std::to_string(image[at + 1] + 1);
    }
  }
  return text.empty() ? "empty" : text;
}

std::string WxNameText(const CloneImage& image, Region name) {
  return Quoted(FieldText(reinterpret_cast<const char*>(image.data() + name.offset), name.size));
}

// The digits of an autodial memory, or the letters of the VORN identifier, as their codes.
std::string CodesText(const CloneImage& image, Region codes) {
  std::string text;
  for (std::size_t at = codes.offset; at < codes.end() && image[at] != kTextEnd; ++at) {
    text += image[at] < kIdentifierCharacters.size() ? kIdentifierCharacters[image[at]] : '?';
  }
  return Quoted(text);
}

// Compares `count` equal pieces that lie one behind the other, named "NAME 1", "NAME 2", ...
template <typename TextOf>
void ComparePieces(Comparison& comparison, const std::string& name, Region all, std::size_t count,
                   TextOf text_of) {
  const std::size_t size = all.size / count;
  for (std::size_t i = 0; i < count; ++i) {
    const Region piece{.offset = all.offset + i * size, .size = size};
    const std::string a = text_of(comparison.a, piece);
    const std::string b = text_of(comparison.b, piece);
    if (Differs(comparison, piece) && a != b) {
      Tell(comparison, count > 1 ? name + " " + std::to_string(i + 1) : name, a, b);
      MarkTold(comparison, piece);
    }
  }
}

void CompareSettings(Comparison& comparison) {
  ComparePieces(comparison, "group", kGroupTable, kGroupCount, GroupText);
  ComparePieces(comparison, "WX name", kWxNames, kWxNameCount, WxNameText);
  ComparePieces(comparison, "VORN identifier", kVornIdentifier, 1, CodesText);
  ComparePieces(comparison, "autodial", kAutodial, kAutodialCount, CodesText);
}

void CompareOtherBytes(Comparison& comparison) {
  for (std::size_t at = kRadioBlock.offset; at < kRadioBlock.end(); ++at) {
    if (comparison.told[at] || comparison.a[at] == comparison.b[at]) {
      continue;
    }
    std::array<char, 64> line;
    std::snprintf(line.data(), line.size(), "byte %zu: 0x%02X -> 0x%02X", at,
                  unsigned{comparison.a[at]}, unsigned{comparison.b[at]});
    comparison.lines.emplace_back(line.data());
  }
}

}  // namespace

std::vector<std::string> DocumentDifferences(const CloneImage& a, const CloneImage& b,
                                             const RegionVariant& region) {
  Comparison comparison{.a = a, .b = b, .region = region, .lines = {}};
  if (FileComment(a) != FileComment(b)) {
    Tell(comparison, "file comment", Quoted(FileComment(a)), Quoted(FileComment(b)));
  }
  CompareChannels(comparison, true);
  CompareSettings(comparison);
  CompareOtherBytes(comparison);
  return comparison.lines;
}

std::vector<std::string> RadioDifferences(const CloneImage& a, const CloneImage& b,
                                          const RegionVariant& region) {
  Comparison comparison{.a = a, .b = b, .region = region, .lines = {}};
  CompareChannels(comparison, false);
  CompareSettings(comparison);
  CompareOtherBytes(comparison);
  return comparison.lines;
}

}  // namespace qz7
