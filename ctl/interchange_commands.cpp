#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <system_error>

#include "core/files/csv_export.h"
#include "core/files/paths.h"
#include "core/files/seams.h"
#include "core/image/derived_tables.h"
#include "core/interchange/import.h"
#include "core/interchange/merge_dialog_rules.h"
#include "ctl/commands.h"
#include "ctl/console.h"

namespace qz7 {
namespace {

std::string TitleOf(const std::filesystem::path& path) {
  return path == "-" ? "standard input" : PathText(NamePart(path));
}

constexpr std::size_t kLargestList = 64U << 20;

void RefuseList(const std::string& message) {
  ShowMessage(message, "File error", Buttons::kOk, Icon::kStop);
}

// All of it, but no more than tells that it is too large.
std::vector<std::uint8_t> ReadBytes(std::istream& in) {
  constexpr std::size_t kPiece = 1U << 16;
  std::vector<std::uint8_t> bytes;
  while (in && bytes.size() <= kLargestList) {
    const std::size_t used = bytes.size();
    bytes.resize(used + kPiece);
    in.read(reinterpret_cast<char*>(bytes.data() + used), kPiece);
    bytes.resize(used + static_cast<std::size_t>(in.gcount()));
  }
  return bytes;
}

// The bytes of a list to import, or nothing after the message that the program has for it.
std::optional<std::vector<std::uint8_t>> ReadList(const std::filesystem::path& path) {
  std::ifstream file;
  std::error_code error;
  if (path != "-" && !std::filesystem::is_directory(SystemPath(path), error)) {
    file = OpenToRead(path);
  }
  if (path != "-" && !file.is_open()) {
    RefuseList("Error opening file: " + TitleOf(path));
    return std::nullopt;
  }
  std::vector<std::uint8_t> bytes = ReadBytes(path == "-" ? std::cin : file);
  if (bytes.size() > kLargestList) {
    RefuseList("Out of memory");
    return std::nullopt;
  }
  return bytes;
}

bool LoadSource(MergeSource& source, CloneImage& working_copy, const std::filesystem::path& path) {
  const MessagesAbout messages(path);
  return path == "-" ? ReadMergeSource(source, working_copy, std::cin, "standard input")
                     : ReadMergeSource(source, working_copy, path);
}

}  // namespace

int ExportCommand(const std::filesystem::path& file, const std::filesystem::path& out) {
  CloneImage image;
  if (!LoadDocument(image, file)) {
    return kFailed;
  }
  RebuildDerivedTables(image);
  if (out != "-") {
    return WriteCsvFile(image, out) ? kDone : kFailed;
  }
  std::cout << ExportCsv(image);
  return kDone;
}

int ImportCommand(const std::filesystem::path& file, const std::filesystem::path& out,
                  const ImportRequest& request) {
  CloneImage image;
  if (!LoadDocument(image, file)) {
    return kFailed;
  }
  const auto bytes = ReadList(request.options.path);
  if (!bytes) {
    return kFailed;
  }
  ImportRequest titled = request;
  titled.options.title = TitleOf(request.options.path);
  ImportSession session;
  const std::optional<ImportResult> result = ImportIntoImage(image, session, *bytes, titled);
  if (!result) {
    return kFailed;
  }
  if (request.rows && !request.rows->empty() &&
      static_cast<std::size_t>(request.rows->back()) >= result->listed) {
    PrintError("The list has only " + std::to_string(result->listed) + " usable records.");
    return kFailed;
  }
  if (!SaveDocumentTo(image, out)) {
    return kFailed;
  }
  PrintError(std::to_string(result->placed) + " of " + std::to_string(result->listed) +
             " usable records imported from channel " + std::to_string(result->start) + " on.");
  return kDone;
}

int MergeCommand(const std::filesystem::path& file, const std::filesystem::path& source,
                 const std::filesystem::path& out, MergeOptions options, std::optional<int> start) {
  CloneImage image;
  if (!LoadOneDocument(image, file)) {
    return kFailed;
  }
  const auto working_copy = std::make_unique<CloneImage>(image);
  MergeSource loaded;
  if (!LoadSource(loaded, *working_copy, source)) {
    return kFailed;
  }
  const std::optional<int> merged = MergeIntoImage(image, *working_copy, loaded, options, start);
  if (!merged || !SaveDocumentTo(image, out)) {
    return kFailed;
  }
  PrintError(std::to_string(*merged) + " channels merged.");
  return kDone;
}

}  // namespace qz7
