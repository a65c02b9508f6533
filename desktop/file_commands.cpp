#include "desktop/file_commands.h"

#include "core/editors/variant_conversion.h"
#include "core/files/csv_export.h"
#include "core/image/derived_tables.h"

namespace qz7 {

void OpenRadioFile(Document& document) {
  OpenDocument(document);
  if (NeedsVariantConversion(document.image, document.region)) {
    ConvertChannelsForVariant(document.image, document.working_copy, document.region);
  }
}

void ExportChannels(Document& document) {
  CollectMainDialog(document);
  RebuildDerivedTables(document.image);
  document.working_copy = document.image;
  document.changed = true;
  const auto file =
      ShowSaveBox(ExportFileBox(document.preferences.data_folder, document.last_export_name));
  if (file) {
    document.last_export_name = file->name;
    WriteCsvFile(document.working_copy, file->path);
  }
}

}  // namespace qz7
