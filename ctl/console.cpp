#include "ctl/console.h"

#include <ctime>
#include <iostream>

#include "core/files/radio_data_file.h"
#include "core/files/seams.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

bool answer_yes = false;

}  // namespace

// Messages go to standard error, and every question gets its safe answer: nothing is changed, an
// exchange is given up.
Answer ShowMessage(const std::string& text, const std::string& /*caption*/, Buttons buttons,
                   Icon /*icon*/) {
  PrintError(text);
  switch (buttons) {
    case Buttons::kOk:
      return Answer::kOk;
    case Buttons::kYesNo:
      return answer_yes ? Answer::kYes : Answer::kNo;
    default:
      return Answer::kCancel;
  }
}

std::uint32_t CurrentTimeSeconds() { return static_cast<std::uint32_t>(std::time(nullptr)); }

void AnswerYes() { answer_yes = true; }

void PrintLine(std::string_view line) { std::cout << ToUtf8(line) << '\n'; }

void PrintError(const std::string& line) { std::cerr << line << '\n' << std::flush; }

bool LoadDocument(CloneImage& image, const std::string& path) {
  return path == "-" ? ReadRadioDataFile(image, std::cin, "standard input")
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

bool SaveDocumentTo(CloneImage& image, const std::string& path) {
  if (path != "-") {
    return WriteRadioDataFile(image, path);
  }
  PrepareRadioDataFile(image);
  return WriteToStandardOutput(image);
}

bool SaveTemplateTo(CloneImage& image, const std::string& path) {
  if (path != "-") {
    return WriteTemplateFile(image, path);
  }
  PrepareTemplateFile(image);
  return WriteToStandardOutput(image);
}

}  // namespace qz7
