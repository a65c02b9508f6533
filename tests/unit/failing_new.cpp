#include "tests/unit/failing_new.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace qz7 {
namespace {

std::size_t left = 0;  // until one fails; 0: none does

bool Fails() { return left > 0 && --left == 0; }

}  // namespace

bool nothrow_new_fails = false;

FailingNew::FailingNew(std::size_t n) { left = n; }
FailingNew::~FailingNew() { left = 0; }
bool FailingNew::HasFailed() const { return left == 0; }

UncountedNew::UncountedNew() : left_(std::exchange(left, 0)) {}
UncountedNew::~UncountedNew() { left = left_; }

}  // namespace qz7

void* operator new(std::size_t size) {
  void* memory = qz7::Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  const bool fails = qz7::nothrow_new_fails || qz7::Fails();
  return fails ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* operator new[](std::size_t size) { return operator new(size); }
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
  return operator new(size, tag);
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
