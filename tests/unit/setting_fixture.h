#pragma once

#include <gtest/gtest.h>

#include "core/editors/autodial.h"
#include "core/editors/icons.h"
#include "core/editors/main_fields.h"
#include "core/editors/settings.h"
#include "core/editors/vorn.h"
#include "core/editors/wx_names.h"
#include "tests/unit/editor_fixture.h"

// What the tests of the settings' rows share.
namespace qz7::setting_fixture {

using namespace editor_fixture;

inline std::vector<const SettingScreen*> FeatureScreens() {
  return {&SettingsScreen(), &VornScreen(), &AutodialScreen(), &WxNamesScreen(), &IconsScreen()};
}

inline const Setting& Row(const std::string& name) {
  std::vector<const SettingScreen*> screens = FeatureScreens();
  screens.push_back(&MainScreen());
  for (const SettingScreen* screen : screens) {
    for (const Setting& row : screen->rows) {
      if (row.name == name) {
        return row;
      }
    }
  }
  ADD_FAILURE() << "no row " << name;
  return MainScreen().rows[0];
}

inline SettingValue Choice(int position) { return {.choice = position}; }
inline SettingValue Text(const std::string& text) { return {.text = text}; }

template <typename Bytes>
SettingValue Shown(const std::string& name, const Bytes& bytes) {
  return LoadSetting(Row(name), SourceIn(bytes));
}
// Returns the message of a refusal, or nothing.
template <typename Bytes>
std::string Put(const std::string& name, const SettingValue& value, Bytes& bytes) {
  const char* refusal = StoreSetting(Row(name), value, TargetIn(bytes));
  return refusal == nullptr ? "" : refusal;
}

// What the screen shows of fresh bytes, all zero: every row's value.
inline std::vector<SettingValue> Values(const SettingScreen& screen) {
  return LoadScreen(screen, SourceIn(*MakeImage()));
}

inline std::vector<std::string> TextsOf(const Setting& row) {
  std::vector<std::string> texts;
  for (int i = 0; i < row.choices.count; ++i) {
    texts.push_back(row.choices.text(i));
  }
  return texts;
}

inline Bytes BytesAt(const DefaultsRecord& record, std::size_t offset, std::size_t size) {
  return {record.begin() + static_cast<std::ptrdiff_t>(offset),
          record.begin() + static_cast<std::ptrdiff_t>(offset + size)};
}

}  // namespace qz7::setting_fixture
