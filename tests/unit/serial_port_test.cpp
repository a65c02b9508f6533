#include "core/link/serial_port.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/memory_line.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using Bytes = std::vector<std::uint8_t>;

// A port whose opening ends as the test wants, and that takes so many bytes and no more.
class ScriptedPort : public MemoryLine {
 public:
  PortResult Open(const std::string& device) override {
    opened = device;
    return result;
  }
  std::size_t Write(std::span<const std::uint8_t> bytes) override {
    ++calls;
    if (sent.size() >= capacity) {
      return 0;
    }
    return MemoryLine::Write(bytes);
  }

  PortResult result{PortStatus::kOpen, 0};
  std::size_t capacity = SIZE_MAX;
  int calls = 0;
  std::string opened;
};

TEST(PortErrorText, OfErrorCode2SaysThatThePortIsInvalid) {
  EXPECT_EQ(PortErrorText("COM3", {PortStatus::kAbsent, 2}), "COM3: Invalid or unsupported port.");
}

TEST(PortErrorText, OfErrorCode5SaysThatThePortIsOpenAlready) {
  EXPECT_EQ(PortErrorText("COM3", {PortStatus::kBusy, 5}), "COM3: Is already open.");
}

TEST(PortErrorText, OfAnyOtherErrorQuotesItsCode) {
  EXPECT_EQ(PortErrorText("COM3", {PortStatus::kOtherError, 31}), "COM3:  Unknown error #-31.");
  EXPECT_EQ(PortErrorText("COM9", {PortStatus::kOtherError, 1167}), "COM9:  Unknown error #-1167.");
}

TEST(OpenPort, OpensTheDeviceWithoutAMessage) {
  ScriptedPort port;
  EXPECT_TRUE(OpenPort(port, "COM7"));
  EXPECT_EQ(port.opened, "COM7");
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(OpenPort, ShowsWhyAPortDoesNotOpen) {
  ScriptedPort port;
  port.result = {PortStatus::kBusy, 5};
  EXPECT_FALSE(OpenPort(port, "COM3"));
  ASSERT_EQ(ShownTexts(), std::vector<std::string>{"COM3: Is already open."});
  EXPECT_EQ(test_seams.messages[0].caption, "Com port error");
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kOk);
}

TEST(WriteBytesOneByOne, GivesEachByteACallOfItsOwn) {
  MemoryLine line;
  line.Open("line");
  EXPECT_EQ(WriteBytesOneByOne(line, Bytes{10, 20, 30, 40}), 4U);
  EXPECT_EQ(line.sent, (Bytes{10, 20, 30, 40}));
  EXPECT_EQ(line.write_sizes, (std::vector<std::size_t>{1, 1, 1, 1}));
}

TEST(WriteBytesOneByOne, StopsAtTheFirstByteThatIsNotTaken) {
  ScriptedPort port;
  port.MemoryLine::Open("line");
  port.capacity = 3;
  EXPECT_EQ(WriteBytesOneByOne(port, Bytes{1, 2, 3, 4, 5, 6}), 3U);
  EXPECT_EQ(port.calls, 4);
  EXPECT_EQ(port.sent, (Bytes{1, 2, 3}));
}

TEST(WriteBytesOneByOne, OfNothingWritesNothing) {
  MemoryLine line;
  line.Open("line");
  EXPECT_EQ(WriteBytesOneByOne(line, {}), 0U);
  EXPECT_TRUE(line.write_sizes.empty());
}

class MemoryLineTest : public testing::Test {
 protected:
  MemoryLineTest() { line_.Open("line"); }

  Bytes ReadUpTo(std::size_t count) {
    Bytes buffer(count, 0xCC);
    buffer.resize(line_.Read(buffer).value_or(0));
    return buffer;
  }

  MemoryLine line_;
};

TEST_F(MemoryLineTest, IsOpenUntilItIsClosed) {
  MemoryLine other;
  EXPECT_FALSE(other.IsOpen());
  EXPECT_EQ(other.Open("line").status, PortStatus::kOpen);
  EXPECT_TRUE(other.IsOpen());
  other.Close();
  EXPECT_FALSE(other.IsOpen());
  other.Close();
  EXPECT_FALSE(other.IsOpen());
}

