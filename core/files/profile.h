#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>

namespace qz7 {

struct IgnoringCase {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

// The preferences: text values by key.
using Profile = std::map<std::string, std::string, IgnoringCase>;

// From the section's lines, "key=value" each: blanks around either belong to neither, nor does a
// pair of quotes to the value. The first line of a key counts; one without "=" says nothing.
Profile ProfileOf(std::span<const std::string> lines);

// At most `most` characters of a value; `missing` where there is no such key.
std::string ProfileText(const Profile& profile, std::string_view key, std::string_view missing,
                        std::size_t most);

}  // namespace qz7
