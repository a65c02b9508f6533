#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>

#include "tests/model/device.h"

namespace qz7::model {

// An operation that the driver has in hand: it writes into the program's memory whenever it likes.
struct Operation {
  OVERLAPPED* overlapped = nullptr;
  DWORD* events = nullptr;
  std::span<std::uint8_t> in = {};
  std::span<const std::uint8_t> out = {};
  DWORD count = 0;
  bool ending = false;  // its end is under way
};

inline constexpr ULONG_PTR kPending = 0x103;

// An open handle of the device.
class Port final : public Object {
 public:
  explicit Port(Device& device);
  ~Port() override;

  // Each call of the system, once its own time has passed.
  BOOL Ask(DWORD* errors, COMSTAT* status);
  BOOL SetMask(DWORD mask);
  BOOL Wait(DWORD* events, OVERLAPPED* overlapped);
  BOOL Read(std::span<std::uint8_t> buffer, OVERLAPPED* overlapped);
  BOOL Write(std::span<const std::uint8_t> bytes, OVERLAPPED* overlapped);
  BOOL SendAhead(std::uint8_t byte);
  void Purge(DWORD what);
  // Of one operation, or all of them.
  BOOL Cancel(OVERLAPPED* overlapped);
  void SetLines(bool dtr, bool rts);

  void Receive(std::uint8_t byte);
  // The device has been pulled out.
  void Die();

  bool dead = false;
  DWORD mask = 0;
  DCB state{};

 private:
  using Slot = std::optional<Operation>;

  Driver& Kind() const { return device_.driver; }
  // Nothing happens later than the handle is closed.
  void Later(Time delay, std::function<void()> action);
  // Starts an operation; it is done at once, or pending.
  BOOL Begin(Slot& slot, Operation operation, Time delay, const std::function<void()>& done);
  void End(Slot& slot, DWORD error);
  void EndLater(Slot& slot, DWORD error, Time delay);
  void Abort(Slot& slot);
  void Notice(DWORD event);
  void Deliver(DWORD events);
  void Transmit();
  void StopBit(std::uint8_t byte);
  std::optional<std::uint8_t> NextByte();
  std::size_t OnTheirWay() const;

  Device& device_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  DWORD history_ = 0;
  DWORD errors_ = 0;
  std::deque<std::uint8_t> received_;
  std::deque<std::uint8_t> queue_;    // the driver's
  std::deque<std::uint8_t> adapter_;  // which no call tells about
  std::optional<std::uint8_t> ahead_;
  bool ahead_ready_ = false;
  bool shifting_ = false;
  bool powered_ = false;
  Slot wait_;
  Slot read_;
  Slot write_;
};

}  // namespace qz7::model
