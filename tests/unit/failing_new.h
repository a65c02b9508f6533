#pragma once

#include <cstddef>

namespace qz7 {

// While this is set, `new (std::nothrow)` finds no memory.
extern bool nothrow_new_fails;

// One allocation of those that follow fails, the n-th (from 1), of either kind of `new`.
class FailingNew {
 public:
  explicit FailingNew(std::size_t n);
  ~FailingNew();
  FailingNew(const FailingNew&) = delete;
  FailingNew& operator=(const FailingNew&) = delete;

  // Whether there were so many that it has failed.
  bool HasFailed() const;
};

// What the test itself does meanwhile is not counted.
class UncountedNew {
 public:
  UncountedNew();
  ~UncountedNew();
  UncountedNew(const UncountedNew&) = delete;
  UncountedNew& operator=(const UncountedNew&) = delete;

 private:
  std::size_t left_;
};

}  // namespace qz7
