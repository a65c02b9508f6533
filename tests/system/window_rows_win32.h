#pragma once

#include "tests/system/window_access_win32.h"

// The commands of the driver that look at list boxes, places on the screen and the clipboard.

Fields Rows(const Fields& fields);
Fields SelectedRows(const Fields& fields);
Fields RowArea(const Fields& fields);
Fields Area(const Fields& fields);
Fields Inside(const Fields& fields);
Fields Said(const Fields& fields);
Fields Clipboard(const Fields& fields);
Fields SetClipboard(const Fields& fields);
