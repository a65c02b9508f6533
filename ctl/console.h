#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"

namespace qz7 {

// The program's own region; nothing here changes it.
inline constexpr RegionVariant kRegion;

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;

// A line of the radio's text on standard output, in UTF-8; the same for a text that is UTF-8
// already, or a name that is to be told as it is. On a terminal a control character is "?", but for
// tabs.
void PrintLine(std::string_view line);
void PrintUtf8Line(std::string_view line);
// The same on standard error; line breaks stay.
void PrintError(const std::string& line);

// The bytes of an argument; nothing after telling which character of it has no byte.
std::optional<std::string> BytesOfArgument(const std::string& name, const std::string& text);

// From now on a question is answered with Yes instead of its safe answer.
void AnswerYes();

// For as long as one lives, messages name this file: where a command has two, they tell of which.
// A message that holds the name or says "Template file" is told as it is.
struct MessagesAbout {
  explicit MessagesAbout(const std::filesystem::path& path);
  ~MessagesAbout();
  MessagesAbout(const MessagesAbout&) = delete;
  MessagesAbout& operator=(const MessagesAbout&) = delete;
};

// LoadDocument as one of two files.
bool LoadOneDocument(CloneImage& image, const std::filesystem::path& path);

// A document for reading and for writing; "-" is standard input and output. Both show their own
// message and return false on failure.
bool LoadDocument(CloneImage& image, const std::filesystem::path& path);
bool SaveDocumentTo(CloneImage& image, const std::filesystem::path& path);
// The image as a template file, in the same way.
bool SaveTemplateTo(CloneImage& image, const std::filesystem::path& path);

}  // namespace qz7
