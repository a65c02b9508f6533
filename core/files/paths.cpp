#include "core/files/paths.h"

namespace qz7 {

std::size_t NameOffset(const std::filesystem::path& path) {
  constexpr std::filesystem::path::value_type kSeparators[] = {kPathSeparator, '/', '\0'};
  const std::size_t separator = path.native().find_last_of(kSeparators);
  return separator == std::filesystem::path::string_type::npos ? 0 : separator + 1;
}

std::filesystem::path NamePart(const std::filesystem::path& path) {
  return path.native().substr(NameOffset(path));
}

std::filesystem::path InFolder(const std::filesystem::path& folder,
                               const std::filesystem::path& name) {
  return folder.native() + kPathSeparator + name.native();
}

std::ifstream OpenToRead(const std::filesystem::path& path) {
  return std::ifstream(SystemPath(path), std::ios::binary);
}

}  // namespace qz7
