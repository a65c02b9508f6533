#include <gtest/gtest.h>

#include "core/link/serial_port.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

// The null device opens, and has no line to set.
TEST(SerialPortOnWindows, StaysOpenWhenTheLineSettingsAreRefused) {
  const auto port = MakeSerialPort();
  EXPECT_EQ(port->Open("NUL").status, PortStatus::kOpen);
  EXPECT_TRUE(port->IsOpen());
  ASSERT_EQ(ShownTexts(), std::vector<std::string>{"ERROR"});
  EXPECT_EQ(test_seams.messages[0].caption, "Comm Error");
}

}  // namespace
}  // namespace qz7
