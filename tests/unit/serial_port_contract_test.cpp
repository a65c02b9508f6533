// What every serial port promises, on the line in memory and on the machine's own port. The latter
// needs a line that sends back what it gets; tests/system/with_echo_line.py brings one and names it
// in QZ7_LOOPBACK_PORT.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "core/link/serial_port.h"
#include "tests/unit/memory_line.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using Bytes = std::vector<std::uint8_t>;

struct Candidate {
  std::string name;
  std::function<std::unique_ptr<SerialPort>()> make;
};

void PrintTo(const Candidate& candidate, std::ostream* out) { *out << candidate.name; }

const char* LoopbackDevice() { return std::getenv("QZ7_LOOPBACK_PORT"); }

class SerialPortContract : public testing::TestWithParam<Candidate> {
 protected:
  void SetUp() override {
    if (GetParam().name == "machine" && LoopbackDevice() == nullptr) {
      GTEST_SKIP() << "no line that sends back what it gets";
    }
    device_ = LoopbackDevice() != nullptr ? LoopbackDevice() : "memory";
    port_ = GetParam().make();
    ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
    port_->Purge(Queues::kBoth);
  }

  // Reads `count` bytes, however they come; gives up after ten seconds.
  Bytes ReadAll(std::size_t count) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    Bytes bytes;
    while (bytes.size() < count && std::chrono::steady_clock::now() < limit) {
      port_->WaitForInput(count - bytes.size(), 100);
      Bytes part(count - bytes.size());
      part.resize(port_->Read(part).value_or(0));
      bytes.insert(bytes.end(), part.begin(), part.end());
    }
    return bytes;
  }

  static Bytes Counting(std::size_t count) {
    Bytes bytes(count);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
    return bytes;
  }

  std::string device_;
  std::unique_ptr<SerialPort> port_;
};

TEST_P(SerialPortContract, ReadsNothingAtOnceWhenNothingHasCome) {
  Bytes buffer(16);
  EXPECT_EQ(0U, port_->Read(buffer));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_P(SerialPortContract, CarriesEveryByteValueInOrder) {
  const Bytes sent = Counting(256);
  EXPECT_EQ(sent.size(), port_->Write(sent));
  EXPECT_EQ(sent, ReadAll(sent.size()));
}

TEST_P(SerialPortContract, GivesNoMoreThanAskedForAndKeepsTheRest) {
  port_->Write(Counting(20));
  EXPECT_EQ(Counting(5), ReadAll(5));
  EXPECT_EQ(15U, ReadAll(15).size());
}

TEST_P(SerialPortContract, SendsOneByteAheadOfTheQueue) {
  port_->SendByte(kAck);
  EXPECT_EQ(Bytes{kAck}, ReadAll(1));
}

TEST_P(SerialPortContract, WritesOneByOneInOrder) {
  const Bytes header = Counting(10);
  EXPECT_EQ(10U, WriteBytesOneByOne(*port_, header));
  EXPECT_EQ(header, ReadAll(10));
}

TEST_P(SerialPortContract, PurgesWhatHasComeAndWorksOn) {
  port_->Write(Counting(40));
  ASSERT_EQ(Bytes{0}, ReadAll(1));
  // The rest is on its way; it has all come once the line is empty behind a last marker.
  ASSERT_EQ(39U, ReadAll(39).size());
  port_->Write(Counting(3));
  ASSERT_TRUE(port_->WaitForInput(3, 10'000));
  port_->Purge(Queues::kReceive);
  Bytes buffer(16);
  EXPECT_EQ(0U, port_->Read(buffer));
  port_->Write(Bytes{0x55});
  EXPECT_EQ(Bytes{0x55}, ReadAll(1));
}

TEST_P(SerialPortContract, HasNoLineErrorsOnASoundLine) {
  port_->Write(Counting(100));
  ReadAll(100);
  EXPECT_EQ(0U, port_->LineErrors());
}

TEST_P(SerialPortContract, GivesUpWaitingWhenNothingComes) {
  EXPECT_FALSE(port_->WaitForInput(1, 20));
}

TEST_P(SerialPortContract, OpensAgainAfterClosing) {
  port_->Close();
  EXPECT_FALSE(port_->IsOpen());
  port_->Close();
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  EXPECT_TRUE(port_->IsOpen());
  port_->Write(Bytes{0x42});
  EXPECT_EQ(Bytes{0x42}, ReadAll(1));
}

TEST_P(SerialPortContract, RestartsItsEventsWithoutLosingTheLine) {
  port_->RestartEvents();
  port_->Write(Bytes{0x17});
  EXPECT_EQ(Bytes{0x17}, ReadAll(1));
  EXPECT_FALSE(port_->IsLost());
}

TEST_P(SerialPortContract, FailsWhileItIsClosed) {
  port_->Close();
  Bytes buffer(16);
  EXPECT_EQ(std::nullopt, port_->Read(buffer));
  EXPECT_EQ(0U, port_->Write(buffer));
  EXPECT_EQ(0U, port_->LineErrors());
  EXPECT_EQ(nullptr, port_->ArmReceiveEvent());
  EXPECT_FALSE(port_->IsLost());
}

TEST_P(SerialPortContract, IsLostUntilItIsOpenedAnew) {
  port_->Lose();
  EXPECT_TRUE(port_->IsLost());
  EXPECT_FALSE(port_->IsOpen());
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  EXPECT_FALSE(port_->IsLost());
  port_->Write(Bytes{0x42});
  EXPECT_EQ(Bytes{0x42}, ReadAll(1));
}

INSTANTIATE_TEST_SUITE_P(Ports, SerialPortContract,
                         testing::Values(Candidate{"memory",
                                                   [] { return std::make_unique<MemoryLine>(); }},
                                         Candidate{"machine", [] { return MakeSerialPort(); }}),
                         [](const auto& test) { return test.param.name; });

TEST(MachineSerialPort, SaysThatAPortIsAbsent) {
  const auto port = MakeSerialPort();
  EXPECT_EQ(PortStatus::kAbsent, port->Open("COM77").status);
  EXPECT_FALSE(port->IsOpen());
  EXPECT_FALSE(OpenPort(*port, "COM77"));
  EXPECT_EQ(std::vector<std::string>{"COM77: Invalid or unsupported port."}, ShownTexts());
}

}  // namespace
}  // namespace qz7
