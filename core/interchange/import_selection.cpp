#include "core/interchange/import_selection.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <new>

#include "core/files/seams.h"
#include "core/image/band_plan.h"
#include "core/image/derived_tables.h"
#include "core/image/text_codec.h"
#include "core/interchange/import_placement.h"

namespace qz7 {
namespace {

bool DropHeader(const ImportSession& session, ImportLines& lines, ImportList& list) {
  if (!NextLine(lines)) {
    ShowMessage("Error reading file: " + session.options.title, "File error", Buttons::kOk,
                Icon::kStop);
    return false;
  }
  --list.record_count;
  return true;
}

// A record that the radio cannot receive leaves its place to the next line.
void ListRecords(const CloneImage& image, ImportSession& session, ImportLines& lines,
                 ImportList& list) {
  SwitchToneCheck(session);
  for (int left = list.record_count; left > 0; --left) {
    const auto line = NextLine(lines);
    if (!line) {
      break;
    }
    list.records[list.listed] = ParseRecord(session, *line);
    if (IsValidFrequency(image, list.records[list.listed].rx)) {
      ++list.listed;
    } else {
      --list.record_count;
    }
  }
}

}  // namespace

void SwitchToneCheck(ImportSession& session) {
  constexpr std::uint32_t kFourthColumn = 4;
  const auto& columns = session.columns;
  if (std::find(columns.begin(), columns.end(), kFourthColumn) != columns.end()) {
    session.check_tones = false;
  }
}

std::optional<ImportList> OpenSelection(const CloneImage& image, ImportSession& session,
                                        ImportLines& lines) {
  ImportList list;
  list.records.reset(new (std::nothrow) ImportRecord[session.line_count]);
  if (list.records == nullptr) {
    ShowMessage("Out of Memory", "ERROR", Buttons::kOk, Icon::kStop);
    return list;
  }
  list.record_count = session.line_count;
  Rewind(lines);
  if (session.options.headers && !DropHeader(session, lines, list)) {
    return std::nullopt;
  }
  if (session.options.delimited) {
    ListRecords(image, session, lines, list);
  }
  return list;
}

std::string FormatImportRow(const ImportRecord& record) {
  constexpr std::array<char, 4> kShiftMarks = {' ', '-', '+', kPlusMinus};
  constexpr int kTooHighTone = 9'999;
  const int tone = record.encode_tone;
  const std::string tone_text = tone > 0 && tone < kTooHighTone ? ToneText(tone) : "     ";
  std::array<char, 100> row;
  std::snprintf(row.data(), row.size(), "%d.%04d\t%c\t%s\t%s\t%s",
                static_cast<int>(record.rx.hundred_hertz / 10'000),
                static_cast<int>(record.rx.hundred_hertz % 10'000),
                kShiftMarks[static_cast<std::size_t>(record.shift)], tone_text.c_str(),
                record.name.data(), record.comment.data());
  return row.data();
}

ImportAnswer AcceptSelection(CloneImage& image, const ImportList& list,
                             const std::vector<int>& selected, int start,
                             const RegionVariant& region) {
  if (start < 1) {
    ShowMessage("Illegal Start Channel", "Import Error", Buttons::kOk, Icon::kWarning);
    return ImportAnswer::kIllegalStart;
  }
  const auto last = std::int64_t{start} + static_cast<std::int64_t>(selected.size()) - 1;
  if (last > GetChannelCount(image)) {
    ShowMessage(
        "Too many frequencies are selected.\nDeselect some of the frequencies so that\n"
        "Selected is less that Available - Start.",
        "Import Error", Buttons::kOk, Icon::kWarning);
    return ImportAnswer::kTooMany;
  }
  const std::span<const ImportRecord> rows = list.Rows();
  int n = start;
  for (const int row : selected) {
    if (row >= 0 && static_cast<std::size_t>(row) < rows.size()) {
      PlaceImportRecord(image, rows[static_cast<std::size_t>(row)], n, region);
    }
    ++n;
  }
  RebuildDerivedTables(image);
  return ImportAnswer::kPlaced;
}

}  // namespace qz7
