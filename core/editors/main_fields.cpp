#include "core/editors/main_fields.h"

#include <algorithm>
#include <array>

#include "core/files/document_header.h"
#include "core/image/settings_map.h"

namespace qz7 {
namespace {

constexpr std::array kPowerOffTimes = {"Off",     "30 Minutes", "1 hour",
                                       "3 hours", "5 hours",    "8 hours"};
constexpr std::array kTransmitTimes = {"Off", "1 minute", "2.5 minutes", "5 minutes", "10 minutes"};
constexpr std::array kLocks = {"Key", "Dial", "Key+Dial", "PTT", "Key+PTT", "Dial+PTT", "All"};
constexpr std::array kBells = {"Off", "1 Ring", "3 Ring", "5 Ring", "8 Ring", "Repeat"};
constexpr std::array kSaverTimes = {"Off", "200ms", "300ms", "500ms", "1 Sec", "2 Sec"};
constexpr std::array kLamps = {"5 Second", "Key", "Toggle"};

BitField Bit(std::size_t byte, int bit) { return {.byte = byte, .shift = bit, .width = 1}; }

SettingScreen MakeScreen() {
  Setting power_off = ListSetting("auto-power-off", kAutoPowerOff, ChoicesOf<kPowerOffTimes>());
  power_off.first_far_value = 7;  // 6 shows nothing
  return {.rows = {
              power_off,
              ListSetting("transmit-time-out", kTransmitTimeOut, ChoicesOf<kTransmitTimes>()),
              ListSetting("lock", kLock, ChoicesOf<kLocks>()),
              ListSetting("bell", kBell, ChoicesOf<kBells>()),
              ListSetting("receive-saver", kReceiveSaver, ChoicesOf<kSaverTimes>()),
              ListSetting("lamp", kLamp, ChoicesOf<kLamps>()),
              GroupSetting("option-a", {.byte = kMainChoice, .shift = 0, .width = 8}, 3),
              GroupSetting("option-b", Bit(kSwitchesC, 5), 2),
              GroupSetting("option-c", Bit(kSwitchesC, 4), 2),
              BoxSetting("switch-1", Bit(kSwitchesA, 7)),
              BoxSetting("switch-2", Bit(kSwitchesA, 5)),
              BoxSetting("switch-3", Bit(kSwitchesA, 2)),
              BoxSetting("switch-4", Bit(kSwitchesA, 1)),
              BoxSetting("switch-5", Bit(kSwitchesA, 6)),
              BoxSetting("switch-6", Bit(kSwitchesA, 3)),
              BoxSetting("switch-7", Bit(kSwitchesB, 3)),
              BoxSetting("switch-8", Bit(kSwitchesB, 7)),
              BoxSetting("switch-9", Bit(kSwitchesB, 4)),
              BoxSetting("switch-10", Bit(kSwitchesB, 0)),
              BoxSetting("switch-11", Bit(kSwitchesC, 0)),
              BoxSetting("switch-12", Bit(kSwitchesC, 1)),
          }};
}

}  // namespace

const SettingScreen& MainScreen() {
  static const SettingScreen screen = MakeScreen();
  return screen;
}

void WriteFileComment(CloneImage& image, const std::string& text) {
  const std::size_t size = std::min(text.size(), kLongestFileComment);
  const auto end = std::copy_n(text.begin(), size, image.begin() + kFileComment.offset);
  *end = 0;
}

}  // namespace qz7
