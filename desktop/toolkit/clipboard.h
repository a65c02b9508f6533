#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace qz7 {

// The system's clipboard. Text is in the radio's single bytes (core/image/text_codec.h); other
// programs see it as Unicode, and as plain text by the system's own conversion.

// What a copy leaves: the text, and bytes for this program under a registered format's name.
struct Copied {
  std::string text;
  std::string bytes;
};
// False where the clipboard cannot be had.
bool PutOnClipboard(HWND owner, UINT format, const Copied& copied);

std::optional<std::string> BytesOnClipboard(HWND owner, UINT format);
// What the radio's texts have no byte for is "?".
std::optional<std::string> TextOnClipboard(HWND owner);

}  // namespace qz7
