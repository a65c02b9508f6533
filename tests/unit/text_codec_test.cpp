#include "core/image/text_codec.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qz7 {
namespace {

// Windows-1252 from 0x80 on, written out as text. The five places that it leaves open are U+0081,
// U+008D, U+008F, U+0090 and U+009D.
constexpr std::string_view kUpperHalf =
    "€\xC2\x81‚ƒ„…†‡ˆ‰Š‹Œ\xC2\x8DŽ\xC2\x8F"
    "\xC2\x90‘’“”•–—˜™š›œ\xC2\x9DžŸ"
    "\xC2\xA0¡¢£¤¥¦§¨©ª«¬\xC2\xAD®¯°±²³´µ¶·¸¹º»¼½¾¿"
    "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ";
constexpr std::string_view kOpenPlaces = "\x81\x8D\x8F\x90\x9D";

// A text in UTF-8 cut into its characters.
std::vector<std::string> Characters(std::string_view text) {
  std::vector<std::string> characters;
  for (const char c : text) {
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) {
      characters.emplace_back();
    }
    characters.back() += c;
  }
  return characters;
}

// The character of every byte.
std::vector<std::string> CodePage() {
  std::vector<std::string> characters;
  for (int code = 0; code < 0x80; ++code) {
    characters.emplace_back(1, static_cast<char>(code));
  }
  const std::vector<std::string> upper = Characters(kUpperHalf);
  characters.insert(characters.end(), upper.begin(), upper.end());
  return characters;
}

std::string Byte(std::size_t code) { return {static_cast<char>(code)}; }

TEST(TextCodec, GivesEveryByteItsCharacterAndBack) {
  const std::vector<std::string> page = CodePage();
  ASSERT_EQ(page.size(), 256U);
  for (std::size_t code = 0; code < page.size(); ++code) {
    EXPECT_EQ(ToUtf8(Byte(code)), page[code]) << code;
    const EncodedText encoded = FromUtf8(page[code]);
    EXPECT_EQ(encoded.bytes, Byte(code)) << code;
    EXPECT_EQ(encoded.unknown, "") << code;
  }
}

TEST(TextCodec, TakesATextAsAWhole) {
  EXPECT_EQ(ToUtf8("B\xE4r \x80"
                   "5\xB1"),
            "Bär €5±");
  EXPECT_EQ(FromUtf8("Bär €5±").bytes,
            "B\xE4r \x80"
            "5\xB1");
  EXPECT_EQ(FromUtf8Lossy("Bär €5±"),
            "B\xE4r \x80"
            "5\xB1");
  EXPECT_EQ(FromUtf8("").bytes, "");
  EXPECT_EQ(kPlusMinus, FromUtf8("±").bytes[0]);
}

TEST(TextCodec, KeepsTheFivePlacesThatTheCodePageLeavesOpenButInALossyText) {
  const std::vector<std::string> page = CodePage();
  for (std::size_t code = 0; code < page.size(); ++code) {
    const bool open = kOpenPlaces.find(static_cast<char>(code)) != std::string_view::npos;
    EXPECT_EQ(FromUtf8Lossy(page[code]), open ? "?" : Byte(code)) << code;
  }
}

TEST(TextCodec, NamesTheFirstCharacterWithoutAByte) {
  const EncodedText encoded = FromUtf8("é1Ω2Ж");
  EXPECT_EQ(encoded.bytes,
            "\xE9"
            "1");
  EXPECT_EQ(encoded.unknown, "Ω");
  EXPECT_EQ(FromUtf8("😀").unknown, "😀");
  EXPECT_EQ(FromUtf8("Ā").unknown, "Ā");  // the first one behind the single bytes
  EXPECT_EQ(FromUtf8Lossy("é1Ω2😀Ā"),
            "\xE9"
            "1?2??");
}

TEST(TextCodec, HasNoByteForControlCharactersWhosePlacesAreTaken) {
  EXPECT_EQ(FromUtf8("\xC2\x80").unknown, "\xC2\x80");
  EXPECT_EQ(FromUtf8("\xC2\x9F").unknown, "\xC2\x9F");
  EXPECT_EQ(FromUtf8Lossy("\xC2\x80\xC2\x9F"), "??");
}

