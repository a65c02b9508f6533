// What the port does to a terminal of Linux, on a pseudo-terminal of the test's own.

#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/serial.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "core/link/serial_port.h"
#include "tests/unit/seams.h"

namespace {

using Clock = std::chrono::steady_clock;

bool settings_are_refused = false;

// What a driver of a real port would tell, which no pseudo-terminal does, and when it was asked.
struct Driver {
  int full_answers = 0;    // so often the transmitter is not empty
  int queued_answers = 0;  // so often a byte is in the queue
  int asked = 0;
  Clock::time_point dropped{};
};
Driver driver;

}  // namespace

extern "C" int ioctl(int handle, unsigned long request, ...) noexcept {
  using Function = int (*)(int, unsigned long, void*);
  static const auto own = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "ioctl"));
  va_list arguments;
  va_start(arguments, request);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  switch (request) {
    case TIOCSERGETLSR:
      ++driver.asked;
      *static_cast<unsigned*>(argument) = driver.full_answers-- > 0 ? 0 : TIOCSER_TEMT;
      return 0;
    case TIOCOUTQ:
      *static_cast<int*>(argument) = driver.queued_answers-- > 0 ? 1 : 0;
      return 0;
    case TIOCMBIC:
      driver.dropped = Clock::now();
      return 0;
    default:
      return own(handle, request, argument);
  }
}

// Stands before the system's own, which no pseudo-terminal makes refuse.
extern "C" int tcsetattr(int handle, int actions, const termios* settings) noexcept {
  using Function = int (*)(int, int, const termios*);
  static const auto own = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "tcsetattr"));
  if (settings_are_refused) {
    errno = EINVAL;
    return -1;
  }
  return own(handle, actions, settings);
}

namespace qz7 {
namespace {

class SerialPortOnPosix : public testing::Test {
 protected:
  void SetUp() override {
    master_ = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(master_, 0);
    ASSERT_EQ(0, grantpt(master_));
    ASSERT_EQ(0, unlockpt(master_));
    device_ = ptsname(master_);
    // Kept open, so that the settings live while the port is closed.
    watcher_ = open(device_.c_str(), O_RDWR | O_NOCTTY);
    ASSERT_GE(watcher_, 0);
    driver = Driver{};
  }

  void TearDown() override {
    port_->Close();
    close(watcher_);
    if (master_ >= 0) {
      close(master_);
    }
  }

  termios Settings() const {
    termios settings{};
    EXPECT_EQ(0, tcgetattr(watcher_, &settings));
    return settings;
  }

  void HangUp() {
    close(master_);
    master_ = -1;
  }

