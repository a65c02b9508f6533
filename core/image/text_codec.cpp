#include "core/image/text_codec.h"

#include <algorithm>
#include <array>

namespace qz7 {
namespace {

// What Windows-1252 has at 0x80..0x9F; 0 where it has nothing.
constexpr std::array<char32_t, 32> kUpperControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
constexpr unsigned kFirstUpperControl = 0x80;
constexpr unsigned kFirstLatin1 = 0xA0;

char32_t CharacterOf(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  if (code < kFirstUpperControl || code >= kFirstLatin1) {
    return code;
  }
  const char32_t character = kUpperControls[code - kFirstUpperControl];
  return character == 0 ? code : character;
}

// The byte of a character that Windows-1252 has.
std::optional<char> ByteOf(char32_t character) {
  if (character < kFirstUpperControl || (character >= kFirstLatin1 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto* place = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  if (place == kUpperControls.end()) {
    return std::nullopt;
  }
  return static_cast<char>(kFirstUpperControl +
                           static_cast<unsigned>(place - kUpperControls.begin()));
}

bool IsOpenPlace(char32_t character) {
  return character >= kFirstUpperControl && character < kFirstLatin1 &&
         kUpperControls[character - kFirstUpperControl] == 0;
}

void AppendUtf8(std::string& text, char32_t character) {
  const auto tail = [&](int shift) {
    text += static_cast<char>(0x80 | (character >> shift & 0x3F));
  };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0 | character >> 6);
    tail(0);
  } else {
    text += static_cast<char>(0xE0 | character >> 12);
    tail(6);
    tail(0);
  }
}

struct Decoded {
  char32_t character;  // kNoCharacter for a byte that is part of none
  std::size_t bytes;
};
constexpr char32_t kNoCharacter = 0xFFFFFFFF;

// How many bytes a character takes by its first one; 0 for a byte that starts none.
std::size_t SequenceLength(unsigned char first) {
  if (first < 0x80) {
    return 1;
  }
  if (first < 0xC2 || first > 0xF4) {
    return 0;
  }
  if (first < 0xE0) {
    return 2;
  }
  return first < 0xF0 ? 3 : 4;
}

// The first character of a UTF-8 text.
Decoded DecodeUtf8(std::string_view text) {
  constexpr Decoded kBadByte = {kNoCharacter, 1};
  constexpr std::array<char32_t, 5> kLowest = {0, 0, 0x80, 0x800, 0x10000};
  constexpr std::array<unsigned, 5> kFirstBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t length = SequenceLength(first);
  if (length == 0 || length > text.size()) {
    return kBadByte;
  }
  char32_t character = first & kFirstBits[length];
  for (const char c : text.substr(1, length - 1)) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0) != 0x80) {
      return kBadByte;
    }
    character = character << 6 | (byte & 0x3FU);
  }
  return character < kLowest[length] ? kBadByte : Decoded{character, length};
}

std::optional<std::uint8_t> PlaceIn(std::string_view set, char c) {
  const std::size_t place = set.find(c);
  return place < set.size() ? std::optional(static_cast<std::uint8_t>(place)) : std::nullopt;
}

}  // namespace

std::string ToUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    AppendUtf8(text, CharacterOf(byte));
  }
  return text;
}

EncodedText FromUtf8(std::string_view text) {
  EncodedText encoded;
  while (!text.empty()) {
    const auto [character, bytes] = DecodeUtf8(text);
    std::optional<char> byte = ByteOf(character);
    if (!byte && IsOpenPlace(character)) {
      byte = static_cast<char>(character);
    }
    if (!byte) {
      encoded.unknown = text.substr(0, bytes);
      return encoded;
    }
    encoded.bytes += *byte;
    text.remove_prefix(bytes);
  }
  return encoded;
}

std::string FromUtf8Lossy(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const Decoded next = DecodeUtf8(text);
    bytes += ByteOf(next.character).value_or('?');
    text.remove_prefix(next.bytes);
  }
  return bytes;
}

char UpperCase(char c) {
  const auto code = static_cast<unsigned char>(c);
  const bool ascii = code >= 'a' && code <= 'z';
  const bool latin = code >= 0xE0 && code <= 0xFE && code != 0xF7;  // 0xF7 is the division sign
  if (ascii || latin) {
    return static_cast<char>(code - 0x20);
  }
  switch (code) {
    case 0x9A:  // š
    case 0x9C:  // œ
    case 0x9E:  // ž
      return static_cast<char>(code - 0x10);
    case 0xFF:  // ÿ
      return '\x9F';
    default:
      return c;
  }
}

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) { return UpperCase(c); });
  return upper;
}

std::optional<std::uint8_t> IdentifierCode(char c) { return PlaceIn(kIdentifierCharacters, c); }
std::optional<std::uint8_t> DtmfCode(char c) { return PlaceIn(kDtmfDigits, c); }

}  // namespace qz7
