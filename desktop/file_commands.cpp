#include "desktop/file_commands.h"

#include <memory>

#include "core/editors/variant_conversion.h"
#include "core/files/csv_export.h"
#include "core/files/seams.h"
#include "core/image/derived_tables.h"
#include "core/link/clone_write.h"

namespace qz7 {
namespace {

void FollowVersion(Document& document) {
  if (NeedsVariantConversion(document.image, document.region)) {
    ConvertChannelsForVariant(BeginWorkingCopy(document), document.region);
    TakeWorkingCopy(document);
  }
}

}  // namespace

void StartNewFile(Document& document) {
  if (AskSaveChanges(document)) {
    NewDocument(document);
  }
}

bool OpenRadioFile(Document& document) {
  const bool opened = OpenDocument(document);
  FollowVersion(document);
  return opened;
}

bool OpenRadioFile(Document& document, const std::filesystem::path& dropped) {
  const bool opened = OpenChosenDocument(document, dropped);
  FollowVersion(document);
  return opened;
}

bool TakeTemplate(Preferences& preferences, const std::filesystem::path& path) {
  const auto image = std::make_unique<CloneImage>();
  if (LoadTemplateFor(*image, path) != TemplateOutcome::kUsable ||
      ShowMessage("Use this template when data is sent?\n" + PathText(path), kProgramTitle,
                  Buttons::kYesNo, Icon::kQuestion) != Answer::kYes) {
    return false;
  }
  preferences.template_path = path;
  SaveTemplatePath(preferences);
  return true;
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
