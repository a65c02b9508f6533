#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/editors/settings_place.h"
#include "core/image/settings_map.h"

namespace qz7 {

// What the ten fields of the WX names editor hold, at most 8 characters each.
struct WxNames {
  std::array<std::string, kWxNameCount> names;
  bool edited = false;
};

void EditWxName(WxNames& names, int n, std::string_view text);

// Names without their trailing blanks; storing pads them again.
WxNames LoadWxNames(SettingsSource source);
void StoreWxName(const WxNames& names, int n, SettingsTarget target);
void StoreWxNames(const WxNames& names, SettingsTarget target);

// Stores the names as defaults, and calls `save` after each of them and once more in the end: the
// file is written eleven times, wanted.
template <typename Save>
void SaveWxNamesAsDefaults(const WxNames& names, DefaultsRecord& record, Save&& save) {
  for (int n = 0; n < kWxNameCount; ++n) {
    StoreWxName(names, n, TargetIn(record));
    save();
  }
  save();
}

}  // namespace qz7
