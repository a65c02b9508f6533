#include "desktop/file_commands.h"

#include "core/editors/variant_conversion.h"
#include "core/files/csv_export.h"
#include "core/image/derived_tables.h"

namespace qz7 {

void StartNewFile(Document& document) {
  if (AskSaveChanges(document)) {
    NewDocument(document);
  }
}

void OpenRadioFile(Document& document) {
  OpenDocument(document);
  if (NeedsVariantConversion(document.image, document.region)) {
    ConvertChannelsForVariant(BeginWorkingCopy(document), document.region);
    TakeWorkingCopy(document);
  }
}

bool ExportChannels(Document& document) {
  RebuildDerivedTables(document.image);
  AcceptImage(document);
  document.export_in_progress = true;
  const auto file =
      ShowSaveBox(ExportFileBox(document.preferences.data_folder, document.last_export_name));
  bool written = false;
  if (file) {
    document.last_export_name = file->name;
    written = WriteCsvFile(document.working_copy, file->path);
  }
  document.export_in_progress = false;
  return written;
}

}  // namespace qz7
