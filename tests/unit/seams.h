#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/files/seams.h"
#include "core/image/clone_image.h"

namespace qz7 {

struct ShownMessage {
  std::string text;
  std::string caption;
  Buttons buttons;
  Icon icon;
};

// The tests' side of the seams: what was shown, and what the user answers. Fresh for every test.
// A message without a scripted answer gets OK or Cancel.
struct TestSeams {
  std::vector<ShownMessage> messages;
  std::deque<Answer> answers;
  // Answers what no script answers, when it is set.
  std::function<Answer(Buttons)> answer;
  std::uint32_t now = 1'000'000;

  // A code page that writes no letter outside ASCII; without it, texts are UTF-8.
  bool ascii_paths = false;

  // File boxes, in the order they were shown. One without a scripted file is cancelled.
  std::vector<FileBox> open_boxes;
  std::vector<FileBox> save_boxes;
  std::deque<ChosenFile> files;
  std::function<std::optional<ChosenFile>()> file;  // chooses where the script is empty

  std::vector<std::filesystem::path> recent_documents;  // as they were told

  // The preferences file, and what was written to it.
  Profile profile;
  std::vector<std::pair<std::string, std::string>> profile_writes;

  // The port dialog: the index it opened with, and what is chosen. Without a script it is
  // cancelled.
  std::vector<int> asked_ports;
  std::deque<std::optional<int>> ports;

  // The main window: what it was told to show, and what its controls put into the image.
  std::vector<CloneImage> loaded_images;
  std::vector<std::string> titles;
  std::function<void(CloneImage&)> controls;
};
extern TestSeams test_seams;

// Adds a line to the file that QZ7_RECORD names, if it does: what the user was shown in the whole
// run. The help's tests compare it with the help.
void Record(const std::string& kind, std::string text);

// The texts of all messages shown so far.
std::vector<std::string> ShownTexts();

// A file as a box returns it: the path, its name part, and where that starts.
ChosenFile Chosen(const std::filesystem::path& path);

}  // namespace qz7
