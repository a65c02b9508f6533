#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "core/files/paths.h"
#include "desktop/toolkit/shell_path.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {

// A folder whose path is longer than the 260 characters that many of the system's functions take.
class LongFolder {
 public:
  LongFolder() : path_(folder_.path()) {
    constexpr std::size_t kPart = 100;
    for (const wchar_t letter : {L'a', L'b', L'c'}) {
      path_ /= std::wstring(kPart, letter);
    }
    std::filesystem::create_directories(SystemPath(path_));
  }
  LongFolder(const LongFolder&) = delete;
  LongFolder& operator=(const LongFolder&) = delete;
  // The standard library does not come to an end where it removes a marked path.
  ~LongFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(ShellPath(path_ / "file").parent_path(), ignored);
  }

  void Put(const std::string& name, const std::string& text) const {
    std::ofstream(SystemPath(path_ / name)) << text;
  }

  // NOLINTNEXTLINE(readability-identifier-naming): as TempFolder's
  const std::filesystem::path& path() const { return path_; }

 private:
  TempFolder folder_;
  std::filesystem::path path_;
};

}  // namespace qz7
