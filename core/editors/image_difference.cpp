#include "core/editors/image_difference.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <vector>

#include "core/editors/autodial.h"
#include "core/editors/icons.h"
#include "core/editors/main_fields.h"
#include "core/editors/settings.h"
#include "core/editors/vorn.h"
#include "core/files/document_header.h"
#include "core/image/blanks.h"
#include "core/image/channel_description.h"
#include "core/image/channel_record.h"
#include "core/image/operating_state.h"
#include "core/image/settings_map.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

// Collects lines, and which bytes of the radio block they account for.
struct Comparison {
  const CloneImage& a;
  const CloneImage& b;
  const RegionVariant& region;
  std::vector<Difference> differences;
  std::vector<std::uint8_t> told = std::vector<std::uint8_t>(kCloneImageSize, 0);  // their bits
};

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

void Tell(Comparison& comparison, const std::string& what, const std::string& a,
          const std::string& b) {
  comparison.differences.push_back({.what = what, .field = "", .a = a, .b = b});
}

void TellText(Comparison& comparison, const std::string& what, const std::string& field,
              std::string_view a, std::string_view b) {
  comparison.differences.push_back(
      {.what = what, .field = field, .a = std::string(a), .b = std::string(b), .texts = true});
}

bool Differs(const Comparison& comparison, Region region) {
  const auto at = static_cast<std::ptrdiff_t>(region.offset);
  return !std::equal(comparison.a.begin() + at,
                     comparison.a.begin() + at + static_cast<std::ptrdiff_t>(region.size),
                     comparison.b.begin() + at);
}

void MarkTold(Comparison& comparison, Region region, unsigned bits = 0xFF) {
  for (std::size_t at = region.offset; at < region.end(); ++at) {
    comparison.told[at] = static_cast<std::uint8_t>(comparison.told[at] | bits);
  }
}

// The bits of a record, and of the flag byte, that each field tells. What no field tells (bytes 20
// and 21, the upper half of the flags) is told as bytes.
struct FieldBits {
  std::string_view field;
  Region bytes;
  unsigned bits;
};
constexpr std::size_t kFlags = kRecordSize;  // stands for the flag byte
constexpr std::array<FieldBits, 23> kFieldBits = {{
    {"rx", {2, 3}, 0xFF},
    {"rx", {0, 1}, 0x4F},
    {"tx", {0, 1}, 0x4F},
    {"shift", {14, 3}, 0xFF},
    {"shift", {17, 1}, 0x03},
    {"shift", {0, 1}, 0x4F},
    {"offset", {14, 3}, 0xFF},
    {"offset", {0, 1}, 0x4F},
    {"tone-mode", {17, 1}, 0xF0},
    {"tone", {18, 1}, 0xFF},
    {"dcs", {19, 1}, 0xFF},
    {"mode", {5, 1}, 0x03},
    {"power", {17, 1}, 0x0C},
    {"step", {1, 1}, 0xFF},
    {"step", {0, 1}, 0x40},
    {"name", {6, 8}, 0xFF},
    {"icon", {5, 1}, 0xFC},
    {"skip", {kFlags, 1}, kFlagSkip},
    {"masked", {kFlags, 1}, kFlagShown},
    {"option", {kFlags, 1}, kFlagOption},
    {"option-a", {0, 1}, 0x10},
    {"option-b", {0, 1}, 0x20},
    {"split", {14, 3}, 0xFF},
}};

Region RecordRegion(const CloneImage& image, int n) {
  return {.offset = static_cast<std::size_t>(GetChannelRecord(image, n) - image.data()),
          .size = kRecordSize};
}

Region FlagRegion(const CloneImage& image, int n) {
  return {.offset = static_cast<std::size_t>(GetChannelFlagByte(image, n) - image.data()),
          .size = 1};
}

void MarkField(Comparison& comparison, int n, std::string_view field) {
  for (const FieldBits& told : kFieldBits) {
    if (told.field == field) {
      const std::size_t at = told.bytes.offset == kFlags
                                 ? FlagRegion(comparison.a, n).offset
                                 : RecordRegion(comparison.a, n).offset + told.bytes.offset;
      MarkTold(comparison, {.offset = at, .size = told.bytes.size}, told.bits);
    }
  }
}

