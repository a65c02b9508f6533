#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/files/profile.h"
#include "core/image/clone_image.h"

namespace qz7 {

// Everything that the core needs from the program around it, and nothing else. Each program links
// its own definitions: boxes and windows in the desktop program, standard error and safe answers in
// the console program, recorders with scripted answers in the tests. A program defines only what it
// links a caller of.

// The program title: caption of the document's messages and section of the preferences file.
inline constexpr const char* kProgramTitle = "QZ-7H Programmer";

// Texts. What a program shows is in its own encoding: the system's code page in the desktop
// program, UTF-8 in the console program.

// A path as the program shows it, with the system's replacement for what the encoding lacks, and
// the path of such a text.
std::string PathText(const std::filesystem::path& path);
std::filesystem::path PathOfText(std::string_view text);
// A text of the radio or of a file.
std::string ShownText(std::string_view bytes);

// Messages.

enum class Buttons { kOk, kYesNo, kYesNoCancel, kRetryCancel };
enum class Icon { kNone, kStop, kQuestion, kWarning, kInformation };
enum class Answer { kOk, kCancel, kYes, kNo, kRetry };

// Shows a message and returns the button that closed it. A routine that fails shows its own message
// and returns false; its callers show nothing.
Answer ShowMessage(const std::string& text, const std::string& caption, Buttons buttons, Icon icon);

// A file error: the program title, a stop icon and an OK button.
inline void ShowFileError(const std::string& text) {
  ShowMessage(text, kProgramTitle, Buttons::kOk, Icon::kStop);
}

// The boxes in which the user names a file.

struct FileFilter {
  const char* text;     // "Radio Files (*.rdf)"
  const char* pattern;  // "*.rdf"
};

struct FileBox {
  const char* title;
  std::vector<FileFilter> filters;  // the first one is selected
  const char* default_extension;
  std::filesystem::path folder;  // where the box starts
  std::filesystem::path initial_name;
};

struct ChosenFile {
  std::filesystem::path path;  // the full path
  std::filesystem::path name;  // its name part
  std::size_t name_offset;     // where it starts in path.native(); 0 when the box does not tell
};

// For an existing file in an existing folder, without a read-only check box. Nothing when
// cancelled.
std::optional<ChosenFile> ShowOpenBox(const FileBox& box);
// For a file in an existing folder; asks before an existing file is overwritten.
std::optional<ChosenFile> ShowSaveBox(const FileBox& box);

// The port dialog, which opens with the index 0 (none) or 1..9 (COM1..COM9): the index chosen, or
// nothing when cancelled.
std::optional<int> AskForPort(int index);

// The main window. LoadMainDialog shows the image's general settings in the main dialog's controls,
// ReadMainControls puts what they hold into the image; without a dialog neither does anything.
void LoadMainDialog(const CloneImage& image);
void ReadMainControls(CloneImage& image);
void SetMainTitle(const std::string& title);

// A document was opened from this file or saved to it: the system may keep it among its recent
// documents. Failures are not reported.
void TellRecentDocument(const std::filesystem::path& path);

// The preferences file "Tamro.ini", section kProgramTitle. Failures are not reported; ForgetProfile
// removes a key.
Profile ReadProfile();
void WriteProfile(const std::string& key, const std::string& value);
void ForgetProfile(const std::string& key);

// The current time in seconds: the seed of the filler bytes.
std::uint32_t CurrentTimeSeconds();

}  // namespace qz7
