#include "core/link/transfer_note.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/link/clone_read.h"
#include "core/link/clone_write.h"

namespace qz7 {
namespace {

constexpr int kTotal = 8122;

TEST(SecondsLeft, AreUnknownBeforeAnythingHasCome) {
  EXPECT_EQ(SecondsLeft(0, kTotal, 0), std::nullopt);
  EXPECT_EQ(SecondsLeft(0, kTotal, 60'000), std::nullopt);
  EXPECT_EQ(SecondsLeft(-5, kTotal, 60'000), std::nullopt);
}

TEST(SecondsLeft, AreUnknownInTheFirstSecond) {
  EXPECT_EQ(SecondsLeft(26, kTotal, 0), std::nullopt);
  EXPECT_EQ(SecondsLeft(800, kTotal, 999), std::nullopt);
  EXPECT_EQ(SecondsLeft(800, kTotal, -1), std::nullopt);
  EXPECT_NE(SecondsLeft(800, kTotal, 1'000), std::nullopt);
}

TEST(SecondsLeft, AreNoneWhenAllIsDone) {
  EXPECT_EQ(SecondsLeft(kTotal, kTotal, 0), 0);
  EXPECT_EQ(SecondsLeft(kTotal, kTotal, 9'400), 0);
  EXPECT_EQ(SecondsLeft(kTotal + 1, kTotal, 9'400), 0);
}

TEST(SecondsLeft, FollowThePaceAndAreRoundedUp) {
  EXPECT_EQ(SecondsLeft(4'061, kTotal, 5'000), 5);
  EXPECT_EQ(SecondsLeft(4'061, kTotal, 4'999), 5);
  EXPECT_EQ(SecondsLeft(4'061, kTotal, 5'001), 6);
  EXPECT_EQ(SecondsLeft(kTotal - 1, kTotal, 9'400), 1);
  EXPECT_EQ(SecondsLeft(1, kTotal, 1'000), 8'121);
}

TEST(SecondsLeft, HoldBesideEveryTime) {
  for (const int done : {1, 10, 26, 4'000, kTotal - 1}) {
    for (const int elapsed : {1'000, 100'000, 2'000'000'000}) {
      EXPECT_GE(SecondsLeft(done, kTotal, elapsed), 1);
      EXPECT_LE(SecondsLeft(done, kTotal, elapsed), 24 * 60 * 60);
    }
  }
}

TEST(SecondsLeft, GoDownAtAnEvenPace) {
  int before = kTotal;
  for (int done = 900; done <= kTotal; done += 16) {
    const auto left = SecondsLeft(done, kTotal, done * 1'146 / 1'000);
    ASSERT_TRUE(left);
    EXPECT_LE(*left, before);
    before = *left;
  }
  EXPECT_LE(before, 1);
}

ProgressMeter Meter(int count) { return {.total = kTotal, .count = count, .percent = 0}; }

TEST(TransferText, SaysBytesAndTimeLeft) {
  EXPECT_EQ(TransferText(Meter(4'061), 5), "4061 of 8122 bytes, about 5 seconds left");
  EXPECT_EQ(TransferText(Meter(8'100), 1), "8100 of 8122 bytes, about 1 second left");
}

TEST(TransferText, SaysBytesAloneWithoutATimeAndAtTheEnd) {
  EXPECT_EQ(TransferText(Meter(26), std::nullopt), "26 of 8122 bytes");
  EXPECT_EQ(TransferText(Meter(8'122), 0), "8122 of 8122 bytes");
  EXPECT_EQ(TransferText(Meter(8'130), 0), "8122 of 8122 bytes");
}

TEST(TransferAdvice, InvitesToStartUntilSomethingHasCome) {
  CloneRead read;
  EXPECT_STREQ(InvitedBy(read), "Nothing has come yet: start sending on the radio.");
  read.position = 1;
  EXPECT_STREQ(InvitedBy(read), "");
}

// The position is kept, so that a new header would not be recognised.
TEST(TransferAdvice, InvitesToNothingAfterARetry) {
  CloneRead read;
  read.position = 3'000;
  EXPECT_STREQ(InvitedBy(read), "");
  EXPECT_STREQ(RemedyFor(read), "Press Cancel and start again, on the radio too.");
}

TEST(TransferAdvice, OfAWriteEndsWithItsStart) {
  CloneWrite write;
  EXPECT_STREQ(InvitedBy(write), "Start receiving on the radio, then press OK.");
  write.can_start = false;
  EXPECT_STREQ(InvitedBy(write), "");
  EXPECT_STREQ(RemedyFor(write), "Press Cancel and start again, on the radio too.");
  write.phase = CloneWrite::kWaitEcho;
  EXPECT_STREQ(RemedyFor(write), "Press Cancel, check the cable, and start again.");
}

}  // namespace
}  // namespace qz7
