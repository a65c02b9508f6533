#include "core/interchange/list_values.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "core/image/text_codec.h"

namespace qz7 {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return c >= 'A' && c <= 'Z'; }

// Upper case, without blanks.
std::string Plain(std::string_view cell) {
  std::string text = UpperCase(cell);
  std::erase_if(text, [](char c) { return c == ' ' || c == '\t'; });
  return text;
}

// A decimal number in millionths. A comma is its point where there is no other.
struct Number {
  std::int64_t millionths = 0;
  std::string unit;  // the letters behind it
};

std::optional<Number> ParseNumber(std::string_view cell) {
  std::string text = Plain(cell);
  if (text.find('.') == std::string::npos) {
    std::replace(text.begin(), text.end(), ',', '.');
  }
  const std::size_t start = text.find_first_of("0123456789");
  if (start == std::string::npos) {
    return std::nullopt;
  }
  constexpr std::int64_t kMost = 1'000'000'000'000;
  Number number;
  std::size_t at = start;
  for (; at < text.size() && (IsDigit(text[at]) || text[at] == ','); ++at) {
    if (text[at] != ',') {
      number.millionths = std::min(number.millionths * 10 + (text[at] - '0'), kMost);
    }
  }
  number.millionths *= 1'000'000;
  if (at < text.size() && text[at] == '.') {
    std::int64_t place = 100'000;
    for (++at; at < text.size() && IsDigit(text[at]); ++at, place /= 10) {
      number.millionths += (text[at] - '0') * place;
    }
  }
  for (; at < text.size() && IsLetter(text[at]); ++at) {
    number.unit += text[at];
  }
  return number;
}

// In hertz, by a unit; nothing without one.
std::optional<std::int64_t> HertzByUnit(const Number& number) {
  if (number.unit.starts_with('M')) {
    return number.millionths;
  }
  if (number.unit.starts_with('K')) {
    return number.millionths / 1000;
  }
  return number.unit == "HZ" ? std::optional(number.millionths / 1'000'000) : std::nullopt;
}

Frequency OfHertz(std::int64_t hertz) { return HundredHertz((hertz + 50) / 100); }

// Without a unit: megahertz below the first border, kilohertz below the second.
std::optional<Frequency> ParseWith(std::string_view cell, std::int64_t megahertz_below,
                                   std::int64_t kilohertz_below) {
  const std::optional<Number> number = ParseNumber(cell);
  if (!number) {
    return std::nullopt;
  }
  if (const auto hertz = HertzByUnit(*number)) {
    return OfHertz(*hertz);
  }
  const std::int64_t whole = number->millionths / 1'000'000;
  if (whole < megahertz_below) {
    return OfHertz(number->millionths);
  }
  return OfHertz(whole < kilohertz_below ? number->millionths / 1000 : whole);
}

struct Word {
  std::string_view text;
  Shift shift;
};
constexpr std::array<Word, 26> kDirections = {{
    {"-", Shift::kMinus},         {"MINUS", Shift::kMinus},  {"NEG", Shift::kMinus},
    {"NEGATIVE", Shift::kMinus},  {"DOWN", Shift::kMinus},   {"DUP-", Shift::kMinus},
    {"-DUP", Shift::kMinus},      {"M", Shift::kMinus},      {"(-)", Shift::kMinus},
    {"+", Shift::kPlus},          {"PLUS", Shift::kPlus},    {"POS", Shift::kPlus},
    {"POSITIVE", Shift::kPlus},   {"UP", Shift::kPlus},      {"DUP+", Shift::kPlus},
    {"+DUP", Shift::kPlus},       {"P", Shift::kPlus},       {"(+)", Shift::kPlus},
    {"SPLIT", Shift::kOddSplit},  {"ODD", Shift::kOddSplit}, {"S", Shift::kSimplex},
    {"SIMPLEX", Shift::kSimplex}, {"NONE", Shift::kSimplex}, {"OFF", Shift::kSimplex},
    {"SPX", Shift::kSimplex},     {"NO", Shift::kSimplex},
}};

