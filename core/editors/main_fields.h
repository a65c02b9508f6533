#pragma once

#include <string>

#include "core/editors/setting_rows.h"

namespace qz7 {

// The main dialog's settings.
const SettingScreen& MainScreen();

inline constexpr std::size_t kLongestFileComment = 79;
// Stores the comment's text and a 0 byte behind it; what stands behind that is not touched.
void WriteFileComment(CloneImage& image, const std::string& text);

}  // namespace qz7
