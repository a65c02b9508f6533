#include "core/image/channel_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>

#include "core/image/channel_record.h"
#include "core/image/decimal.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

template <typename... Values>
std::string Format(const char* format, Values... values) {
  std::array<char, 160> text;
  std::snprintf(text.data(), text.size(), format, values...);
  return text.data();
}

const char* ToneMark(std::optional<ToneMode> tone_mode) {
  switch (tone_mode.value_or(ToneMode::kNone)) {
    case ToneMode::kEncode:
      return "E  ";
    case ToneMode::kSquelch:
      return "ED ";
    case ToneMode::kDcs:
      return "DCS";
    default:
      return "   ";
  }
}

char ListShiftMark(Shift shift) {
  constexpr std::array<char, 4> kMarks = {' ', '-', '+', kPlusMinus};
  return kMarks[static_cast<std::size_t>(shift)];
}

char PrintShiftMark(Shift shift) { return shift == Shift::kOddSplit ? '/' : ListShiftMark(shift); }

// The tone is printed even when no tone is sent: the field follows the index, not the mode alone.
std::string ToneValue(RecordView record) {
  const std::size_t tone = record.bytes[kRecordTone];
  const std::size_t dcs = record.bytes[kRecordDcs];
  const std::optional<ToneMode> mode = RecordToneMode(record);
  if (mode == ToneMode::kDcs && dcs < kDcsCodes.size()) {
    return DcsText(kDcsCodes[dcs]) + "   ";
  }
  if (mode && mode != ToneMode::kDcs && tone < kTones.size()) {
    return Format("%5s ", ToneText(kTones[tone]).c_str());
  }
  return "     ";
}

// The four decimals of a typed fraction.
std::string Fraction(std::string_view text) {
  constexpr std::size_t kDecimals = 4;
  std::string fraction(text.substr(0, text.find_last_not_of(' ') + 1));
  fraction.resize(kDecimals, '0');
  return fraction;
}

long long WholeMegahertz(Frequency f) { return f.hundred_hertz / 10'000; }
long long RestOfMegahertz(Frequency f) { return f.hundred_hertz % 10'000; }

}  // namespace

std::string FormatFrequency(Frequency value) {
  return Format("%3lld.%04lld", WholeMegahertz(value), RestOfMegahertz(value));
}

std::string FormatOffset(Frequency value) {
  if (IsMultipleOf(value, Kilohertz(10)) && value < HundredHertz(9'991)) {
    return Format("%lld kHz", static_cast<long long>(WholeKilohertz(value)));
  }
  if (IsMultipleOf(value, Megahertz(1))) {
    return Format("%lld MHz", WholeMegahertz(value));
  }
  // Three places for a remainder of four digits: wanted, though 1.05 MHz shows as "1.500 MHz".
  return Format("%lld.%03lld MHz", WholeMegahertz(value), RestOfMegahertz(value));
}

std::string FormatExactOffset(Frequency value) {
  std::string text = FormatOffset(value);
  if (ParseOffset(text) == value) {
    return text;
  }
  text = Format("%lld.%04lld", WholeMegahertz(value), RestOfMegahertz(value));
  text.erase(text.find_last_not_of('0') + 1);
  return text + " MHz";
}

Frequency ParseFrequency(std::string_view text) {
  constexpr std::size_t kTypedLength = 20;
  constexpr int kLargestMegahertz = 9'999;
  std::string typed = UpperCase(text.substr(0, kTypedLength));
  const bool kilohertz = typed.find('K') != std::string::npos;
  typed.erase(std::min(typed.find('K'), typed.size()));
  typed.erase(std::min(typed.find('M'), typed.size()));

  const std::size_t point = typed.find('.');
  const int integer = DecimalValue(std::string_view(typed).substr(0, point));
  const int fraction = point == std::string::npos
                           ? 0
                           : DecimalValue(Fraction(std::string_view(typed).substr(point + 1)));
  if (integer < 0 || fraction < 0) {
    return {};
  }
  const bool as_kilohertz = kilohertz || (fraction == 0 && integer > kLargestMegahertz);
  const Frequency value =
      as_kilohertz ? Kilohertz(integer) : Megahertz(integer) + HundredHertz(fraction);
  return std::min(value, HundredHertz(std::numeric_limits<int>::max()));
}

Frequency ParseOffset(std::string_view text) {
  constexpr std::size_t kFieldLength = 25;
  constexpr Frequency kKilohertzTyped = Megahertz(1000);
  const Frequency value = ParseFrequency(text.substr(0, kFieldLength));
  return value >= kKilohertzTyped ? HundredHertz(value.hundred_hertz / 1000) : value;
}

std::string FormatListRow(const CloneImage& image, int n, const RegionVariant& region) {
  const std::uint8_t* record = GetChannelRecord(image, n);
  std::string label = ChannelLabel(image, n);
  if (record == nullptr || !IsProgrammed(image, n)) {
    return label;
  }
  // A frequency text has at least 8 characters, so that the column needs no padding.
  return Format("%-3s\t%s%c\t%s\t%s\t%s\t%s\t%s", label.c_str(),
                FormatFrequency(ReadReceiveFrequency(record, region)).c_str(),
                ListShiftMark(RecordShift(record)), ToneMark(RecordToneMode(record)),
                IsSkip(image, n) ? "S" : " ", IsMasked(image, n) ? "M" : " ",
                RecordPower(record) == Power::kHigh ? "H" : "L", GetChannelName(image, n).data());
}

bool FormatPrintLine(const CloneImage& image, int n, const RegionVariant& region,
                     std::string& line) {
  line += Format("%3.3s", ChannelLabel(image, n).c_str());
  const std::uint8_t* record = GetChannelRecord(image, n);
  if (record == nullptr || (!IsSpecialSlot(n) && !IsProgrammed(image, n))) {
    return false;
  }
  const Shift shift = RecordShift(record);
  const std::string split = shift == Shift::kOddSplit
                                ? FormatFrequency(TransmitFrequency(record, region))
                                : std::string(8, ' ');
  line += Format(" %s", FormatFrequency(ReadReceiveFrequency(record, region)).c_str());
  line += Format("%c%s", PrintShiftMark(shift), split.c_str());
  line += Format(" %s%s %s %c %c", ToneValue(record).c_str(), ToneMark(RecordToneMode(record)),
                 RecordPower(record) == Power::kHigh ? "H " : "L ", IsMasked(image, n) ? 'M' : ' ',
                 IsSkip(image, n) ? 'S' : ' ');
  if (!IsSpecialSlot(n)) {
    line += Format(" %-8.8s ", GetChannelName(image, n).data());
    line += ChannelCommentText(image, n);
  }
  return true;
}

}  // namespace qz7
