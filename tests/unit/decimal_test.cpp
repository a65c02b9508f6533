#include "core/image/decimal.h"

#include <gtest/gtest.h>

namespace qz7 {
namespace {

TEST(DecimalValue, ReadsWhatATextBeginsWith) {
  EXPECT_EQ(DecimalValue("42"), 42);
  EXPECT_EQ(DecimalValue(" -7 channels"), -7);
  EXPECT_EQ(DecimalValue("+5"), 5);
  EXPECT_EQ(DecimalValue(""), 0);
  EXPECT_EQ(DecimalValue("ten"), 0);
}

TEST(DecimalValue, StaysInItsRange) {
  EXPECT_EQ(DecimalValue("2147483647"), 2'147'483'647);
  EXPECT_EQ(DecimalValue("2147483648"), 2'147'483'647);
  EXPECT_EQ(DecimalValue("-99999999999999999999"), -2'147'483'647 - 1);
}

TEST(DecimalValue, SkipsEveryKindOfBlank) { EXPECT_EQ(DecimalValue(" \t\n\v\f\r7"), 7); }

TEST(DecimalValue, ReadsEveryDigitUpToTheFirstOtherCharacter) {
  EXPECT_EQ(DecimalValue("0908172635 "), 908'172'635);
  EXPECT_EQ(DecimalValue("4/5"), 4);
  EXPECT_EQ(DecimalValue("4:5"), 4);
}

TEST(DecimalValue, IsZeroForASignWithoutADigit) {
  EXPECT_EQ(DecimalValue("-"), 0);
  EXPECT_EQ(DecimalValue("+"), 0);
  EXPECT_EQ(DecimalValue("- 5"), 0);
  EXPECT_EQ(DecimalValue("+-5"), 0);
  EXPECT_EQ(DecimalValue("   "), 0);
}

TEST(HasDigit, FindsOneAnywhere) {
  EXPECT_TRUE(HasDigit("0"));
  EXPECT_TRUE(HasDigit("x 9"));
  EXPECT_FALSE(HasDigit("x./:"));
  EXPECT_FALSE(HasDigit(""));
}

}  // namespace
}  // namespace qz7
