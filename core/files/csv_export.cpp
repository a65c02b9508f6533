#include "core/files/csv_export.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string_view>

#include "core/files/csv_columns.h"
#include "core/files/file_output.h"
#include "core/image/channel_record.h"
#include "core/image/derived_tables.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

constexpr std::uint32_t kMegahertzIn10Hz = 100'000;
constexpr std::uint32_t kUhfIn10Hz = 28'000'000;
constexpr std::uint32_t kVhfOffsetIn10Hz = 60'000;
constexpr std::uint32_t kUhfOffsetIn10Hz = 500'000;
constexpr std::size_t kCommentCharacters = kCommentSize - 1;

std::string MegahertzText(std::uint32_t frequency_10hz) {
  std::array<char, 24> text;
  std::snprintf(text.data(), text.size(), "%u.%04u",
                static_cast<unsigned>(frequency_10hz / kMegahertzIn10Hz),
                static_cast<unsigned>(frequency_10hz % kMegahertzIn10Hz / 10));
  return text.data();
}

// The column called "TX Frequency" carries the amount of the offset, a usual one for a simplex
// channel, and the transmit frequency itself for an odd split alone: readers expect it so.
std::uint32_t TransmitColumn(const ChannelSummary& channel) {
  switch (channel.shift) {
    case Shift::kMinus:
      return channel.receive_10hz - channel.transmit_10hz;
    case Shift::kPlus:
      return channel.transmit_10hz - channel.receive_10hz;
    case Shift::kOddSplit:
      return channel.transmit_10hz;
    default:
      return channel.receive_10hz < kUhfIn10Hz ? kVhfOffsetIn10Hz : kUhfOffsetIn10Hz;
  }
}

std::string ShiftSign(Shift shift) {
  constexpr std::array<char, 4> kSigns = {' ', '-', '+', kPlusMinus};
  return shift == Shift::kSimplex ? "" : std::string(1, kSigns[static_cast<std::size_t>(shift)]);
}

const char* ToneMark(const ChannelSummary& channel) {
  if (channel.tone_squelch) {
    return "ED";
  }
  return channel.tone_encoder ? "E" : "";
}

// The name as the name table has it: what channel 240 shows is whatever stands there.
std::string_view TableName(const CloneImage& image, int n) {
  const std::uint8_t* entry = NameEntry(image, n);
  return FieldText(reinterpret_cast<const char*>(entry), kNameLength);
}

void AppendLine(std::string& csv, const CsvFields& columns) {
  for (std::size_t c = 0; c < columns.size(); ++c) {
    csv += c == 0 ? "\"" : ",\"";
    csv += columns[c];
    csv += '"';
  }
  csv += "\r\n";
}

}  // namespace

CsvFields CsvFieldsOf(const CloneImage& image, int n) {
  const ChannelSummary channel = DecodeSummary(SummaryEntry(image, n));
  const std::string tone = ToneText(channel.tone);
  CsvFields columns;
  columns[kRxFrequency] = MegahertzText(channel.receive_10hz);
  columns[kTxFrequency] = MegahertzText(TransmitColumn(channel));
  columns[kOffsetColumn] = ShiftSign(channel.shift);
  columns[kToneColumn] = ToneMark(channel);
  columns[kSkipColumn] = channel.skip ? "Skip" : "";
  columns[kPowerColumn] = NameOf(kPowerNames, RecordPower(GetChannelRecord(image, n)));
  columns[kEncFrequency] = tone;
  columns[kDecFrequency] = tone;
  columns[kNameColumn] = TableName(image, n);
  columns[kCommentColumn] = ChannelCommentText(image, n).substr(0, kCommentCharacters);
  return columns;
}

CsvFields CsvTitles() {
  CsvFields titles;
  std::transform(kCsvColumns.begin(), kCsvColumns.end(), titles.begin(),
                 [](const CsvColumnName& column) { return column.title; });
  return titles;
}

std::string ExportCsv(const CloneImage& image) {
  std::string csv;
  AppendLine(csv, CsvTitles());
  for (int n = 1; n <= std::min(GetChannelCount(image), kChannelCount); ++n) {
    if (IsProgrammed(image, n)) {
      AppendLine(csv, CsvFieldsOf(image, n));
    }
  }
  return csv;
}

bool WriteCsvFile(const CloneImage& image, const std::filesystem::path& path) {
  const std::string csv = ExportCsv(image);
  return WriteFileOrShow(path, {reinterpret_cast<const std::uint8_t*>(csv.data()), csv.size()});
}

FileBox ExportFileBox(const std::filesystem::path& data_folder,
                      const std::filesystem::path& last_name) {
  return {.title = "Export Radio File",
          .filters = {{"Comma delimited (*.csv)", "*.csv"}},
          .default_extension = "csv",
          .folder = data_folder,
          .initial_name = last_name};
}

}  // namespace qz7
