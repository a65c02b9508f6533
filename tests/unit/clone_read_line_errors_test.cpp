#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "core/link/clone_read.h"
#include "tests/unit/exchange_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using CloneReadLineErrors = ListeningRead;

TEST_F(CloneReadLineErrors, AreIgnoredBeforeTheHeader) {
  line_.line_errors = 4;
  EXPECT_FALSE(Step());
  EXPECT_EQ(line_.line_errors, 0U);
  line_.line_errors = 4;
  Arrive({0x55});
  EXPECT_TRUE(Step());
  EXPECT_EQ(line_.line_errors, 0U);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_TRUE(read_.polling);
}

TEST_F(CloneReadLineErrors, OfTheHeaderDoNotSpoilTheData) {
  ArriveMemory(0, 9);
  line_.line_errors = 4;
  Notify();
  ArriveMemory(9, 10);
  Notify();
  ArriveMemory(10, 26);
  Notify();
  EXPECT_EQ(read_.position, 26);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(CloneReadLineErrors, ThatComeWithTheLastHeaderByteAreShown) {
  ArriveMemory(0, 9);
  Notify();
  ArriveMemory(9, 10);
  line_.line_errors = 4;
  Step();
  ExpectRetryBox("Bad Receive Data");
}

TEST_F(CloneReadLineErrors, ThatComeWithDataAreShownAfterTheDataIsStored) {
  ReceiveMemory(26);
  ArriveMemory(26, 42);
  line_.line_errors = 4;
  test_seams.answers = {Answer::kCancel};
  Step();
  ExpectRetryBox("Bad Receive Data");
  EXPECT_EQ(read_.position, 42);
}

TEST_F(CloneReadLineErrors, AreNotAskedForByAReadBackThatReadItsByte) {
  WaitForReadBack();
  line_.line_errors = 4;
  Arrive({0x06});
  EXPECT_TRUE(Step());
  EXPECT_EQ(line_.line_errors, 4U);
  EXPECT_EQ(read_.phase, CloneRead::kData);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_FALSE(Step());
  ExpectRetryBox("Bad Receive Data");
}

TEST_F(CloneReadLineErrors, AreNotAskedForByAReadBackThatReadAWrongByte) {
  WaitForReadBack();
  line_.line_errors = 4;
  Arrive({0x16});
  StepCloneRead(read_, line_);
  ASSERT_TRUE(read_.question.has_value());
  EXPECT_EQ(read_.question->error, LinkError::kAcknowledge);
  EXPECT_EQ(line_.line_errors, 4U);
}

TEST_F(CloneReadLineErrors, DropWhatWaitsWhenListeningStartsAgain) {
  ReceiveMemory(26);
  ArriveMemory(26, 60);
  line_.line_errors = 4;
  test_seams.answers = {Answer::kCancel};
  Notify();
  EXPECT_TRUE(line_.incoming.empty());
  EXPECT_EQ(read_.position, 42);
  EXPECT_EQ(test_seams.messages.size(), 1U);
}

TEST_F(CloneReadLineErrors, MakeALaterHeaderPassUnacknowledged) {
  ReceiveMemory(26);
  line_.line_errors = 4;
  test_seams.answers = {Answer::kCancel};
  Step();
  ArriveMemory(0, 10);
  Notify();
  EXPECT_EQ(read_.phase, CloneRead::kWaitHeader);
  EXPECT_EQ(read_.position, 36);
  EXPECT_EQ(line_.sent.size(), 2U);
}

TEST_F(CloneReadLineErrors, AtTheEndOfTheBlockLetNothingBeWrittenBehindIt) {
  ReceiveMemory(8122);
  line_.line_errors = 4;
  test_seams.answers = {Answer::kCancel};
  Step();
  ASSERT_EQ(read_.position, 8122);
  for (int n = 0; n < 3; ++n) {
    Arrive(Bytes(100, 0x0A));
    Tick();
    Arrive(Bytes(100, 0x3C));
    Notify();
  }
  EXPECT_TRUE(block_.GuardsAreIntact());
  EXPECT_EQ(block_.Content(), radio_);
  EXPECT_TRUE(read_.polling);
  EXPECT_FALSE(IsOver());
}

TEST_F(CloneReadLineErrors, NearTheEndOfTheBlockLetNothingBeWrittenBehindIt) {
  ReceiveMemory(8120);
  line_.line_errors = 4;
  test_seams.answers = {Answer::kCancel};
  Step();
  Arrive(Bytes(100, 0x3C));
  Notify();
  EXPECT_TRUE(block_.GuardsAreIntact());
  EXPECT_EQ(block_.Content()[8120], 0x3C);
  EXPECT_EQ(block_.Content()[8121], 0x3C);
}

// After a retried acknowledge error the data is stored from offset 0, so that its blocks of 16 do
// not end where the radio block ends.
class ShiftedData : public ListeningRead {
 protected:
  void SetUp() override {
    WaitForReadBack();
    Arrive({0x15});
    test_seams.answers = {Answer::kRetry};
    Notify();
    line_.echo = true;
    line_.sent.clear();
    ASSERT_EQ(read_.position, 0);
    Arrive(Bytes(16, 1));
    Notify();
    Arrive(Bytes(505 * 16, 2));
    Notify();
    ASSERT_EQ(read_.position, 506 * 16);
    ASSERT_EQ(read_.blocks_done, 506);
  }
};

TEST_F(ShiftedData, IsAcknowledgedBehindItsFirstAndIts507thBlock) {
  EXPECT_EQ(line_.sent, Bytes{0x06});
  line_.echo = false;
  Arrive(Bytes(16, 3));
  Notify();
  EXPECT_EQ(line_.sent, (Bytes{0x06, 0x06}));
  EXPECT_EQ(read_.phase, CloneRead::kReadBackAck);
  EXPECT_EQ(read_.position, 8112);
}

TEST_F(ShiftedData, IsNotWrittenBehindTheBlock) {
  Arrive(Bytes(16, 3));
  Notify();
  ASSERT_EQ(read_.phase, CloneRead::kData);
  Arrive(Bytes(16, 4));
  Step();
  EXPECT_TRUE(block_.GuardsAreIntact());
  EXPECT_EQ(read_.phase, CloneRead::kWaitChecksum);
  EXPECT_GE(read_.position, 8122);
  EXPECT_EQ(std::count(block_.Span().begin(), block_.Span().end(), 4), 10);
}

}  // namespace
}  // namespace qz7
