#include "ctl/console.h"

#include <ctime>
#include <iostream>
#include <utility>

#include "core/files/radio_data_file.h"
#include "core/files/seams.h"
#include "core/image/text_codec.h"
#include "ctl/terminal.h"

namespace qz7 {
namespace {

bool answer_yes = false;
std::string about;  // the file that messages name

constexpr const char* kStandardInput = "standard input";

std::string WithFileName(const std::string& text) {
  const bool named = text.find(about) != std::string::npos || text.starts_with("Template file");
  return named ? text : about + ": " + text;
}

// In UTF-8 the control characters from 0x80 on are 0xC2 and a byte below 0xA0. The `kept` ones are
// left to the terminal.
std::string WithoutControls(std::string_view text, std::string_view kept = "\t") {
  const auto is_ascii_control = [kept](char c) {
    return IsControl(c) && (c & 0x80) == 0 && kept.find(c) == std::string_view::npos;
  };
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool upper_control =
        text[i] == '\xC2' && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
    i += upper_control ? 1 : 0;
    shown += upper_control || is_ascii_control(text[i]) ? '?' : text[i];
  }
  return shown;
}

}  // namespace

// Messages go to standard error, and every question gets its safe answer: nothing is changed, an
// exchange is given up.
Answer ShowMessage(const std::string& text, const std::string& /*caption*/, Buttons buttons,
                   Icon /*icon*/) {
  PrintError(WithFileName(text));
  switch (buttons) {
    case Buttons::kOk:
      return Answer::kOk;
    case Buttons::kYesNo:
      return answer_yes ? Answer::kYes : Answer::kNo;
    default:
      return Answer::kCancel;
  }
}

std::string PathText(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::filesystem::path PathOfText(std::string_view text) {
  return std::u8string(text.begin(), text.end());
}

std::string ShownText(std::string_view bytes) {
  return IsErrorTerminal() ? WithoutControls(ToUtf8(bytes)) : ToUtf8(bytes);
}

std::uint32_t CurrentTimeSeconds() { return static_cast<std::uint32_t>(std::time(nullptr)); }

void AnswerYes() { answer_yes = true; }

void PrintLine(std::string_view line) { PrintUtf8Line(ToUtf8(line)); }

void PrintUtf8Line(std::string_view line) {
  std::cout << (IsOutputTerminal() ? WithoutControls(line) : std::string(line)) << '\n';
}

void PrintError(const std::string& line) {
  std::cerr << (IsErrorTerminal() ? WithoutControls(line, "\t\n") : line) << '\n' << std::flush;
}

std::optional<std::string> BytesOfArgument(const std::string& name, const std::string& text) {
  EncodedText encoded = FromUtf8(text);
  if (!encoded.unknown.empty()) {
    PrintError(name + ": the radio's texts have no character \"" + encoded.unknown + "\"");
    return std::nullopt;
  }
  return std::move(encoded.bytes);
}

MessagesAbout::MessagesAbout(const std::filesystem::path& path) {
  about = path == "-" ? kStandardInput : PathText(path);
}
MessagesAbout::~MessagesAbout() { about.clear(); }

bool LoadOneDocument(CloneImage& image, const std::filesystem::path& path) {
  const MessagesAbout messages(path);
  return LoadDocument(image, path);
}

bool LoadDocument(CloneImage& image, const std::filesystem::path& path) {
  return path == "-" ? ReadRadioDataFile(image, std::cin, kStandardInput)
                     : ReadRadioDataFile(image, path);
}

namespace {

bool WriteToStandardOutput(const CloneImage& image) {
  std::cout.write(reinterpret_cast<const char*>(image.data()),
                  static_cast<std::streamsize>(image.size()));
  if (!std::cout.flush()) {
    ShowFileError("Error writing file:\nstandard output");
    return false;
  }
  return true;
}

}  // namespace

bool SaveDocumentTo(CloneImage& image, const std::filesystem::path& path) {
  if (path != "-") {
    return WriteRadioDataFile(image, path);
  }
  PrepareRadioDataFile(image);
  return WriteToStandardOutput(image);
}

bool SaveTemplateTo(CloneImage& image, const std::filesystem::path& path) {
  if (path != "-") {
    return WriteTemplateFile(image, path);
  }
  PrepareTemplateFile(image);
  return WriteToStandardOutput(image);
}

}  // namespace qz7
