#pragma once

namespace qz7 {

// While this is set, `new (std::nothrow)` finds no memory. Ordinary `new` always does.
extern bool nothrow_new_fails;

}  // namespace qz7
