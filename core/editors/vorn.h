#pragma once

#include "core/editors/setting_rows.h"

namespace qz7 {

// The VORN editor.
const SettingScreen& VornScreen();

}  // namespace qz7
