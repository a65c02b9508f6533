#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

namespace qz7 {

using Bytes = std::vector<std::uint8_t>;

// A folder of a test's own, gone at the end of the test.
class TempFolder {
 public:
  TempFolder() {
    const std::filesystem::path parent = std::filesystem::temp_directory_path();
    int n = 0;
    do {
      path_ = parent / ("qz7_tests_" + std::to_string(n++));
    } while (!std::filesystem::create_directory(path_));
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  // Spelled as the standard library's directory entries spell it.
  // NOLINTNEXTLINE(readability-identifier-naming)
  const std::filesystem::path& path() const { return path_; }
  std::string File(const std::string& name) const { return (path_ / name).string(); }

  // What the folder holds, by name.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::filesystem::path path_;
};

inline void PutFile(const std::filesystem::path& path, const Bytes& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

// The bytes of a file; none for a file that is not there.
inline Bytes FileBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace qz7
