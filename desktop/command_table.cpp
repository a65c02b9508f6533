#include "desktop/command_table.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "core/files/seams.h"
#include "core/files/unexpected.h"

namespace qz7 {
namespace {

struct Kept {
  explicit Kept(const Document& now)
      : document(now), shown(now.image), title(std::string(kProgramTitle) + " - " + now.name) {
    ReadMainControls(shown);
  }
  Document document;
  CloneImage shown;  // with what the main dialog's controls hold
  std::string title;
};

void Restore(Document& document, Kept& kept) noexcept {
  document = std::move(kept.document);
  try {
    LoadMainDialog(kept.shown);
    SetMainTitle(kept.title);
  } catch (...) {
    // What is shown stays behind; the next command reads the controls.
    return;
  }
}

}  // namespace

bool RunWhole(Document& document, const std::function<void()>& work) {
  std::unique_ptr<Kept> kept;
  try {
    kept = std::make_unique<Kept>(document);
    work();
    return true;
  } catch (...) {
    if (kept) {
      Restore(document, *kept);
    }
    ShowUnexpected();
    return false;
  }
}

bool RunCommand(std::span<const Command> commands, Document& document, int id) {
  const auto command = std::find_if(commands.begin(), commands.end(), [id](const Command& c) {
    return id >= c.id && id < c.id + c.count;
  });
  if (command == commands.end()) {
    return false;
  }
  const auto work = [&] {
    if (command->collects_first) {
      CollectMainDialog(document);
    }
    command->run(id);
  };
  // By reference: a copy would want memory where nobody is there yet to say that it is missing.
  RunWhole(document, std::cref(work));
  return true;
}

}  // namespace qz7
