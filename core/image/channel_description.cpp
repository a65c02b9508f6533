#include "core/image/channel_description.h"

#include <algorithm>
#include <array>
#include <optional>

#include "core/image/blanks.h"
#include "core/image/channel_record.h"
#include "core/image/channel_text.h"

namespace qz7 {
namespace {

std::string OnOff(bool on) { return on ? "on" : "off"; }

template <typename Code, std::size_t kCount>
std::string Choice(const std::array<const char*, kCount>& names, std::optional<Code> code) {
  return code ? NameOf(names, *code) : "";
}

template <std::size_t kCount>
std::string TableText(std::string (*text_of)(int), const std::array<int, kCount>& table,
                      std::optional<int> index) {
  return index ? text_of(table[static_cast<std::size_t>(*index)]) : "";
}

std::vector<NamedValue> DescribeFields(const ChannelChoices& choices,
                                       const std::optional<ChannelFrequencies>& frequencies) {
  const auto text = [&](Frequency ChannelFrequencies::*frequency) {
    return frequencies ? WithoutLeadingBlanks(FormatFrequency(*frequencies.*frequency)) : "";
  };
  const Frequency offset = frequencies ? frequencies->offset : kDefaultOffset;
  return {{"rx", text(&ChannelFrequencies::receive)},
          {"tx", text(&ChannelFrequencies::transmit)},
          {"shift", NameOf(kShiftNames, choices.shift)},
          {"offset", FormatExactOffset(offset)},
          {"tone-mode", Choice(kToneModeNames, choices.tone_mode)},
          {"tone", TableText(ToneText, kTones, choices.tone_index)},
          {"dcs", TableText(DcsText, kDcsCodes, choices.dcs_index)},
          {"mode", Choice(kModeNames, choices.mode)},
          {"power", Choice(kPowerNames, choices.power)},
          {"step", Choice(kStepNames, choices.step)}};
}

// The fields that only memory channels have; the name, that VFO slots lack, comes first.
void AppendMemoryFields(const CloneImage& image, int n, const ChannelChoices& choices,
                        std::vector<NamedValue>& values) {
  const bool memory = !IsSpecialSlot(n);
  const auto memory_only = [&](const std::string& value) { return memory ? value : ""; };
  const bool programmed = IsProgrammed(image, n);
  values.emplace_back("name", IsVfoSlot(n) ? "" : choices.name);
  values.emplace_back("comment",
                      memory && programmed ? std::string(ChannelCommentText(image, n)) : "");
  values.emplace_back("icon", memory_only(std::to_string(choices.icon)));
  values.emplace_back("skip", memory_only(OnOff(programmed && IsSkip(image, n))));
  values.emplace_back("masked", memory_only(OnOff(programmed && IsMasked(image, n))));
  values.emplace_back("option", memory_only(OnOff(programmed && IsOptionSet(image, n))));
}

}  // namespace

std::vector<NamedValue> DescribeChannel(const CloneImage& image, int n,
                                        const RegionVariant& region) {
  const std::uint8_t* record = GetChannelRecord(image, n);
  if (record == nullptr || n == 0) {
    return {};
  }
  ChannelChoices choices;
  std::optional<ChannelFrequencies> frequencies;
  if (IsSpecialSlot(n) || IsProgrammed(image, n)) {
    choices = DecodeChoices(record, region);
    frequencies = DecodeFrequencies(record, region);
  }
  std::vector<NamedValue> values = DescribeFields(choices, frequencies);
  AppendMemoryFields(image, n, choices, values);
  values.emplace_back("option-a", OnOff(choices.option_a));
  values.emplace_back("option-b", OnOff(choices.option_b));
  return values;
}

bool SlotHasField(int n, std::string_view field) {
  constexpr std::array<std::string_view, 5> kMemoryFields = {"comment", "icon", "skip", "masked",
                                                             "option"};
  if (field == "name") {
    return !IsVfoSlot(n);
  }
  return !IsSpecialSlot(n) ||
         std::find(kMemoryFields.begin(), kMemoryFields.end(), field) == kMemoryFields.end();
}

std::string SlotTitle(const CloneImage& image, int n) {
  const std::string label = WithoutLeadingBlanks(ChannelLabel(image, n));
  if (!IsSpecialSlot(n)) {
    return "channel " + label;
  }
  const int group = SlotOf(n) / kBandCount;
  return (group == 0 ? "VFO A " : group == 1 ? "VFO B " : "home ") + label;
}

}  // namespace qz7
