#include "tests/model/world.h"

#include <cstring>
#include <memory>
#include <stdexcept>

namespace {

std::unique_ptr<qz7::model::World> the_world;

}  // namespace

namespace qz7::model {

World& TheWorld() { return *the_world; }

bool HasWorld() { return the_world != nullptr; }

void StartWorld() { the_world = std::make_unique<World>(); }

bool World::PassUntil(Time limit, const std::function<bool()>& condition) {
  constexpr Time kTooLate = 180'000 * kMillisecond;
  while (!condition()) {
    const Time next = actions_.empty() ? kForever : actions_.begin()->first;
    if (next > limit || std::min(next, limit) > kTooLate) {
      if (std::min(next, limit) > kTooLate) {
        throw std::runtime_error("the program waits for what will never come");
      }
      now = std::max(now, limit);
      return condition();
    }
    const auto first = actions_.begin();
    now = std::max(now, first->first);
    const std::function<void()> action = std::move(first->second);
    actions_.erase(first);
    action();
  }
  return true;
}

Time World::EndOf(DWORD milliseconds) const {
  const Time end = now + milliseconds * kMillisecond;
  return (end + timer_step - 1) / timer_step * timer_step;
}

void EnterCall() { TheWorld().Pass(kCallTime); }

BOOL Fail(DWORD error) {
  TheWorld().last_error = error;
  return FALSE;
}

}  // namespace qz7::model

using namespace qz7::model;

namespace {

struct Event final : Object {};

UINT BeginPeriod(UINT milliseconds) {
  TheWorld().timer_step = milliseconds * kMillisecond;
  return 0;
}

UINT EndPeriod(UINT /*milliseconds*/) {
  TheWorld().timer_step = kCoarseStep;
  return 0;
}

}  // namespace

DWORD GetLastError() { return TheWorld().last_error; }

HANDLE CreateEventA(void* /*security*/, BOOL /*manual*/, BOOL signalled, LPCSTR /*name*/) {
  auto* event = new Event;
  event->signalled = signalled != FALSE;
  TheWorld().objects.insert(event);
  return static_cast<Object*>(event);
}

BOOL SetEvent(HANDLE event) {
  auto* object = ObjectOf<Event>(event);
  return object != nullptr ? (object->signalled = true, TRUE) : Fail(ERROR_INVALID_HANDLE);
}

BOOL ResetEvent(HANDLE event) {
  EnterCall();
  auto* object = ObjectOf<Event>(event);
  return object != nullptr ? (object->signalled = false, TRUE) : Fail(ERROR_INVALID_HANDLE);
}

BOOL CloseHandle(HANDLE handle) {
  EnterCall();
  auto* object = ObjectOf<Object>(handle);
  if (object == nullptr) {
    return Fail(ERROR_INVALID_HANDLE);
  }
  TheWorld().objects.erase(object);
  delete object;
  return TRUE;
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) {
  EnterCall();
  if (ObjectOf<Object>(handle) == nullptr) {
    Fail(ERROR_INVALID_HANDLE);
    return WAIT_FAILED;
  }
  const auto is_signalled = [&] { return ObjectOf<Object>(handle)->signalled; };
  if (is_signalled() || milliseconds == 0) {
    return is_signalled() ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
  }
  World& world = TheWorld();
  const bool woken = world.PassUntil(
      milliseconds == INFINITE ? kForever : world.EndOf(milliseconds), is_signalled);
  world.Pass(kWakeTime);
  return woken ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}

void Sleep(DWORD milliseconds) {
  EnterCall();
  World& world = TheWorld();
  if (milliseconds > 0) {
    world.Pass(world.EndOf(milliseconds) - world.now + kWakeTime);
  }
}

UINT GetSystemDirectoryA(char* buffer, UINT size) {
  constexpr char kFolder[] = "C:\\Windows\\System32";
  std::memcpy(buffer, kFolder, std::min<std::size_t>(sizeof kFolder, size));
  return sizeof kFolder - 1;
}

HMODULE LoadLibraryA(LPCSTR path) {
  if (std::strcmp(path, "C:\\Windows\\System32\\winmm.dll") != 0) {
    Fail(ERROR_FILE_NOT_FOUND);
    return nullptr;
  }
  static int library;
  return &library;
}

FARPROC GetProcAddress(HMODULE /*library*/, LPCSTR name) {
  UINT(*const function)
  (UINT) = std::strcmp(name, "timeBeginPeriod") == 0 ? BeginPeriod : EndPeriod;
  return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(function));
}
