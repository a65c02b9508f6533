#include "core/link/port_setup.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/unit/memory_line.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using Writes = std::vector<std::pair<std::string, std::string>>;
using Names = std::vector<std::string>;

// A machine with some ports; every opening and closing is noted.
class Ports : public MemoryLine {
 public:
  PortResult Open(const std::string& device) override {
    calls.push_back("open " + device);
    MemoryLine::Close();
    if (!present.contains(device)) {
      return {PortStatus::kAbsent, 2};
    }
    return MemoryLine::Open(device);
  }
  void Close() override {
    if (IsOpen()) {
      calls.push_back("close");
    }
    MemoryLine::Close();
  }

  std::set<std::string> present = {"COM1", "COM2"};
  Names calls;
};

class PortSetupTest : public testing::Test {
 protected:
  Ports port;
  Preferences preferences;
};

TEST_F(PortSetupTest, NoPortOpensNothingAndShowsNothing) {
  EXPECT_FALSE(OpenChosenPort(port, 0));
  EXPECT_TRUE(port.calls.empty());
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(PortSetupTest, APortThatIsNotThereIsReportedOnce) {
  EXPECT_FALSE(OpenChosenPort(port, 3));
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, "COM3: Invalid or unsupported port.");
  EXPECT_EQ(test_seams.messages[0].caption, "Com port error");
}

TEST_F(PortSetupTest, AnOpenPortIsClosedBeforeAnotherIsOpened) {
  EXPECT_TRUE(OpenChosenPort(port, 1));
  EXPECT_TRUE(OpenChosenPort(port, 2));
  EXPECT_EQ(port.calls, (Names{"open COM1", "close", "open COM2"}));
}

TEST_F(PortSetupTest, TheChoiceIsExplained) {
  const std::vector<PortInfo> ports = {{"COM3", "Maker Serial Cable", PortStatus::kOpen}};
  EXPECT_EQ(PortNote(0, ports), "");
  EXPECT_EQ(PortNote(3, ports), "Maker Serial Cable");
  EXPECT_EQ(PortNote(4, ports), "The system lists no COM4 at present.");
}

TEST_F(PortSetupTest, CancelChangesNothing) {
  OpenChosenPort(port, 1);
  preferences.port_index = 1;
  test_seams.ports = {std::nullopt};
  EXPECT_TRUE(SetUpPort(port, preferences));
  EXPECT_EQ(port.calls, (Names{"open COM1"}));
  EXPECT_EQ(preferences.port_index, 1);
  EXPECT_TRUE(test_seams.profile_writes.empty());
}

TEST_F(PortSetupTest, TheDialogOpensWithNoneForAnIndexThatItDoesNotList) {
  preferences.port_index = 12;
  EXPECT_FALSE(SetUpPort(port, preferences));
  EXPECT_EQ(test_seams.asked_ports, std::vector<int>{0});
  EXPECT_EQ(preferences.port_index, 0);
  EXPECT_EQ(ListedPort(9), 9);
  EXPECT_EQ(ListedPort(10), 0);
  EXPECT_EQ(ListedPort(-1), 0);
}

TEST_F(PortSetupTest, ANewPortIsOpenedAndStored) {
  test_seams.ports = {2};
  EXPECT_TRUE(SetUpPort(port, preferences));
  EXPECT_TRUE(port.IsOpen());
  EXPECT_EQ(preferences.port_index, 2);
  EXPECT_EQ(test_seams.profile_writes, (Writes{{"Com", "2"}}));
}

TEST_F(PortSetupTest, NoneClosesThePortAndStores0) {
  OpenChosenPort(port, 1);
  preferences.port_index = 1;
  test_seams.ports = {0};
  EXPECT_FALSE(SetUpPort(port, preferences));
  EXPECT_FALSE(port.IsOpen());
  EXPECT_EQ(preferences.port_index, 0);
  EXPECT_EQ(test_seams.profile_writes, (Writes{{"Com", "0"}}));
}

TEST_F(PortSetupTest, TheSamePortIsClosedAndOpenedAgainButNotWritten) {
  OpenChosenPort(port, 1);
  preferences.port_index = 1;
  test_seams.ports = {1};
  EXPECT_TRUE(SetUpPort(port, preferences));
  EXPECT_EQ(port.calls, (Names{"open COM1", "close", "open COM1"}));
  EXPECT_TRUE(test_seams.profile_writes.empty());
}

TEST_F(PortSetupTest, APortThatDoesNotOpenBringsThePreviousOneAndTheDialogBack) {
  OpenChosenPort(port, 1);
  preferences.port_index = 1;
  test_seams.ports = {5, std::nullopt};
  EXPECT_TRUE(SetUpPort(port, preferences));
  EXPECT_EQ(port.calls, (Names{"open COM1", "close", "open COM5", "open COM1"}));
  EXPECT_EQ(test_seams.asked_ports, (std::vector<int>{1, 1}));
  EXPECT_EQ(preferences.port_index, 1);
  EXPECT_EQ(ShownTexts(), Names{"COM5: Invalid or unsupported port."});
  EXPECT_TRUE(test_seams.profile_writes.empty());
}

TEST_F(PortSetupTest, WithoutAPreviousPortOnlyTheDialogComesBack) {
  test_seams.ports = {5, 2};
  EXPECT_TRUE(SetUpPort(port, preferences));
  EXPECT_EQ(port.calls, (Names{"open COM5", "open COM2"}));
  EXPECT_EQ(test_seams.profile_writes, (Writes{{"Com", "2"}}));
}

TEST_F(PortSetupTest, APreviousPortThatIsGoneTooIsNotReported) {
  OpenChosenPort(port, 1);
  preferences.port_index = 1;
  port.present.clear();
  test_seams.ports = {5, std::nullopt};
  EXPECT_FALSE(SetUpPort(port, preferences));
  EXPECT_EQ(ShownTexts(), Names{"COM5: Invalid or unsupported port."});
}

}  // namespace
}  // namespace qz7
