#pragma once

#include <string>

namespace qz7 {

// " Members of the group dialout are let in." for a device that a group may use; empty otherwise.
std::string WhoIsLetIn(const std::string& device);

}  // namespace qz7
