#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/files/defaults_record.h"
#include "core/image/bits.h"
#include "core/image/clone_image.h"

namespace qz7 {

// Where a feature editor reads or writes its settings: the clone image, or the defaults record that
// mirrors them. A field is described once, by its image offset, and found in both.
template <typename Byte>
struct SettingsPlace {
  std::span<Byte> bytes;
  std::size_t (*locate)(std::size_t image_offset);

  BitField operator()(BitField field) const {
    return {.byte = locate(field.byte), .shift = field.shift, .width = field.width};
  }
  std::span<Byte> operator[](Region field) const {
    return bytes.subspan(locate(field.offset), field.size);
  }
};
using SettingsSource = SettingsPlace<const std::uint8_t>;
using SettingsTarget = SettingsPlace<std::uint8_t>;

inline std::size_t ImagePlace(std::size_t image_offset) { return image_offset; }

inline SettingsSource SourceIn(const CloneImage& image) { return {image, ImagePlace}; }
inline SettingsSource SourceIn(const DefaultsRecord& record) { return {record, DefaultsPlace}; }
inline SettingsTarget TargetIn(CloneImage& image) { return {image, ImagePlace}; }
inline SettingsTarget TargetIn(DefaultsRecord& record) { return {record, DefaultsPlace}; }

// What an editor opens with: the image's settings, or the defaults where its preference says so;
// its two defaults buttons are then disabled.
inline SettingsSource OpeningSource(const CloneImage& image, const DefaultsRecord& record,
                                    bool use_defaults) {
  return use_defaults ? SourceIn(record) : SourceIn(image);
}

}  // namespace qz7
