#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "core/editors/image_difference.h"
#include "core/image/channel_description.h"

namespace qz7 {

using Json = nlohmann::ordered_json;

// On standard output; on a terminal every character but ASCII is escaped.
void PrintJson(const Json& json);

Json FieldsAsJson(const std::vector<NamedValue>& fields);
// The memory list: of each row its channel, and of a programmed one the columns by name.
Json RowsAsJson(const CloneImage& image, const RegionVariant& region);
Json DifferencesAsJson(const std::vector<Difference>& differences);

}  // namespace qz7
