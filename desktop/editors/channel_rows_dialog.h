#pragma once

#include <windows.h>

#include <span>
#include <vector>

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"

namespace qz7 {

// The list box of the memory list: row 0 is channel 1.

void FillRows(HWND list, const CloneImage& image, const RegionVariant& region);
// Writes `rows` rows anew, from that of channel n on; the list stays where it was scrolled to.
void RedrawRowsFrom(HWND list, const CloneImage& image, const RegionVariant& region, int n,
                    int rows);

std::vector<int> SelectedRows(HWND list);
// Selects these rows alone, in ascending order, or one; without scrolling.
void SelectRows(HWND list, std::span<const int> rows);
void SelectRow(HWND list, int row);
// Scrolls no further than needed to show the row.
void ShowRow(HWND list, int row);

}  // namespace qz7
