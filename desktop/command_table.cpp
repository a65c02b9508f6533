#include "desktop/command_table.h"

#include <algorithm>

namespace qz7 {

bool RunCommand(std::span<const Command> commands, Document& document, int id) {
  const auto command = std::find_if(commands.begin(), commands.end(), [id](const Command& c) {
    return id >= c.id && id < c.id + c.count;
  });
  if (command == commands.end()) {
    return false;
  }
  if (command->collects_first) {
    CollectMainDialog(document);
  }
  command->run(id);
  return true;
}

}  // namespace qz7
