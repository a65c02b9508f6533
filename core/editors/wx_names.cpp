#include "core/editors/wx_names.h"

#include <algorithm>

namespace qz7 {
namespace {

Region NameField(int n) {
  return {.offset = kWxNames.offset + static_cast<std::size_t>(n) * kWxNameLength,
          .size = kWxNameLength};
}

std::string ShownName(std::span<const std::uint8_t> field) {
  std::string name(FieldText(reinterpret_cast<const char*>(field.data()), field.size()));
  name.erase(name.find_last_not_of(' ') + 1);
  return name;
}

}  // namespace

void EditWxName(WxNames& names, int n, std::string_view text) {
  names.names[static_cast<std::size_t>(n)] = text;
  names.edited = true;
}

WxNames LoadWxNames(SettingsSource source) {
  WxNames names;
  for (int n = 0; n < kWxNameCount; ++n) {
    names.names[static_cast<std::size_t>(n)] = ShownName(source[NameField(n)]);
  }
  return names;
}

void StoreWxName(const WxNames& names, int n, SettingsTarget target) {
  const std::string& name = names.names[static_cast<std::size_t>(n)];
  const auto field = target[NameField(n)];
  std::fill(field.begin(), field.end(), std::uint8_t{' '});
  std::copy_n(name.begin(), std::min(name.size(), field.size()), field.begin());
}

void StoreWxNames(const WxNames& names, SettingsTarget target) {
  for (int n = 0; n < kWxNameCount; ++n) {
    StoreWxName(names, n, target);
  }
}

}  // namespace qz7
