#include "core/editors/channel_fields.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

#include "core/editors/icons.h"
#include "core/image/blanks.h"
#include "core/image/channel_text.h"
#include "core/image/decimal.h"
#include "core/image/frequency_check.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

// A setter returns why not; nothing when the value is taken.
using WhyNot = std::string;
using Setter = WhyNot (*)(ChannelEditor& editor, std::string_view value);

WhyNot NoFrequency(std::string_view value) {
  return "\"" + std::string(value) + "\" is not a frequency";
}

WhyNot TooLong(std::size_t length) { return "at most " + std::to_string(length) + " characters"; }

// What a text may not take in; one that is there already may stay.
WhyNot NoControls(std::string_view text) {
  return std::any_of(text.begin(), text.end(), IsControl) ? "a control character cannot be stored"
                                                          : WhyNot();
}

WhyNot OneOf(const std::vector<std::string>& texts) {
  std::string list = "one of ";
  for (const std::string& text : texts) {
    list += (&text == texts.data() ? "" : ", ") + text;
  }
  return list;
}

// The place of a value among texts. The empty value is a code that has no text, and keeps the
// choice.
template <typename Texts>
WhyNot Choose(std::optional<int>& place, const Texts& texts, std::string_view value) {
  const auto text = std::find(texts.begin(), texts.end(), value);
  if (text != texts.end()) {
    place = static_cast<int>(text - texts.begin());
  }
  return value.empty() || text != texts.end() ? WhyNot() : OneOf({texts.begin(), texts.end()});
}

template <typename Code, std::size_t kCount>
WhyNot ChooseCode(std::optional<Code>& choice, const std::array<const char*, kCount>& names,
                  std::string_view value) {
  std::optional<int> place = PlaceOf(choice);
  WhyNot why_not = Choose(place, names, value);
  choice = CodeAt<Code>(names, place);
  return why_not;
}

template <std::size_t kCount>
std::vector<std::string> Texts(std::string (*text_of)(int), const std::array<int, kCount>& table) {
  std::vector<std::string> texts;
  std::transform(table.begin(), table.end(), std::back_inserter(texts), text_of);
  return texts;
}

WhyNot Switch(bool& box, std::string_view value) {
  if (value != "on" && value != "off") {
    return "on or off";
  }
  box = value == "on";
  return {};
}

WhyNot SetReceive(ChannelEditor& editor, std::string_view value) {
  if (value == WithoutLeadingBlanks(editor.receive)) {
    return {};
  }
  if (value.size() > kFrequencyTextLength) {
    return TooLong(kFrequencyTextLength);
  }
  editor.receive = value;
  LeaveReceive(editor);
  return {};
}

// The transmit frequency of the record that the editor would write. It can lie higher than one that
// the window shows.
Frequency StoredTransmit(const ChannelEditor& editor) {
  const ChannelRecord record =
      BuildChannelRecord({}, editor.choices, FrequenciesOf(editor), editor.n, editor.region);
  return TransmitFrequency(record, editor.region);
}

WhyNot SetTransmit(ChannelEditor& editor, std::string_view value) {
  const Frequency transmit = ParseFrequency(value);
  if (value == WithoutLeadingBlanks(editor.transmit) ||
      (HasDigit(value) &&
       (transmit == ParseFrequency(editor.transmit) || transmit == StoredTransmit(editor)))) {
    return {};
  }
  if (!HasTransmitField(editor)) {
    return "follows rx, shift and offset unless the shift is split";
  }
  if (value.size() > kFrequencyTextLength) {
    return TooLong(kFrequencyTextLength);
  }
  if (!HasDigit(value)) {
    return NoFrequency(value);
  }
  editor.transmit = FormatFrequency(transmit);
  return {};
}

WhyNot SetShift(ChannelEditor& editor, std::string_view value) {
  std::optional<Shift> shift = editor.choices.shift;
  if (value.empty()) {
    return OneOf({kShiftNames.begin(), kShiftNames.end()});
  }
  WhyNot why_not = ChooseCode(shift, kShiftNames, value);
  if (*shift != editor.choices.shift) {
    ChangeShift(editor, *shift);
  }
  return why_not;
}

