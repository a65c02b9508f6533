#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <string_view>

#include "core/files/csv_export.h"
#include "core/files/paths.h"
#include "core/files/seams.h"
#include "core/image/derived_tables.h"
#include "core/image/text_codec.h"
#include "core/interchange/import.h"
#include "core/interchange/list_recognition.h"
#include "core/interchange/merge_dialog_rules.h"
#include "ctl/commands.h"
#include "ctl/console.h"
#include "ctl/input.h"

namespace qz7 {
namespace {

std::string TitleOf(const std::filesystem::path& path) {
  return path == "-" ? "standard input" : PathText(NamePart(path));
}

void RefuseList(const std::string& message) {
  ShowMessage(message, "File error", Buttons::kOk, Icon::kStop);
}

// The bytes of a list to import, or nothing after the message that the program has for it.
std::optional<std::vector<std::uint8_t>> ReadList(const std::filesystem::path& path) {
  Input list = ReadInput(path);
  if (list.state == Input::State::kCannotOpen) {
    RefuseList("Error opening file: " + TitleOf(path));
    return std::nullopt;
  }
  if (list.state == Input::State::kTooLarge) {
    RefuseList("Out of memory");
    return std::nullopt;
  }
  return std::move(list.bytes);
}

bool LoadSource(MergeSource& source, CloneImage& working_copy, const std::filesystem::path& path) {
  const MessagesAbout messages(path);
  return path == "-" ? ReadMergeSource(source, working_copy, std::cin, "standard input")
                     : ReadMergeSource(source, working_copy, path);
}

// The list of a request, as import reads it, with what was doubtful on the way.
struct ReadyList {
  std::vector<std::uint8_t> bytes;
  ImportRequest request;
  std::optional<RecognisedList> recognised;
};

std::optional<ReadyList> ReadyToImport(const ListRequest& request) {
  std::optional<std::vector<std::uint8_t>> bytes = ReadList(request.options.path);
  if (!bytes) {
    return std::nullopt;
  }
  ReadyList ready{.bytes = std::move(*bytes), .request = request, .recognised = std::nullopt};
  const std::string title = TitleOf(request.options.path);
  ready.request.options.title = title;
  if (request.recognise) {
    ready.recognised = RecogniseList(ready.bytes);
    if (!ready.recognised->is_recognised) {
      PrintError(title + ": no header line names a receive frequency");
      return std::nullopt;
    }
    ready.bytes.assign(ready.recognised->text.begin(), ready.recognised->text.end());
    ready.request.columns = kRecognisedColumns;
  }
  return ready;
}

void PrintDoubts(const ReadyList& ready, const std::vector<ImportDoubt>& of_import) {
  const auto& recognised = ready.recognised;
  for (const ImportDoubt& doubt : recognised ? AllDoubts(*recognised, of_import) : of_import) {
    PrintError(ToUtf8(DoubtLine(doubt)));
  }
}

// "1", receive, transmit, shift, tone mode, tone, name, with tabs between.
std::string OfferLine(int number, const std::vector<NamedValue>& fields) {
  constexpr std::array<std::string_view, 6> kShown = {"rx",        "tx",   "shift",
                                                      "tone-mode", "tone", "name"};
  std::string line = std::to_string(number);
  for (const std::string_view name : kShown) {
    const auto field = std::find_if(fields.begin(), fields.end(),
                                    [=](const NamedValue& value) { return value.first == name; });
    line += "\t" + field->second;
  }
  return line;
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
                  const ListRequest& request) {
  CloneImage image;
  if (!LoadOneDocument(image, file)) {
    return kFailed;
  }
  const std::optional<ReadyList> ready = ReadyToImport(request);
  ImportSession session;
  const auto result =
      ready ? ImportIntoImage(image, session, ready->bytes, ready->request) : std::nullopt;
  if (!result) {
    return kFailed;
  }
  PrintDoubts(*ready, result->doubts);
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

int ListImportCommand(const std::filesystem::path& file, const ListRequest& request) {
  CloneImage image;
  if (!LoadDocument(image, file)) {
    return kFailed;
  }
  const std::optional<ReadyList> ready = ReadyToImport(request);
  ImportSession session;
  const auto offer =
      ready ? OfferImport(image, session, ready->bytes, ready->request) : std::nullopt;
  if (!offer) {
    return kFailed;
  }
  PrintDoubts(*ready, offer->doubts);
  int number = 0;
  for (const ImportRecord& record : offer->list.Rows()) {
    PrintLine(OfferLine(++number, DescribeRecord(image, record, kRegion)));
  }
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
