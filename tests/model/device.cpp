#include "tests/model/device.h"

#include <strings.h>

#include <cstring>

#include "tests/model/port.h"

namespace qz7::model {
namespace {

std::unique_ptr<Device> the_device;

// The open port behind a handle, where the device is still there; otherwise the call fails.
Port* Enter(HANDLE handle) {
  EnterCall();
  Port* port = ObjectOf<Port>(handle);
  if (port == nullptr || port->dead) {
    Fail(port == nullptr ? ERROR_INVALID_HANDLE : ERROR_BAD_COMMAND);
    return nullptr;
  }
  return port;
}

}  // namespace

Device& TheDevice() { return *the_device; }

void StartDevice() { the_device = std::make_unique<Device>(); }

Radio::Radio() { the_device->radio = this; }

Radio::~Radio() {
  if (the_device->radio == this) {
    the_device->radio = nullptr;
  }
}

void Radio::Later(Time delay, std::function<void()> action) {
  TheWorld().After(delay, [alive = std::weak_ptr(alive_), action = std::move(action)] {
    if (!alive.expired()) {
      action();
    }
  });
}

std::size_t OpenObjects() { return TheWorld().objects.size(); }

void Device::RadioSends(std::uint8_t byte) {
  TheWorld().After(kWireByte, [this, byte] {
    if (port_ != nullptr && plugged) {
      port_->Receive(byte);
    }
  });
}

void Device::Unplug() {
  plugged = false;
  if (port_ != nullptr) {
    port_->Die();
  }
}

}  // namespace qz7::model

using namespace qz7::model;

HANDLE CreateFileA(LPCSTR name, DWORD /*access*/, DWORD /*share*/, void* /*security*/,
                   DWORD /*disposition*/, DWORD flags, HANDLE /*pattern*/) {
  EnterCall();
  Device& device = TheDevice();
  const bool known = std::strcmp(name, "COM3") == 0 || strcasecmp(name, R"(\\.\COM12)") == 0;
  if (!known || !device.plugged || flags != FILE_FLAG_OVERLAPPED) {
    Fail(ERROR_FILE_NOT_FOUND);
    return INVALID_HANDLE_VALUE;
  }
  // A handle of a device that was pulled out keeps the name until it is closed.
  if (device.IsOpen()) {
    Fail(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
  }
  auto* port = new Port(device);
  TheWorld().objects.insert(port);
  return static_cast<Object*>(port);
}

BOOL SetupComm(HANDLE handle, DWORD /*receive*/, DWORD /*transmit*/) {
  return Enter(handle) != nullptr;
}

BOOL GetCommState(HANDLE handle, DCB* state) {
  Port* port = Enter(handle);
  if (port == nullptr) {
    return FALSE;
  }
  TheWorld().Pass(TheDevice().driver.settings_time);
  *state = port->state;
  return TRUE;
}

BOOL SetCommState(HANDLE handle, DCB* state) {
  Port* port = Enter(handle);
  if (port == nullptr) {
    return FALSE;
  }
  TheWorld().Pass(TheDevice().driver.settings_time);
  port->state = *state;
  port->SetLines(state->fDtrControl != DTR_CONTROL_DISABLE,
                 state->fRtsControl != RTS_CONTROL_DISABLE);
  return TRUE;
}

BOOL SetCommTimeouts(HANDLE handle, COMMTIMEOUTS* timeouts) {
  // The one set that the model's reads and writes follow: reads that do not wait.
  const bool known =
      timeouts->ReadIntervalTimeout == MAXDWORD && timeouts->ReadTotalTimeoutMultiplier == 0 &&
      timeouts->ReadTotalTimeoutConstant == 0 && timeouts->WriteTotalTimeoutMultiplier == 0 &&
      timeouts->WriteTotalTimeoutConstant == 0;
  return Enter(handle) != nullptr && (known || Fail(ERROR_INVALID_PARAMETER));
}

BOOL GetCommMask(HANDLE handle, DWORD* mask) {
  Port* port = Enter(handle);
  return port != nullptr && (*mask = port->mask, TRUE);
}

BOOL SetCommMask(HANDLE handle, DWORD mask) {
  Port* port = Enter(handle);
  return port != nullptr && port->SetMask(mask);
}

BOOL WaitCommEvent(HANDLE handle, DWORD* events, OVERLAPPED* operation) {
  Port* port = Enter(handle);
  return port != nullptr && port->Wait(events, operation);
}

BOOL PurgeComm(HANDLE handle, DWORD what) {
  Port* port = Enter(handle);
  return port != nullptr && (port->Purge(what), TRUE);
}

BOOL ClearCommError(HANDLE handle, DWORD* errors, COMSTAT* status) {
  Port* port = Enter(handle);
  return port != nullptr && port->Ask(errors, status);
}

BOOL TransmitCommChar(HANDLE handle, char byte) {
  Port* port = Enter(handle);
  return port != nullptr && port->SendAhead(static_cast<std::uint8_t>(byte));
}

BOOL ReadFile(HANDLE handle, void* buffer, DWORD size, DWORD* /*count*/, OVERLAPPED* operation) {
  Port* port = Enter(handle);
  return port != nullptr && port->Read({static_cast<std::uint8_t*>(buffer), size}, operation);
}

BOOL WriteFile(HANDLE handle, const void* buffer, DWORD size, DWORD* /*count*/,
               OVERLAPPED* operation) {
  Port* port = Enter(handle);
  return port != nullptr &&
         port->Write({static_cast<const std::uint8_t*>(buffer), size}, operation);
}

BOOL GetOverlappedResult(HANDLE /*handle*/, OVERLAPPED* operation, DWORD* count, BOOL wait) {
  EnterCall();
  const auto is_done = [&] { return operation->Internal != kPending; };
  if (!is_done() && !wait) {
    return Fail(ERROR_IO_INCOMPLETE);
  }
  TheWorld().PassUntil(kForever, is_done);
  *count = static_cast<DWORD>(operation->InternalHigh);
  return operation->Internal == 0 || Fail(static_cast<DWORD>(operation->Internal));
}

BOOL CancelIo(HANDLE handle) { return CancelIoEx(handle, nullptr); }

BOOL CancelIoEx(HANDLE handle, OVERLAPPED* operation) {
  EnterCall();
  Port* port = ObjectOf<Port>(handle);
  return port != nullptr ? port->Cancel(operation) : Fail(ERROR_INVALID_HANDLE);
}