struct ModeWord {
  std::string_view text;
  ToneMode mode;
};
constexpr std::array<ModeWord, 23> kToneModes = {{
    {"NONE", ToneMode::kNone},
    {"OFF", ToneMode::kNone},
    {"NO", ToneMode::kNone},
    {"CSQ", ToneMode::kNone},
    {"-", ToneMode::kNone},
    {"CARRIER", ToneMode::kNone},
    {"TONE", ToneMode::kEncode},
    {"ENC", ToneMode::kEncode},
    {"ENCODE", ToneMode::kEncode},
    {"TONEENC", ToneMode::kEncode},
    {"TONEENCODE", ToneMode::kEncode},
    {"T", ToneMode::kEncode},
    {"E", ToneMode::kEncode},
    {"TSQL", ToneMode::kSquelch},
    {"TSQ", ToneMode::kSquelch},
    {"ED", ToneMode::kSquelch},
    {"TONESQUELCH", ToneMode::kSquelch},
    {"TONESQL", ToneMode::kSquelch},
    {"CTCSS", ToneMode::kSquelch},
    {"ENCDEC", ToneMode::kSquelch},
    {"DCS", ToneMode::kDcs},
    {"DTCS", ToneMode::kDcs},
    {"DPL", ToneMode::kDcs},
}};

}  // namespace

std::optional<Frequency> ParseListFrequency(std::string_view cell) {
  return ParseWith(cell, 2'000, 10'000'000);
}

std::optional<Frequency> ParseListOffset(std::string_view cell) {
  return ParseWith(cell, 100, 100'000);
}

std::optional<Shift> ParseListDirection(std::string_view cell) {
  const std::string text = Plain(cell);
  if (text.empty()) {
    return std::nullopt;
  }
  const auto* word = std::find_if(kDirections.begin(), kDirections.end(),
                                  [&](const Word& known) { return known.text == text; });
  if (word != kDirections.end()) {
    return word->shift;
  }
  const bool has_number = text.find_first_of("0123456789") != std::string::npos;
  for (const char sign :
       has_number ? std::array{text.front(), text.back()} : std::array{' ', ' '}) {
    if (sign == '-' || sign == '+') {
      return sign == '-' ? Shift::kMinus : Shift::kPlus;
    }
  }
  return std::nullopt;
}

ListTone ParseListTone(std::string_view cell) {
  const std::string text = Plain(cell);
  const std::optional<Number> number = ParseNumber(text);
  if (!number || number->millionths == 0) {
    return {};
  }
  if (text.front() == 'D' || text.find("DCS") != std::string::npos) {
    return {.is_code = true};
  }
  constexpr int kHighestTone = 255;
  const auto tenths =
      static_cast<int>(std::min<std::int64_t>(number->millionths / 100'000, 65'535));
  // Tenths of a hertz without their point: no tone is that high.
  const int value = tenths > kHighestTone * 10 ? tenths / 10 : tenths;
  return FindTone(value) ? ListTone{.tenths_of_hertz = value} : ListTone{.is_unknown = true};
}

std::optional<ToneMode> ParseListToneMode(std::string_view cell) {
  const std::string text = Plain(cell);
  const auto* word = std::find_if(kToneModes.begin(), kToneModes.end(),
                                  [&](const ModeWord& known) { return known.text == text; });
  if (text.empty()) {
    return ToneMode::kNone;
  }
  return word != kToneModes.end() ? std::optional(word->mode) : std::nullopt;
}

std::string PlainHeader(std::string_view cell) {
  std::string plain;
  for (const char c : Plain(cell.substr(0, cell.find('(')))) {
    if (IsLetter(c) || IsDigit(c)) {
      plain += IsLetter(c) ? static_cast<char>(c - 'A' + 'a') : c;
    }
  }
  return plain;
}

}  // namespace qz7
