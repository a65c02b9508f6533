#include "core/editors/main_fields.h"

#include <algorithm>
#include <array>
#include <bit>

#include "core/files/document_header.h"
#include "core/image/settings_map.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

constexpr std::uint8_t kWholeByte = 0xFF;

constexpr std::array kPowerOffTimes = {"Off",     "30 Minutes", "1 hour",
                                       "3 hours", "5 hours",    "8 hours"};
constexpr std::array kTransmitTimes = {"Off", "1 minute", "2.5 minutes", "5 minutes", "10 minutes"};
constexpr std::array kLocks = {"Key", "Dial", "Key+Dial", "PTT", "Key+PTT", "Dial+PTT", "All"};
constexpr std::array kBells = {"Off", "1 Ring", "3 Ring", "5 Ring", "8 Ring", "Repeat"};
constexpr std::array kSaverTimes = {"Off", "200ms", "300ms", "500ms", "1 Sec", "2 Sec"};
constexpr std::array kLamps = {"5 Second", "Key", "Toggle"};

constexpr MainField List(int control, std::size_t offset, std::span<const char* const> texts) {
  return {FieldKind::kList, control, offset, kWholeByte, texts, 0};
}
constexpr MainField Group(int control, std::size_t offset, std::uint8_t bits, int buttons) {
  return {FieldKind::kRadioGroup, control, offset, bits, {}, buttons};
}
constexpr MainField Box(int control, std::size_t offset, int bit) {
  return {FieldKind::kCheckBox, control, offset, static_cast<std::uint8_t>(1 << bit), {}, 0};
}

constexpr std::array kFields = {
    List(ID_AUTO_POWER_OFF, kAutoPowerOff, kPowerOffTimes),
    List(ID_TRANSMIT_TIME_OUT, kTransmitTimeOut, kTransmitTimes),
    List(ID_LOCK, kLock, kLocks),
    List(ID_BELL, kBell, kBells),
    List(ID_RECEIVE_SAVER, kReceiveSaver, kSaverTimes),
    List(ID_LAMP, kLamp, kLamps),
    Group(ID_OPTION_A_FIRST, kMainChoice, kWholeByte, 3),
    Group(ID_OPTION_B_FIRST, kSwitchesC, 1 << 5, 2),
    Group(ID_OPTION_C_FIRST, kSwitchesC, 1 << 4, 2),
    Box(ID_SWITCH_1, kSwitchesA, 7),
    Box(ID_SWITCH_2, kSwitchesA, 5),
    Box(ID_SWITCH_3, kSwitchesA, 2),
    Box(ID_SWITCH_4, kSwitchesA, 1),
    Box(ID_SWITCH_5, kSwitchesA, 6),
    Box(ID_SWITCH_6, kSwitchesA, 3),
    Box(ID_SWITCH_7, kSwitchesB, 3),
    Box(ID_SWITCH_8, kSwitchesB, 7),
    Box(ID_SWITCH_9, kSwitchesB, 4),
    Box(ID_SWITCH_10, kSwitchesB, 0),
    Box(ID_SWITCH_11, kSwitchesC, 0),
    Box(ID_SWITCH_12, kSwitchesC, 1),
};

int ChoiceCount(const MainField& field) {
  switch (field.kind) {
    case FieldKind::kList:
      return static_cast<int>(field.texts.size());
    case FieldKind::kRadioGroup:
      return field.buttons;
    default:
      return 2;
  }
}

}  // namespace

std::span<const MainField> MainFields() { return kFields; }

std::optional<int> ReadMainField(const CloneImage& image, const MainField& field) {
  // The one byte whose far values show as "Off"; the value between shows nothing.
  constexpr int kFirstFarValue = 7;
  const int value = (image[field.offset] & field.bits) >> std::countr_zero(field.bits);
  if (field.offset == kAutoPowerOff && value >= kFirstFarValue) {
    return 0;
  }
  return value < ChoiceCount(field) ? std::optional(value) : std::nullopt;
}

void WriteMainField(CloneImage& image, const MainField& field, std::optional<int> choice) {
  if (!choice) {
    return;
  }
  std::uint8_t& byte = image[field.offset];
  const auto bits = static_cast<std::uint8_t>(*choice << std::countr_zero(field.bits));
  byte = static_cast<std::uint8_t>((byte & ~field.bits) | (bits & field.bits));
}

void WriteFileComment(CloneImage& image, const std::string& text) {
  const std::size_t size = std::min(text.size(), kLongestFileComment);
  const auto end = std::copy_n(text.begin(), size, image.begin() + kFileComment.offset);
  *end = 0;
}

bool TouchesMainDefaults(int control) {
  return (control >= 103 && control <= 120) || control == 122 || control == 126 || control == 127 ||
         (control >= 132 && control <= 136);
}

std::string FieldPlace(const MainField& field) {
  const std::string byte = "Byte " + std::to_string(field.offset);
  return field.bits == kWholeByte ? byte
                                  : byte + ", bit " + std::to_string(std::countr_zero(field.bits));
}

}  // namespace qz7
