#include "core/interchange/copied_text.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "core/files/csv_export.h"
#include "core/image/derived_tables.h"
#include "core/image/text_codec.h"
#include "core/interchange/import_placement.h"
#include "core/interchange/import_selection.h"
#include "core/interchange/list_recognition.h"

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
char SeparatorIn(std::string_view text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  for (const char separator : {'\t', ';'}) {
    if (line.find(separator) != std::string_view::npos) {
      return separator;
    }
  }
  return ',';
}

// A list that can be read: by the names in its header line, otherwise in the export's order.
struct ReadyText {
  std::string text;
  char separator;
};

// Behind a line feed nothing of an earlier, longer line is read.
ReadyText InExportsOrder(std::string_view text, char separator) {
  return {.text = std::string(text) + "\n", .separator = separator};
}

// What this program has copied keeps the tones that no tone mode uses: the recognition drops them.
ReadyText ReadyToRead(std::string_view text) {
  std::string titles = TextOfChannels({});
  titles.erase(titles.find('\r'));
  if (text.starts_with(titles)) {
    return InExportsOrder(text.substr(titles.size()), '\t');
  }
  const std::string utf8 = "\xEF\xBB\xBF" + ToUtf8(text);
  RecognisedList list =
      RecogniseList({reinterpret_cast<const std::uint8_t*>(utf8.data()), utf8.size()});
  if (list.is_recognised) {
    return {.text = std::move(list.text), .separator = ','};
  }
  return InExportsOrder(text, SeparatorIn(text));
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
  const ReadyText ready = ReadyToRead(text);
  ImportLines lines =
      LinesOf({reinterpret_cast<const std::uint8_t*>(ready.text.data()), ready.text.size()});
  ImportSession session;
  ImportOptions options;
  options.field_separator = ready.separator;
  TakeImportOptions(session, options);
  session.line_count = CountLines(lines);
  session.columns = kRecognisedColumns;
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