WhyNot SetOffset(ChannelEditor& editor, std::string_view value) {
  if (value == FormatExactOffset(OffsetOf(editor))) {
    return {};
  }
  if (!HasDigit(value)) {
    return NoFrequency(value);
  }
  if (const char* refusal = CheckOffset(ParseOffset(value))) {
    return refusal;
  }
  TypeOffset(editor, value);
  LeaveOffset(editor);
  return {};
}

WhyNot SetToneMode(ChannelEditor& editor, std::string_view value) {
  return ChooseCode(editor.choices.tone_mode, kToneModeNames, value);
}
WhyNot SetTone(ChannelEditor& editor, std::string_view value) {
  static const std::vector<std::string> tones = Texts(ToneText, kTones);
  return Choose(editor.choices.tone_index, tones, value);
}
WhyNot SetDcs(ChannelEditor& editor, std::string_view value) {
  static const std::vector<std::string> codes = Texts(DcsText, kDcsCodes);
  return Choose(editor.choices.dcs_index, codes, value);
}
WhyNot SetMode(ChannelEditor& editor, std::string_view value) {
  return ChooseCode(editor.choices.mode, kModeNames, value);
}
WhyNot SetPower(ChannelEditor& editor, std::string_view value) {
  return ChooseCode(editor.choices.power, kPowerNames, value);
}

// The steps that are listed, by the names of what a record stores: what a list calls "20 kHz" can
// be a record's 15 kHz, and another record's 20 kHz is not in that list.
std::vector<std::string> ListedSteps(const ChannelEditor& editor) {
  std::vector<std::string> names;
  std::transform(editor.steps.begin(), editor.steps.end(), std::back_inserter(names),
                 [](const StepChoice& choice) { return NameOf(kStepNames, choice.step); });
  return names;
}

WhyNot SetStep(ChannelEditor& editor, std::string_view value) {
  const std::optional<Step> chosen = editor.choices.step;
  if (value.empty() || (chosen && NameOf(kStepNames, *chosen) == value)) {
    return {};
  }
  // In the MW band the choice is disabled, but what was chosen before stays: each can be there.
  std::optional<int> place;
  WhyNot why_not = Choose(place, ListedSteps(editor), value);
  if (place) {
    editor.choices.step = editor.steps[static_cast<std::size_t>(*place)].step;
  }
  return why_not;
}

WhyNot SetName(ChannelEditor& editor, std::string_view value) {
  if (!HasNameField(editor)) {
    return value.empty() ? WhyNot() : "VFO channels have no name";
  }
  if (value == editor.choices.name) {
    return {};
  }
  if (value.size() > kNameLength) {
    return TooLong(kNameLength);
  }
  editor.choices.name = value;
  return NoControls(value);
}

WhyNot MemoryChannelsOnly(std::string_view value) {
  return value.empty() ? WhyNot() : "memory channels only";
}

WhyNot SetComment(ChannelEditor& editor, std::string_view value) {
  if (!HasMemoryFields(editor)) {
    return MemoryChannelsOnly(value);
  }
  if (value == editor.comment) {
    return {};
  }
  if (value.size() > kCommentTextLength) {
    return TooLong(kCommentTextLength);
  }
  editor.comment = value;
  return NoControls(value);
}

WhyNot SetIcon(ChannelEditor& editor, std::string_view value) {
  if (!HasMemoryFields(editor)) {
    return MemoryChannelsOnly(value);
  }
  int icon = -1;
  const char* end = value.data() + value.size();
  const auto [stopped, error] = std::from_chars(value.data(), end, icon);
  const bool whole = error == std::errc() && stopped == end;
  if (!whole || icon < 0 || (icon >= kIconCount && icon != editor.choices.icon)) {
    return "0 to " + std::to_string(kIconCount - 1);
  }
  editor.choices.icon = icon;
  return {};
}

