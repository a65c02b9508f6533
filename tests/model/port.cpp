#include "tests/model/port.h"

#include <algorithm>
#include <utility>

namespace qz7::model {
namespace {

constexpr std::size_t kQueueSize = 2048;
constexpr std::size_t kAdapterSize = 16;
constexpr Time kNever = -1;
constexpr Time kLateAhead = 30 * kMillisecond;

}  // namespace

Port::Port(Device& device) : device_(device) { device.port_ = this; }

Port::~Port() {
  for (Slot* slot : {&wait_, &read_, &write_}) {
    device_.pending_at_close += *slot ? 1 : 0;
    End(*slot, ERROR_OPERATION_ABORTED);
  }
  device_.bytes_cut += static_cast<unsigned>(OnTheirWay());
  device_.port_ = nullptr;
}

void Port::Later(Time delay, std::function<void()> action) {
  TheWorld().After(delay, [alive = std::weak_ptr(alive_), action = std::move(action)] {
    if (!alive.expired()) {
      action();
    }
  });
}

BOOL Port::Begin(Slot& slot, Operation operation, Time delay, const std::function<void()>& done) {
  operation.overlapped->Internal = kPending;
  if (auto* event = ObjectOf<Object>(operation.overlapped->hEvent)) {
    event->signalled = false;
  }
  slot = operation;
  if (delay == 0) {
    done();
    return TRUE;
  }
  if (delay != kNever) {
    Later(delay, [&slot, done] {
      if (slot && !slot->ending) {
        done();
      }
    });
  }
  return Fail(ERROR_IO_PENDING);
}

void Port::End(Slot& slot, DWORD error) {
  if (!slot) {
    return;
  }
  const Operation operation = *slot;
  slot.reset();
  if (operation.events != nullptr && error != 0) {
    *operation.events = 0;
  }
  operation.overlapped->Internal = error;
  operation.overlapped->InternalHigh = operation.count;
  if (auto* event = ObjectOf<Object>(operation.overlapped->hEvent)) {
    event->signalled = true;
  }
}

void Port::EndLater(Slot& slot, DWORD error, Time delay) {
  if (!slot || slot->ending) {
    return;
  }
  if (delay == 0) {
    End(slot, error);
    return;
  }
  slot->ending = true;
  Later(delay, [this, &slot, error] { End(slot, error); });
}

void Port::Abort(Slot& slot) { EndLater(slot, ERROR_OPERATION_ABORTED, Kind().cancel_time); }

BOOL Port::Ask(DWORD* errors, COMSTAT* status) {
  if (Kind().failing_status > 0 && --Kind().failing_status == 0) {
    return Fail(ERROR_GEN_FAILURE);
  }
  *errors = errors_;
  errors_ = 0;
  status->fTxim = ahead_ ? 1 : 0;
  status->cbInQue = static_cast<DWORD>(received_.size());
  status->cbOutQue = static_cast<DWORD>(queue_.size());
  if (write_) {
    status->cbOutQue += static_cast<DWORD>(write_->out.size()) - write_->count;
  }
  return TRUE;
}

BOOL Port::SetMask(DWORD new_mask) {
  if (wait_ && !wait_->ending) {
    *wait_->events = 0;
    EndLater(wait_, 0, Kind().read_time);
  }
  history_ = 0;
  mask = new_mask;
  return TRUE;
}

BOOL Port::Wait(DWORD* events, OVERLAPPED* overlapped) {
  if (Kind().refuses_wait) {
    return Fail(ERROR_NOT_SUPPORTED);
  }
  if (wait_ || mask == 0) {
    return Fail(ERROR_INVALID_PARAMETER);
  }
  const Operation operation{.overlapped = overlapped, .events = events};
  if (Kind().aborts_wait) {
    return Begin(wait_, operation, kMillisecond, [this] { End(wait_, ERROR_OPERATION_ABORTED); });
  }
  // Its end is what is noticed, now or later.
  Begin(wait_, operation, kNever, {});
  const DWORD noticed = history_;
  history_ = 0;
  if (noticed != 0) {
    Deliver(noticed);
  }
  return wait_ ? Fail(ERROR_IO_PENDING) : TRUE;
}

void Port::Deliver(DWORD events) {
  *wait_->events = events;
  EndLater(wait_, 0, Kind().read_time);
}

void Port::Notice(DWORD event) {
  if ((mask & event) == 0) {
    return;
  }
  if (wait_ && !wait_->ending) {
    Deliver(event);
  } else {
    history_ |= event;
  }
}

BOOL Port::Read(std::span<std::uint8_t> buffer, OVERLAPPED* overlapped) {
  return Begin(read_, {.overlapped = overlapped, .in = buffer}, Kind().read_time, [this] {
    const std::size_t count = std::min(read_->in.size(), received_.size());
    const auto end = received_.begin() + static_cast<std::ptrdiff_t>(count);
    std::copy(received_.begin(), end, read_->in.begin());
    received_.erase(received_.begin(), end);
    read_->count = static_cast<DWORD>(count);
    End(read_, 0);
  });
}

BOOL Port::Write(std::span<const std::uint8_t> bytes, OVERLAPPED* overlapped) {
  if (write_) {
    return Fail(ERROR_INVALID_PARAMETER);
  }
  const Operation operation{.overlapped = overlapped, .out = bytes};
  if (Kind().writes_until_sent || Kind().writes_forever) {
    // The bytes are taken from the program one by one.
    Begin(write_, operation, kNever, {});
    Transmit();
    return Fail(ERROR_IO_PENDING);
  }
  return Begin(write_, operation, Kind().read_time, [this] {
    const std::size_t room = kQueueSize - queue_.size();
    const auto taken = write_->out.first(std::min(write_->out.size(), room));
    queue_.insert(queue_.end(), taken.begin(), taken.end());
    write_->count = static_cast<DWORD>(taken.size());
    End(write_, 0);
    Transmit();
  });
}

BOOL Port::SendAhead(std::uint8_t byte) {
  if (Kind().ahead == Driver::Ahead::kRefused || ahead_) {
    return Fail(ERROR_NOT_SUPPORTED);
  }
  ahead_ = byte;
  Later(Kind().ahead == Driver::Ahead::kLate ? kLateAhead : 0, [this] {
    ahead_ready_ = true;
    Transmit();
  });
  return TRUE;
}

void Port::Purge(DWORD what) {
  if ((what & PURGE_TXABORT) != 0) {
    Abort(write_);
  }
  if ((what & PURGE_RXABORT) != 0) {
    Abort(read_);
  }
  if ((what & PURGE_TXCLEAR) != 0) {
    queue_.clear();
  }
  if ((what & PURGE_RXCLEAR) != 0) {
    received_.clear();
  }
  if (Kind().purge_aborts_wait) {
    Abort(wait_);
  }
}

BOOL Port::Cancel(OVERLAPPED* overlapped) {
  bool found = false;
  for (Slot* slot : {&wait_, &read_, &write_}) {
    if (*slot && (overlapped == nullptr || (*slot)->overlapped == overlapped)) {
      found = true;
      Abort(*slot);
    }
  }
  return found || overlapped == nullptr ? TRUE : Fail(ERROR_NOT_FOUND);
}

std::size_t Port::OnTheirWay() const {
  return powered_ ? adapter_.size() + queue_.size() + (shifting_ ? 1 : 0) + (ahead_ ? 1 : 0) : 0;
}

// A cable that is fed by the lines falls silent with them.
void Port::SetLines(bool dtr, bool rts) {
  device_.lines.push_back({TheWorld().now, dtr, rts});
  if (!dtr && !rts) {
    device_.bytes_cut += static_cast<unsigned>(OnTheirWay());
    adapter_.clear();
    queue_.clear();
    ahead_.reset();
  }
  powered_ = dtr && rts;
}

void Port::Receive(std::uint8_t byte) {
  if (dead) {
    return;
  }
  errors_ |= std::exchange(device_.damage_, 0);
  if (received_.size() == kQueueSize) {
    errors_ |= CE_RXOVER;
    return;
  }
  received_.push_back(byte);
  Notice(EV_RXCHAR);
}

void Port::Die() {
  dead = true;
  received_.clear();
  queue_.clear();
  adapter_.clear();
  ahead_.reset();
  for (Slot* slot : {&wait_, &read_, &write_}) {
    Abort(*slot);
  }
}

std::optional<std::uint8_t> Port::NextByte() {
  if (ahead_ && ahead_ready_) {
    ahead_ready_ = false;
    return std::exchange(ahead_, std::nullopt);
  }
  if (write_ && !write_->ending && Kind().writes_until_sent && write_->count < write_->out.size()) {
    return write_->out[write_->count++];
  }
  while (!queue_.empty() && adapter_.size() < kAdapterSize) {
    adapter_.push_back(queue_.front());
    queue_.pop_front();
  }
  if (adapter_.empty()) {
    return std::nullopt;
  }
  const std::uint8_t byte = adapter_.front();
  adapter_.pop_front();
  return byte;
}

void Port::Transmit() {
  if (shifting_ || dead) {
    return;
  }
  const auto byte = NextByte();
  if (!byte) {
    return;
  }
  shifting_ = true;
  const bool follows = TheWorld().now == device_.last_stop_bit;
  Later(kWireByte + (follows ? 0 : Kind().adapter_time), [this, byte] { StopBit(*byte); });
}

void Port::StopBit(std::uint8_t byte) {
  shifting_ = false;
  if (dead || !powered_) {
    return;
  }
  device_.left.push_back(byte);
  device_.last_stop_bit = TheWorld().now;
  if (write_ && write_->count == write_->out.size() && !Kind().writes_forever) {
    EndLater(write_, 0, Kind().read_time);
  }
  if (device_.echoes) {
    Receive(byte);
  }
  if (device_.radio != nullptr) {
    device_.radio->Hear(byte);
  }
  if (adapter_.empty() && queue_.empty() && !ahead_ && !write_ && Kind().tells_empty) {
    Notice(EV_TXEMPTY);
  }
  Transmit();
}

}  // namespace qz7::model
