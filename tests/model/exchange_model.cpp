#include "tests/model/exchange_model.h"

#include "ctl/console.h"
#include "ctl/progress_bar.h"
#include "ctl/terminal.h"
#include "desktop/link/exchange_window.h"

// What the programs bring for their exchanges: the tests' own recorders.
namespace qz7 {

namespace model {

std::vector<std::string> told;

}  // namespace model

void PrintError(const std::string& line) { model::told.push_back(line); }
bool IsErrorTerminal() { return false; }

ProgressBar::ProgressBar(bool on_terminal) : on_terminal_(on_terminal) {}
void ProgressBar::Show(const ProgressMeter& /*meter*/) {}
void ProgressBar::Finish() {}

void ShowBoxWithoutOwner(const std::string& text, const std::string& caption) {
  ShowMessage(text, caption, Buttons::kOk, Icon::kNone);
}

}  // namespace qz7
