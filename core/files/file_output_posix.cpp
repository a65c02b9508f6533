#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>

#include "core/files/file_output.h"

namespace qz7 {
namespace {

bool WriteAll(int file, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) {
      continue;
    }
    if (written <= 0) {
      return false;
    }
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return true;
}

// Writes, flushes and closes; true when every step said so.
bool FinishFile(int file, std::span<const std::uint8_t> bytes) {
  const bool written = WriteAll(file, bytes);
  // A pipe or a terminal cannot be flushed to a disk.
  const bool flushed = written && (fsync(file) == 0 || errno == EINVAL);
  return close(file) == 0 && flushed;
}

// What a path names once its symbolic links are followed, so that a link stays a link.
std::string RealTarget(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                         &std::free);
  return real ? std::string(real.get()) : path;
}

// "" for a bare name.
std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

// Where no bit lets anyone write, a file is read-only even for an administrator.
bool MayBeWritten(const std::string& target, const struct stat& file) {
  return access(target.c_str(), W_OK) == 0 && (file.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
}

// A short name in the target's folder, so that it fits wherever the target's own does; no other
// process uses it.
std::string FreshNameBeside(const std::string& target) {
  return FolderOf(target) + "~qz7-" + std::to_string(getpid()) + ".tmp";
}

WriteOutcome WriteInPlace(const std::string& path, std::span<const std::uint8_t> bytes) {
  const int file = open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
  if (file < 0) {
    return WriteOutcome::kCannotCreate;
  }
  return FinishFile(file, bytes) ? WriteOutcome::kWritten : WriteOutcome::kWriteError;
}

// The folder's own entry of a new name goes to the disk, too; a folder that cannot be flushed has
// taken the file all the same.
void FlushFolderOf(const std::string& path) {
  const std::string folder = FolderOf(path);
  const int handle =
      open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle >= 0) {
    fsync(handle);
    close(handle);
  }
}

}  // namespace

bool CanWriteFile(const std::filesystem::path& path) {
  const std::string target = RealTarget(path.native());
  struct stat file {};
  if (stat(target.c_str(), &file) == 0) {
    return !S_ISDIR(file.st_mode) && MayBeWritten(target, file);
  }
  const std::string folder = FolderOf(target);
  return access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) == 0;
}

WriteOutcome WriteWholeFile(const std::filesystem::path& path,
                            std::span<const std::uint8_t> bytes) {
  if (path.empty()) {
    return WriteOutcome::kCannotCreate;
  }
  const std::string target = RealTarget(path.native());
  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (exists && !MayBeWritten(target, old)) {
    return WriteOutcome::kCannotCreate;
  }
  if (exists && !S_ISREG(old.st_mode)) {
    return WriteInPlace(target, bytes);
  }
  const std::string fresh = FreshNameBeside(target);
  // One that a killed save of the same process number left behind.
  unlink(fresh.c_str());
  const int file = open(fresh.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
  if (file < 0) {
    const bool folder_is_closed = errno == EACCES || errno == EPERM || errno == EROFS;
    return exists && folder_is_closed ? WriteInPlace(target, bytes) : WriteOutcome::kCannotCreate;
  }
  if (exists) {
    // The file keeps its owner where this user may give it away, and its permissions in any case.
    if (fchown(file, old.st_uid, old.st_gid) != 0) {
      errno = 0;
    }
    fchmod(file, old.st_mode & 07777);
  }
  if (!FinishFile(file, bytes) || rename(fresh.c_str(), target.c_str()) != 0) {
    unlink(fresh.c_str());
    return WriteOutcome::kWriteError;
  }
  FlushFolderOf(target);
  return WriteOutcome::kWritten;
}

}  // namespace qz7
