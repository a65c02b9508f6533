#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>

#include "tests/model/windows.h"

// The machine of the model: a clock that only this machine moves, and what happens at which time.
namespace qz7::model {

using Time = std::int64_t;  // nanoseconds since the machine was started
inline constexpr Time kMillisecond = 1'000'000;
inline constexpr Time kForever = INT64_MAX;

// A call into the system takes this long, so that no loop stands still; waking up takes longer.
inline constexpr Time kCallTime = 5'000;
inline constexpr Time kWakeTime = 40'000;
// The system's timer: every time-out ends on one of its steps. timeBeginPeriod makes it finer.
inline constexpr Time kCoarseStep = 15'625'000;

struct Object {
  virtual ~Object() = default;
  bool signalled = false;
};

class World {
 public:
  Time now = 3 * kMillisecond;
  Time timer_step = kCoarseStep;
  DWORD last_error = 0;
  std::set<Object*> objects;  // what handles stand for

  void At(Time moment, std::function<void()> action) {
    actions_.emplace(moment, std::move(action));
  }
  void After(Time delay, std::function<void()> action) { At(now + delay, std::move(action)); }

  // Lets time pass, and what falls into it happen.
  void Pass(Time duration) {
    if (actions_.empty() || actions_.begin()->first > now + duration) {
      now += duration;
    } else {
      PassUntil(now + duration, [] { return false; });
    }
  }
  // The same until the condition holds; whether it does. Where nothing can happen any more, or far
  // too late, the program under test hangs, which is an exception.
  bool PassUntil(Time limit, const std::function<bool()>& condition);

  // When a time-out of so many milliseconds ends: on a step of the timer.
  Time EndOf(DWORD milliseconds) const;

 private:
  std::multimap<Time, std::function<void()>> actions_;
};

// The one machine; a test starts with a new one.
World& TheWorld();
bool HasWorld();
void StartWorld();

// For calls: the time that each takes, and how each says no.
void EnterCall();
BOOL Fail(DWORD error);

// The object behind a handle; null for one that is closed, which is a mistake of the program.
template <class Kind>
Kind* ObjectOf(HANDLE handle) {
  auto* object = static_cast<Object*>(handle);
  return TheWorld().objects.contains(object) ? dynamic_cast<Kind*>(object) : nullptr;
}

}  // namespace qz7::model
