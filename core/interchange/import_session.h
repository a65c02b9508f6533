#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/files/csv_columns.h"
#include "core/files/seams.h"

namespace qz7 {

// The column of each field, counted from 1; 0 for a field that the file lacks.
using ColumnAssignment = std::array<std::uint32_t, kCsvColumnCount>;

struct ImportOptions {
  std::filesystem::path path;
  std::string title;           // the file's name without its folder, for captions and messages
  char field_separator = ',';  // 0: none, a line is one field
  char text_separator = '"';   // 0: none
  bool delimited = true;       // fixed-length fields are offered, but nothing reads them
  bool headers = false;
};

// A line takes 256 bytes with its 0.
inline constexpr std::size_t kLineLength = 255;

// The line that is being split. The buffer is never cleared: behind a line without a line feed the
// text of an earlier, longer one is still there and is read on as further fields.
struct FieldSplitter {
  std::array<char, kLineLength + 2> buffer{};  // the last byte is always 0
  std::array<char, kLineLength + 2> field{};
  std::size_t cursor = 0;
  char separator = ',';  // the field separator, or the text separator inside a quoted stretch
};

// What import keeps from one file to the next, for the whole run.
struct ImportSession {
  ImportOptions options;
  std::uint16_t line_count = 0;
  ColumnAssignment columns{};
  FieldSplitter splitter;
  bool check_tones = true;  // never switched on again once it is off
};

// The import dialog opens without a file and with the usual separators. The title of the file last
// chosen stays: it is what the message about a missing choice calls it.
void OpenImportDialog(ImportSession& session);

// The box behind Browse; `folder` is the stored "ImportDir".
FileBox ImportFileBox(const std::filesystem::path& folder);
void ChooseImportFile(ImportSession& session, const ChosenFile& file);
// The folder to store as "ImportDir": the path up to the file name; empty when it has none.
std::filesystem::path ImportFolder(const ChosenFile& file);

// OK in the import dialog: the options are taken, and the separator starts afresh.
void TakeImportOptions(ImportSession& session, const ImportOptions& options);
// The separator that a field of the dialog holds: its first character, 0 when it is empty.
char SeparatorOf(std::string_view text);

// "Import Data - %s": the caption of the column dialog and the selection dialog.
std::string ImportCaption(const ImportSession& session);

}  // namespace qz7
