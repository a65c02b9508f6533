#include "tests/unit/seams.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "core/files/paths.h"

namespace qz7 {

TestSeams test_seams;

void Record(const std::string& kind, std::string text) {
  if (const char* path = std::getenv("QZ7_RECORD")) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::ofstream(path, std::ios::app) << kind << ' ' << text << '\n';
  }
}

Answer ShowMessage(const std::string& text, const std::string& caption, Buttons buttons,
                   Icon icon) {
  Record("message", text);
  test_seams.messages.push_back({text, caption, buttons, icon});
  if (test_seams.answers.empty()) {
    if (test_seams.answer) {
      return test_seams.answer(buttons);
    }
    return buttons == Buttons::kOk ? Answer::kOk : Answer::kCancel;
  }
  const Answer answer = test_seams.answers.front();
  test_seams.answers.pop_front();
  return answer;
}

std::string PathText(const std::filesystem::path& path) {
  std::string text;
  for (const char8_t byte : path.u8string()) {
    text += byte >= 0x80 && test_seams.ascii_paths ? '?' : static_cast<char>(byte);
  }
  return text;
}

std::filesystem::path PathOfText(std::string_view text) {
  return std::u8string(text.begin(), text.end());
}

std::string ShownText(std::string_view bytes) { return std::string(bytes); }

void TellRecentDocument(const std::filesystem::path& path) {
  test_seams.recent_documents.push_back(path);
}

std::uint32_t CurrentTimeSeconds() { return test_seams.now; }

namespace {

std::optional<ChosenFile> NextFile() {
  if (test_seams.files.empty()) {
    return test_seams.file ? test_seams.file() : std::nullopt;
  }
  const ChosenFile file = test_seams.files.front();
  test_seams.files.pop_front();
  return file;
}

}  // namespace

std::optional<ChosenFile> ShowOpenBox(const FileBox& box) {
  test_seams.open_boxes.push_back(box);
  return NextFile();
}

std::optional<ChosenFile> ShowSaveBox(const FileBox& box) {
  test_seams.save_boxes.push_back(box);
  return NextFile();
}

Profile ReadProfile() { return test_seams.profile; }

void WriteProfile(const std::string& key, const std::string& value) {
  test_seams.profile[key] = value;
  test_seams.profile_writes.emplace_back(key, value);
}

void ForgetProfile(const std::string& key) { test_seams.profile.erase(key); }

std::optional<int> AskForPort(int index) {
  test_seams.asked_ports.push_back(index);
  if (test_seams.ports.empty()) {
    return std::nullopt;
  }
  const std::optional<int> chosen = test_seams.ports.front();
  test_seams.ports.pop_front();
  return chosen;
}

ChosenFile Chosen(const std::filesystem::path& path) {
  return {.path = path, .name = NamePart(path), .name_offset = NameOffset(path)};
}

std::vector<std::string> ShownTexts() {
  std::vector<std::string> texts;
  for (const ShownMessage& message : test_seams.messages) {
    texts.push_back(message.text);
  }
  return texts;
}

namespace {

class FreshSeams : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { test_seams = TestSeams{}; }
};

}  // namespace
}  // namespace qz7

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (const char* path = std::getenv("QZ7_RECORD")) {
    std::ofstream(path, std::ios::trunc);
  }
  testing::UnitTest::GetInstance()->listeners().Append(new qz7::FreshSeams);
  return RUN_ALL_TESTS();
}
