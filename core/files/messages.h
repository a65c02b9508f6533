#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace qz7 {

// What the core needs from the program around it. Each program links its own definitions: message
// boxes in the desktop program, standard error in the console program, a recorder in the tests.

// The program title: caption of the document's messages and section of the preferences file.
inline constexpr const char* kProgramTitle = "QZ-7H Programmer";

enum class Buttons { kOk, kYesNo, kYesNoCancel, kRetryCancel };
enum class Icon { kNone, kStop, kQuestion, kWarning, kInformation };
enum class Answer { kOk, kCancel, kYes, kNo, kRetry };

// Shows a message and returns the button that closed it. A routine that fails shows its own message
// and returns false; its callers show nothing.
Answer ShowMessage(const std::string& text, const std::string& caption, Buttons buttons, Icon icon);

// The seed of the filler bytes: the current time in seconds.
std::uint32_t CurrentTimeSeconds();

// A file error: the program title, a stop icon and an OK button.
inline void ShowFileError(const std::string& text) {
  ShowMessage(text, kProgramTitle, Buttons::kOk, Icon::kStop);
}

}  // namespace qz7
