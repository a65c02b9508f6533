#include <windows.h>

#include <string>

#include "core/files/file_output.h"
#include "core/files/paths.h"

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
HANDLE OpenForWriting(const std::filesystem::path& path, DWORD disposition,
                      DWORD flags = FILE_ATTRIBUTE_NORMAL) {
  return CreateFileW(path.c_str(), GENERIC_WRITE,
                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, disposition,
                     flags, nullptr);
}

bool Exists(const std::filesystem::path& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool CloseOpened(HANDLE file) { return file != INVALID_HANDLE_VALUE && CloseHandle(file); }

// False for a file that is read-only, a folder, and a file that another program keeps to itself.
// Not every system's open asks for the attribute.
bool OpensForWriting(const std::filesystem::path& path) {
  if ((GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_READONLY) != 0) {
    return false;
  }
  return CloseOpened(OpenForWriting(path, OPEN_EXISTING));
}

// A short name in the target's folder, so that it fits wherever the target's own does; no other
// process uses it.
std::filesystem::path FreshNameBeside(const std::filesystem::path& path) {
  const std::size_t folder_end = path.native().find_last_of(L"\\/:");
  return path.native().substr(0, folder_end + 1) + L"~qz7-" +
         std::to_wstring(GetCurrentProcessId()) + L".tmp";
}

WriteOutcome WriteInPlace(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
  const HANDLE file = OpenForWriting(path, TRUNCATE_EXISTING);
  if (file == INVALID_HANDLE_VALUE) {
    return WriteOutcome::kCannotCreate;
  }
  return FinishFile(file, bytes) ? WriteOutcome::kWritten : WriteOutcome::kWriteError;
}

}  // namespace

bool CanWriteFile(const std::filesystem::path& given) {
  const std::filesystem::path path = SystemPath(given);
  return Exists(path) ? OpensForWriting(path)
                      : CloseOpened(OpenForWriting(FreshNameBeside(path), CREATE_ALWAYS,
                                                   FILE_FLAG_DELETE_ON_CLOSE));
}

WriteOutcome WriteWholeFile(const std::filesystem::path& given,
                            std::span<const std::uint8_t> bytes) {
  if (given.empty()) {
    return WriteOutcome::kCannotCreate;
  }
  const std::filesystem::path path = SystemPath(given);
  const bool exists = Exists(path);
  if (exists && !OpensForWriting(path)) {
    return WriteOutcome::kCannotCreate;
  }
  const std::filesystem::path fresh = FreshNameBeside(path);
  const HANDLE file = OpenForWriting(fresh, CREATE_ALWAYS);
  if (file == INVALID_HANDLE_VALUE) {
    const bool folder_is_closed = GetLastError() == ERROR_ACCESS_DENIED;
    return exists && folder_is_closed ? WriteInPlace(path, bytes) : WriteOutcome::kCannotCreate;
  }
  if (!FinishFile(file, bytes)) {
    DeleteFileW(fresh.c_str());
    return WriteOutcome::kWriteError;
  }
  if (!MoveFileExW(fresh.c_str(), path.c_str(),
                   MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
    DeleteFileW(fresh.c_str());
    return exists ? WriteInPlace(path, bytes) : WriteOutcome::kWriteError;
  }
  return WriteOutcome::kWritten;
}

}  // namespace qz7
