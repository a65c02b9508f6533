#include "core/interchange/import_doubts.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/image/band_plan.h"
#include "core/image/blanks.h"
#include "core/image/channel_codes.h"
#include "core/image/channel_text.h"
#include "core/image/decimal.h"
#include "core/image/text_codec.h"
#include "core/interchange/field_splitter.h"
#include "core/interchange/import_columns.h"
#include "core/interchange/import_reader.h"
#include "core/interchange/import_selection.h"

namespace qz7 {
namespace {

constexpr const char* kOpenQuote = "a quotation mark is not closed";

// Reads the lines as import does, and collects.
struct Reading {
  const CloneImage& image;
  ImportSession records;  // each goes through the file on its own, as their splitters keep things
  ImportSession cells;    // from one line to the next
  int line = 1;
  std::vector<ImportDoubt> doubts;
};

void Doubt(Reading& reading, std::string reason, bool left_out = false) {
  reading.doubts.push_back(
      {.line = reading.line, .reason = std::move(reason), .left_out = left_out});
}

std::string Quoted(std::string_view text) {
  std::string shown = "\"" + std::string(text) + "\"";
  std::replace_if(shown.begin(), shown.end(), IsControl, '?');
  return shown;
}

std::string FrequencyText(Frequency f) { return WithoutLeadingBlanks(FormatFrequency(f)); }

bool IsBlank(std::string_view line) {
  return line.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

int FieldOf(const ColumnAssignment& columns, std::uint32_t column) {
  const auto field = std::find(columns.begin(), columns.end(), column);
  return field != columns.end() ? static_cast<int>(field - columns.begin()) : -1;
}

// A code is written with a letter: "D023", "DPL 023", "023N" reads as the tone 2.3 Hz.
void DoubtTone(Reading& reading, std::string_view text, std::uint16_t tone) {
  if (!HasDigit(text) || tone == 0 || FindTone(tone)) {
    return;
  }
  const bool is_code = UpperCase(text.front()) == 'D';
  Doubt(reading, Quoted(text) + (is_code ? " is a code, and no code is imported"
                                         : " is none of the radio's tones"));
}

void DoubtToneMode(Reading& reading, std::string_view text) {
  constexpr std::array<std::string_view, 5> kNothing = {"", "NONE", "OFF", "NO", "-"};
  const std::string upper = UpperCase(text);
  if (std::find(kNothing.begin(), kNothing.end(), upper) != kNothing.end()) {
    return;
  }
  const bool is_digit = text.front() >= '0' && text.front() <= '9';
  const bool known = is_digit ? text.size() == 1 : text.front() == 'E' || text.starts_with("DCS");
  if (!known) {
    Doubt(reading, Quoted(text) + " names no tone mode");
  }
}

// A small number is an offset, also where it was meant as a frequency.
void DoubtOffset(Reading& reading, std::string_view text) {
  constexpr Frequency kLargestOffset = Kilohertz(99'500);
  constexpr Frequency kLargestUsual = Kilohertz(7600);
  const Frequency value = ParseImportFrequency(text);
  if (ParseDirection(text) == Shift::kSimplex && value > kLargestUsual && value <= kLargestOffset) {
    Doubt(reading, Quoted(text) + " in the transmit column is read as an offset");
  }
}

void DoubtCell(Reading& reading, int field, std::string_view text, const ImportRecord& record) {
  switch (field) {
    case kTxFrequency:
      DoubtOffset(reading, text);
      break;
    case kToneColumn:
      DoubtToneMode(reading, text);
      break;
    case kEncFrequency:
      DoubtTone(reading, text, record.encode_tone);
      break;
    case kDecFrequency:
      DoubtTone(reading, text, record.decode_tone);
      break;
    default:
      break;
  }
}

Frequency TransmitOf(const ImportRecord& record) {
  switch (record.shift) {
    case Shift::kMinus:
      return record.rx - record.tx;
    case Shift::kPlus:
      return record.rx + record.tx;
    case Shift::kOddSplit:
      return record.tx;
    default:
      return record.rx;
  }
}

void DoubtRecord(Reading& reading, const ImportRecord& record) {
  const Frequency transmit = TransmitOf(record);
  if (!IsValidFrequency(reading.image, transmit)) {
    Doubt(reading, "the transmit frequency " +
                       (transmit < Frequency{} ? "below 0" : FrequencyText(transmit)) +
                       " is outside the bands");
  }
}

bool IsQuoteOpen(const ImportSession& session) {
  return session.splitter.separator != session.options.field_separator;
}

void ReadLine(Reading& reading, std::string_view line) {
  const bool was_open = IsQuoteOpen(reading.records);
  const ImportRecord record = ParseRecord(reading.records, line);
  const bool left_out = !IsValidFrequency(reading.image, record.rx);
  if (left_out && !IsBlank(line)) {
    Doubt(reading,
          record.rx == Frequency{}
              ? "no receive frequency"
              : "the receive frequency " + FrequencyText(record.rx) + " is outside the bands",
          true);
  }
  std::uint32_t column = 1;
  for (auto cell = FirstField(reading.cells, line); cell; cell = NextField(reading.cells)) {
    if (!left_out) {
      DoubtCell(reading, FieldOf(reading.cells.columns, column), *cell, record);
    }
    ++column;
  }
  if (!left_out) {
    DoubtRecord(reading, record);
  }
  if (!was_open && IsQuoteOpen(reading.records)) {
    Doubt(reading, kOpenQuote);
  }
}

void ReadHeader(Reading& reading, std::string_view line) {
  std::string unknown;
  std::uint32_t column = 1;
  for (auto cell = FirstField(reading.cells, line); cell; cell = NextField(reading.cells)) {
    if (!cell->empty() && FieldOf(reading.cells.columns, column) < 0) {
      unknown += (unknown.empty() ? "" : ", ") + Quoted(*cell);
    }
    ++column;
  }
  if (!unknown.empty()) {
    Doubt(reading, "of these columns no field is known: " + unknown);
  }
}

// The column dialog has split the first lines already; a mark that they left open stays open.
void DoubtFirstLines(Reading& reading, ImportLines& lines) {
  if (!IsQuoteOpen(reading.records)) {
    return;
  }
  ImportSession fresh = reading.records;
  fresh.splitter.separator = fresh.options.field_separator;
  for (; !IsQuoteOpen(fresh); ++reading.line) {
    const auto line = NextLine(lines);
    for (auto cell = line ? FirstField(fresh, *line) : std::nullopt; cell;) {
      cell = NextField(fresh);
    }
    if (!line || IsQuoteOpen(fresh)) {
      Doubt(reading, kOpenQuote);
      break;
    }
  }
  reading.line = 1;
  Rewind(lines);
}

void TellLost(Reading& reading, const ImportLines& lines) {
  for (const LostCharacter& lost : lines.lost) {
    reading.doubts.push_back(
        {.line = lost.line, .reason = lost.name + " has no byte and becomes \"?\""});
  }
  std::stable_sort(reading.doubts.begin(), reading.doubts.end(),
                   [](const ImportDoubt& a, const ImportDoubt& b) { return a.line < b.line; });
}

}  // namespace

std::vector<ImportDoubt> FindDoubts(const CloneImage& image, const ImportSession& session,
                                    ImportLines& lines) {
  if (lines.is_utf_16) {
    return {{.line = 0, .reason = "the file is UTF-16, which is read as single bytes"}};
  }
  Reading reading{.image = image, .records = session, .cells = session, .doubts = {}};
  SwitchToneCheck(reading.records);
  Rewind(lines);
  DoubtFirstLines(reading, lines);
  bool header = session.options.headers;
  while (const auto line = session.options.delimited ? NextLine(lines) : std::nullopt) {
    if (header) {
      ReadHeader(reading, *line);
    } else {
      ReadLine(reading, *line);
    }
    header = false;
    reading.line += line->ends_with('\n') ? 1 : 0;
  }
  Rewind(lines);
  TellLost(reading, lines);
  return std::move(reading.doubts);
}

std::string DoubtLine(const ImportDoubt& doubt) {
  const std::string place = doubt.line > 0 ? "line " + std::to_string(doubt.line) + ": " : "";
  return place + doubt.reason + (doubt.left_out ? "; the line is left out" : "");
}

std::string DoubtsSummary(const std::vector<ImportDoubt>& doubts) {
  std::vector<ImportDoubt> ordered = doubts;
  const auto end = std::stable_partition(ordered.begin(), ordered.end(),
                                         [](const ImportDoubt& doubt) { return doubt.left_out; });
  const auto left_out = end - ordered.begin();
  std::string text;
  if (left_out > 0) {
    text = std::to_string(left_out) + (left_out == 1 ? " line" : " lines") + " left out: ";
  }
  // More than any window has room for.
  constexpr std::size_t kTold = 20;
  for (std::size_t i = 0; i < std::min(ordered.size(), kTold); ++i) {
    const ImportDoubt& doubt = ordered[i];
    text += i > 0 ? "; " : "";
    text += doubt.line > 0 ? "line " + std::to_string(doubt.line) + ", " : "";
    text += doubt.reason;
  }
  return text + (ordered.size() > kTold ? "; ..." : "");
}

}  // namespace qz7