  int master_ = -1;
  int watcher_ = -1;
  std::string device_;
  std::unique_ptr<SerialPort> port_ = MakeSerialPort();
};

TEST_F(SerialPortOnPosix, Sets9600Baud8DataBitsNoParity2StopBitsRaw) {
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  const termios line = Settings();
  EXPECT_EQ(static_cast<speed_t>(B9600), cfgetispeed(&line));
  EXPECT_EQ(static_cast<speed_t>(B9600), cfgetospeed(&line));
  EXPECT_EQ(static_cast<tcflag_t>(CS8), line.c_cflag & CSIZE);
  EXPECT_NE(0U, line.c_cflag & CSTOPB);
  EXPECT_EQ(0U, line.c_cflag & (PARENB | CRTSCTS));
  EXPECT_EQ(0U, line.c_iflag & (IXON | IXOFF | ICRNL | INLCR | ISTRIP | INPCK));
  EXPECT_EQ(0U, line.c_oflag & OPOST);
  EXPECT_EQ(0U, line.c_lflag & (ICANON | ECHO | ISIG));
}

TEST_F(SerialPortOnPosix, StaysOpenWhenTheLineSettingsAreRefused) {
  settings_are_refused = true;
  EXPECT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  settings_are_refused = false;
  EXPECT_TRUE(port_->IsOpen());
}

// Wine lets one process open a port twice, so that this is shown here alone.
TEST_F(SerialPortOnPosix, HasOneOwnerAtATime) {
  const auto other = MakeSerialPort();
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  EXPECT_EQ(PortStatus::kBusy, other->Open(device_).status);
  port_->Close();
  EXPECT_EQ(PortStatus::kOpen, other->Open(device_).status);
}

TEST_F(SerialPortOnPosix, RestoresTheSettingsThatItFound) {
  termios before = Settings();
  before.c_cflag = (before.c_cflag & ~static_cast<tcflag_t>(CSIZE)) | CS8;
  cfsetispeed(&before, B38400);
  cfsetospeed(&before, B38400);
  ASSERT_EQ(0, tcsetattr(watcher_, TCSANOW, &before));
  before = Settings();
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  port_->Close();
  const termios after = Settings();
  EXPECT_EQ(before.c_iflag, after.c_iflag);
  EXPECT_EQ(before.c_oflag, after.c_oflag);
  EXPECT_EQ(before.c_cflag, after.c_cflag);
  EXPECT_EQ(before.c_lflag, after.c_lflag);
  EXPECT_EQ(0, std::memcmp(before.c_cc, after.c_cc, sizeof before.c_cc));
}

TEST_F(SerialPortOnPosix, TakesAPortThatIsNoTerminalForAbsent) {
  EXPECT_EQ(PortStatus::kAbsent, port_->Open("/dev/null").status);
  EXPECT_FALSE(port_->IsOpen());
}

TEST_F(SerialPortOnPosix, SaysThatATerminalHasGoneAway) {
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  std::uint8_t byte = 0x55;
  HangUp();
  EXPECT_TRUE(port_->WaitForInput(1, 1000));
  EXPECT_EQ(std::nullopt, port_->Read(std::span(&byte, 1)));
}

TEST_F(SerialPortOnPosix, ShowsNothingForAFailedWrite) {
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  HangUp();
  std::uint8_t byte = 0x55;
  EXPECT_EQ(0U, port_->Write(std::span(&byte, 1)));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(SerialPortOnPosix, ClosesTheOpenPortBeforeItOpensAnother) {
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  EXPECT_EQ(PortStatus::kAbsent, port_->Open("/dev/none").status);
  EXPECT_FALSE(port_->IsOpen());
}

// What 16 bytes of 11 bits take at 9600 baud.
constexpr std::chrono::microseconds kBlockTime(18'333);

TEST_F(SerialPortOnPosix, DropsTheLinesOnceTheLastStopBitHasLeft) {
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  const Clock::time_point sent = Clock::now();
  ASSERT_EQ(16U, port_->Write(std::vector<std::uint8_t>(16, 0x55)));
  port_->Close();
  EXPECT_GE(driver.dropped - sent, kBlockTime);
}

TEST_F(SerialPortOnPosix, DoesNotWaitForWhatHasComeBack) {
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  std::vector<std::uint8_t> bytes(16, 0x55);
  ASSERT_EQ(16U, port_->Write(bytes));
  ASSERT_EQ(16, write(master_, bytes.data(), bytes.size()));
  ASSERT_TRUE(port_->WaitForInput(16, 10'000));
  ASSERT_EQ(16U, port_->Read(bytes));
  port_->Close();
  EXPECT_EQ(1, driver.asked);
}

TEST_F(SerialPortOnPosix, AsksTheDriverUntilItsTransmitterIsEmpty) {
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  driver.full_answers = 5;
  port_->Close();
  EXPECT_EQ(6, driver.asked);
}

TEST_F(SerialPortOnPosix, WaitsForTheQueueOfADriverThatDoesNotTell) {
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  driver.queued_answers = 5;
  const Clock::time_point asked = Clock::now();
  port_->Close();
  EXPECT_GE(driver.asked, 6);
  EXPECT_GE(driver.dropped - asked, 5 * kBlockTime / 16);
}

TEST_F(SerialPortOnPosix, IsClosedAfterASecondWhateverTheDriverTells) {
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  driver.full_answers = 1'000'000;
  const Clock::time_point asked = Clock::now();
  port_->Close();
  EXPECT_GE(driver.dropped - asked, std::chrono::seconds(1));
  EXPECT_FALSE(port_->IsOpen());
}

TEST_F(SerialPortOnPosix, KeepsWhatWasSentWhenItIsClosedAtOnce) {
  ASSERT_EQ(PortStatus::kOpen, port_->Open(device_).status);
  port_->SendByte(kAck);
  port_->Close();
  std::uint8_t byte = 0;
  EXPECT_EQ(1, read(master_, &byte, 1));
  EXPECT_EQ(kAck, byte);
}

}  // namespace
}  // namespace qz7
