#include "core/interchange/import_reader.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "core/image/channel_codes.h"
#include "core/image/decimal.h"
#include "core/image/text_codec.h"
#include "core/interchange/field_splitter.h"

namespace qz7 {
namespace {

// A transmit cell up to this value is an offset, above it a frequency.
constexpr Frequency kLargestOffset = Kilohertz(99'500);
constexpr std::array kUsualOffsets = {Kilohertz(600),  Kilohertz(1000), Kilohertz(1600),
                                      Kilohertz(3000), Kilohertz(5000), Kilohertz(7600)};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Cuts the text at the first such character; whether there is one.
bool CutAt(std::string& text, char c) {
  const std::size_t at = text.find(c);
  if (at == std::string::npos) {
    return false;
  }
  text.erase(at);
  return true;
}

// The four decimals behind the point.
int FractionValue(std::string fraction) {
  constexpr std::size_t kDecimals = 4;
  fraction.erase(fraction.find_last_not_of(' ') + 1);
  fraction.resize(kDecimals, '0');
  return DecimalValue(fraction);
}

// The field whose column this is, the first one where several share it.
std::optional<int> FieldOfColumn(const ColumnAssignment& columns, std::uint32_t column) {
  const auto field = std::find(columns.begin(), columns.end(), column);
  if (field == columns.end()) {
    return std::nullopt;
  }
  return static_cast<int>(field - columns.begin());
}

void ReadTransmit(ImportRecord& record, std::string_view text) {
  const Shift direction = ParseDirection(text);
  if (direction != Shift::kSimplex) {
    record.shift = direction;
  } else {
    record.tx = ParseImportFrequency(text);
  }
}

ToneMode ToneModeOf(std::string_view text) {
  if (!text.empty() && IsDigit(text.front())) {
    return CodeAt<ToneMode>(kToneModeNames, text.front() - '0').value_or(ToneMode::kNone);
  }
  if (text.starts_with("ED")) {
    return ToneMode::kSquelch;
  }
  if (text.starts_with('E')) {
    return ToneMode::kEncode;
  }
  return text.starts_with("DCS") ? ToneMode::kDcs : ToneMode::kNone;
}

// The power that a cell names; what it held before for a text that names none.
ImportPower PowerOf(std::string_view text, ImportPower before) {
  switch (text.empty() ? 'L' : UpperCase(text.front())) {
    case 'L':
      return ImportPower::kLow;
    case 'M':
    case '\x01':
      return ImportPower::kMid;
    case 'H':
    case '\x02':
      return ImportPower::kHigh;
    default:
      return before;
  }
}

// The digits of a tone as one number, points between them left out: "88.5 Hz" is 885.
std::uint16_t ToneDigits(std::string_view text) {
  std::uint32_t value = 0;
  const std::size_t first = text.find_first_of("0123456789");
  for (const char c : text.substr(std::min(first, text.size()))) {
    if (c == '.') {
      continue;
    }
    if (!IsDigit(c)) {
      break;
    }
    value = (value * 10 + static_cast<std::uint32_t>(c - '0')) & 0xFFFF;
  }
  return static_cast<std::uint16_t>(value);
}

// Reads a tone cell. Where tones are checked, one of the radio's own tones switches its mode on.
void ReadTone(const ImportSession& session, ImportRecord& record, std::uint16_t& tone,
              ToneMode mode, std::string_view text) {
  tone = ToneDigits(text);
  if (session.check_tones && FindTone(tone)) {
    record.tone_mode = mode;
  }
}

template <std::size_t N>
void StoreText(std::array<char, N>& target, std::string_view text) {
  target.fill('\0');
  std::copy_n(text.begin(), std::min(text.size(), N - 1), target.begin());
}

void ReadField(const ImportSession& session, ImportRecord& record, int field,
               std::string_view text) {
  switch (field) {
    case kRxFrequency:
      record.rx = ParseImportFrequency(text);
      break;
    case kTxFrequency:
      ReadTransmit(record, text);
      break;
    case kOffsetColumn:
      record.shift = ParseDirection(text);
      break;
    case kToneColumn:
      record.tone_mode = ToneModeOf(text);
      break;
    case kSkipColumn:
      record.skip |= text.starts_with('s') || text.starts_with('S');
      break;
    case kPowerColumn:
      record.power = PowerOf(text, record.power);
      break;
    case kEncFrequency:
      ReadTone(session, record, record.encode_tone, ToneMode::kEncode, text);
      break;
    case kDecFrequency:
      ReadTone(session, record, record.decode_tone, ToneMode::kSquelch, text);
      break;
    case kNameColumn:
      StoreText(record.name, text);
      break;
    case kCommentColumn:
      StoreText(record.comment, text);
      break;
    default:
      break;
  }
}

bool IsUsualOffset(Frequency value) {
  return std::find(kUsualOffsets.begin(), kUsualOffsets.end(), value) != kUsualOffsets.end();
}

// A transmit frequency at a usual distance is an offset with its direction, any other an odd split.
void ApplyDifference(ImportRecord& record) {
  if (IsUsualOffset(record.rx - record.tx)) {
    record.shift = Shift::kMinus;
    record.tx = record.rx - record.tx;
  } else if (IsUsualOffset(record.tx - record.rx)) {
    record.shift = Shift::kPlus;
    record.tx = record.tx - record.rx;
  } else {
    record.shift = Shift::kOddSplit;
  }
}

void ApplyDefaultOffset(ImportRecord& record) {
  record.tx = record.rx >= kImportUhf ? Megahertz(5) : Kilohertz(600);
}

void NormaliseShift(ImportRecord& record) {
  const bool absolute = record.tx > kLargestOffset;
  const bool needs_default = record.shift == Shift::kSimplex ? absolute && record.tx == record.rx
                                                             : record.tx == Frequency{};
  if (needs_default) {
    ApplyDefaultOffset(record);
  } else if (absolute) {
    ApplyDifference(record);
  }
}

}  // namespace

Frequency ParseImportFrequency(std::string_view text) {
  constexpr std::size_t kCharacters = 17;
  constexpr int kLargestMegahertz = 9'999;
  std::string typed = UpperCase(text.substr(0, kCharacters));
  const bool kilo = CutAt(typed, 'K');
  CutAt(typed, 'M');
  const std::size_t point = typed.find('.');
  const int fraction = point == std::string::npos ? 0 : FractionValue(typed.substr(point + 1));
  CutAt(typed, '.');
  const int integer = DecimalValue(typed);
  if (integer < 0 || fraction < 0) {
    return {};
  }
  const bool as_it_stands = kilo || (fraction == 0 && integer > kLargestMegahertz);
  const Frequency value =
      as_it_stands ? HundredHertz(integer) : Megahertz(integer) + HundredHertz(fraction);
  return std::min(value, HundredHertz(std::numeric_limits<int>::max()));
}

Shift ParseDirection(std::string_view text) {
  if (text.size() != 1) {
    return Shift::kSimplex;
  }
  switch (UpperCase(text.front())) {
    case 'M':
    case '1':
    case '-':
      return Shift::kMinus;
    case 'P':
    case '2':
    case '+':
      return Shift::kPlus;
    case 'S':
    case '3':
    case kPlusMinus:
      return Shift::kOddSplit;
    default:
      return Shift::kSimplex;
  }
}

ImportRecord ParseRecord(ImportSession& session, std::string_view line) {
  ImportRecord record;
  std::uint32_t column = 1;
  for (auto text = FirstField(session, line); text; text = NextField(session)) {
    if (const auto field = FieldOfColumn(session.columns, column)) {
      ReadField(session, record, *field, *text);
    }
    ++column;
  }
  NormaliseShift(record);
  return record;
}

}  // namespace qz7
