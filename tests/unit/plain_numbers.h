#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "core/image/band_plan.h"
#include "core/image/channel_record.h"
#include "core/image/channel_text.h"
#include "core/image/clone_image.h"

// The tests work their numbers out from the radio's tables, apart from the program's types: a
// frequency is a count of 100 Hz (146.52 MHz is 1465200), a code is what the record stores. Here
// the two meet: comparisons, printing, and the functions of the image with plain numbers, under the
// region that a RegionGuard has put into use.
namespace qz7 {

using Units = std::int64_t;

inline RegionVariant test_region;

inline bool operator==(Frequency f, Units units) { return f.hundred_hertz == units; }
inline auto operator<=>(Frequency f, Units units) { return f.hundred_hertz <=> units; }
inline std::ostream& operator<<(std::ostream& out, Frequency f) { return out << f.hundred_hertz; }

template <typename Code>
concept RecordCode =
    std::same_as<Code, Shift> || std::same_as<Code, ToneMode> || std::same_as<Code, Mode> ||
    std::same_as<Code, Power> || std::same_as<Code, Step> || std::same_as<Code, Band>;
template <RecordCode Code>
bool operator==(Code code, int stored) {
  return static_cast<int>(code) == stored;
}
template <RecordCode Code>
std::ostream& operator<<(std::ostream& out, Code code) {
  return out << static_cast<int>(code);
}

inline int BandOf(Units f) { return static_cast<int>(BandOf(HundredHertz(f), test_region)); }
inline bool InBand(int band, Units f) {
  return InBand(static_cast<Band>(band), HundredHertz(f), test_region);
}
inline bool IsValidFrequency(const CloneImage& image, Units f) {
  return IsValidFrequency(image, HundredHertz(f));
}
inline Step DefaultStep(Units f) { return DefaultStep(HundredHertz(f), test_region); }
inline Frequency DefaultBandOffset(Units f) {
  return DefaultBandOffset(HundredHertz(f), test_region);
}
inline Frequency DefaultBandFrequency(int band) {
  return DefaultBandFrequency(static_cast<Band>(band));
}
inline std::vector<StepChoice> FillStepList(std::optional<Units> f, int n) {
  return FillStepList(f ? std::optional(HundredHertz(*f)) : std::nullopt, n, test_region);
}

inline Band BandOf(Frequency f) { return BandOf(f, test_region); }
inline int GridClass(Frequency f) { return GridClass(f, test_region); }
inline bool IsOffStep(Frequency receive, int step) {
  return IsOffStep(receive, CodeAt<Step>(kStepNames, step), test_region);
}
inline int GridClass(Units f) { return GridClass(HundredHertz(f), test_region); }
inline bool IsOffStep(Units receive, int step) {
  return IsOffStep(HundredHertz(receive), CodeAt<Step>(kStepNames, step), test_region);
}
inline void EncodeBcdFrequency(std::uint8_t* bytes, Units value, int digits) {
  EncodeBcdFrequency(bytes, HundredHertz(value), digits);
}
inline Frequency RestoreHalfKilohertz(Units decoded) {
  return RestoreHalfKilohertz(HundredHertz(decoded), test_region);
}
inline Frequency ReadReceiveFrequency(RecordView record) {
  return ReadReceiveFrequency(record, test_region);
}
inline Frequency ReadOffsetField(RecordView record) { return ReadOffsetField(record, test_region); }
inline Frequency TransmitFrequency(RecordView record) {
  return TransmitFrequency(record, test_region);
}

inline std::string FormatFrequency(Units value) { return FormatFrequency(HundredHertz(value)); }
inline std::string FormatOffset(Units value) { return FormatOffset(HundredHertz(value)); }
inline std::string FormatListRow(const CloneImage& image, int n) {
  return FormatListRow(image, n, test_region);
}
inline bool FormatPrintLine(const CloneImage& image, int n, std::string& line) {
  return FormatPrintLine(image, n, test_region, line);
}

// A code as the record stores it, out of its name or its number.
struct StoredCode {
  StoredCode(int stored) : number(stored) {}
  template <RecordCode Code>
  StoredCode(Code code) : number(static_cast<int>(code)) {}
  friend bool operator==(StoredCode, StoredCode) = default;
  friend std::ostream& operator<<(std::ostream& out, StoredCode code) { return out << code.number; }
  int number;
};

// What the channel editor holds, as the record stores it.
struct ChannelFields {
  Units receive = 0;
  Units transmit = 0;
  StoredCode shift = 0;
  Units offset = 6'000;
  std::optional<StoredCode> tone_mode = 0;
  std::optional<int> tone_index = 12;
  std::optional<int> dcs_index = 0;
  std::optional<StoredCode> mode = 0;
  std::optional<StoredCode> power = 3;
  std::optional<StoredCode> step = 0;
  int icon = 0;
  bool option_a = false;
  bool option_b = false;
  std::string name;
};

inline ChannelFields DecodeChannelRecord(RecordView record) {
  const ChannelChoices choices = DecodeChoices(record, test_region);
  const ChannelFrequencies frequencies = DecodeFrequencies(record, test_region);
  return {.receive = frequencies.receive.hundred_hertz,
          .transmit = frequencies.transmit.hundred_hertz,
          .shift = choices.shift,
          .offset = frequencies.offset.hundred_hertz,
          .tone_mode = choices.tone_mode,
          .tone_index = choices.tone_index,
          .dcs_index = choices.dcs_index,
          .mode = choices.mode,
          .power = choices.power,
          .step = choices.step,
          .icon = choices.icon,
          .option_a = choices.option_a,
          .option_b = choices.option_b,
          .name = choices.name};
}

inline ChannelRecord BuildChannelRecord(const ChannelRecord& old, const ChannelFields& fields,
                                        int n) {
  const auto code = [](std::optional<StoredCode> stored, auto like) {
    return stored ? std::optional(static_cast<decltype(like)>(stored->number)) : std::nullopt;
  };
  return BuildChannelRecord(old,
                            {.shift = static_cast<Shift>(fields.shift.number),
                             .tone_mode = code(fields.tone_mode, ToneMode{}),
                             .tone_index = fields.tone_index,
                             .dcs_index = fields.dcs_index,
                             .mode = code(fields.mode, Mode{}),
                             .power = code(fields.power, Power{}),
                             .step = code(fields.step, Step{}),
                             .icon = fields.icon,
                             .option_a = fields.option_a,
                             .option_b = fields.option_b,
                             .name = fields.name},
                            {.receive = HundredHertz(fields.receive),
                             .transmit = HundredHertz(fields.transmit),
                             .offset = HundredHertz(fields.offset)},
                            n, test_region);
}

}  // namespace qz7
