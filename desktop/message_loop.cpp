#include "desktop/message_loop.h"

#include "desktop/app_state.h"
#include "desktop/commands.h"

namespace qz7 {
namespace {

bool IsCommandKey(HACCEL keys, MSG& message) {
  return IsWindowEnabled(app.main_window) &&
         TranslateAcceleratorA(app.main_window, keys, &message) != 0;
}

bool IsDialogKey(MSG& message) {
  return app.main_dialog != nullptr && IsDialogMessageA(app.main_dialog, &message);
}

}  // namespace

std::vector<ACCEL> Accelerators(std::span<const Command> commands) {
  std::vector<ACCEL> keys;
  for (const Command& command : commands) {
    if (command.key.letter != 0) {
      const int held = FVIRTKEY | FCONTROL | (command.key.shift ? FSHIFT : 0);
      keys.push_back({.fVirt = static_cast<BYTE>(held),
                      .key = static_cast<WORD>(command.key.letter),
                      .cmd = static_cast<WORD>(command.id)});
    }
  }
  return keys;
}

void RunMessageLoop() {
  std::vector<ACCEL> accelerators = Accelerators(Commands());
  const HACCEL keys =
      CreateAcceleratorTableA(accelerators.data(), static_cast<int>(accelerators.size()));
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    if (!IsCommandKey(keys, message) && !IsDialogKey(message)) {
      TranslateMessage(&message);
      DispatchMessageA(&message);
    }
  }
  DestroyAcceleratorTable(keys);
}

}  // namespace qz7
