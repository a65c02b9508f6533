#include "ctl/console.h"

#include <ctime>
#include <iostream>

#include "core/files/radio_data_file.h"
#include "core/files/seams.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

int link_errors = 0;
bool answer_yes = false;
std::string last_message;

}  // namespace

// Messages go to standard error, and every question gets its safe answer: nothing is changed, an
// exchange is given up. A message that repeats itself, as that of a vanished port, is shown once.
Answer ShowMessage(const std::string& text, const std::string& caption, Buttons buttons,
                   Icon /*icon*/) {
  if (text != last_message) {
    PrintError(text);
  }
  last_message = text;
  link_errors += caption == "Communications Error" ? 1 : 0;
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

int LinkErrorsShown() { return link_errors; }

void PrintLine(std::string_view line) { std::cout << ToUtf8(line) << '\n'; }

void PrintError(const std::string& line) { std::cerr << line << '\n' << std::flush; }

bool LoadDocument(CloneImage& image, const std::string& path) {
  return path == "-" ? ReadRadioDataFile(image, std::cin, "standard input")
                     : ReadRadioDataFile(image, path);
}

bool SaveDocumentTo(CloneImage& image, const std::string& path) {
  if (path != "-") {
    return WriteRadioDataFile(image, path);
  }
  PrepareRadioDataFile(image);
  std::cout.write(reinterpret_cast<const char*>(image.data()),
                  static_cast<std::streamsize>(image.size()));
  if (!std::cout.flush()) {
    ShowFileError("Error writing file:\nstandard output");
    return false;
  }
  return true;
}

}  // namespace qz7
