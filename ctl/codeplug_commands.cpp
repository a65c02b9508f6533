#include <iostream>

#include "core/files/file_output.h"
#include "core/files/new_document.h"
#include "core/files/seams.h"
#include "core/image/text_codec.h"
#include "core/interchange/codeplug.h"
#include "ctl/codeplug_json.h"
#include "ctl/codeplug_schema.h"
#include "ctl/commands.h"
#include "ctl/console.h"
#include "ctl/input.h"
#include "ctl/terminal.h"

namespace qz7 {
namespace {

// The tree of a file, with what is wrong in it; nothing after a message.
std::optional<ReadTree> ReadTreeFile(const std::filesystem::path& path) {
  const Input input = ReadInput(path);
  if (input.state != Input::State::kRead) {
    ShowFileError((input.state == Input::State::kTooLarge ? "The file is too large:\n"
                                                          : "Cannot open file:\n") +
                  PathText(path));
    return std::nullopt;
  }
  ReadTree read = ParseTree(input.bytes);
  if (!read.is_json) {
    PrintError((path == "-" ? "standard input" : PathText(path)) + ": " + read.errors.front());
    return std::nullopt;
  }
  return read;
}

// The tree's texts are the radio's bytes, and so are the reasons that repeat them.
int SaveUnlessWrong(CloneImage& image, const std::filesystem::path& out, const ReadTree& read,
                    const std::vector<std::string>& refusals) {
  for (const std::string& error : read.errors) {
    PrintError(error);
  }
  for (const std::string& refusal : refusals) {
    PrintError(ToUtf8(refusal));
  }
  const bool wrong = !read.errors.empty() || !refusals.empty();
  return !wrong && SaveDocumentTo(image, out) ? kDone : kFailed;
}

}  // namespace

int DumpCommand(const std::filesystem::path& file, const std::filesystem::path& out) {
  CloneImage image;
  if (!LoadDocument(image, file)) {
    return kFailed;
  }
  const bool to_console = out.empty() || out == "-";
  const std::string json = JsonOf(DumpCodeplug(image, kRegion), to_console && IsOutputTerminal());
  if (to_console) {
    std::cout << json;
    return kDone;
  }
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(json.data());
  return WriteFileOrShow(out, std::span(bytes, json.size())) ? kDone : kFailed;
}

int BuildCommand(const std::filesystem::path& codeplug, const std::filesystem::path& out,
                 const std::filesystem::path& base) {
  CloneImage image;
  MakeNewImage(image);
  if (!base.empty() && !LoadOneDocument(image, base)) {
    return kFailed;
  }
  const std::optional<ReadTree> read = ReadTreeFile(codeplug);
  return read ? SaveUnlessWrong(image, out, *read, BuildCodeplug(read->tree, image, kRegion))
              : kFailed;
}

int ApplyCommand(const std::filesystem::path& file, const std::filesystem::path& patch,
                 const std::filesystem::path& out) {
  CloneImage image;
  if (!LoadOneDocument(image, file)) {
    return kFailed;
  }
  const std::optional<ReadTree> read = ReadTreeFile(patch);
  return read ? SaveUnlessWrong(image, out, *read, ApplyToCodeplug(image, read->tree, kRegion))
              : kFailed;
}

int SchemaCommand() {
  std::cout << CodeplugSchema();
  return kDone;
}

}  // namespace qz7
