#include "core/link/line_error_count.h"

#include <gtest/gtest.h>

namespace qz7 {
namespace {

TEST(LineErrorCount, StartsAtTheDriversCount) {
  LineErrorCount errors;
  EXPECT_EQ(errors.Since(7), 0U);
  EXPECT_EQ(errors.Since(7), 0U);
}

TEST(LineErrorCount, TellsWhatHasComeSinceTheLastLook) {
  LineErrorCount errors;
  errors.Since(7);
  EXPECT_EQ(errors.Since(9), 2U);
  EXPECT_EQ(errors.Since(9), 0U);
  EXPECT_EQ(errors.Since(10), 1U);
}

TEST(LineErrorCount, TakesACountThatTheDriverDoesNotTellForNoError) {
  LineErrorCount errors;
  errors.Since(7);
  EXPECT_EQ(errors.Since(std::nullopt), 0U);
  EXPECT_EQ(errors.Since(8), 1U);
  LineErrorCount silent;
  EXPECT_EQ(silent.Since(std::nullopt), 0U);
}

TEST(LineErrorCount, GoesOnWhenTheCountStartsAgain) {
  LineErrorCount errors;
  errors.Since(~0U);
  EXPECT_EQ(errors.Since(1), 2U);
}

}  // namespace
}  // namespace qz7
