#pragma once

#include "core/editors/setting_rows.h"

namespace qz7 {

// The WX names editor: a name is shown without its trailing blanks and padded with them again.
const SettingScreen& WxNamesScreen();

}  // namespace qz7
