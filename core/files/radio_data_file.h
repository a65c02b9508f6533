#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <string>

#include "core/image/clone_image.h"

namespace qz7 {

// A radio data file (.rdf) is the clone image as it stands, 21,282 bytes; a template file (.tpl) is
// the same with another magic.

// The low 8 bits of the sum of the radio block's 8,122 bytes.
std::uint8_t RadioBlockChecksum(const CloneImage& image);

// Sets the filler (bytes 82..99) to 0 in the image itself, then returns what makes the sum of all
// bytes a multiple of 256. Byte 81 is summed as it stands: 0 for an intact file, and a writer
// clears it before the call.
std::uint8_t FileChecksum(CloneImage& image);

// Each reads a file into `buffer` and checks it; false after showing why not. The buffer then holds
// whatever was read so far and is to be discarded. A radio data file whose radio block checksum
// alone is wrong is reported and still loaded; version 1 comes back as version 2 with both
// checksums fresh.
bool ReadRadioDataFile(CloneImage& buffer, const std::filesystem::path& path);
bool ReadTemplateFile(CloneImage& buffer, const std::filesystem::path& path);
// The same for a file that is open already; `name` is what its messages call it.
bool ReadRadioDataFile(CloneImage& buffer, std::istream& file, const std::string& name);
bool ReadTemplateFile(CloneImage& buffer, std::istream& file, const std::string& name);

// Makes the image ready to be written: both checksums, derived tables, filler.
void PrepareRadioDataFile(CloneImage& image);

// Prepares the image and writes it; false after showing "Cannot create file:" or "Error writing
// file:". A file that stood there before is untouched on failure.
bool WriteRadioDataFile(CloneImage& image, const std::filesystem::path& path);

// Makes the image ready to be written as a template: checksums, derived tables, magic, no filler.
void PrepareTemplateFile(CloneImage& image);

// Writes the image as a template file, without filler; the image's magic is "RDF" again afterwards,
// whatever the outcome.
bool WriteTemplateFile(CloneImage& image, const std::filesystem::path& path);

// The path of a template that the user names: the name, at most 8 characters, cut at its first "."
// and then at its first blank, in the folder, with ".tpl".
std::filesystem::path TemplatePath(const std::filesystem::path& folder,
                                   const std::filesystem::path& name);

}  // namespace qz7
