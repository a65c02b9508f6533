// A template file with arbitrary bytes; short inputs are patches on a sound template.

#include <span>

#include "core/files/document_header.h"
#include "core/files/file_inspection.h"
#include "core/files/radio_data_file.h"
#include "core/link/clone_write.h"
#include "fuzz/fuzz_seams.h"

namespace {

const qz7::CloneImage& PatchedTemplate(qz7::FuzzInput& input) {
  using namespace qz7;
  static CloneImage image;
  image = NewImage();
  SetMagic(image, kTemplateMagic);
  image[kBlockChecksumOffset] = RadioBlockChecksum(image);
  image[kFileChecksumOffset] = FileChecksum(image);
  while (!input.IsEmpty()) {
    const std::size_t at = input.Word() % kCloneImageSize;
    image[at] = input.Byte();
  }
  return image;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qz7;
  FuzzInput input(data, size);
  const std::span<const std::uint8_t> bytes =
      size < kDocumentHeader.size ? PatchedTemplate(input) : std::span(data, size);
  static CloneImage image;
  MemoryFile file(bytes);
  MemoryFile looked_at(bytes);
  const bool accepted = ReadTemplateFile(image, file, "fuzz.tpl");
  const FileInspection found = InspectFile(looked_at);
  const bool passes = found.kind == FileKind::kTemplate && found.radio_identifier &&
                      found.total_size && found.complete && found.file_checksum &&
                      found.radio_block_checksum;
  Check(accepted == passes);
  if (accepted) {
    CloneImage document = NewImage();
    MergeTemplate(std::span(document).subspan(kRadioBlock.offset, kRadioBlock.size),
                  std::span(image).subspan(kRadioBlock.offset, kRadioBlock.size));
  }
  return 0;
}
