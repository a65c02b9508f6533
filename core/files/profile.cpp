#include "core/files/profile.h"

#include <algorithm>

namespace qz7 {
namespace {

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string_view WithoutBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

std::string_view WithoutQuotes(std::string_view text) {
  const bool quoted = text.size() > 1 && text.front() == text.back() &&
                      (text.front() == '"' || text.front() == '\'');
  return quoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

bool IgnoringAsciiCase::operator()(std::string_view a, std::string_view b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [](char x, char y) { return Lower(x) < Lower(y); });
}

Profile ProfileOf(std::span<const std::string> lines) {
  Profile profile;
  for (const std::string_view line : lines) {
    const std::size_t sign = line.find('=');
    if (sign != std::string_view::npos) {
      profile.emplace(WithoutBlanks(line.substr(0, sign)),
                      WithoutQuotes(WithoutBlanks(line.substr(sign + 1))));
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
