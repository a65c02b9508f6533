#include "core/image/channel_text.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <string>
#include <string_view>

#include "core/image/frequency_check.h"
#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

struct TextOf {
  Units value;
  const char* text;
};

TEST(FormatFrequency, IsMegahertzWithFourDecimalsInEightPlaces) {
  constexpr std::array kCases = {
      TextOf{1'455'000, "145.5000"},   TextOf{501'200, " 50.1200"},   TextOf{16'200, "  1.6200"},
      TextOf{0, "  0.0000"},           TextOf{1, "  0.0001"},         TextOf{9'990, "  0.9990"},
      TextOf{99'999, "  9.9999"},      TextOf{100'000, " 10.0000"},   TextOf{999'999, " 99.9999"},
      TextOf{1'000'000, "100.0000"},   TextOf{9'999'999, "999.9999"}, TextOf{1'450'125, "145.0125"},
      TextOf{10'000'000, "1000.0000"},
  };
  for (const TextOf& c : kCases) {
    EXPECT_EQ(FormatFrequency(c.value), c.text);
  }
}

TEST(FormatFrequency, IsNeverShorterThanEightCharacters) {
  for (Units f = 0; f <= 16'700'000; f += 101) {
    ASSERT_EQ(FormatFrequency(f).size(), f < 10'000'000 ? 8U : 9U) << f;
  }
}

TEST(FormatFrequency, ComesBackFromParsing) {
  for (Units f = 0; f <= 9'999'999; f += 7) {
    ASSERT_EQ(ParseFrequency(FormatFrequency(f)), f);
  }
}

TEST(FormatOffset, TellsKilohertzBelow999Point1AndWholeMegahertz) {
  constexpr std::array kCases = {
      TextOf{6'000, "600 kHz"},       TextOf{10'000, "1 MHz"},      TextOf{9'995, "0.9995 MHz"},
      TextOf{16'000, "1.6000 MHz"},   TextOf{12'500, "1.2500 MHz"}, TextOf{0, "0 kHz"},
      TextOf{100, "10 kHz"},          TextOf{9'900, "990 kHz"},     TextOf{9'950, "0.9950 MHz"},
      TextOf{9'990, "0.9990 MHz"},    TextOf{9'991, "0.9991 MHz"},  TextOf{30'000, "3 MHz"},
      TextOf{50'000, "5 MHz"},        TextOf{76'000, "7.6000 MHz"}, TextOf{990'000, "99 MHz"},
      TextOf{999'500, "99.9500 MHz"}, TextOf{10'100, "1.100 MHz"},  TextOf{19'900, "1.9900 MHz"},
      TextOf{6'125, "0.6125 MHz"},
  };
  for (const TextOf& c : kCases) {
    EXPECT_EQ(FormatOffset(c.value), c.text);
  }
}

TEST(FormatOffset, ShowsARemainderBelow1000InThreePlaces) {
  constexpr std::array kCases = {
      TextOf{10'500, "1.500 MHz"}, TextOf{10'050, "1.050 MHz"},  TextOf{10'005, "1.005 MHz"},
      TextOf{50, "0.050 MHz"},     TextOf{5, "0.005 MHz"},       TextOf{950, "0.950 MHz"},
      TextOf{20'999, "2.999 MHz"}, TextOf{21'000, "2.1000 MHz"},
  };
  for (const TextOf& c : kCases) {
    EXPECT_EQ(FormatOffset(c.value), c.text);
  }
}

TEST(FormatOffset, ComesBackFromParsingUnlessItsRemainderIsInThreePlaces) {
  for (Units v = 0; v <= 999'500; ++v) {
    const Units remainder = v % 10'000;
    const bool is_kilohertz = v % 100 == 0 && v < 9'991;
    const bool is_three_places = !is_kilohertz && remainder != 0 && remainder < 1'000;
    // Three places are read as the first three of four: 1.05 MHz shows as "1.500 MHz".
    const Units expected = is_three_places ? v - remainder + remainder * 10 : v;
    ASSERT_EQ(ParseOffset(FormatOffset(v)), expected) << v;
  }
}

struct Typed {
  std::string_view text;
  Units value;
};

void ExpectParsed(const Typed& c) { EXPECT_EQ(ParseFrequency(c.text), c.value) << c.text; }

TEST(ParseFrequency, TakesMegahertzAndKilohertz) {
  for (const Typed& c : {
           Typed{"145.5", 1'455'000},
           {"146520", 1'465'200},
           {"600k", 6'000},
           {"7.6", 76'000},
           {"9999", 99'990'000},
           {"10000", 100'000},
           {"145.5MHz", 1'455'000},
           {"600 KHz", 6'000},
           {"145", 1'450'000},
           {"145.", 1'450'000},
           {".5", 5'000},
           {"0.5", 5'000},
           {"1", 10'000},
           {"0", 0},
           {"9999.5", 99'995'000},
           {"145.0125", 1'450'125},
           {"146520.", 1'465'200},
           {"146520.0000", 1'465'200},
           {"10000.0001", 100'000'001},
           {"146520.5", 1'465'205'000},
       }) {
    ExpectParsed(c);
  }
}

TEST(ParseFrequency, CutsAtTheFirstKAndTheFirstM) {
  for (const Typed& c : {
           Typed{"600k", 6'000},
           {"600K", 6'000},
           {"600kHz", 6'000},
           {"600 khz", 6'000},
           {"600k5", 6'000},
           {"145.5m", 1'455'000},
           {"145.5 M", 1'455'000},
           {"145.5mhz", 1'455'000},
           {"145.5M9", 1'455'000},
           {"145m.5", 1'450'000},
           {"600k5M", 6'000},
           {"5M600k", 50},
           {"12345M", 123'450},
           {"1 MHz", 10'000},
           {"1 kHz", 10},
       }) {
    ExpectParsed(c);
  }
}

TEST(ParseFrequency, DropsTheFractionOfKilohertz) {
  ExpectParsed({"600.5k", 6'000});
  ExpectParsed({"145012.5 kHz", 1'450'120});
  ExpectParsed({".9k", 0});
}

TEST(ParseFrequency, PadsAndCutsTheFractionToFourDigits) {
  for (const Typed& c : {
           Typed{"145.1", 1'451'000},
           {"145.12", 1'451'200},
           {"145.123", 1'451'230},
           {"145.1234", 1'451'234},
           {"145.12349", 1'451'234},
           {"145.12340000", 1'451'234},
           {"145.0001", 1'450'001},
           {"145.00009", 1'450'000},
           {"145.5 ", 1'455'000},
           {"145.50   ", 1'455'000},
           {"145.05 MHz", 1'450'500},
           {"1.   ", 10'000},
       }) {
    ExpectParsed(c);
  }
}

TEST(ParseFrequency, SkipsLeadingBlanks) {
  ExpectParsed({"  1.6200", 16'200});
  ExpectParsed({" 50.1200", 501'200});
  ExpectParsed({"   145", 1'450'000});
  ExpectParsed({"  600 kHz", 6'000});
}

TEST(ParseFrequency, IsZeroForTextWithoutDigits) {
  for (const std::string_view text : {"", " ", "abc", ".", "k", "M", "kHz", "MHz", "...", "-", "-.",
                                      "\xB1", "\xFF\xFE", "K600", "m145.5"}) {
    ExpectParsed({text, 0});
  }
}

TEST(ParseFrequency, IsZeroForANegativePart) {
  for (const std::string_view text :
       {"-1", "-145.5", "-600k", "145.-5", "-1.-5", "-99999", " -5", "-99999999999999999"}) {
    ExpectParsed({text, 0});
  }
}

TEST(ParseFrequency, TakesTwentyCharactersAtMost) {
  for (const Typed& c : {
           Typed{"                   145.5", 10'000},  // the twentieth is the "1"
           {"                  145.5", 140'000},
           {"                    145.5", 0},
           {"00000000000000000145", 1'450'000},
           {"00000000000000000014552", 140'000},
           {"145.0000000000000000K", 1'450'000},
           {"145.000000000000000K", 1'450},
       }) {
    ExpectParsed(c);
  }
  EXPECT_EQ(ParseFrequency("7.6" + std::string(100'000, '0')), 76'000);
}

TEST(ParseFrequency, IsTheLargestFrequencyForHugeNumbers) {
  for (const Typed& c : {
           Typed{"214748364", 2'147'483'640},
           {"214748365", INT_MAX},
           {"999999999", INT_MAX},
           {"2147483648", INT_MAX},
           {"4294967296", INT_MAX},
           {"4294967296.5", INT_MAX},
           {"99999999999999999999", INT_MAX},
           {"9999999999999999999k", INT_MAX},
           {"9999999999999999999M", INT_MAX},
           {"300000.5", INT_MAX},
           {"214748.3647", INT_MAX},
           {"214748.3646", 2'147'483'646},
           {"18446744073709551616", INT_MAX},
           {"9223372036854775808", INT_MAX},
           {"214748364k", 2'147'483'640},
           {"18446744073709552.5", INT_MAX},
       }) {
    ExpectParsed(c);
  }
}

TEST(ParseOffset, DividesWhatIsAThousandMegahertzOrMore) {
  for (const Typed& c : {
           Typed{"5000", 50'000},
           {"1000", 10'000},
           {"999", 9'990'000},
           {"999.9999", 9'999'999},
           {"7600", 76'000},
           {"9999", 99'990},
           {"10000", 100'000},
           {"1600.5", 16'005},
           {"600", 6'000'000},
           {"600 kHz", 6'000},
           {"1 MHz", 10'000},
           {"1.6 MHz", 16'000},
           {"3 MHz", 30'000},
           {"5 MHz", 50'000},
           {"7.6 MHz", 76'000},
           {"1000000", 10'000},
           {"999999", 9'999'990},
           {"", 0},
           {"abc", 0},
           {"-5", 0},
       }) {
    EXPECT_EQ(ParseOffset(c.text), c.value) << c.text;
  }
}

TEST(ParseOffset, OfAHugeNumberIsNeverAnAcceptedOffset) {
  for (const std::string_view text : {"99999999999999999999", "99999999999999999999999999999",
                                      "9999999999999999999k", "999999999"}) {
    EXPECT_GT(ParseOffset(text), 999'500) << text;
    EXPECT_NE(CheckOffset(ParseOffset(text)), nullptr) << text;
  }
}

}  // namespace
}  // namespace qz7
