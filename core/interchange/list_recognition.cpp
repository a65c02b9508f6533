#include "core/interchange/list_recognition.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "core/image/text_codec.h"
#include "core/interchange/list_headers.h"
#include "core/interchange/list_text.h"
#include "core/interchange/list_values.h"

namespace qz7 {
namespace {

using Columns = std::vector<std::optional<Meaning>>;

Columns ColumnsOf(const ListRow& header) {
  Columns columns;
  for (const std::string& cell : header.cells) {
    columns.push_back(MeaningOf(cell));
  }
  return columns;
}

bool Names(const Columns& columns, Meaning meaning) {
  return std::find(columns.begin(), columns.end(), meaning) != columns.end();
}

// How many columns a line names, if one of them is the receive frequency.
std::ptrdiff_t NamedColumns(const ListRow& row) {
  const Columns columns = ColumnsOf(row);
  return Names(columns, Meaning::kReceive)
             ? std::count_if(columns.begin(), columns.end(),
                             [](const auto& c) { return c.has_value(); })
             : 0;
}

struct Table {
  std::vector<ListRow> rows;
  std::size_t header = 0;  // its place in the rows
  std::vector<ImportDoubt> doubts;
  std::ptrdiff_t named = 0;
};

// The separator by which a line near the top names the most columns.
Table FindTable(std::string_view text) {
  constexpr std::size_t kTopRows = 20;
  Table best;
  for (const char separator : kListSeparators) {
    Table table;
    table.rows = SplitList(text, separator, table.doubts);
    for (std::size_t i = 0; i < std::min(table.rows.size(), kTopRows); ++i) {
      const std::ptrdiff_t named = NamedColumns(table.rows[i]);
      if (named > table.named) {
        table.named = named;
        table.header = i;
      }
    }
    if (table.named > best.named) {
      best = std::move(table);
    }
  }
  return best;
}

// A row by the meanings of its columns; several columns of one meaning stand in their order.
using Cells = std::multimap<Meaning, std::string>;

Cells CellsOf(const ListRow& row, const Columns& columns) {
  Cells cells;
  for (std::size_t i = 0; i < std::min(row.cells.size(), columns.size()); ++i) {
    if (columns[i] && !row.cells[i].empty()) {
      cells.emplace(*columns[i], row.cells[i]);
    }
  }
  return cells;
}

std::string First(const Cells& cells, Meaning meaning) {
  const auto cell = cells.find(meaning);
  return cell != cells.end() ? cell->second : "";
}

// One record as import's cells.
struct Record {
  std::string receive, transmit, direction, tone_mode, skip, power, encode, decode, name, comment;
};

struct Conversion {
  const Columns& columns;
  std::vector<ImportDoubt>& doubts;
  int line = 0;
};

void Doubt(Conversion& conversion, std::string reason) {
  std::replace_if(reason.begin(), reason.end(), IsControl, '?');
  conversion.doubts.push_back({.line = conversion.line, .reason = std::move(reason)});
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::string MegahertzText(Frequency f) {
  constexpr std::int64_t kUnits = 10'000;
  std::array<char, 40> text;
  std::snprintf(text.data(), text.size(), "%lld.%04lld",
                static_cast<long long>(f.hundred_hertz / kUnits),
                static_cast<long long>(f.hundred_hertz % kUnits));
  return text.data();
}

const char* DirectionCell(Shift shift) {
  switch (shift) {
    case Shift::kMinus:
      return "-";
    case Shift::kPlus:
      return "+";
    case Shift::kOddSplit:
      return "S";
    default:
      return "";
  }
}

// Above it a transmit cell is a frequency: a lower one is told as an offset.
constexpr Frequency kLargestOffset = Kilohertz(99'500);

void PutTransmit(Record& record, Frequency receive, Frequency transmit) {
  const Frequency distance = receive > transmit ? receive - transmit : transmit - receive;
  if (transmit > kLargestOffset) {
    record.transmit = transmit == receive ? "" : MegahertzText(transmit);
  } else if (distance > kLargestOffset) {
    record.transmit = MegahertzText(transmit);
    record.direction = DirectionCell(Shift::kOddSplit);
  } else if (distance != Frequency{}) {
    record.transmit = MegahertzText(distance);
    record.direction = DirectionCell(receive > transmit ? Shift::kMinus : Shift::kPlus);
  }
}

// Some lists, this program's own among them, have the offset where others have the frequency: far
// below the receive frequency and with no word of a split.
bool IsOffset(Frequency transmit, Frequency receive, std::optional<Shift> direction) {
  constexpr Frequency kFarthest = Megahertz(10);
  return transmit != Frequency{} && transmit <= kLargestOffset && direction != Shift::kOddSplit &&
         receive - transmit > kFarthest;
}

std::optional<Shift> DirectionOf(const Cells& cells) {
  for (const Meaning meaning : {Meaning::kDirection, Meaning::kOffset, Meaning::kReceive}) {
    if (const auto direction = ParseListDirection(First(cells, meaning))) {
      return direction;
    }
  }
  return std::nullopt;
}

void ReadShift(Conversion& conversion, const Cells& cells, Frequency receive, Record& record) {
  const auto transmit = ParseListFrequency(First(cells, Meaning::kTransmit));
  const std::string offset_cell = First(cells, Meaning::kOffset);
  const std::optional<Shift> direction = DirectionOf(cells);
  if (transmit && IsOffset(*transmit, receive, direction)) {
    record.transmit = MegahertzText(*transmit);
    record.direction = DirectionCell(direction.value_or(Shift::kSimplex));
    return;
  }
  if (transmit && *transmit != Frequency{}) {
    PutTransmit(record, receive, *transmit);
    return;
  }
  if (direction == Shift::kOddSplit) {
    // The offset of a split is its transmit frequency.
    PutTransmit(record, receive, ParseListFrequency(offset_cell).value_or(receive));
    return;
  }
  const auto offset = ParseListOffset(offset_cell);
  const bool shifted = direction && *direction != Shift::kSimplex;
  if (shifted) {
    record.direction = DirectionCell(*direction);
    record.transmit = offset && *offset != Frequency{} ? MegahertzText(*offset) : "";
  } else if (offset && *offset != Frequency{} && !direction &&
             !Names(conversion.columns, Meaning::kDirection)) {
    Doubt(conversion, Quoted(offset_cell) + " is an offset without a direction");
  }
}

// The tone of the first such cell; what is none is told.
int ReadTone(Conversion& conversion, const std::string& cell) {
  const ListTone tone = ParseListTone(cell);
  if (tone.is_code) {
    Doubt(conversion, Quoted(cell) + " is a code, and no code is imported");
  } else if (tone.is_unknown) {
    Doubt(conversion, Quoted(cell) + " is none of the radio's tones");
  }
  return tone.tenths_of_hertz;
}

void PutTones(Record& record, ToneMode mode, int tone) {
  record.tone_mode = mode == ToneMode::kSquelch ? "ED" : mode == ToneMode::kEncode ? "E" : "";
  record.encode = tone > 0 ? ToneText(tone) : "";
  record.decode = mode == ToneMode::kSquelch ? record.encode : "";
}

// By a mode that the list tells: only the tone that it uses counts.
void ReadTonesByMode(Conversion& conversion, const Cells& cells, ToneMode mode, Record& record) {
  if (mode == ToneMode::kDcs) {
    Doubt(conversion, Quoted(First(cells, Meaning::kCode)) + " is a code, and no code is imported");
  }
  if (mode == ToneMode::kNone || mode == ToneMode::kDcs) {
    return;
  }
  std::string cell = First(cells, mode == ToneMode::kSquelch ? Meaning::kDecode : Meaning::kEncode);
  cell = cell.empty() ? First(cells, Meaning::kEncode) : cell;
  PutTones(record, mode, ReadTone(conversion, cell));
}

void ReadTones(Conversion& conversion, const Cells& cells, Record& record) {
  const std::string tone_cell = First(cells, Meaning::kTone);
  const bool has_number = tone_cell.find_first_of("0123456789") != std::string::npos;
  const bool tells_mode = Names(conversion.columns, Meaning::kToneMode) ||
                          (Names(conversion.columns, Meaning::kTone) && !has_number &&
                           (Names(conversion.columns, Meaning::kEncode) || !tone_cell.empty()));
  if (tells_mode) {
    const std::string mode_cell = First(cells, Meaning::kToneMode);
    const std::string cell = mode_cell.empty() ? tone_cell : mode_cell;
    if (const auto mode = ParseListToneMode(cell)) {
      ReadTonesByMode(conversion, cells, *mode, record);
    } else {
      Doubt(conversion, Quoted(cell) + " names no tone mode");
    }
    return;
  }
  const std::string encode_cell = First(cells, Meaning::kEncode);
  const int encode = ReadTone(conversion, has_number ? tone_cell : encode_cell);
  const int decode = ReadTone(conversion, First(cells, Meaning::kDecode));
  ReadTone(conversion,
           First(cells, Meaning::kCode).empty() ? "" : "D" + First(cells, Meaning::kCode));
  if (decode != 0 && encode != 0 && decode != encode) {
    Doubt(conversion, Quoted(First(cells, Meaning::kDecode)) +
                          " is a second tone, and the radio has one a channel");
    PutTones(record, ToneMode::kEncode, encode);
  } else {
    PutTones(record,
             decode != 0   ? ToneMode::kSquelch
             : encode != 0 ? ToneMode::kEncode
                           : ToneMode::kNone,
             std::max(encode, decode));
  }
}

void ReadMode(Conversion& conversion, const Cells& cells) {
  constexpr std::array<std::string_view, 6> kUsual = {"", "fm", "fmn", "nfm", "auto", "analog"};
  const std::string cell = First(cells, Meaning::kMode);
  const std::string plain = PlainHeader(cell);
  if (std::find(kUsual.begin(), kUsual.end(), plain) == kUsual.end() && !plain.starts_with("fmn")) {
    Doubt(conversion, Quoted(cell) + " is a mode, and no mode is imported");
  }
}

// All cells of these meanings with commas between, import's own marks apart.
std::string Joined(const Cells& cells, std::initializer_list<Meaning> meanings,
                   const std::string& without, std::size_t longest) {
  std::string text;
  for (const Meaning meaning : meanings) {
    const auto [first, last] = cells.equal_range(meaning);
    for (auto cell = first; cell != last; ++cell) {
      if (cell->second != without) {
        text += (text.empty() ? "" : ", ") + cell->second;
      }
    }
  }
  std::replace(text.begin(), text.end(), '"', '\'');
  std::replace_if(text.begin(), text.end(), IsControl, ' ');
  return text.substr(0, longest);
}

bool IsWholeNumber(const std::string& text) {
  return text.find_first_not_of("0123456789") == std::string::npos;
}

void ReadTexts(const Cells& cells, Record& record) {
  constexpr std::size_t kLongestName = 8;
  constexpr std::size_t kLongestComment = 31;
  const std::string name = First(cells, Meaning::kName);
  record.name = name.substr(0, kLongestName);
  std::replace(record.name.begin(), record.name.end(), '"', '\'');
  Cells texts = cells;
  // What is called a location is the number of the channel in some lists.
  const auto place = texts.find(Meaning::kNumber);
  if (place != texts.end() && IsWholeNumber(place->second)) {
    texts.erase(place);
  }
  record.comment =
      Joined(texts, {Meaning::kComment, Meaning::kNumber, Meaning::kName}, name, kLongestComment);
}

Record Convert(Conversion& conversion, const ListRow& row) {
  const Cells cells = CellsOf(row, conversion.columns);
  Record record;
  const auto receive = ParseListFrequency(First(cells, Meaning::kReceive));
  if (!receive) {
    return record;
  }
  record.receive = MegahertzText(*receive);
  ReadShift(conversion, cells, *receive, record);
  ReadTones(conversion, cells, record);
  ReadMode(conversion, cells);
  ReadTexts(cells, record);
  const std::string skip = PlainHeader(First(cells, Meaning::kSkip));
  record.skip = skip == "s" || skip == "skip" || skip == "yes" || skip == "on" ? "S" : "";
  const std::string power = PlainHeader(First(cells, Meaning::kPower));
  record.power = power.starts_with('l') ? "Low" : power.starts_with("mid") ? "Mid" : "High";
  return record;
}

std::string LineOf(const Record& record) {
  std::string line;
  for (const std::string* cell :
       {&record.receive, &record.transmit, &record.direction, &record.tone_mode, &record.skip,
        &record.power, &record.encode, &record.decode, &record.name, &record.comment}) {
    line += (line.empty() ? "\"" : ",\"") + *cell + "\"";
  }
  return line + "\n";
}

void TellUnknownColumns(const ListRow& header, const Columns& columns, RecognisedList& list) {
  std::string unknown;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (!columns[i] && !header.cells[i].empty()) {
      unknown += (unknown.empty() ? "" : ", ") + Quoted(header.cells[i]);
    }
  }
  if (!unknown.empty()) {
    list.doubts.push_back(
        {.line = header.line, .reason = "of these columns no field is known: " + unknown});
  }
}

}  // namespace

RecognisedList RecogniseList(std::span<const std::uint8_t> bytes) {
  RecognisedList list;
  const std::string text = DecodeList(bytes, list.doubts);
  const Table table = FindTable(text);
  list.is_recognised = table.named > 0;
  if (!list.is_recognised) {
    return list;
  }
  list.doubts.insert(list.doubts.end(), table.doubts.begin(), table.doubts.end());
  const ListRow& header = table.rows[table.header];
  const Columns columns = ColumnsOf(header);
  TellUnknownColumns(header, columns, list);
  Conversion conversion{.columns = columns, .doubts = list.doubts};
  for (std::size_t i = table.header + 1; i < table.rows.size(); ++i) {
    conversion.line = table.rows[i].line;
    list.text += LineOf(Convert(conversion, table.rows[i]));
    list.lines.push_back(conversion.line);
  }
  return list;
}

std::vector<ImportDoubt> AllDoubts(const RecognisedList& list,
                                   const std::vector<ImportDoubt>& of_import) {
  std::vector<ImportDoubt> doubts = list.doubts;
  for (ImportDoubt doubt : of_import) {
    const auto line = static_cast<std::size_t>(doubt.line);
    doubt.line = line >= 1 && line <= list.lines.size() ? list.lines[line - 1] : 0;
    doubts.push_back(std::move(doubt));
  }
  std::stable_sort(doubts.begin(), doubts.end(),
                   [](const ImportDoubt& a, const ImportDoubt& b) { return a.line < b.line; });
  return doubts;
}

}  // namespace qz7
