#include <gtest/gtest.h>

#include <string>

#include "core/interchange/import_reader.h"
#include "tests/unit/plain_numbers.h"

namespace qz7 {
namespace {

TEST(ImportFrequency, ReadsMegahertzWithFourDecimals) {
  EXPECT_EQ(ParseImportFrequency("146.52"), 1'465'200U);
  EXPECT_EQ(ParseImportFrequency("146.5255"), 1'465'255U);
  EXPECT_EQ(ParseImportFrequency("146.52555"), 1'465'255U);
  EXPECT_EQ(ParseImportFrequency("146"), 1'460'000U);
  EXPECT_EQ(ParseImportFrequency("5"), 50'000U);
  EXPECT_EQ(ParseImportFrequency("0.5"), 5'000U);
  EXPECT_EQ(ParseImportFrequency(".6"), 6'000U);
  EXPECT_EQ(ParseImportFrequency("146."), 1'460'000U);
}

TEST(ImportFrequency, TakesLargeIntegersAsTheyStand) {
  EXPECT_EQ(ParseImportFrequency("1465200"), 1'465'200U);
  EXPECT_EQ(ParseImportFrequency("9999"), 99'990'000U);
  EXPECT_EQ(ParseImportFrequency("10000"), 10'000U);
  EXPECT_EQ(ParseImportFrequency("10000.0000"), 10'000U);
  EXPECT_EQ(ParseImportFrequency("10000.0001"), 100'000'001U);
}

TEST(ImportFrequency, DoesNotScaleKilohertz) {
  EXPECT_EQ(ParseImportFrequency("600K"), 600U);
  EXPECT_EQ(ParseImportFrequency("600 kHz"), 600U);
  EXPECT_EQ(ParseImportFrequency("12.5k"), 12U);
  EXPECT_EQ(ParseImportFrequency("146520K"), 146'520U);
}

TEST(ImportFrequency, CutsTheUnit) {
  EXPECT_EQ(ParseImportFrequency("146M"), 1'460'000U);
  EXPECT_EQ(ParseImportFrequency("146.52 MHz"), 1'465'200U);
  EXPECT_EQ(ParseImportFrequency("146.52mhz"), 1'465'200U);
  EXPECT_EQ(ParseImportFrequency("5M6K"), 5U);
}

TEST(ImportFrequency, TakesNothingForNegativeNumbers) {
  EXPECT_EQ(ParseImportFrequency("-5"), 0U);
  EXPECT_EQ(ParseImportFrequency("-146.52"), 0U);
  EXPECT_EQ(ParseImportFrequency("146.-5"), 0U);
  EXPECT_EQ(ParseImportFrequency("-5K"), 0U);
}

TEST(ImportFrequency, IgnoresBlanksAroundTheNumber) {
  EXPECT_EQ(ParseImportFrequency(" 146.52 "), 1'465'200U);
  EXPECT_EQ(ParseImportFrequency("146.5  "), 1'465'000U);
  EXPECT_EQ(ParseImportFrequency("146.   "), 1'460'000U);
  EXPECT_EQ(ParseImportFrequency("146.5 2"), 1'460'005U);
}

TEST(ImportFrequency, IsNothingForOtherTexts) {
  EXPECT_EQ(ParseImportFrequency(""), 0U);
  EXPECT_EQ(ParseImportFrequency("abc"), 0U);
  EXPECT_EQ(ParseImportFrequency("RX"), 0U);
}

TEST(ImportFrequency, ReadsTheFirst17Characters) {
  EXPECT_EQ(ParseImportFrequency("            146.5"), 1'465'000U);
  EXPECT_EQ(ParseImportFrequency("             146.5"), 1'460'000U);
  EXPECT_EQ(ParseImportFrequency("                146.5"), 10'000U);
}

TEST(ImportFrequency, StaysAtItsLargestValueForLongNumbers) {
  EXPECT_EQ(ParseImportFrequency("99999999999999999"), 0x7FFFFFFFU);
  EXPECT_EQ(ParseImportFrequency("9999999999999.5"), 0x7FFFFFFFU);
}

TEST(ImportDirection, ReadsItsFourMarksForEachDirection) {
  for (const char* text : {"m", "M", "1", "-"}) {
    EXPECT_EQ(ParseDirection(text), 1) << text;
  }
  for (const char* text : {"p", "P", "2", "+"}) {
    EXPECT_EQ(ParseDirection(text), 2) << text;
  }
  for (const char* text : {"s", "S", "3", "\xB1"}) {
    EXPECT_EQ(ParseDirection(text), 3) << text;
  }
}

TEST(ImportDirection, IsSimplexForAnythingElse) {
  for (const char* text : {"", "0", "4", " ", "x", "--", "-5", "minus", "+ ", "\xC2\xB1"}) {
    EXPECT_EQ(ParseDirection(text), 0) << text;
  }
}

}  // namespace
}  // namespace qz7
