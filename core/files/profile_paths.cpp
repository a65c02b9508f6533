#include "core/files/profile_paths.h"

#include <cstdlib>
#include <string_view>

#include "core/files/seams.h"

namespace qz7 {
namespace {

constexpr const char* kWholeSuffix = "Utf8";
constexpr std::size_t kLongestWhole = 60'000;

bool IsPlain(char8_t byte) { return byte > u8' ' && byte < 0x7F && byte != u8'%'; }

std::string Escaped(const std::filesystem::path& path) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const char8_t byte : path.u8string()) {
    if (IsPlain(byte)) {
      text += static_cast<char>(byte);
    } else {
      text += {'%', kDigits[byte >> 4], kDigits[byte & 0x0F]};
    }
  }
  return text;
}

std::filesystem::path Unescaped(const std::string& text) {
  std::u8string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%') {
      bytes += static_cast<char8_t>(std::strtoul(text.substr(i + 1, 2).c_str(), nullptr, 16));
      i += 2;
    } else {
      bytes += static_cast<char8_t>(text[i]);
    }
  }
  return bytes;
}

}  // namespace

std::filesystem::path ReadProfilePath(const Profile& profile, const std::string& key,
                                      std::size_t most) {
  const std::string text = ProfileText(profile, key, "", most);
  try {
    auto whole = Unescaped(ProfileText(profile, key + kWholeSuffix, "", kLongestWhole));
    if (!whole.empty() && PathText(whole).substr(0, most) == text) {
      return whole;
    }
  } catch (const std::filesystem::filesystem_error&) {
    // Somebody else wrote it, and it is no UTF-8.
  }
  return PathOfText(text);
}

void WriteProfilePath(const std::string& key, const std::filesystem::path& path, std::size_t most) {
  const std::string text = PathText(path);
  WriteProfile(key, text);
  if (PathOfText(text.substr(0, most)).native() == path.native()) {
    ForgetProfile(key + kWholeSuffix);
  } else {
    WriteProfile(key + kWholeSuffix, Escaped(path));
  }
}

}  // namespace qz7
