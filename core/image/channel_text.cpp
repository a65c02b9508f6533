#include "core/image/channel_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <limits>

#include "core/image/channel_record.h"

namespace qz7 {
namespace {

template <typename... Values>
std::string Format(const char* format, Values... values) {
  std::array<char, 160> text;
  std::snprintf(text.data(), text.size(), format, values...);
  return text.data();
}

const char* ToneMark(int tone_mode) {
  switch (tone_mode) {
    case kToneEncode:
      return "E  ";
    case kToneSquelch:
      return "ED ";
    case kToneDcs:
      return "DCS";
    default:
      return "   ";
  }
}

const char* ListShiftMark(int shift) {
  static constexpr std::array<const char*, 4> kMarks = {" ", "-", "+", "\xB1"};
  return kMarks[static_cast<std::size_t>(shift)];
}

char PrintShiftMark(int shift) { return " -+/"[shift]; }

// The tone is printed even when no tone is sent: the field follows the index, not the mode alone.
std::string ToneValue(const std::uint8_t* record) {
  const int tone = record[kRecordTone];
  const int dcs = record[kRecordDcs];
  switch (RecordToneMode(record)) {
    case kToneNone:
    case kToneEncode:
    case kToneSquelch:
      if (tone < kToneCount) {
        const int tenths = kTones[static_cast<std::size_t>(tone)];
        return Format("%3d.%01d ", tenths / 10, tenths % 10);
      }
      break;
    case kToneDcs:
      if (dcs < kDcsCount) {
        return Format("%03d   ", kDcsCodes[static_cast<std::size_t>(dcs)]);
      }
      break;
    default:
      break;
  }
  return "     ";
}

// A decimal integer with leading blanks and sign, up to the first other character; beyond the range
// of any frequency it stays at that range's end.
std::int64_t DecimalOf(std::string_view text) {
  constexpr std::int64_t kEnough = std::numeric_limits<Frequency>::max();
  std::size_t at = std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
  bool negative = false;
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) {
    negative = text[at] == '-';
    ++at;
  }
  std::int64_t value = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
    value = std::min(value * 10 + (text[at] - '0'), kEnough);
  }
  return negative ? -value : value;
}

// The four decimals of a typed fraction.
std::string Fraction(std::string_view text) {
  constexpr std::size_t kDecimals = 4;
  std::string fraction(text.substr(0, text.find_last_not_of(' ') + 1));
  fraction.resize(kDecimals, '0');
  return fraction;
}

}  // namespace

std::string FormatFrequency(Frequency value) {
  return Format("%3ld.%04ld", static_cast<long>(value / kMegahertz),
                static_cast<long>(value % kMegahertz));
}

std::string FormatOffset(Frequency value) {
  if (value % 100 == 0 && value < 9'991) {
    return Format("%ld kHz", static_cast<long>(value / kKilohertz));
  }
  if (value % kMegahertz == 0) {
    return Format("%ld MHz", static_cast<long>(value / kMegahertz));
  }
  // Three places for a remainder of four digits: wanted, though 1.05 MHz shows as "1.500 MHz".
  return Format("%ld.%03ld MHz", static_cast<long>(value / kMegahertz),
                static_cast<long>(value % kMegahertz));
}

Frequency ParseFrequency(std::string_view text) {
  constexpr std::size_t kTypedLength = 20;
  constexpr std::int64_t kLargestMegahertz = 9'999;
  std::string typed(text.substr(0, kTypedLength));
  std::transform(typed.begin(), typed.end(), typed.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  const bool kilohertz = typed.find('K') != std::string::npos;
  typed.erase(std::min(typed.find('K'), typed.size()));
  typed.erase(std::min(typed.find('M'), typed.size()));

  const std::size_t point = typed.find('.');
  std::int64_t integer = DecimalOf(std::string_view(typed).substr(0, point));
  std::int64_t fraction = point == std::string::npos
                              ? 0
                              : DecimalOf(Fraction(std::string_view(typed).substr(point + 1)));
  if (integer < 0 || fraction < 0) {
    return 0;
  }
  const bool as_kilohertz = kilohertz || (fraction == 0 && integer > kLargestMegahertz);
  const std::int64_t value = as_kilohertz ? integer * kKilohertz : integer * kMegahertz + fraction;
  return static_cast<Frequency>(
      std::min<std::int64_t>(value, std::numeric_limits<Frequency>::max()));
}

Frequency ParseOffset(std::string_view text) {
  constexpr std::size_t kFieldLength = 25;
  constexpr Frequency kKilohertzTyped = 10'000'000;
  const Frequency value = ParseFrequency(text.substr(0, kFieldLength));
  return value >= kKilohertzTyped ? value / 1000 : value;
}

std::string FormatListRow(const CloneImage& image, int n) {
  const std::uint8_t* record = GetChannelRecord(image, n);
  if (record == nullptr || !IsProgrammed(image, n)) {
    return ChannelLabel(image, n);
  }
  // A frequency text has at least 8 characters, so that the column needs no padding.
  return Format("%-3s\t%s%s\t%s\t%s\t%s\t%s\t%s", ChannelLabel(image, n),
                FormatFrequency(ReadReceiveFrequency(record)).c_str(),
                ListShiftMark(RecordShift(record)), ToneMark(RecordToneMode(record)),
                IsSkip(image, n) ? "S" : " ", IsMasked(image, n) ? "M" : " ",
                RecordPower(record) == kHigh ? "H" : "L", GetChannelName(image, n).data());
}

bool FormatPrintLine(const CloneImage& image, int n, std::string& line) {
  line += Format("%3.3s", ChannelLabel(image, n));
  const std::uint8_t* record = GetChannelRecord(image, n);
  if (record == nullptr || (!IsSpecialSlot(n) && !IsProgrammed(image, n))) {
    return false;
  }
  const int shift = RecordShift(record);
  const std::string split =
      shift == kOddSplit ? FormatFrequency(TransmitFrequency(record)) : std::string(8, ' ');
  line += Format(" %s", FormatFrequency(ReadReceiveFrequency(record)).c_str());
  line += Format("%c%s", PrintShiftMark(shift), split.c_str());
  line += Format(" %s%s %s %c %c", ToneValue(record).c_str(), ToneMark(RecordToneMode(record)),
                 RecordPower(record) == kHigh ? "H " : "L ", IsMasked(image, n) ? 'M' : ' ',
                 IsSkip(image, n) ? 'S' : ' ');
  if (!IsSpecialSlot(n)) {
    line += Format(" %-8.8s ", GetChannelName(image, n).data());
    line += ChannelCommentText(image, n);
  }
  return true;
}

}  // namespace qz7
