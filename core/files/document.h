#pragma once

#include <filesystem>
#include <string>

#include "core/files/defaults_record.h"
#include "core/files/preferences.h"
#include "core/files/seams.h"
#include "core/image/clone_image.h"
#include "core/image/region_variant.h"

namespace qz7 {

inline constexpr const char* kNewDocumentName = "NONAME.RDF";

// The one open document.
struct Document {
  CloneImage image{};
  // Target of every read, buffer of editors and exchanges, the state that the memory list returns
  // to, and what changes are detected against. The operations below copy it, nothing else does.
  CloneImage working_copy{};
  std::string name;            // without folder, as it is shown
  std::filesystem::path path;  // what Save writes to
  bool changed = false;
  bool untitled = false;
  // The image as the file has it, or as the new document began. Nothing but DiffersFromFile reads
  // it: whether a command asks about changes is the changed flag's business.
  CloneImage in_file{};
  std::filesystem::path last_file_name;    // of the last file chosen in a file box; never reset
  std::filesystem::path last_export_name;  // the same for the box of Export
  bool export_in_progress = false;
  RegionVariant region;  // of the program, for the whole run
  Preferences preferences;
  DefaultsRecord defaults{};
};

// Work on the working copy begins with a fresh copy of the image.
CloneImage& BeginWorkingCopy(Document& document);
// The image takes the work over, and the document has changed, only where a byte differs.
void AcceptWorkingCopy(Document& document);
// The image takes over what the working copy holds; that alone is no change of the document.
void TakeWorkingCopy(Document& document);
// The work is given up: the working copy is the image again.
void DropWorkingCopy(Document& document);
// The other way: what was done in the image itself counts as accepted, and the document has
// changed.
void AcceptImage(Document& document);

// Reads the main dialog's controls into the image. True when the image now differs from the working
// copy, which sets the changed flag; nothing here ever clears it.
bool CollectMainDialog(Document& document);

// Copies the stored defaults of the main dialog's settings into the image, and shows them.
void ApplyMainDefaults(Document& document);
// The other way; the defaults file is the caller's business.
void StoreMainDefaults(Document& document);

// Whether an image holds anything that the file does not; the header is made anew by every save.
bool DiffersFromFile(const Document& document, const CloneImage& image);

void NewDocument(Document& document);
// Makes the image current: defaults, working copy, main dialog, title.
void RefreshDocument(Document& document);

// True to go on, false when the user cancelled or the save failed.
bool AskSaveChanges(Document& document);

// Each is true on success; a failure has shown why. A failed or cancelled one leaves the document
// as it was, but for the checksums, filler and derived tables that a save prepares.
bool OpenDocument(Document& document);
bool SaveDocument(Document& document);
bool SaveDocumentAs(Document& document);
// The file of this full path as a box would report it.
ChosenFile FileAt(const std::filesystem::path& full_path);
// As OpenDocument, the question about changes included, for a file that was chosen without its box.
bool OpenChosenDocument(Document& document, const std::filesystem::path& full_path);
// Opens the file that the command line names, by its full path.
bool OpenNamedDocument(Document& document, const std::filesystem::path& full_path);

// Stores the image just read in the working copy as a template of this name in the data folder,
// and makes it the configured template. False when the file could not be written; the configured
// path points at it all the same.
bool CreateTemplate(Document& document, const std::string& name);

// The image that a read from the radio left in the working copy becomes the document's, changed.
void TakeRadioImage(Document& document);

}  // namespace qz7
