#include "core/interchange/import_reader.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

#include "core/image/channel_record.h"
#include "core/interchange/decimal.h"
#include "core/interchange/field_splitter.h"

namespace qz7 {
namespace {

// A transmit cell up to this value is an offset, above it a frequency.
constexpr std::uint32_t kLargestOffset = 995'000;
constexpr std::array<std::int64_t, 6> kUsualOffsets = {6'000,  10'000, 16'000,
                                                       30'000, 50'000, 76'000};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

char UpperCase(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

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
  const int direction = ParseDirection(text);
  if (direction != kSimplex) {
    record.shift = direction;
  } else {
    record.tx = ParseImportFrequency(text);
  }
}

int ToneModeOf(std::string_view text) {
  if (!text.empty() && IsDigit(text.front())) {
    const int mode = text.front() - '0';
    return mode <= kToneDcs ? mode : kToneNone;
  }
  if (text.starts_with("ED")) {
    return kToneSquelch;
  }
  if (text.starts_with('E')) {
    return kToneEncode;
  }
  return text.starts_with("DCS") ? kToneDcs : kToneNone;
}

// The power that a cell names; what it held before for a text that names none.
int PowerOf(std::string_view text, int before) {
  switch (text.empty() ? 'L' : UpperCase(text.front())) {
    case 'L':
      return kImportLow;
    case 'M':
    case '\x01':
      return kImportMid;
    case 'H':
    case '\x02':
      return kImportHigh;
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
void ReadTone(const ImportSession& session, ImportRecord& record, std::uint16_t& tone, int mode,
              std::string_view text) {
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
    case kOffsetField:
      record.shift = ParseDirection(text);
      break;
    case kToneField:
      record.tone_mode = ToneModeOf(text);
      break;
    case kSkipField:
      record.skip |= text.starts_with('s') || text.starts_with('S');
      break;
    case kPowerField:
      record.power = PowerOf(text, record.power);
      break;
    case kEncFrequency:
      ReadTone(session, record, record.encode_tone, kToneEncode, text);
      break;
    case kDecFrequency:
      ReadTone(session, record, record.decode_tone, kToneSquelch, text);
      break;
    case kNameField:
      StoreText(record.name, text);
      break;
    case kCommentField:
      StoreText(record.comment, text);
      break;
    default:
      break;
  }
}

bool IsUsualOffset(std::int64_t value) {
  return std::find(kUsualOffsets.begin(), kUsualOffsets.end(), value) != kUsualOffsets.end();
}

// A transmit frequency at a usual distance is an offset with its direction, any other an odd split.
void ApplyDifference(ImportRecord& record) {
  const std::int64_t difference = std::int64_t{record.rx} - record.tx;
  if (IsUsualOffset(difference)) {
    record.shift = kMinus;
    record.tx = static_cast<std::uint32_t>(difference);
  } else if (IsUsualOffset(-difference)) {
    record.shift = kPlus;
    record.tx = static_cast<std::uint32_t>(-difference);
  } else {
    record.shift = kOddSplit;
  }
}

void ApplyDefaultOffset(ImportRecord& record) {
  constexpr std::uint32_t kUhfOffset = 50'000;
  constexpr std::uint32_t kVhfOffset = 6'000;
  record.tx = record.rx >= kImportUhf ? kUhfOffset : kVhfOffset;
}

void NormaliseShift(ImportRecord& record) {
  const bool absolute = record.tx > kLargestOffset;
  const bool needs_default =
      record.shift == kSimplex ? absolute && record.tx == record.rx : record.tx == 0;
  if (needs_default) {
    ApplyDefaultOffset(record);
  } else if (absolute) {
    ApplyDifference(record);
  }
}

}  // namespace

std::uint32_t ParseImportFrequency(std::string_view text) {
  constexpr std::size_t kCharacters = 17;
  constexpr std::int64_t kLargestMegahertz = 9'999;
  constexpr std::int64_t kLargest = 0x7FFFFFFF;
  std::string typed(text.substr(0, kCharacters));
  std::transform(typed.begin(), typed.end(), typed.begin(), UpperCase);
  const bool kilo = CutAt(typed, 'K');
  CutAt(typed, 'M');
  const std::size_t point = typed.find('.');
  const int fraction = point == std::string::npos ? 0 : FractionValue(typed.substr(point + 1));
  CutAt(typed, '.');
  const std::int64_t integer = DecimalValue(typed);
  if (integer < 0 || fraction < 0) {
    return 0;
  }
  const bool as_it_stands = kilo || (fraction == 0 && integer > kLargestMegahertz);
  const std::int64_t value = as_it_stands ? integer : integer * kMegahertz + fraction;
  return static_cast<std::uint32_t>(std::min(value, kLargest));
}

int ParseDirection(std::string_view text) {
  if (text.size() != 1) {
    return kSimplex;
  }
  switch (UpperCase(text.front())) {
    case 'M':
    case '1':
    case '-':
      return kMinus;
    case 'P':
    case '2':
    case '+':
      return kPlus;
    case 'S':
    case '3':
    case '\xB1':
      return kOddSplit;
    default:
      return kSimplex;
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
