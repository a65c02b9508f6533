#include "core/files/profile.h"

#include <algorithm>

#include "core/image/blanks.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

constexpr std::string_view kBlanks = " \t";

std::string WithoutQuotes(const std::string& text) {
  const bool quoted = text.size() > 1 && text.front() == text.back() &&
                      (text.front() == '"' || text.front() == '\'');
  return quoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

bool IgnoringCase::operator()(std::string_view a, std::string_view b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [](char x, char y) { return UpperCase(x) < UpperCase(y); });
}

Profile ProfileOf(std::span<const std::string> lines) {
  Profile profile;
  for (const std::string_view line : lines) {
    const std::size_t sign = line.find('=');
    if (sign != std::string_view::npos) {
      profile.emplace(WithoutOuterBlanks(line.substr(0, sign), kBlanks),
                      WithoutQuotes(WithoutOuterBlanks(line.substr(sign + 1), kBlanks)));
    }
  }
  return profile;
}

std::string ProfileText(const Profile& profile, std::string_view key, std::string_view missing,
                        std::size_t most) {
  const auto found = profile.find(key);
  return std::string(found == profile.end() ? missing : found->second).substr(0, most);
}

}  // namespace qz7
