#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/interchange/import_lines.h"
#include "core/interchange/import_session.h"

namespace qz7 {

// The column dialog: two lists side by side, a row per column of the file, and a button per field.
struct ColumnDialog {
  ColumnAssignment columns{};      // becomes the session's with OK
  std::vector<std::string> names;  // the left list: the field of a column, or nothing
  std::vector<std::string> texts;  // the right list: the column of the first data line
  std::array<bool, kCsvColumnCount> enabled{};
};

// Opens the dialog on rewound lines: clears the session's assignment, reads the header line where
// the options say so ("Error reading file" when it cannot be read) and the first data line. A data
// line without the field separator fills no list.
ColumnDialog OpenColumnDialog(ImportSession& session, ImportLines& lines);

// The field that a header cell names by either of its names, exactly; -1 for none.
int FieldOfHeader(std::string_view cell);

// Row r = 0.. of the right list was selected: the column loses its field.
void SelectColumn(ColumnDialog& dialog, int row);
// A field's button was pressed while this row was selected.
void PressFieldButton(ColumnDialog& dialog, int field, int row);
// OK.
void AcceptColumns(ImportSession& session, const ColumnDialog& dialog);

}  // namespace qz7