TEST_F(MemoryLineTest, ReadsWhatHasArrivedAndNoMore) {
  EXPECT_EQ(ReadUpTo(4), Bytes{});
  line_.incoming = {1, 2, 3, 4, 5};
  EXPECT_EQ(ReadUpTo(2), (Bytes{1, 2}));
  EXPECT_EQ(ReadUpTo(16), (Bytes{3, 4, 5}));
  EXPECT_EQ(ReadUpTo(16), Bytes{});
}

TEST_F(MemoryLineTest, ReadsInPiecesOfTheLimit) {
  line_.read_limit = 2;
  line_.incoming = {1, 2, 3};
  EXPECT_EQ(ReadUpTo(16), (Bytes{1, 2}));
  EXPECT_EQ(ReadUpTo(16), (Bytes{3}));
}

TEST_F(MemoryLineTest, BringsEveryByteBackBehindWhatHasArrived) {
  line_.incoming = {1};
  EXPECT_EQ(line_.Write(Bytes{2, 3}), 2U);
  line_.SendByte(4);
  EXPECT_EQ(line_.sent, (Bytes{2, 3, 4}));
  EXPECT_EQ(ReadUpTo(16), (Bytes{1, 2, 3, 4}));
}

TEST_F(MemoryLineTest, BringsNothingBackWithoutEcho) {
  line_.echo = false;
  EXPECT_EQ(line_.Write(Bytes{2, 3}), 2U);
  line_.SendByte(4);
  EXPECT_EQ(line_.sent, (Bytes{2, 3, 4}));
  EXPECT_EQ(ReadUpTo(16), Bytes{});
}

TEST_F(MemoryLineTest, LosesWhatAShortWriteDoesNotTake) {
  line_.write_limit = 3;
  EXPECT_EQ(line_.Write(Bytes{1, 2, 3, 4, 5}), 3U);
  EXPECT_EQ(line_.sent, (Bytes{1, 2, 3}));
  EXPECT_EQ(ReadUpTo(16), (Bytes{1, 2, 3}));
}

TEST_F(MemoryLineTest, CountsTheCallsThatWrite) {
  line_.Write(Bytes(10));
  line_.SendByte(4);
  line_.Write(Bytes(16));
  EXPECT_EQ(line_.write_sizes, (std::vector<std::size_t>{10, 16}));
}

TEST_F(MemoryLineTest, TellsLineErrorsOnce) {
  EXPECT_EQ(line_.LineErrors(), 0U);
  line_.line_errors = 6;
  EXPECT_EQ(line_.LineErrors(), 6U);
  EXPECT_EQ(line_.LineErrors(), 0U);
}

TEST_F(MemoryLineTest, PurgesWhatHasArrived) {
  line_.incoming = {1, 2};
  line_.Purge(Queues::kTransmit);
  EXPECT_EQ(line_.incoming.size(), 2U);
  line_.Purge(Queues::kReceive);
  EXPECT_TRUE(line_.incoming.empty());
  line_.incoming = {1, 2};
  line_.Purge(Queues::kBoth);
  EXPECT_TRUE(line_.incoming.empty());
  EXPECT_EQ(line_.purges,
            (std::vector<Queues>{Queues::kTransmit, Queues::kReceive, Queues::kBoth}));
}

TEST_F(MemoryLineTest, CountsEventRestarts) {
  line_.RestartEvents();
  line_.RestartEvents();
  EXPECT_EQ(line_.event_restarts, 2);
}

TEST_F(MemoryLineTest, WaitsForInputWithoutTakingIt) {
  line_.incoming = {1};
  EXPECT_TRUE(line_.WaitForInput(1, 0));
  EXPECT_TRUE(line_.WaitForInput(16, 0));
  EXPECT_EQ(ReadUpTo(16), Bytes{1});
  EXPECT_FALSE(line_.WaitForInput(1, 0));
}

TEST_F(MemoryLineTest, FailsWhenTold) {
  line_.incoming = {1, 2};
  line_.failed = true;
  EXPECT_EQ(line_.Write(Bytes{3}), 0U);
  line_.SendByte(4);
  EXPECT_TRUE(line_.sent.empty());
  Bytes buffer(16);
  EXPECT_EQ(line_.Read(buffer), std::nullopt);
}

}  // namespace
}  // namespace qz7
