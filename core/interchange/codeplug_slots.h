#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"
#include "core/interchange/codeplug_parts.h"
#include "core/interchange/value_tree.h"

namespace qz7 {

// The channels of the codeplug: each has the fields of core/image/channel_description.h that its
// slot can have, but for the offset of an odd split and the transmit frequency of any other
// channel, which no record holds. What the fields leave open stands under "other" as hexadecimal:
//
//   kept         what no field and no editor touches: bit 7 of record byte 0, bytes 20 and 21, the
//                flags' upper half
//   record, flags, name-entry, comment
//                all of it, where the fields would make another channel
struct CodeplugSlot {
  std::string name;  // "12", "L1", "V Ham"
  int n;
};
struct CodeplugSlots {
  std::string name;
  std::vector<CodeplugSlot> slots;
};
// "channels", "pms", "vfo-a", "vfo-b", "home".
const std::vector<CodeplugSlots>& SlotParts();

// The slot of that name, or null.
const CodeplugSlot* FindSlot(const CodeplugSlots& part, const std::string& name);

// A part of a channel that stands under "other", with its place in the image.
struct SlotPiece {
  const char* name;
  std::size_t size;
  std::size_t (*offset)(const CloneImage& image, int n);
  bool memory_only;
};
std::span<const SlotPiece> SlotPieces();
inline constexpr const char* kKeptPiece = "kept";
inline constexpr std::size_t kKeptSize = 4;

// What each field of a channel can be, in the order of a dump.
struct FieldForm {
  std::string name;
  TextForm form;
};
std::vector<FieldForm> ChannelFieldForms();

// Whether the slot holds a channel: a special slot always does.
bool HoldsChannel(const CloneImage& image, int n);
// Whether anything of the channel differs.
bool SlotDiffers(const CloneImage& a, const CloneImage& b, int n);

// The fields of a channel, and what is likely to be needed beside them to make it of a new
// document's.
ValueTree DumpSlot(const CloneImage& image, int n, const CloneImage& new_image,
                   const RegionVariant& region);
// Adds every piece that differs from the new document's instead of what stands under "other".
void TellWholeSlot(ValueTree& slot, const CloneImage& image, int n, const CloneImage& new_image);

// Makes the channel: the base's, then what stands under "other", then the fields, through the
// channel editor. What is wrong is appended to `errors`, with `place` in front.
void BuildSlot(const ValueTree& slot, int n, const std::string& place, CloneImage& image,
               const CloneImage& base, const RegionVariant& region,
               std::vector<std::string>& errors);

}  // namespace qz7
