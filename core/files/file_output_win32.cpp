#include <windows.h>

#include <string>

#include "core/files/file_output.h"

namespace qz7 {
namespace {

// Writes, flushes and closes; true when every step said so.
bool FinishFile(HANDLE file, std::span<const std::uint8_t> bytes) {
  DWORD written = 0;
  const auto size = static_cast<DWORD>(bytes.size());
  const bool all = WriteFile(file, bytes.data(), size, &written, nullptr) && written == size;
  const bool flushed = all && FlushFileBuffers(file);
  return CloseHandle(file) && flushed;
}

// Others may have the file open in whichever way.
HANDLE OpenForWriting(const std::string& path, DWORD disposition,
                      DWORD flags = FILE_ATTRIBUTE_NORMAL) {
  return CreateFileA(path.c_str(), GENERIC_WRITE,
                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, disposition,
                     flags, nullptr);
}

bool Exists(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool CloseOpened(HANDLE file) { return file != INVALID_HANDLE_VALUE && CloseHandle(file); }

// False for a file that is read-only, a folder, and a file that another program keeps to itself.
// Not every system's open asks for the attribute.
bool OpensForWriting(const std::string& path) {
  if ((GetFileAttributesA(path.c_str()) & FILE_ATTRIBUTE_READONLY) != 0) {
    return false;
  }
  return CloseOpened(OpenForWriting(path, OPEN_EXISTING));
}

// A short name in the target's folder, so that it fits wherever the target's own does; no other
// process uses it.
std::string FreshNameBeside(const std::string& path) {
  const std::size_t folder_end = path.find_last_of("\\/:");
  const std::string folder = folder_end == std::string::npos ? "" : path.substr(0, folder_end + 1);
  return folder + "~qz7-" + std::to_string(GetCurrentProcessId()) + ".tmp";
}

WriteOutcome WriteInPlace(const std::string& path, std::span<const std::uint8_t> bytes) {
  const HANDLE file = OpenForWriting(path, TRUNCATE_EXISTING);
  if (file == INVALID_HANDLE_VALUE) {
    return WriteOutcome::kCannotCreate;
  }
  return FinishFile(file, bytes) ? WriteOutcome::kWritten : WriteOutcome::kWriteError;
}

}  // namespace

bool CanWriteFile(const std::string& path) {
  return Exists(path) ? OpensForWriting(path)
                      : CloseOpened(OpenForWriting(FreshNameBeside(path), CREATE_ALWAYS,
                                                   FILE_FLAG_DELETE_ON_CLOSE));
}

WriteOutcome WriteWholeFile(const std::string& path, std::span<const std::uint8_t> bytes) {
  if (path.empty()) {
    return WriteOutcome::kCannotCreate;
  }
  const bool exists = Exists(path);
  if (exists && !OpensForWriting(path)) {
    return WriteOutcome::kCannotCreate;
  }
  const std::string fresh = FreshNameBeside(path);
  const HANDLE file = OpenForWriting(fresh, CREATE_ALWAYS);
  if (file == INVALID_HANDLE_VALUE) {
    const bool folder_is_closed = GetLastError() == ERROR_ACCESS_DENIED;
    return exists && folder_is_closed ? WriteInPlace(path, bytes) : WriteOutcome::kCannotCreate;
  }
  if (!FinishFile(file, bytes)) {
    DeleteFileA(fresh.c_str());
    return WriteOutcome::kWriteError;
  }
  if (!MoveFileExA(fresh.c_str(), path.c_str(),
                   MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
    DeleteFileA(fresh.c_str());
    return exists ? WriteInPlace(path, bytes) : WriteOutcome::kWriteError;
  }
  return WriteOutcome::kWritten;
}

}  // namespace qz7
