#include "core/interchange/copied_text.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <numeric>

#include "core/files/csv_export.h"
#include "core/image/derived_tables.h"
#include "core/image/text_codec.h"
#include "core/interchange/field_splitter.h"
#include "core/interchange/import_columns.h"
#include "core/interchange/import_placement.h"
#include "core/interchange/import_selection.h"

namespace qz7 {
namespace {

// What would end a field or open a quoted stretch inside one.
char Tame(char c) {
  if (c == '"') {
    return '\'';
  }
  return IsControl(c) ? ' ' : c;
}

void AppendLine(std::string& text, const CsvFields& fields) {
  for (std::size_t c = 0; c < fields.size(); ++c) {
    text += c == 0 ? "" : "\t";
    std::transform(fields[c].begin(), fields[c].end(), std::back_inserter(text), Tame);
  }
  text += "\r\n";
}

// Tabs come from a spreadsheet's cells, semicolons from where the comma is the decimal point.
char SeparatorIn(std::string_view first_line) {
  for (const char separator : {'\t', ';'}) {
    if (first_line.find(separator) != std::string_view::npos) {
      return separator;
    }
  }
  return ',';
}

// Whether a cell names the receive frequency, without which no line can be read. A cell "Skip" may
// as well be a channel's mark.
bool HasTitles(ImportSession& session, std::string_view first_line) {
  for (auto cell = FirstField(session, first_line); cell; cell = NextField(session)) {
    if (FieldOfHeader(*cell) == kRxFrequency) {
      return true;
    }
  }
  return false;
}

// The session as the import's windows would leave it.
ImportSession SessionFor(ImportLines& lines) {
  ImportSession session;
  ImportOptions options;
  const std::string_view first_line = NextLine(lines).value_or("");
  options.field_separator = SeparatorIn(first_line);
  TakeImportOptions(session, options);
  session.options.headers = HasTitles(session, first_line);
  session.line_count = CountLines(lines);
  ColumnDialog dialog = OpenColumnDialog(session, lines);
  if (!session.options.headers) {
    std::iota(dialog.columns.begin(), dialog.columns.end(), std::uint32_t{1});
  }
  AcceptColumns(session, dialog);
  return session;
}

}  // namespace

std::string TextOfChannels(std::span<const ChannelCopy> channels) {
  const auto image = std::make_unique<CloneImage>();
  WriteU16(image->data() + kChannelCountOffset, kChannelCount);
  std::string text;
  AppendLine(text, CsvTitles());
  for (const ChannelCopy& channel : channels) {
    if (IsProgrammed(channel)) {
      PlaceCopy(*image, 1, channel);
      RebuildDerivedTables(*image);
      AppendLine(text, CsvFieldsOf(*image, 1));
    }
  }
  return text;
}

std::vector<ChannelCopy> ChannelsOfText(const CloneImage& image, std::string_view text,
                                        const RegionVariant& region) {
  const auto room = std::make_unique<CloneImage>(image);
  // Behind a line feed nothing of an earlier, longer line is read.
  const std::string whole = std::string(text) + "\n";
  ImportLines lines = LinesOf({reinterpret_cast<const std::uint8_t*>(whole.data()), whole.size()});
  ImportSession session = SessionFor(lines);
  const std::optional<ImportList> list = OpenSelection(*room, session, lines);
  std::vector<ChannelCopy> channels;
  if (list) {
    for (const ImportRecord& record : list->Rows()) {
      PlaceCopy(*room, 1, ChannelCopy{});
      PlaceImportRecord(*room, record, 1, region);
      if (const auto channel = CopyOfChannel(*room, 1)) {
        channels.push_back(*channel);
      }
    }
  }
  return channels;
}

}  // namespace qz7
