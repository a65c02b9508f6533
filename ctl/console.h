#pragma once

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

// A line on standard output, in UTF-8; a line on standard error.
void PrintLine(std::string_view line);
void PrintError(const std::string& line);

// From now on a question is answered with Yes instead of its safe answer.
void AnswerYes();

// A document for reading and for writing; "-" is standard input and output. Both show their own
// message and return false on failure.
bool LoadDocument(CloneImage& image, const std::string& path);
bool SaveDocumentTo(CloneImage& image, const std::string& path);
// The image as a template file, in the same way.
bool SaveTemplateTo(CloneImage& image, const std::string& path);

}  // namespace qz7
