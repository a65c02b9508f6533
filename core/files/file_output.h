#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

namespace qz7 {

enum class WriteOutcome { kWritten, kCannotCreate, kWriteError };

// Writes a file so that it is there whole or not at all: the bytes go to a new file beside the
// target, are flushed to the disk, and take the target's place in one step. On failure the old file
// is untouched and the new one is gone. A target that cannot be opened for writing (read-only, or
// held by another program) is not replaced. Only where the folder takes no new file, or a program
// that reads the target keeps the new file from its place, is the target written in place.
WriteOutcome WriteWholeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

// Whether WriteWholeFile could begin: the target, where it is there, opens for writing; otherwise
// its folder takes a new file.
bool CanWriteFile(const std::filesystem::path& path);

// WriteWholeFile that shows "Cannot create file:\n%s" or "Error writing file:\n%s" and returns
// false.
bool WriteFileOrShow(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

}  // namespace qz7
