#include <algorithm>
#include <array>
#include <iterator>

#include "core/editors/channel_editor.h"
#include "core/image/channel_codes.h"
#include "core/interchange/codeplug_slots.h"

namespace qz7 {
namespace {

constexpr const char* kFrequencyPattern = "^[0-9]+(\\.[0-9]+)?$";
constexpr const char* kOffsetPattern = "^[0-9]+(\\.[0-9]+)?( [kM]Hz)?$";
constexpr const char* kIconPattern = "^([0-9]|[1-5][0-9]|6[0-3])$";

template <std::size_t kCount>
TextForm NamesForm(const std::array<const char*, kCount>& names, bool can_be_nothing) {
  return {.choices = {names.begin(), names.end()}, .can_be_nothing = can_be_nothing};
}

// A stored index behind the table's end is one without a meaning.
template <std::size_t kCount>
TextForm TableForm(std::string (*text_of)(int), const std::array<int, kCount>& table) {
  TextForm form{.choices = {}, .can_be_nothing = true};
  std::transform(table.begin(), table.end(), std::back_inserter(form.choices), text_of);
  return form;
}

TextForm FrequencyForm() { return {.longest = kFrequencyTextLength, .pattern = kFrequencyPattern}; }

}  // namespace

std::vector<FieldForm> ChannelFieldForms() {
  const TextForm on_off{.choices = {"on", "off"}};
  return {{"rx", FrequencyForm()},
          {"tx", FrequencyForm()},
          {"shift", NamesForm(kShiftNames, false)},
          {"offset", {.pattern = kOffsetPattern}},
          {"tone-mode", NamesForm(kToneModeNames, true)},
          {"tone", TableForm(ToneText, kTones)},
          {"dcs", TableForm(DcsText, kDcsCodes)},
          {"mode", NamesForm(kModeNames, true)},
          {"power", NamesForm(kPowerNames, false)},
          {"step", NamesForm(kStepNames, true)},
          {"name", {.longest = kNameLength}},
          {"comment", {.longest = kCommentSize}},
          {"icon", {.pattern = kIconPattern}},
          {"skip", on_off},
          {"masked", on_off},
          {"option", on_off},
          {"option-a", on_off},
          {"option-b", on_off}};
}

}  // namespace qz7
