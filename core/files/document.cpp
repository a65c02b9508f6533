#include "core/files/document.h"

#include <algorithm>

#include "core/files/document_header.h"
#include "core/files/file_output.h"
#include "core/files/new_document.h"
#include "core/files/paths.h"
#include "core/files/radio_data_file.h"
#include "core/files/seams.h"
#include "core/image/derived_tables.h"

namespace qz7 {
namespace {

constexpr std::uint8_t kExtendedVersionType = 2;

FileBox RadioFileBox(const Document& document, const char* title) {
  return {.title = title,
          .filters = {{"Radio Files (*.rdf)", "*.rdf"}, {"All files (*.*)", "*.*"}},
          .default_extension = "rdf",
          .folder = document.preferences.data_folder,
          .initial_name = ""};
}

// The document is as its file has it.
void StandAtFile(Document& document) {
  document.changed = false;
  document.untitled = false;
  TellRecentDocument(document.path);
}

// The data folder follows the user's choice of files.
void FollowFolder(Document& document, const ChosenFile& file) {
  if (file.name_offset == 0 || file.name_offset > file.path.native().size()) {
    return;
  }
  std::filesystem::path::string_type folder = file.path.native().substr(0, file.name_offset);
  if (NameOffset(folder) == folder.size()) {
    folder.pop_back();
  }
  ChangeDataFolder(document.preferences, folder);
}

void BecomeFile(Document& document, const ChosenFile& file) {
  document.name = PathText(file.name);
  document.path = file.path;
  StandAtFile(document);
  RefreshDocument(document);
  FollowFolder(document, file);
}

bool OpenFile(Document& document, const ChosenFile& file) {
  if (!ReadRadioDataFile(document.working_copy, file.path)) {
    return false;
  }
  TakeWorkingCopy(document);
  document.in_file = document.image;
  BecomeFile(document, file);
  return true;
}

// Save As proposes its name from then on.
bool OpenProposed(Document& document, const ChosenFile& file) {
  document.last_file_name = file.name;
  return OpenFile(document, file);
}

}  // namespace

CloneImage& BeginWorkingCopy(Document& document) {
  document.working_copy = document.image;
  return document.working_copy;
}

void AcceptWorkingCopy(Document& document) {
  if (document.working_copy != document.image) {
    TakeWorkingCopy(document);
    document.changed = true;
  }
}

void TakeWorkingCopy(Document& document) { document.image = document.working_copy; }

void DropWorkingCopy(Document& document) { document.working_copy = document.image; }

void AcceptImage(Document& document) {
  document.working_copy = document.image;
  document.changed = true;
}

bool CollectMainDialog(Document& document) {
  ReadMainControls(document.image);
  const bool differs = document.image != document.working_copy;
  document.changed |= differs;
  return differs;
}

void ApplyMainDefaults(Document& document) {
  CopyMainDefaultsToImage(document.defaults, document.image);
  LoadMainDialog(document.image);
}

void StoreMainDefaults(Document& document) {
  CollectMainDialog(document);
  CopyMainDefaultsToRecord(document.image, document.defaults);
}

bool DiffersFromFile(const Document& document, const CloneImage& image) {
  return !std::equal(image.begin() + kFileComment.offset, image.end(),
                     document.in_file.begin() + kFileComment.offset);
}

void NewDocument(Document& document) {
  MakeNewImage(document.image);
  document.name = kNewDocumentName;
  document.path = InFolder(document.preferences.data_folder, kNewDocumentName);
  document.changed = false;
  document.untitled = true;
  RefreshDocument(document);
  document.in_file = document.image;
}

void RefreshDocument(Document& document) {
  // The two are not told apart on purpose: a Save As with either set leaves the defaults in memory.
  if (document.preferences.use_main_defaults_new || document.preferences.use_main_defaults_open) {
    CopyMainDefaultsToImage(document.defaults, document.image);
  }
  DropWorkingCopy(document);
  LoadMainDialog(document.image);
  SetMainTitle(std::string(kProgramTitle) + " - " + document.name);
}

bool AskSaveChanges(Document& document) {
  CollectMainDialog(document);
  if (!document.changed) {
    return true;
  }
  switch (ShowMessage(document.name + " has been changed.\nSave file before closing?",
                      kProgramTitle, Buttons::kYesNoCancel, Icon::kQuestion)) {
    case Answer::kYes:
      return SaveDocument(document);
    case Answer::kNo:
      return true;
    default:
      return false;
  }
}

bool OpenDocument(Document& document) {
  if (!AskSaveChanges(document)) {
    return false;
  }
  const auto file = ShowOpenBox(RadioFileBox(document, "Open Radio File"));
  return file && OpenProposed(document, *file);
}

ChosenFile FileAt(const std::filesystem::path& full_path) {
  return {.path = full_path, .name = NamePart(full_path), .name_offset = NameOffset(full_path)};
}

bool OpenChosenDocument(Document& document, const std::filesystem::path& full_path) {
  return AskSaveChanges(document) && OpenProposed(document, FileAt(full_path));
}

// The title, the working copy and the data folder stay as they were. A save changes the checksums
// and the filler, so the next collection finds a difference: the question comes again, on purpose.
bool SaveDocument(Document& document) {
  CollectMainDialog(document);
  if (document.untitled) {
    return SaveDocumentAs(document);
  }
  if (!WriteRadioDataFile(document.image, document.path)) {
    return false;
  }
  document.in_file = document.image;
  StandAtFile(document);
  return true;
}

bool SaveDocumentAs(Document& document) {
  CollectMainDialog(document);
  PrepareRadioDataFile(document.image);
  FileBox box = RadioFileBox(document, "Save Radio File");
  box.initial_name = document.last_file_name;
  const auto file = ShowSaveBox(box);
  if (!file) {
    return false;
  }
  document.last_file_name = file->name;
  if (!WriteFileOrShow(file->path, document.image)) {
    return false;
  }
  document.in_file = document.image;
  BecomeFile(document, *file);
  return true;
}

bool OpenNamedDocument(Document& document, const std::filesystem::path& full_path) {
  return OpenFile(document, FileAt(full_path));
}

bool CreateTemplate(Document& document, const std::string& name) {
  std::filesystem::path& path = document.preferences.template_path;
  path = TemplatePath(document.preferences.data_folder, PathOfText(name));
  if (!WriteTemplateFile(document.working_copy, path)) {
    return false;
  }
  document.changed = true;
  document.untitled = true;
  if (document.working_copy[kVersionType] == kExtendedVersionType) {
    document.region.extended_version = true;
  }
  return true;
}

void TakeRadioImage(Document& document) {
  TakeWorkingCopy(document);
  document.changed = true;
  LoadMainDialog(document.image);
}

}  // namespace qz7
