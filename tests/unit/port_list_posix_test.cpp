#include "core/link/port_list_posix.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

namespace fs = std::filesystem;

void WriteLine(const fs::path& path, const std::string& line) {
  std::ofstream(path) << line << '\n';
}

// A USB adapter as the system lists it: its terminal below an interface below the adapter.
void AddUsbPort(const fs::path& top, const std::string& name) {
  const fs::path adapter = top / "devices" / "usb1";
  const fs::path terminal = adapter / "interface" / name;
  fs::create_directories(terminal);
  WriteLine(adapter / "product", "Serial Cable");
  WriteLine(adapter / "manufacturer", "Maker");
  fs::create_directories(top / "class" / name);
  fs::create_directory_symlink(terminal, top / "class" / name / "device");
}

void AddBoardPort(const fs::path& top, const std::string& name, const std::string& type) {
  fs::create_directories(top / "class" / name);
  fs::create_directories(top / "devices" / name);
  fs::create_directory_symlink(top / "devices" / name, top / "class" / name / "device");
  WriteLine(top / "class" / name / "type", type);
}

class PortList : public testing::Test {
 protected:
  void SetUp() override { fs::create_directories(Top() / "class"); }
  fs::path Top() const { return folder_.path(); }
  std::vector<PortInfo> List(const std::string& devices = "/nowhere") const {
    return ListSerialPortsUnder((Top() / "class").string(), devices);
  }

 private:
  TempFolder folder_;
};

TEST_F(PortList, NamesAUsbAdapterByItsMakerAndProduct) {
  AddUsbPort(Top(), "ttyUSB0");
  const std::vector<PortInfo> ports = List();
  ASSERT_EQ(1U, ports.size());
  EXPECT_EQ("/nowhere/ttyUSB0", ports[0].name);
  EXPECT_EQ("Maker Serial Cable", ports[0].description);
  EXPECT_EQ(PortStatus::kAbsent, ports[0].status);
}

TEST_F(PortList, TellsAFreePortAndABusyOneWithoutOpeningEither) {
  AddUsbPort(Top(), "ttyUSB0");
  const fs::path device = Top() / "ttyUSB0";
  ASSERT_EQ(0, mkfifo(device.c_str(), 0600));
  EXPECT_EQ(PortStatus::kOpen, List(Top().string()).at(0).status);
  const int handle = open(device.c_str(), O_RDWR | O_NONBLOCK);
  ASSERT_GE(handle, 0);
  EXPECT_EQ(PortStatus::kBusy, List(Top().string()).at(0).status);
  close(handle);
  EXPECT_EQ(PortStatus::kOpen, List(Top().string()).at(0).status);
}

TEST_F(PortList, TellsAPortThatIsClosedToTheUser) {
  if (geteuid() == 0) {
    GTEST_SKIP() << "nothing is closed to this user";
  }
  AddUsbPort(Top(), "ttyUSB0");
  const fs::path device = Top() / "ttyUSB0";
  ASSERT_EQ(0, mkfifo(device.c_str(), 0));
  EXPECT_EQ(PortStatus::kDenied, List(Top().string()).at(0).status);
}

TEST_F(PortList, OpensAFreePortOnlyToProbeIt) {
  AddUsbPort(Top(), "ttyUSB0");
  ASSERT_EQ(0, mkfifo((Top() / "ttyUSB0").c_str(), 0600));
  std::vector<PortInfo> ports = List(Top().string());
  // A pipe is no terminal, which only opening it shows.
  ProbePorts(ports);
  EXPECT_EQ(PortStatus::kAbsent, ports.at(0).status);
}

TEST_F(PortList, LeavesOutUartPlacesWithoutAChip) {
  AddBoardPort(Top(), "ttyS0", "4");
  AddBoardPort(Top(), "ttyS1", "0");
  const std::vector<PortInfo> ports = List();
  ASSERT_EQ(1U, ports.size());
  EXPECT_EQ("/nowhere/ttyS0", ports[0].name);
  EXPECT_EQ("serial port", ports[0].description);
}

TEST_F(PortList, LeavesOutTerminalsWithoutADevice) {
  fs::create_directories(Top() / "class" / "tty1");
  EXPECT_TRUE(List().empty());
}

TEST_F(PortList, IsInOrderOfNames) {
  AddUsbPort(Top(), "ttyUSB1");
  AddUsbPort(Top(), "ttyUSB0");
  AddBoardPort(Top(), "ttyS0", "4");
  std::string names;
  for (const PortInfo& port : List()) {
    names += port.name.substr(9) + " ";
  }
  EXPECT_EQ("ttyS0 ttyUSB0 ttyUSB1 ", names);
}

TEST_F(PortList, OfAMissingFolderIsEmpty) {
  EXPECT_TRUE(ListSerialPortsUnder((Top() / "none").string(), "/nowhere").empty());
}

}  // namespace
}  // namespace qz7
