#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>

#include "core/files/csv_export.h"
#include "core/files/seams.h"
#include "core/image/derived_tables.h"
#include "core/interchange/import.h"
#include "core/interchange/merge_dialog_rules.h"
#include "ctl/commands.h"
#include "ctl/console.h"

namespace qz7 {
namespace {

std::string TitleOf(const std::string& path) {
  return path == "-" ? "standard input" : path.substr(path.find_last_of("/\\") + 1);
}

// The bytes of a list to import, or nothing after the message that the program has for it.
std::optional<std::vector<std::uint8_t>> ReadList(const std::string& path) {
  std::ifstream file;
  if (path != "-") {
    file.open(path, std::ios::binary);
    if (!file) {
      ShowMessage("Error opening file: " + TitleOf(path), "File error", Buttons::kOk, Icon::kStop);
      return std::nullopt;
    }
  }
  std::istream& in = path == "-" ? std::cin : file;
  return std::vector<std::uint8_t>(std::istreambuf_iterator<char>(in), {});
}

}  // namespace

int ExportCommand(const std::string& file, const std::string& out) {
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

int ImportCommand(const std::string& file, const std::string& out, const ImportRequest& request) {
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

int MergeCommand(const std::string& file, const std::string& source, const std::string& out,
                 MergeOptions options, std::optional<int> start) {
  CloneImage image;
  if (!LoadDocument(image, file)) {
    return kFailed;
  }
  const std::optional<int> merged = MergeIntoImage(image, source, options, start);
  if (!merged || !SaveDocumentTo(image, out)) {
    return kFailed;
  }
  PrintError(std::to_string(*merged) + " channels merged.");
  return kDone;
}

}  // namespace qz7
