#include "core/interchange/import.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <utility>

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

std::optional<ImportOffer> OfferImport(const CloneImage& image, ImportSession& session,
                                       std::span<const std::uint8_t> bytes,
                                       const ImportRequest& request) {
  TakeImportOptions(session, request.options);
  ImportLines lines = LinesOf(bytes);
  session.line_count = CountLines(lines);
  ChooseColumns(session, lines, request.columns);
  std::vector<ImportDoubt> doubts = FindDoubts(image, session, lines);
  std::optional<ImportList> list = OpenSelection(image, session, lines);
  if (!list) {
    return std::nullopt;
  }
  return ImportOffer{.list = std::move(*list), .doubts = std::move(doubts)};
}

std::optional<ImportResult> ImportIntoImage(CloneImage& image, ImportSession& session,
                                            std::span<const std::uint8_t> bytes,
                                            const ImportRequest& request) {
  std::optional<ImportOffer> offer = OfferImport(image, session, bytes, request);
  if (!offer) {
    return std::nullopt;
  }
  const std::vector<int> rows = request.rows.value_or(AllRows(offer->list));
  const int start = request.start.value_or(DefaultStartChannel(image));
  if (AcceptSelection(image, offer->list, rows, start, request.region) != ImportAnswer::kPlaced) {
    return std::nullopt;
  }
  return ImportResult{.listed = offer->list.listed,
                      .placed = rows.size(),
                      .start = start,
                      .doubts = std::move(offer->doubts)};
}

std::vector<NamedValue> DescribeRecord(const CloneImage& image, const ImportRecord& record,
                                       const RegionVariant& region) {
  const auto scratch = std::make_unique<CloneImage>(image);
  PlaceImportRecord(*scratch, record, 1, region);
  return DescribeChannel(*scratch, 1, region);
}

}  // namespace qz7
