#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"
#include "core/interchange/import_lines.h"
#include "core/interchange/import_reader.h"
#include "core/interchange/import_session.h"

namespace qz7 {

// The selection dialog's list: record i is row i.
struct ImportList {
  std::unique_ptr<ImportRecord[]> records;
  std::size_t listed = 0;
  // What the dialog shows as "In list:" and, after Select All, as "Selected:". It is the number of
  // rows, but for fixed-length fields the number of lines, of which none is listed.
  std::uint16_t record_count = 0;

  std::span<const ImportRecord> Rows() const { return {records.get(), listed}; }
};

// A file with something in its fourth column brings its tone modes itself, it is supposed: the
// check of its tones is switched off for the rest of the run.
void SwitchToneCheck(ImportSession& session);

// Reads the rewound lines into the list: every record whose receive frequency the radio accepts.
// Nothing after showing "Error reading file: %s", when the header line cannot be read: the dialog
// ends at once. Without memory for the records "Out of Memory" is shown and the list is empty.
std::optional<ImportList> OpenSelection(const CloneImage& image, ImportSession& session,
                                        ImportLines& lines);

// The row of a record, its columns separated by tabs. The odd-split mark is the byte 0xB1.
std::string FormatImportRow(const ImportRecord& record);

// The channels that an import has written, from the first on without a gap.
struct PlacedChannels {
  int first = 0;
  int count = 0;
};

enum class ImportAnswer {
  kPlaced,
  kTooMany,       // shown; the dialog stays
  kIllegalStart,  // shown; the dialog stays, focus on the start field
};

// OK: writes the selected rows (0-based, in list order) into the channels from `start` on, over
// whatever stands there, and rebuilds the derived tables. Refused without a change when they reach
// behind the last channel or the start is below 1.
ImportAnswer AcceptSelection(CloneImage& image, const ImportList& list,
                             const std::vector<int>& selected, int start,
                             const RegionVariant& region);

}  // namespace qz7
