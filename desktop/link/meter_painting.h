#pragma once

#include <windows.h>

#include "core/link/progress_meter.h"

namespace qz7 {

// A black frame around a blue bar that grows from the left, the percentage in its middle: white
// over the bar, blue beside it.
void PaintMeter(const DRAWITEMSTRUCT& item, const ProgressMeter& meter);

}  // namespace qz7
