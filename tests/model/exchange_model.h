#pragma once

#include <gtest/gtest.h>

#include <csignal>
#include <memory>
#include <string>
#include <vector>

#include "core/link/radio_transfer.h"
#include "core/link/serial_port.h"
#include "ctl/exchange_runner.h"
#include "desktop/link/clone_dialogs.h"
#include "tests/model/device.h"
#include "tests/model/radio.h"
#include "tests/model/window.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7::model {

enum class Program { kDesktop, kConsole };

struct Kind {
  std::string name;
  Driver driver;
};

// The kinds of driver that exist.
inline std::vector<Kind> Drivers() {
  constexpr Time kLate = 300'000;
  using Ahead = Driver::Ahead;
  return {{"AtOnce", {}},
          {"Late", {.read_time = kLate, .cancel_time = kLate, .writes_until_sent = true}},
          {"LateCancel", {.cancel_time = 10 * kMillisecond, .purge_aborts_wait = true}},
          {"Slow", {.read_time = 10 * kLate, .cancel_time = 10 * kLate}},
          {"NoWait", {.refuses_wait = true}},
          {"AbortedWait", {.aborts_wait = true}},
          {"NoByteAhead", {.ahead = Ahead::kRefused}},
          {"LateByteAhead", {.ahead = Ahead::kLate}},
          {"PurgeAbortsAll", {.purge_aborts_wait = true}},
          {"TellsNothing", {.tells_empty = false}},
          {"SlowSettings", {.settings_time = 8 * kMillisecond}}};
}

// What qz7ctl has told.
extern std::vector<std::string> told;

// The program's exchanges over a driver of some kind.
class ExchangeModel : public testing::Test {
 protected:
  ExchangeModel() {
    StartWorld();
    StartDevice();
    StartDesktop();
    told.clear();
    port_ = MakeSerialPort();
  }
  ~ExchangeModel() override {
    port_.reset();
    EXPECT_EQ(OpenObjects(), 0U);
    EXPECT_EQ(TheDevice().pending_at_close, 0U);
    EXPECT_EQ(RunningTimers(), 0U);
  }

  void Open(const Driver& driver = {}) {
    TheDevice().driver = driver;
    ASSERT_EQ(port_->Open("COM3").status, PortStatus::kOpen);
  }

  bool Read(Program program) {
    CloneRead read;
    BeginCloneRead(read, *port_, block_);
    if (program == Program::kDesktop) {
      return ShowReadDialog(read, *port_);
    }
    CatchInterrupt();
    return RunCloneRead(read, *port_, "COM3");
  }

  bool Write(Program program) {
    CloneImage image{};
    std::copy(block_.begin(), block_.end(), RadioBlockOf(image).begin());
    CloneWrite write;
    BeginCloneWrite(write, *port_, image);
    std::copy(RadioBlockOf(image).begin(), RadioBlockOf(image).end(), block_.begin());
    if (program == Program::kDesktop) {
      TheWorld().After(50 * kMillisecond, [] { PostMessageA(OpenDialog(), WM_COMMAND, IDOK, 0); });
      Preferences preferences;
      preferences.template_path = TemplateFile();
      return ShowWriteDialog(write, *port_, preferences);
    }
    CatchInterrupt();
    StartCloneWrite(write, *port_, TemplateImage());
    return RunCloneWrite(write, *port_, "COM3");
  }

  static CloneImage TemplateImage() {
    Bytes file = IntactFile("TPL");
    FixChecksums(file);
    return ImageOf(file);
  }
  std::string TemplateFile() {
    Bytes file = IntactFile("TPL");
    FixChecksums(file);
    PutFile(folder_.File("my.tpl"), file);
    return folder_.File("my.tpl");
  }

  // The user gives up: Cancel in the window, Ctrl-C.
  static void GiveUpAfter(Program program, Time delay) {
    TheWorld().After(delay, [program] {
      if (program == Program::kConsole) {
        std::raise(SIGINT);
      } else if (OpenDialog() != nullptr) {
        PostMessageA(OpenDialog(), WM_COMMAND, IDCANCEL, 0);
      }
    });
  }

  TempFolder folder_;
  std::vector<std::uint8_t> block_ = std::vector<std::uint8_t>(kRadioBlock.size);
  std::unique_ptr<SerialPort> port_;
};

inline constexpr double kWire = 8123.0 * kWireByte;

inline std::string NameOf(Program program) {
  return program == Program::kDesktop ? "Desktop" : "Console";
}

}  // namespace qz7::model
