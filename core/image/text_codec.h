#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qz7 {

// What the single bytes of the radio's and the files' texts mean: Windows-1252, where 0xB1 is "±".
// The radio draws symbols of its own at 0x10, 0x16, 0x97 and 0x9A, which have no characters:
// outside the radio they are what Windows-1252 has there. The five bytes that it leaves open stand
// for the control characters of the same numbers.

inline constexpr char kPlusMinus = '\xB1';  // the mark of an odd split

// The codes of the VORN identifier are places in this set; those of DTMF digits places in its
// start.
inline constexpr std::string_view kIdentifierCharacters =
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ ()+-=*/";
inline constexpr std::string_view kDtmfDigits = kIdentifierCharacters.substr(0, 16);

// Each byte as its character.
std::string ToUtf8(std::string_view bytes);

// The bytes of a text. `unknown` is the first character that has no byte, or a byte that is no
// UTF-8, as it stands in the text; empty where every one has: only then `bytes` is all of it.
struct EncodedText {
  std::string bytes;
  std::string unknown;
};
EncodedText FromUtf8(std::string_view text);
// The same with "?" for what Windows-1252 lacks.
std::string FromUtf8Lossy(std::string_view text);

// Upper case for every letter of the code page that has one there. Letters without one stay.
char UpperCase(char c);
std::string UpperCase(std::string_view text);

// A byte that moves the cursor or worse instead of showing something; the open places, too.
constexpr bool IsControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  constexpr std::string_view kOpenPlaces = "\x81\x8D\x8F\x90\x9D";
  return code < 0x20 || code == 0x7F || kOpenPlaces.find(c) != std::string_view::npos;
}

// The code of an identifier's character (upper case) and of a DTMF digit; nothing for any other.
std::optional<std::uint8_t> IdentifierCode(char c);
std::optional<std::uint8_t> DtmfCode(char c);

}  // namespace qz7