bool ChannelDiffers(const Comparison& comparison, int n, bool with_comment) {
  const auto* comment_a = ChannelComment(comparison.a, n);
  const auto* comment_b = ChannelComment(comparison.b, n);
  return Differs(comparison, RecordRegion(comparison.a, n)) ||
         Differs(comparison, FlagRegion(comparison.a, n)) ||
         (with_comment && !std::equal(comment_a, comment_a + kCommentSize, comment_b));
}

// A channel that is programmed on one side only is told whole; one that is on neither side differs
// in nothing that a user can see, and its bytes are told as bytes.
void CompareChannel(Comparison& comparison, int n, bool with_comment) {
  if (!ChannelDiffers(comparison, n, with_comment)) {
    return;
  }
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
    constexpr unsigned kLowerHalf = 0x0F;
    MarkTold(comparison, RecordRegion(comparison.a, n));
    MarkTold(comparison, FlagRegion(comparison.a, n), kLowerHalf);
    return;
  }
  const bool split = b[2].second == "split" || a[2].second == "split";
  for (std::size_t i = 0; i < a.size(); ++i) {
    const bool counts = with_comment || a[i].first != "comment";
    if (counts && a[i].second != b[i].second) {
      TellText(comparison, title, a[i].first, a[i].second, b[i].second);
      MarkField(comparison, n, a[i].first);
      if (split && a[i].first == "tx") {
        MarkField(comparison, n, "split");
      }
    }
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
      const int n = image[at + 1] + 1;
      const std::string label = WithoutLeadingBlanks(ChannelLabel(image, n));
      text += (text.empty() ? "" : " ") + (label.empty() ? std::to_string(n) : label);
    }
  }
  return text.empty() ? "empty" : text;
}

std::string WxNameText(const CloneImage& image, Region name) {
  return std::string(
      FieldText(reinterpret_cast<const char*>(image.data() + name.offset), name.size));
}

std::string AutodialNumberText(const CloneImage& image, Region codes) {
  const auto n = static_cast<int>((codes.offset - kAutodial.offset) / codes.size);
  return AutodialText(image, n, DtmfDisplay::kSymbols);
}

std::string CodesText(const CloneImage& image, Region codes) {
  std::string text;
  for (std::size_t at = codes.offset; at < codes.end() && image[at] != kTextEnd; ++at) {
    text += image[at] < kIdentifierCharacters.size() ? kIdentifierCharacters[image[at]] : '?';
  }
  return text;
}

// Compares `count` equal pieces that lie one behind the other, named "NAME 1", "NAME 2", ...
template <typename TextOf, typename TellPiece>
void ComparePieces(Comparison& comparison, const std::string& name, Region all, std::size_t count,
                   TextOf text_of, TellPiece tell) {
  const std::size_t size = all.size / count;
  for (std::size_t i = 0; i < count; ++i) {
    const Region piece{.offset = all.offset + i * size, .size = size};
    if (!Differs(comparison, piece)) {
      continue;
    }
    const std::string a = text_of(comparison.a, piece);
    const std::string b = text_of(comparison.b, piece);
    if (a != b) {
      tell(count > 1 ? name + " " + std::to_string(i + 1) : name, a, b);
      MarkTold(comparison, piece);
    }
  }
}

// "auto-power-off" as "Auto power off".
std::string TitleOf(const Setting& row) {
  std::string title = row.name;
  title[0] = UpperCase(title[0]);
  std::replace(title.begin(), title.end(), '-', ' ');
  return title;
}

std::string ValueText(const Setting& row, const SettingValue& value, const CloneImage& image) {
  if (row.kind == SettingKind::kText) {
    return value.text;
  }
  if (value.choice && row.choices.text != nullptr) {
    return row.choices.text(*value.choice);
  }
  return std::to_string(value.choice.value_or(ReadBits(image, row.bits)));
}

Region BytesOf(const Setting& row) {
  return row.kind == SettingKind::kText ? row.text.place
                                        : Region{.offset = row.bits.byte, .size = 1};
}

void CompareRow(Comparison& comparison, const Setting& row) {
  if (!Differs(comparison, BytesOf(row))) {
    return;
  }
  const SettingValue a = LoadSetting(row, SourceIn(comparison.a));
  const SettingValue b = LoadSetting(row, SourceIn(comparison.b));
  if (a == b) {
    return;
  }
  comparison.differences.push_back({.what = TitleOf(row),
                                    .field = "",
                                    .a = ValueText(row, a, comparison.a),
                                    .b = ValueText(row, b, comparison.b),
                                    .texts = row.kind == SettingKind::kText});
  const bool is_text = row.kind == SettingKind::kText;
  MarkTold(comparison, BytesOf(row),
           is_text ? 0xFFU : ((1U << row.bits.width) - 1) << row.bits.shift);
}

