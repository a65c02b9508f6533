#include "ctl/port_access.h"

namespace qz7 {

std::string WhoIsLetIn(const std::string& /*device*/) { return ""; }

}  // namespace qz7
