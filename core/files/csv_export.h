#pragma once

#include <array>
#include <filesystem>
#include <string>

#include "core/files/csv_columns.h"
#include "core/files/seams.h"
#include "core/image/clone_image.h"

namespace qz7 {

// A line of the list, field by field: the titles, and programmed memory channel n as the derived
// tables have it.
using CsvFields = std::array<std::string, kCsvColumnCount>;
CsvFields CsvTitles();
CsvFields CsvFieldsOf(const CloneImage& image, int n);

// The programmed memory channels as comma-separated text: a line of titles, then a line a channel,
// every field in quotation marks, lines ended by CR LF. The fields are written as they are: a
// quotation mark inside a name or a comment is not escaped. All but the power is read from the
// derived tables, so that RebuildDerivedTables comes first.
std::string ExportCsv(const CloneImage& image);

// Writes that text to a file; false after showing "Cannot create file:" or "Error writing file:".
bool WriteCsvFile(const CloneImage& image, const std::filesystem::path& path);

// The box that asks where to. `last_name` is the name last chosen in it, empty at first.
FileBox ExportFileBox(const std::filesystem::path& data_folder,
                      const std::filesystem::path& last_name);

}  // namespace qz7
