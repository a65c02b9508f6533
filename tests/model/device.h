#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <vector>

#include "tests/model/world.h"

namespace qz7::model {

// What a byte takes on the wire: 11 bits at 9600 baud.
inline constexpr Time kWireByte = 1'145'833;

// What a driver is like. The plain one completes everything at once and knows every call.
struct Driver {
  Time read_time = 0;              // until a read or a wait is done; meanwhile it is pending
  Time cancel_time = 0;            // until something that was cancelled is done
  bool writes_until_sent = false;  // a write is done when its last byte has left
  bool writes_forever = false;     // and never without being cancelled
  bool refuses_wait = false;       // WaitCommEvent fails
  bool aborts_wait = false;        // it is pending and ends at once, as a terminal under Wine does
  enum class Ahead { kAtOnce, kRefused, kLate } ahead = Ahead::kAtOnce;  // TransmitCommChar
  bool purge_aborts_wait = false;
  bool tells_empty = true;  // EV_TXEMPTY comes, once the last byte has left
  Time adapter_time = 0;    // until a byte that was handed over starts on the wire
  int failing_status = 0;   // which ClearCommError from now on fails
  Time settings_time = 0;   // what GetCommState and SetCommState take
};

// A radio at the other end of the device's cable, as long as it lives; it hears each byte once its
// last stop bit has passed.
class Radio {
 public:
  Radio();
  Radio(const Radio&) = delete;
  Radio& operator=(const Radio&) = delete;
  virtual ~Radio();
  virtual void Hear(std::uint8_t byte) = 0;

 protected:
  void Later(Time delay, std::function<void()> action);

 private:
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

struct LineState {
  Time at;
  bool dtr;
  bool rts;
};

// The device "COM3" with its cable, which joins the two directions: what the program sends comes
// back to it.
class Device {
 public:
  Driver driver;
  Radio* radio = nullptr;
  bool plugged = true;
  bool echoes = true;

  // What has happened on the wire.
  std::vector<std::uint8_t> left;  // what the program has sent, whole
  Time last_stop_bit = 0;
  std::vector<LineState> lines;
  unsigned pending_at_close = 0;  // operations that a closed handle still had in hand
  unsigned bytes_cut = 0;  // bytes that were on their way when the lines dropped or the port closed

  // The radio's side: the byte starts now.
  void RadioSends(std::uint8_t byte);
  void DamageNextByte() { damage_ = CE_FRAME; }
  void Unplug();
  void Plug() { plugged = true; }
  bool IsOpen() const { return port_ != nullptr; }

 private:
  friend class Port;
  unsigned damage_ = 0;
  class Port* port_ = nullptr;  // that is open
};

Device& TheDevice();
// A new device; the world has to be new too.
void StartDevice();

// Handles that are open.
std::size_t OpenObjects();

}  // namespace qz7::model
