#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/image/channel_description.h"
#include "core/image/clone_image.h"
#include "core/image/region_variant.h"
#include "core/interchange/import_doubts.h"
#include "core/interchange/import_lines.h"
#include "core/interchange/import_selection.h"
#include "core/interchange/import_session.h"

namespace qz7 {

// A whole import without its dialogs.
struct ImportRequest {
  ImportOptions options;
  // 0 leaves a field to the header line where there is one. A column that is given to a field here
  // is taken from the field that the header line gives it to.
  ColumnAssignment columns{};
  std::optional<std::vector<int>> rows;  // listed records to take, from 0; nothing for all
  std::optional<int> start;              // nothing for the default start channel
  RegionVariant region;
};

struct ImportResult {
  std::size_t listed = 0;
  std::size_t placed = 0;
  int start = 0;
  std::vector<ImportDoubt> doubts;
};

// Imports the bytes of a file into the image, by the same steps as the dialogs. Nothing after
// showing why, and then the image is unchanged.
std::optional<ImportResult> ImportIntoImage(CloneImage& image, ImportSession& session,
                                            std::span<const std::uint8_t> bytes,
                                            const ImportRequest& request);

// What that import would offer, and nothing is imported.
struct ImportOffer {
  ImportList list;
  std::vector<ImportDoubt> doubts;
};
std::optional<ImportOffer> OfferImport(const CloneImage& image, ImportSession& session,
                                       std::span<const std::uint8_t> bytes,
                                       const ImportRequest& request);
// The channel that a record would become, by the fields of core/image/channel_description.h.
std::vector<NamedValue> DescribeRecord(const CloneImage& image, const ImportRecord& record,
                                       const RegionVariant& region);

}  // namespace qz7