// The texts of the other screens are told above.
void CompareRows(Comparison& comparison) {
  for (const SettingScreen* screen :
       {&MainScreen(), &SettingsScreen(), &IconsScreen(), &VornScreen(), &AutodialScreen()}) {
    for (const Setting& row : screen->rows) {
      if (row.kind != SettingKind::kText || screen == &SettingsScreen()) {
        CompareRow(comparison, row);
      }
    }
  }
}

// What the operating state repeats of the current channel, in one line.
void CompareOperatingState(Comparison& comparison) {
  int differing = 0;
  for (const Region echo : {Region{kOperatingGrid, kOperatingKept + 2 - kOperatingGrid},
                            Region{kCurrentMemoryFlags, 1}}) {
    for (std::size_t at = echo.offset; at < echo.end(); ++at) {
      differing += comparison.a[at] != comparison.b[at] ? 1 : 0;
    }
    MarkTold(comparison, echo);
  }
  if (differing > 0) {
    comparison.differences.push_back({.what = "operating state",
                                      .field = "",
                                      .a = "",
                                      .b = std::to_string(differing) + " bytes differ"});
  }
}

void CompareSettings(Comparison& comparison) {
  const auto tell = [&](const std::string& what, const std::string& a, const std::string& b) {
    Tell(comparison, what, a, b);
  };
  const auto tell_text = [&](const std::string& what, const std::string& a, const std::string& b) {
    TellText(comparison, what, "", a, b);
  };
  ComparePieces(comparison, "group", kGroupTable, kGroupCount, GroupText, tell);
  ComparePieces(comparison, "WX name", kWxNames, kWxNameCount, WxNameText, tell_text);
  ComparePieces(comparison, "VORN identifier", kVornIdentifier, 1, CodesText, tell_text);
  ComparePieces(comparison, "autodial", kAutodial, kAutodialCount, AutodialNumberText, tell_text);
  CompareRows(comparison);
}

std::string HexByte(std::uint8_t byte) {
  std::array<char, 8> text;
  std::snprintf(text.data(), text.size(), "0x%02X", unsigned{byte});
  return text.data();
}

void CompareOtherBytes(Comparison& comparison) {
  for (std::size_t at = kRadioBlock.offset; at < kRadioBlock.end(); ++at) {
    const int differing = comparison.a[at] ^ comparison.b[at];
    if ((differing & ~comparison.told[at]) == 0) {
      continue;
    }
    Tell(comparison, "byte " + std::to_string(at), HexByte(comparison.a[at]),
         HexByte(comparison.b[at]));
  }
}

std::vector<std::string> LinesOf(const std::vector<Difference>& differences) {
  std::vector<std::string> lines;
  std::transform(differences.begin(), differences.end(), std::back_inserter(lines), DifferenceLine);
  return lines;
}

}  // namespace

std::string DifferenceLine(const Difference& difference) {
  const auto& [what, field, a, b, texts] = difference;
  const std::string from = texts ? Quoted(a) : a;
  return what + ": " + field + (field.empty() ? "" : " ") + from + (from.empty() ? "" : " -> ") +
         (texts ? Quoted(b) : b);
}

std::vector<Difference> CompareDocuments(const CloneImage& a, const CloneImage& b,
                                         const RegionVariant& region) {
  Comparison comparison{.a = a, .b = b, .region = region, .differences = {}};
  if (FileComment(a) != FileComment(b)) {
    TellText(comparison, "file comment", "", FileComment(a), FileComment(b));
  }
  CompareChannels(comparison, true);
  CompareSettings(comparison);
  CompareOperatingState(comparison);
  CompareOtherBytes(comparison);
  return comparison.differences;
}

std::vector<std::string> DocumentDifferences(const CloneImage& a, const CloneImage& b,
                                             const RegionVariant& region) {
  return LinesOf(CompareDocuments(a, b, region));
}

std::vector<std::string> RadioDifferences(const CloneImage& a, const CloneImage& b,
                                          const RegionVariant& region) {
  Comparison comparison{.a = a, .b = b, .region = region, .differences = {}};
  CompareChannels(comparison, false);
  CompareSettings(comparison);
  CompareOperatingState(comparison);
  CompareOtherBytes(comparison);
  return LinesOf(comparison.differences);
}

}  // namespace qz7
