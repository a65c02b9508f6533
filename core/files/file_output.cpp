#include "core/files/file_output.h"

#include "core/files/seams.h"

namespace qz7 {

bool WriteFileOrShow(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
  switch (WriteWholeFile(path, bytes)) {
    case WriteOutcome::kCannotCreate:
      ShowFileError("Cannot create file:\n" + PathText(path));
      return false;
    case WriteOutcome::kWriteError:
      ShowFileError("Error writing file:\n" + PathText(path));
      return false;
    default:
      return true;
  }
}

}  // namespace qz7
