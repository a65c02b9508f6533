#include "radio/storage.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace qz7radio {
namespace {

// A radio data file is larger than the memory; the memory lies at this place in it.
constexpr std::uintmax_t kDataFileSize = 21282;
constexpr std::streamoff kMemoryInDataFile = 3060;

std::string SystemReason(int error) { return std::generic_category().message(error); }

bool WriteAll(int file, const Memory& memory) {
  std::size_t done = 0;
  while (done < memory.size()) {
    const ssize_t count = write(file, memory.data() + done, memory.size() - done);
    if (count < 0) {
      return false;
    }
    done += static_cast<std::size_t>(count);
  }
  return fsync(file) == 0;
}

// The access rights of the file that is replaced, or those of any new file.
mode_t RightsOf(const std::string& path) {
  struct stat old {};
  if (stat(path.c_str(), &old) == 0) {
    return old.st_mode & 07777U;
  }
  const mode_t mask = umask(0);
  umask(mask);
  return 0666U & ~mask;
}

// The file itself where `path` is a symbolic link to one, so that the link survives.
std::filesystem::path Resolve(const std::string& path) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::weakly_canonical(path, error);
  return error ? std::filesystem::path(path) : real;
}

}  // namespace

std::string LoadMemory(const std::string& path, Memory& memory) {
  std::error_code error;
  if (!std::filesystem::exists(path, error)) {
    return error ? path + ": " + error.message() : "";
  }
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error) {
    return path + ": " + error.message();
  }
  if (size != kMemorySize && size != kDataFileSize) {
    return path + ": neither a radio memory (8122 bytes) nor a radio data file (21282 bytes)";
  }
  std::ifstream file(path, std::ios::binary);
  file.seekg(size == kDataFileSize ? kMemoryInDataFile : 0);
  Memory loaded{};
  file.read(reinterpret_cast<char*>(loaded.data()), static_cast<std::streamsize>(loaded.size()));
  if (!file) {
    return path + ": cannot be read";
  }
  memory = loaded;
  return "";
}

std::string CheckTarget(const std::string& path) {
  const std::filesystem::path target = Resolve(path);
  std::error_code error;
  if (std::filesystem::exists(target, error)) {
    const std::uintmax_t size = std::filesystem::file_size(target, error);
    if (error || size != kMemorySize) {
      return path + ": exists and is no radio memory (8122 bytes), so it is not overwritten";
    }
  }
  const std::filesystem::path folder =
      target.has_parent_path() ? target.parent_path() : std::filesystem::path(".");
  if (access(folder.c_str(), W_OK | X_OK) != 0) {
    return path + ": no file can be made in its folder: " + SystemReason(errno);
  }
  return "";
}

std::string StoreMemory(const std::string& path, const Memory& memory) {
  if (std::string reason = CheckTarget(path); !reason.empty()) {
    return reason;
  }
  const std::string target = Resolve(path).string();
  std::string beside = target + ".XXXXXX";
  const int file = mkostemp(beside.data(), O_CLOEXEC);
  if (file < 0) {
    return path + ": " + SystemReason(errno);
  }
  bool stored = fchmod(file, RightsOf(target)) == 0 && WriteAll(file, memory);
  int error = errno;
  if (close(file) != 0 && stored) {
    stored = false;
    error = errno;
  }
  if (stored && rename(beside.c_str(), target.c_str()) != 0) {
    stored = false;
    error = errno;
  }
  if (!stored) {
    unlink(beside.c_str());
    return path + ": " + SystemReason(error);
  }
  return "";
}

}  // namespace qz7radio
