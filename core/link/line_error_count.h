#pragma once

#include <optional>
#include <utility>

namespace qz7 {

// Makes the line errors since the last look of a driver's running count, which starts at whatever
// it was. A look at which the driver tells no count finds no error.
class LineErrorCount {
 public:
  unsigned Since(std::optional<unsigned> counted) {
    if (!counted) {
      return 0;
    }
    const unsigned before = std::exchange(counted_, counted).value_or(*counted);
    return *counted - before;
  }

 private:
  std::optional<unsigned> counted_;
};

}  // namespace qz7
