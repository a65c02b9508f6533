#include "desktop/files/profile_file.h"

#include <windows.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "desktop/toolkit/ansi_text.h"

namespace qz7 {
namespace {

// The lines of the section, each ended by a zero.
std::wstring SectionLines(const std::filesystem::path& path, const std::wstring& section) {
  std::wstring lines;
  DWORD got = 0;
  do {
    // What has no room is cut, and the last two zeros are not counted.
    lines.resize(lines.size() * 2 + 0x1000);
    got = GetPrivateProfileSectionW(section.c_str(), lines.data(), static_cast<DWORD>(lines.size()),
                                    path.c_str());
  } while (got >= lines.size() - 2);
  lines.resize(got);
  return lines;
}

}  // namespace

Profile ReadProfileFile(const std::filesystem::path& path, const std::string& section) {
  const std::wstring all = SectionLines(path, WideText(section));
  std::vector<std::string> lines;
  for (std::wstring_view rest = all; !rest.empty();) {
    const std::size_t end = std::min(rest.find(L'\0'), rest.size());
    lines.push_back(AnsiText(rest.substr(0, end)));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return ProfileOf(lines);
}

}  // namespace qz7
