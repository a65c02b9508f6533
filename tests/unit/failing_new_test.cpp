#include "tests/unit/failing_new.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/clone_write_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {

namespace {

using CloneWriteWithoutMemory = OpenedWrite;

TEST_F(CloneWriteWithoutMemory, SaysSoAndEndsWithMinus1) {
  nothrow_new_fails = true;
  Start();
  nothrow_new_fails = false;
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Out of memory"});
  EXPECT_EQ(write_.ended, -1);
  EXPECT_FALSE(write_.polling);
  EXPECT_TRUE(line_.sent.empty());
}

TEST_F(CloneWriteWithoutMemory, MissesTheTemplatesNameFirst) {
  nothrow_new_fails = true;
  StartCloneWrite(write_, line_, "");
  nothrow_new_fails = false;
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text.substr(0, 27), "No template file specified.");
  EXPECT_FALSE(IsOver());
}

}  // namespace
}  // namespace qz7
