#include <grp.h>
#include <sys/stat.h>

#include "ctl/port_access.h"

namespace qz7 {

std::string WhoIsLetIn(const std::string& device) {
  struct stat state {};
  if (stat(device.c_str(), &state) != 0 || (state.st_mode & S_IRGRP) == 0 ||
      (state.st_mode & S_IWGRP) == 0) {
    return "";
  }
  const group* owners = getgrgid(state.st_gid);
  return owners != nullptr
             ? " Members of the group " + std::string(owners->gr_name) + " are let in."
             : "";
}

}  // namespace qz7
