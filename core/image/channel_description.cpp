#include "core/image/channel_description.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>

#include "core/image/channel_record.h"
#include "core/image/channel_text.h"

namespace qz7 {
namespace {

std::string WithoutLeadingBlanks(const std::string& text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string OnOff(bool on) { return on ? "on" : "off"; }

template <std::size_t kCount>
std::string Choice(const std::array<const char*, kCount>& names, std::optional<int> index) {
  return index ? names[static_cast<std::size_t>(*index)] : "";
}

std::string ToneText(std::optional<int> index) {
  if (!index) {
    return "";
  }
  const int tenths = kTones[static_cast<std::size_t>(*index)];
  return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

std::string DcsText(std::optional<int> index) {
  if (!index) {
    return "";
  }
  std::array<char, 8> text;
  std::snprintf(text.data(), text.size(), "%03d", kDcsCodes[static_cast<std::size_t>(*index)]);
  return text.data();
}

bool HasOption(const CloneImage& image, int n) {
  const std::uint8_t* flags = GetChannelFlagByte(image, n);
  return flags != nullptr && (*flags & kFlagOption) != 0;
}

std::vector<NamedValue> DescribeFields(const ChannelFields& fields, bool has_frequencies) {
  const auto frequency = [&](Frequency f) {
    return has_frequencies ? WithoutLeadingBlanks(FormatFrequency(f)) : std::string();
  };
  return {{"rx", frequency(fields.receive)},
          {"tx", frequency(fields.transmit)},
          {"shift", kShiftNames[fields.shift]},
          {"offset", FormatOffset(fields.offset)},
          {"tone-mode", Choice(kToneModeNames, fields.tone_mode)},
          {"tone", ToneText(fields.tone_index)},
          {"dcs", DcsText(fields.dcs_index)},
          {"mode", Choice(kModeNames, fields.mode)},
          {"power", Choice(kPowerNames, fields.power)},
          {"step", Choice(kStepNames, fields.step)}};
}

// The fields that only memory channels have; the name, that VFO slots lack, comes first.
void AppendMemoryFields(const CloneImage& image, int n, const ChannelFields& fields,
                        std::vector<NamedValue>& values) {
  const bool memory = !IsSpecialSlot(n);
  const auto memory_only = [&](const std::string& value) { return memory ? value : ""; };
  const bool programmed = IsProgrammed(image, n);
  values.emplace_back("name", IsVfoSlot(n) ? "" : fields.name);
  values.emplace_back("comment",
                      memory && programmed ? std::string(ChannelCommentText(image, n)) : "");
  values.emplace_back("icon", memory_only(std::to_string(fields.icon)));
  values.emplace_back("skip", memory_only(OnOff(programmed && IsSkip(image, n))));
  values.emplace_back("masked", memory_only(OnOff(programmed && IsMasked(image, n))));
  values.emplace_back("option", memory_only(OnOff(programmed && HasOption(image, n))));
}

}  // namespace

std::vector<NamedValue> DescribeChannel(const CloneImage& image, int n) {
  const std::uint8_t* record = GetChannelRecord(image, n);
  if (record == nullptr || n == 0) {
    return {};
  }
  const bool in_use = IsSpecialSlot(n) || IsProgrammed(image, n);
  const ChannelFields fields = in_use ? DecodeChannelRecord(record) : ChannelFields{};
  std::vector<NamedValue> values = DescribeFields(fields, in_use);
  AppendMemoryFields(image, n, fields, values);
  values.emplace_back("option-a", OnOff(fields.option_a));
  values.emplace_back("option-b", OnOff(fields.option_b));
  return values;
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