WhyNot SetSkipBox(ChannelEditor& editor, std::string_view value) {
  return HasMemoryFields(editor) ? Switch(editor.skip, value) : MemoryChannelsOnly(value);
}

WhyNot SetMaskedBox(ChannelEditor& editor, std::string_view value) {
  if (!HasMemoryFields(editor)) {
    return MemoryChannelsOnly(value);
  }
  bool masked = editor.masked;
  WhyNot why_not = Switch(masked, value);
  if (masked != editor.masked && !HasMaskedBox(editor)) {
    return "channel 1 cannot be masked";
  }
  editor.masked = masked;
  return why_not;
}

WhyNot SetOptionBox(ChannelEditor& editor, std::string_view value) {
  return HasMemoryFields(editor) ? Switch(editor.option, value) : MemoryChannelsOnly(value);
}

WhyNot SetOptionA(ChannelEditor& editor, std::string_view value) {
  return Switch(editor.choices.option_a, value);
}
WhyNot SetOptionB(ChannelEditor& editor, std::string_view value) {
  return Switch(editor.choices.option_b, value);
}

// In the order in which they follow each other, which is that of filling in the window.
struct Field {
  const char* name;
  Setter set;
};
constexpr std::array<Field, 18> kFields = {{
    {"rx", SetReceive},
    {"shift", SetShift},
    {"offset", SetOffset},
    {"tx", SetTransmit},
    {"tone-mode", SetToneMode},
    {"tone", SetTone},
    {"dcs", SetDcs},
    {"mode", SetMode},
    {"power", SetPower},
    {"step", SetStep},
    {"name", SetName},
    {"comment", SetComment},
    {"icon", SetIcon},
    {"skip", SetSkipBox},
    {"masked", SetMaskedBox},
    {"option", SetOptionBox},
    {"option-a", SetOptionA},
    {"option-b", SetOptionB},
}};

const Field* FindField(std::string_view name) {
  return std::find_if(kFields.begin(), kFields.end(),
                      [=](const Field& field) { return field.name == name; });
}

std::vector<NamedValue> InFieldOrder(std::vector<NamedValue> values) {
  std::stable_sort(values.begin(), values.end(), [](const NamedValue& a, const NamedValue& b) {
    return FindField(a.first) < FindField(b.first);
  });
  return values;
}

// A refusal in the system's own words stands as it is.
bool IsSystemText(std::string_view value, std::string_view reason) {
  const char* message = CheckOffset(ParseOffset(value));
  return message != nullptr && reason == message;
}

}  // namespace

bool SetEditorField(ChannelEditor& editor, std::string_view name, std::string_view value,
                    std::string& why_not) {
  const Field* field = FindField(name);
  if (field == kFields.end()) {
    why_not = "there is no field \"" + std::string(name) + "\"";
    return false;
  }
  const WhyNot reason = field->set(editor, value);
  if (!reason.empty()) {
    why_not = IsSystemText(value, reason) ? reason : std::string(name) + ": " + reason;
  }
  return reason.empty();
}

bool SetEditorFields(ChannelEditor& editor, const std::vector<NamedValue>& values,
                     std::string& why_not) {
  const std::vector<NamedValue> ordered = InFieldOrder(values);
  return std::all_of(ordered.begin(), ordered.end(), [&](const NamedValue& value) {
    return SetEditorField(editor, value.first, value.second, why_not);
  });
}

std::vector<NamedValue> SetFieldsTellingRefusals(ChannelEditor& editor,
                                                 const std::vector<NamedValue>& values) {
  std::vector<NamedValue> refusals;
  for (const auto& [name, value] : InFieldOrder(values)) {
    const Field* field = FindField(name);
    WhyNot reason = field != kFields.end() ? field->set(editor, value) : "there is no such field";
    if (!reason.empty()) {
      refusals.emplace_back(name, std::move(reason));
    }
  }
  return refusals;
}

}  // namespace qz7
