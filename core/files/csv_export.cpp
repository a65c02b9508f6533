#include "core/files/csv_export.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string_view>

#include "core/files/channel_summary.h"
#include "core/files/file_output.h"
#include "core/image/channel_record.h"

namespace qz7 {
namespace {

constexpr std::size_t kColumns = 10;
using Columns = std::array<std::string, kColumns>;

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
    case kMinus:
      return channel.receive_10hz - channel.transmit_10hz;
    case kPlus:
      return channel.transmit_10hz - channel.receive_10hz;
    case kOddSplit:
      return channel.transmit_10hz;
    default:
      return channel.receive_10hz < kUhfIn10Hz ? kVhfOffsetIn10Hz : kUhfOffsetIn10Hz;
  }
}

const char* ShiftSign(int shift) {
  static constexpr std::array<const char*, 4> kSigns = {"", "-", "+", "\xB1"};
  return kSigns[static_cast<std::size_t>(shift)];
}

const char* ToneMark(const ChannelSummary& channel) {
  if (channel.tone_squelch) {
    return "ED";
  }
  return channel.tone_encoder ? "E" : "";
}

std::string ToneText(int tone) {
  return std::to_string(tone / 10) + "." + std::to_string(tone % 10);
}

// The name as the name table has it: what channel 240 shows is whatever stands there.
std::string_view TableName(const CloneImage& image, int n) {
  const std::uint8_t* entry = NameEntry(image, n);
  return FieldText(reinterpret_cast<const char*>(entry), kNameLength);
}

void AppendLine(std::string& csv, const Columns& columns) {
  for (std::size_t c = 0; c < kColumns; ++c) {
    csv += c == 0 ? "\"" : ",\"";
    csv += columns[c];
    csv += '"';
  }
  csv += "\r\n";
}

Columns ChannelColumns(const CloneImage& image, int n) {
  const ChannelSummary channel = DecodeSummary(SummaryEntry(image, n));
  const std::string tone = ToneText(channel.tone);
  const auto power = static_cast<std::size_t>(RecordPower(GetChannelRecord(image, n)));
  return {MegahertzText(channel.receive_10hz),
          MegahertzText(TransmitColumn(channel)),
          ShiftSign(channel.shift),
          ToneMark(channel),
          channel.skip ? "Skip" : "",
          kPowerNames[power],
          tone,
          tone,
          std::string(TableName(image, n)),
          std::string(ChannelCommentText(image, n).substr(0, kCommentCharacters))};
}

}  // namespace

std::string ExportCsv(const CloneImage& image) {
  std::string csv;
  AppendLine(csv, {"RX Frequency", "TX Frequency", "Offset", "Tone", "Skip", "Power",
                   "Enc Frequency", "Dec Frequency", "Name", "Comment"});
  for (int n = 1; n <= std::min(GetChannelCount(image), kChannelCount); ++n) {
    if (IsProgrammed(image, n)) {
      AppendLine(csv, ChannelColumns(image, n));
    }
  }
  return csv;
}

bool WriteCsvFile(const CloneImage& image, const std::string& path) {
  const std::string csv = ExportCsv(image);
  return WriteFileOrShow(path, {reinterpret_cast<const std::uint8_t*>(csv.data()), csv.size()});
}

FileBox ExportFileBox(const std::string& data_folder, const std::string& last_name) {
  return {.title = "Export Radio File",
          .filters = {{"Comma delimited (*.csv)", "*.csv"}},
          .default_extension = "csv",
          .folder = data_folder,
          .initial_name = last_name};
}

}  // namespace qz7
