#include <iostream>
#include <sstream>

#include "core/editors/image_difference.h"
#include "core/editors/print_text.h"
#include "core/files/document_header.h"
#include "core/files/file_inspection.h"
#include "core/files/new_document.h"
#include "core/files/paths.h"
#include "core/files/radio_data_file.h"
#include "core/files/seams.h"
#include "core/image/channel_description.h"
#include "core/image/channel_text.h"
#include "core/image/text_codec.h"
#include "ctl/commands.h"
#include "ctl/console.h"
#include "ctl/json_output.h"
#include "ctl/terminal.h"

namespace qz7 {
namespace {

constexpr int kTrouble = 2;

const char* Passed(bool passed) { return passed ? "ok" : "wrong"; }

Json DescribeInspection(const FileInspection& found) {
  const CloneImage& image = found.image;
  return {{"kind", found.kind == FileKind::kTemplate ? "template" : "radio data"},
          {"radio-name", ToUtf8(RadioName(image))},
          {"version", ReadU32(image.data() + kVersionOffset)},
          {"comment", ToUtf8(FileComment(image))},
          {"version-type", image[kVersionType]},
          {"version-subtype", image[kVersionSubtype]},
          {"wide-coverage", image[kWideCoverage]},
          {"programmed-channels", CountProgrammedChannels(image)},
          {"checks",
           {{"radio-identifier", Passed(found.radio_identifier)},
            {"total-size", Passed(found.total_size)},
            {"length", Passed(found.complete)},
            {"file-checksum", Passed(found.file_checksum)},
            {"radio-block-checksum", Passed(found.radio_block_checksum)}}}};
}

void PrintFields(const Json& fields, const std::string& prefix) {
  for (const auto& [name, value] : fields.items()) {
    if (value.is_object()) {
      PrintFields(value, "check-");
    } else {
      PrintUtf8Line(prefix + name + "=" +
                    (value.is_string() ? value.get<std::string>() : value.dump()));
    }
  }
}

// The system's own reader decides, and says in its own words, whether the file would be taken.
bool WouldLoad(FileKind kind, std::istream& file, const std::string& name) {
  CloneImage image;
  file.clear();
  file.seekg(0);
  return kind == FileKind::kTemplate ? ReadTemplateFile(image, file, name)
                                     : ReadRadioDataFile(image, file, name);
}

int InspectAndPrint(std::istream& file, const std::string& name, bool json) {
  const FileInspection found = InspectFile(file);
  if (found.kind == FileKind::kUnknown) {
    ShowFileError("Not a radio data file:\n" + name);
    return kFailed;
  }
  const Json fields = DescribeInspection(found);
  if (json) {
    PrintJson(fields);
  } else {
    PrintFields(fields, "");
  }
  return WouldLoad(found.kind, file, name) ? kDone : kFailed;
}

// As much as a file of this radio holds: it is looked at twice, and a pipe gives its bytes once.
std::stringstream BeginningOf(std::istream& file) {
  std::string bytes(kCloneImageSize, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return std::stringstream(bytes, std::ios::in | std::ios::out | std::ios::binary);
}

}  // namespace

int NewCommand(const std::filesystem::path& out) {
  CloneImage image;
  MakeNewImage(image);
  return SaveDocumentTo(image, out) ? kDone : kFailed;
}

int InfoCommand(const std::filesystem::path& file, bool json) {
  if (file == "-") {
    std::stringstream bytes = BeginningOf(std::cin);
    return InspectAndPrint(bytes, "standard input", json);
  }
  std::ifstream stream = OpenToRead(file);
  if (!stream) {
    ShowFileError("Cannot open file:\n" + PathText(file));
    return kFailed;
  }
  std::stringstream bytes = BeginningOf(stream);
  return InspectAndPrint(bytes, PathText(file), json);
}

int RowsCommand(const std::filesystem::path& file, bool json) {
  CloneImage image;
  if (!LoadDocument(image, file)) {
    return kFailed;
  }
  if (json) {
    PrintJson(RowsAsJson(image, kRegion));
    return kDone;
  }
  for (int n = 1; n <= GetChannelCount(image); ++n) {
    PrintLine(FormatListRow(image, n, kRegion));
  }
  return kDone;
}

int ListCommand(const std::filesystem::path& file) {
  CloneImage image;
  PrintText text;
  if (!LoadDocument(image, file) ||
      !BuildPrintText(image, PathText(NamePart(file)), DtmfDisplay::kSymbols, kRegion, text)) {
    return kFailed;
  }
  // The heading holds the name of the file as it is; what follows is the radio's text.
  const std::vector<std::string> lines = PrintLines(text);
  PrintUtf8Line(lines.front());
  for (auto line = lines.begin() + 1; line != lines.end(); ++line) {
    PrintLine(*line);
  }
  return kDone;
}

int ShowCommand(const std::filesystem::path& file, int n, bool json) {
  CloneImage image;
  if (!LoadDocument(image, file)) {
    return kFailed;
  }
  const std::vector<NamedValue> fields = DescribeChannel(image, n, kRegion);
  if (fields.empty()) {
    PrintError("There is no channel " + std::to_string(n) + ".");
    return kFailed;
  }
  if (json) {
    PrintJson(FieldsAsJson(fields));
    return kDone;
  }
  for (const auto& [name, value] : fields) {
    PrintLine(name + "=" + value);
  }
  return kDone;
}

int DiffCommand(const std::filesystem::path& a, const std::filesystem::path& b, bool json) {
  CloneImage image_a;
  CloneImage image_b;
  if (!LoadOneDocument(image_a, a) || !LoadOneDocument(image_b, b)) {
    return kTrouble;
  }
  const std::vector<Difference> differences = CompareDocuments(image_a, image_b, kRegion);
  if (json) {
    PrintJson(DifferencesAsJson(differences));
  } else {
    for (const Difference& difference : differences) {
      PrintLine(DifferenceLine(difference));
    }
  }
  return differences.empty() ? kDone : kFailed;
}

}  // namespace qz7
