#include "core/interchange/import.h"

#include <algorithm>
#include <numeric>

#include "core/interchange/import_columns.h"
#include "core/interchange/import_placement.h"

namespace qz7 {
namespace {

void GiveColumn(ColumnAssignment& columns, std::size_t field, std::uint32_t column) {
  std::replace(columns.begin(), columns.end(), column, std::uint32_t{0});
  columns[field] = column;
}

void ChooseColumns(ImportSession& session, ImportLines& lines, const ColumnAssignment& named) {
  ColumnDialog dialog = OpenColumnDialog(session, lines);
  for (std::size_t k = 0; k < named.size(); ++k) {
    if (named[k] != 0) {
      GiveColumn(dialog.columns, k, named[k]);
    }
  }
  AcceptColumns(session, dialog);
}

std::vector<int> AllRows(const ImportList& list) {
  std::vector<int> rows(list.listed);
  std::iota(rows.begin(), rows.end(), 0);
  return rows;
}

}  // namespace

std::optional<ImportResult> ImportIntoImage(CloneImage& image, ImportSession& session,
                                            std::span<const std::uint8_t> bytes,
                                            const ImportRequest& request) {
  TakeImportOptions(session, request.options);
  ImportLines lines = LinesOf(bytes);
  session.line_count = CountLines(lines);
  ChooseColumns(session, lines, request.columns);
  const std::optional<ImportList> list = OpenSelection(image, session, lines);
  if (!list) {
    return std::nullopt;
  }
  const std::vector<int> rows = request.rows.value_or(AllRows(*list));
  const int start = request.start.value_or(DefaultStartChannel(image));
  if (AcceptSelection(image, *list, rows, start, request.region) != ImportAnswer::kPlaced) {
    return std::nullopt;
  }
  return ImportResult{.listed = list->listed, .placed = rows.size(), .start = start};
}

}  // namespace qz7
