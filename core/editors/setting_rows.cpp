#include "core/editors/setting_rows.h"

#include <array>
#include <utility>

#include "core/files/seams.h"

namespace qz7 {
namespace {

constexpr int kByteWidth = 8;
constexpr std::array kButtonTexts = {"First", "Second", "Third"};
constexpr std::array kBoxTexts = {"off", "on"};

std::optional<int> PositionOf(const Setting& row, int value) {
  if (row.kind == SettingKind::kCheckBox) {
    return value != 0 ? 1 : 0;
  }
  if (value >= row.first_far_value) {
    return 0;
  }
  const int position = value - row.lowest;
  return position >= 0 && position < row.choices.count ? std::optional(position) : std::nullopt;
}

std::optional<std::size_t> StoreRows(const SettingScreen& screen,
                                     std::span<const SettingValue> values, SettingsTarget target,
                                     const std::function<void()>& after_each_row) {
  for (std::size_t i = 0; i < screen.rows.size(); ++i) {
    if (const char* refusal = StoreSetting(screen.rows[i], values[i], target)) {
      ShowMessage(refusal, "Input Error", Buttons::kOk, Icon::kStop);
      return i;
    }
    after_each_row();
  }
  return std::nullopt;
}

}  // namespace

Setting ListSetting(std::string name, std::size_t byte, SettingChoices choices) {
  return {.name = std::move(name),
          .kind = SettingKind::kList,
          .bits = {.byte = byte, .shift = 0, .width = kByteWidth},
          .choices = choices};
}

Setting GroupSetting(std::string name, BitField bits, int buttons) {
  SettingChoices choices = ChoicesOf<kButtonTexts>();
  choices.count = buttons;
  return {
      .name = std::move(name), .kind = SettingKind::kRadioGroup, .bits = bits, .choices = choices};
}

Setting BoxSetting(std::string name, BitField bits) {
  return {.name = std::move(name),
          .kind = SettingKind::kCheckBox,
          .bits = bits,
          .choices = ChoicesOf<kBoxTexts>()};
}

Setting TextSetting(std::string name, const SettingText& text) {
  return {.name = std::move(name), .kind = SettingKind::kText, .text = text};
}

std::string PlaceOf(const Setting& row) {
  if (row.kind == SettingKind::kText) {
    return "Byte " + std::to_string(row.text.place.offset);
  }
  const std::string byte = "Byte " + std::to_string(row.bits.byte);
  return row.bits.width == kByteWidth ? byte : byte + ", bit " + std::to_string(row.bits.shift);
}

SettingValue LoadSetting(const Setting& row, SettingsSource source) {
  if (row.kind == SettingKind::kText) {
    return {.text = row.text.decode(source[row.text.place])};
  }
  return {.choice = PositionOf(row, ReadBits(source.bytes, source(row.bits)))};
}

const char* StoreSetting(const Setting& row, const SettingValue& value, SettingsTarget target) {
  if (row.kind == SettingKind::kText) {
    return row.text.encode(value.text, target[row.text.place]);
  }
  if (value.choice) {
    WriteBits(target.bytes, target(row.bits), *value.choice + row.lowest);
  }
  return nullptr;
}

std::vector<SettingValue> LoadScreen(const SettingScreen& screen, SettingsSource source) {
  std::vector<SettingValue> values;
  values.reserve(screen.rows.size());
  for (const Setting& row : screen.rows) {
    values.push_back(LoadSetting(row, source));
  }
  return values;
}

std::optional<std::size_t> StoreScreen(const SettingScreen& screen,
                                       std::span<const SettingValue> values,
                                       SettingsTarget target) {
  return StoreRows(screen, values, target, [] {});
}

std::optional<std::size_t> StoreDefaults(const SettingScreen& screen,
                                         std::span<const SettingValue> values,
                                         DefaultsRecord& record,
                                         const std::function<void()>& save) {
  const auto refused =
      StoreRows(screen, values, TargetIn(record),
                screen.saves_defaults_after_each_row ? save : std::function<void()>([] {}));
  if (!refused) {
    save();
  }
  return refused;
}

}  // namespace qz7