TEST(TextCodec, NamesAByteThatIsNoUtf8) {
  for (const char* bad : {"\x80", "\xBF", "\xC3", "\xFF", "\xE2\x82", "\xF0\x9F\x98"}) {
    EXPECT_EQ(FromUtf8(bad).unknown, std::string(bad).substr(0, 1));
  }
  EXPECT_EQ(FromUtf8("a\x80z").bytes, "a");
  EXPECT_EQ(FromUtf8Lossy("a\x80z\xE2\x82"), "a?z??");
}

TEST(TextCodec, TakesNoLeadByteBeyondUnicode) {
  EXPECT_EQ(FromUtf8Lossy("\xF5\x80\x80\x80"), "????");
  EXPECT_EQ(FromUtf8Lossy("\xF6\x80\x80\x80"), "????");
  EXPECT_EQ(FromUtf8Lossy("\xF7\x80\x80\x80"), "????");
  EXPECT_EQ(FromUtf8Lossy("\xF4\x80\x80\x80"), "?");
}

TEST(TextCodec, TakesNoOtherLeadByteForTheRestOfACharacter) {
  EXPECT_EQ(FromUtf8Lossy("\xC3\xE9"), "??");
  EXPECT_EQ(FromUtf8Lossy("\xC3\xC3\xA9"), "?\xE9");
  EXPECT_EQ(FromUtf8Lossy("\xE2\x82\xEC"), "???");
  EXPECT_EQ(FromUtf8Lossy("\xC3"
                          "A"),
            "?A");
}

TEST(TextCodec, TakesNoCharacterInMoreBytesThanItNeeds) {
  EXPECT_EQ(FromUtf8Lossy("\xC0\x80\xC1\x81"), "????");
  EXPECT_EQ(FromUtf8Lossy("\xE0\x82\xA9"), "???");
  EXPECT_EQ(FromUtf8Lossy("\xF0\x80\x82\xA9"), "????");
}

TEST(UpperCase, IsThatOfEveryLetterOfTheCodePage) {
  const std::vector<std::string> lower =
      Characters("abcdefghijklmnopqrstuvwxyzàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþšœžÿ");
  const std::vector<std::string> upper =
      Characters("ABCDEFGHIJKLMNOPQRSTUVWXYZÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞŠŒŽŸ");
  ASSERT_EQ(lower.size(), upper.size());
  for (const std::string& character : CodePage()) {
    const auto place = std::find(lower.begin(), lower.end(), character);
    const std::string expected =
        place == lower.end() ? character : upper[static_cast<std::size_t>(place - lower.begin())];
    EXPECT_EQ(ToUtf8(UpperCase(FromUtf8(character).bytes)), expected);
  }
}

TEST(UpperCase, OfATextIsThatOfItsLetters) {
  EXPECT_EQ(UpperCase(FromUtf8("Straße 7, œuvre÷").bytes), FromUtf8("STRAßE 7, ŒUVRE÷").bytes);
}

TEST(ControlBytes, AreThoseBelowTheBlankDeleteAndTheOpenPlaces) {
  const std::set<int> open = {0x81, 0x8D, 0x8F, 0x90, 0x9D};
  for (int code = 0; code < 256; ++code) {
    EXPECT_EQ(IsControl(static_cast<char>(code)), code < 32 || code == 127 || open.count(code) != 0)
        << code;
  }
}

TEST(IdentifierCode, IsThePlaceInItsAlphabet) {
  constexpr std::string_view kAlphabet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ ()+-=*/";
  int known = 0;
  for (int code = 0; code < 256; ++code) {
    known += IdentifierCode(static_cast<char>(code)).has_value() ? 1 : 0;
  }
  EXPECT_EQ(known, 44);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
    EXPECT_EQ(IdentifierCode(kAlphabet[i]), i);
  }
}

TEST(DtmfCode, IsThePlaceInItsAlphabet) {
  constexpr std::string_view kAlphabet = "0123456789ABCDEF";
  int known = 0;
  for (int code = 0; code < 256; ++code) {
    known += DtmfCode(static_cast<char>(code)).has_value() ? 1 : 0;
  }
  EXPECT_EQ(known, 16);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
    EXPECT_EQ(DtmfCode(kAlphabet[i]), i);
  }
}

}  // namespace
}  // namespace qz7
