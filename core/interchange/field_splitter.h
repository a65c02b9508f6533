#pragma once

#include <optional>
#include <string_view>

#include "core/interchange/import_session.h"

namespace qz7 {

// The import file's only tokeniser. Text separators are dropped, and separators between them are
// text; a text separator that is never closed stays in use as the separator for the lines that
// follow, and two of them in a row are no character of their own.

// Takes a line of at most 255 characters, with its line feed if it has one, and returns its first
// field; nothing for an empty line. A field is valid until the next one is read.
std::optional<std::string_view> FirstField(ImportSession& session, std::string_view line);
// The next field; nothing at the end of the line.
std::optional<std::string_view> NextField(ImportSession& session);

}  // namespace qz7
