#include "core/image/blanks.h"

#include <gtest/gtest.h>

namespace qz7 {
namespace {

TEST(Blanks, InFrontGoAndTheOthersStay) {
  EXPECT_EQ(WithoutLeadingBlanks("  145.0 MHz "), "145.0 MHz ");
  EXPECT_EQ(WithoutLeadingBlanks("L1"), "L1");
  EXPECT_EQ(WithoutLeadingBlanks("\t x"), "\t x");
  EXPECT_EQ(WithoutLeadingBlanks("   "), "");
  EXPECT_EQ(WithoutLeadingBlanks(""), "");
}

TEST(Blanks, AtBothEndsGo) {
  EXPECT_EQ(WithoutOuterBlanks("  a b  "), "a b");
  EXPECT_EQ(WithoutOuterBlanks("\ta "), "\ta");
  EXPECT_EQ(WithoutOuterBlanks("\ta \t", " \t"), "a");
  EXPECT_EQ(WithoutOuterBlanks("   "), "");
  EXPECT_EQ(WithoutOuterBlanks(""), "");
}

}  // namespace
}  // namespace qz7
