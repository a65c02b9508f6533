#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace qz7 {

// The boxes in which the user names a file, defined once per program like the messages.

struct FileFilter {
  const char* text;     // "Radio Files (*.rdf)"
  const char* pattern;  // "*.rdf"
};

struct FileBox {
  const char* title;
  std::vector<FileFilter> filters;  // the first one is selected
  const char* default_extension;
  std::string folder;  // where the box starts
  std::string initial_name;
};

struct ChosenFile {
  std::string path;         // the full path
  std::string name;         // its name part
  std::size_t name_offset;  // where the name starts in the path; 0 when the box does not tell
};

// For an existing file in an existing folder, without a read-only check box. Nothing when
// cancelled.
std::optional<ChosenFile> ShowOpenBox(const FileBox& box);
// For a file in an existing folder; asks before an existing file is overwritten.
std::optional<ChosenFile> ShowSaveBox(const FileBox& box);

}  // namespace qz7
