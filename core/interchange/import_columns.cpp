#include "core/interchange/import_columns.h"

#include <algorithm>

#include "core/files/seams.h"
#include "core/interchange/field_splitter.h"

namespace qz7 {
namespace {

std::uint32_t ColumnOfRow(int row) { return static_cast<std::uint32_t>(row) + 1; }

void SetName(ColumnDialog& dialog, int row, const char* name) {
  if (row >= 0 && static_cast<std::size_t>(row) < dialog.names.size()) {
    dialog.names[static_cast<std::size_t>(row)] = name;
  }
}

// A later column that names the same field takes it over.
void ReadHeaders(ImportSession& session, ImportLines& lines) {
  const auto line = NextLine(lines);
  if (!line) {
    ShowMessage("Error reading file", "File Read Error", Buttons::kOk, Icon::kStop);
    return;
  }
  std::uint32_t column = 1;
  for (auto cell = FirstField(session, *line); cell; cell = NextField(session)) {
    const int field = FieldOfHeader(*cell);
    if (field >= 0) {
      session.columns[static_cast<std::size_t>(field)] = column;
    }
    ++column;
  }
}

// A line without a separator option is one field: it holds the separator that it has.
bool HoldsSeparator(std::string_view line, char separator) {
  return separator == '\0' || line.find(separator) != std::string_view::npos;
}

std::string NameOfColumn(const ColumnAssignment& columns, std::uint32_t column) {
  const auto field = std::find(columns.begin(), columns.end(), column);
  return field == columns.end()
             ? ""
             : kCsvColumns[static_cast<std::size_t>(field - columns.begin())].title;
}

void ReadFirstDataLine(ImportSession& session, ImportLines& lines, ColumnDialog& dialog) {
  const auto line = NextLine(lines);
  if (!line || !HoldsSeparator(*line, session.options.field_separator)) {
    return;
  }
  std::uint32_t column = 1;
  for (auto cell = FirstField(session, *line); cell; cell = NextField(session)) {
    dialog.texts.emplace_back(*cell);
    dialog.names.push_back(NameOfColumn(session.columns, column));
    ++column;
  }
}

}  // namespace

int FieldOfHeader(std::string_view cell) {
  for (int k = 0; k < kCsvColumnCount; ++k) {
    const CsvColumnName& field = kCsvColumns[static_cast<std::size_t>(k)];
    if (cell == field.title || (field.second_title != nullptr && cell == field.second_title)) {
      return k;
    }
  }
  return -1;
}

ColumnDialog OpenColumnDialog(ImportSession& session, ImportLines& lines) {
  ColumnDialog dialog;
  session.columns = {};
  if (session.options.delimited) {
    if (session.options.headers) {
      ReadHeaders(session, lines);
    }
    ReadFirstDataLine(session, lines, dialog);
  }
  dialog.columns = session.columns;
  std::transform(dialog.columns.begin(), dialog.columns.end(), dialog.enabled.begin(),
                 [](std::uint32_t column) { return column == 0; });
  return dialog;
}

void SelectColumn(ColumnDialog& dialog, int row) {
  for (std::size_t k = 0; k < kCsvColumnCount; ++k) {
    if (dialog.columns[k] == ColumnOfRow(row)) {
      dialog.columns[k] = 0;
      SetName(dialog, row, "");
    }
    if (dialog.columns[k] == 0) {
      dialog.enabled[k] = true;
    }
  }
}

void PressFieldButton(ColumnDialog& dialog, int field, int row) {
  const auto k = static_cast<std::size_t>(field);
  std::replace(dialog.columns.begin(), dialog.columns.end(), ColumnOfRow(row), std::uint32_t{0});
  dialog.columns[k] = dialog.columns[k] != 0 ? 0 : ColumnOfRow(row);
  // The row shows the field's name also where the button took the field away: so it is meant.
  SetName(dialog, row, kCsvColumns[k].title);
  dialog.enabled.fill(false);
}

void AcceptColumns(ImportSession& session, const ColumnDialog& dialog) {
  session.columns = dialog.columns;
}

}  // namespace qz7
