#include "core/interchange/codeplug.h"

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <utility>

#include "core/files/document_header.h"
#include "core/files/new_document.h"
#include "core/image/derived_tables.h"
#include "core/image/operating_state.h"
#include "core/interchange/codeplug_other.h"
#include "core/interchange/codeplug_parts.h"
#include "core/interchange/codeplug_slots.h"

namespace qz7 {
namespace {

using Errors = std::vector<std::string>;

// What the operating state repeats of the current channel: it follows the channels.
constexpr std::array<Region, 2> kOperatingEcho = {
    Region{.offset = kOperatingGrid, .size = kOperatingKept - kOperatingGrid},
    Region{.offset = kCurrentMemoryFlags, .size = 1}};

void CopyRegion(const CloneImage& from, CloneImage& to, Region region) {
  const auto at = static_cast<std::ptrdiff_t>(region.offset);
  std::copy_n(from.begin() + at, region.size, to.begin() + at);
}

std::unique_ptr<CloneImage> NewImage() {
  auto image = std::make_unique<CloneImage>();
  MakeNewImage(*image);
  RebuildDerivedTables(*image);
  return image;
}

// The image with everything that a save makes anew as a new document has it.
std::unique_ptr<CloneImage> WithoutSaved(const CloneImage& image, const CloneImage& new_image) {
  auto bare = std::make_unique<CloneImage>(image);
  RebuildDerivedTables(*bare);
  CopyRegion(new_image, *bare, {.offset = kBlockChecksumOffset, .size = 2});
  CopyRegion(new_image, *bare, kFiller);
  return bare;
}

// Dump.

void DumpParts(ValueTree& tree, const std::vector<CodeplugPart>& parts, const CloneImage& image) {
  for (const CodeplugPart& part : parts) {
    ValueTree& values = AddMember(tree, part.name, NoMembers());
    for (const CodeplugRow& row : part.rows) {
      AddMember(values, row.name, TextValue(row.show(image)));
    }
  }
}

void DumpSlots(ValueTree& tree, const CloneImage& image, const CloneImage& new_image,
               const RegionVariant& region) {
  for (const CodeplugSlots& part : SlotParts()) {
    ValueTree slots = NoMembers();
    for (const auto& [name, n] : part.slots) {
      if (HoldsChannel(image, n)) {
        AddMember(slots, name, DumpSlot(image, n, new_image, region));
      }
    }
    if (!slots.members.empty()) {
      AddMember(tree, part.name, std::move(slots));
    }
  }
}

// Tells the channels whole that the tree makes otherwise; false when there is none.
bool TellWrongSlots(ValueTree& tree, const CloneImage& image, const CloneImage& made,
                    const CloneImage& new_image) {
  bool any = false;
  for (const CodeplugSlots& part : SlotParts()) {
    for (const auto& [name, n] : part.slots) {
      if (HoldsChannel(image, n) && SlotDiffers(image, made, n)) {
        const auto slots = std::find_if(tree.members.begin(), tree.members.end(),
                                        [&](const auto& m) { return m.name == part.name; });
        const auto slot = std::find_if(slots->value.members.begin(), slots->value.members.end(),
                                       [&name = name](const auto& m) { return m.name == name; });
        TellWholeSlot(slot->value, image, n, new_image);
        any = true;
      }
    }
  }
  return any;
}

void Mark(std::vector<bool>& marked, Region region, bool on) {
  std::fill_n(marked.begin() + static_cast<std::ptrdiff_t>(region.offset), region.size, on);
}

bool AnyMarked(const std::vector<bool>& marked, Region region) {
  const auto first = marked.begin() + static_cast<std::ptrdiff_t>(region.offset);
  return std::find(first, first + static_cast<std::ptrdiff_t>(region.size), true) !=
         first + static_cast<std::ptrdiff_t>(region.size);
}

// A value that does not make its bytes takes all of them along: its text changes nothing then.
void MarkWholeRows(std::vector<bool>& marked) {
  for (const auto* parts : {&PartsBeforeChannels(), &PartsBehindChannels()}) {
    for (const CodeplugPart& part : *parts) {
      for (const CodeplugRow& row : part.rows) {
        if (std::any_of(row.bytes.begin(), row.bytes.end(),
                        [&](Region region) { return AnyMarked(marked, region); })) {
          for (const Region region : row.bytes) {
            Mark(marked, region, true);
          }
        }
      }
    }
  }
}

// Whether the operating state is another one than a build makes of the rest of the image.
bool EchoDiffers(const CloneImage& image, const CloneImage& new_image) {
  auto made = std::make_unique<CloneImage>(image);
  for (const Region region : kOperatingEcho) {
    CopyRegion(new_image, *made, region);
  }
  if (*made != new_image) {
    RefreshOperatingState(*made);
  }
  return *made != image;
}

// Build.

void BuildPart(const CodeplugPart& part, const ValueTree& tree, CloneImage& image,
               const CloneImage& base, Errors& errors) {
  const ValueTree* values = FindMember(tree, part.name);
  if (values != nullptr && !HasMembers(*values, part.name, errors)) {
    return;
  }
  for (const CodeplugRow& row : part.rows) {
    const std::string place = part.name + "/" + row.name;
    const ValueTree* value = values != nullptr ? FindMember(*values, row.name) : nullptr;
    if (value != nullptr && !IsText(*value, place, errors)) {
      continue;
    }
    const std::string text = value != nullptr ? value->text : row.show(base);
    const std::string refusal = row.show(image) != text ? row.store(image, text) : "";
    if (value != nullptr && !refusal.empty()) {
      TellError(errors, place, refusal);
    }
  }
}

void BuildSlots(const CodeplugSlots& part, const ValueTree& slots, CloneImage& image,
                const CloneImage& base, const RegionVariant& region, Errors& errors) {
  if (!HasMembers(slots, part.name, errors)) {
    return;
  }
  for (const auto& [name, value] : slots.members) {
    const std::string place = part.name + "/" + name;
    if (const CodeplugSlot* slot = FindSlot(part, name)) {
      BuildSlot(value, slot->n, place, image, base, region, errors);
    } else {
      TellError(errors, place, "there is no such channel");
    }
  }
}

void RefuseUnknown(const ValueTree& tree, const std::string& place, Errors& errors,
                   const std::function<bool(const std::string&)>& is_known) {
  for (const auto& member : tree.members) {
    if (!is_known(member.name)) {
      TellError(errors, place + member.name, "there is no such value");
    }
  }
}

template <typename Listed>
bool Lists(const std::vector<Listed>& listed, const std::string& name) {
  return std::any_of(listed.begin(), listed.end(),
                     [&](const Listed& entry) { return entry.name == name; });
}

void RefuseUnknownNames(const ValueTree& tree, Errors& errors) {
  const auto& front = PartsBeforeChannels();
  const auto& back = PartsBehindChannels();
  RefuseUnknown(tree, "", errors, [&](const std::string& name) {
    return name == kOtherName || Lists(front, name) || Lists(SlotParts(), name) ||
           Lists(back, name);
  });
  for (const auto* parts : {&front, &back}) {
    for (const CodeplugPart& part : *parts) {
      if (const ValueTree* values = FindMember(tree, part.name)) {
        RefuseUnknown(*values, part.name + "/", errors,
                      [&](const std::string& name) { return Lists(part.rows, name); });
      }
    }
  }
}

bool TellsEcho(const ValueTree& tree) {
  const ValueTree* other = FindMember(tree, kOtherName);
  return other != nullptr && OtherCovers(*other, kOperatingGrid);
}

bool SameChannels(const CloneImage& a, const CloneImage& b) {
  const auto& parts = SlotParts();
  return std::none_of(parts.begin(), parts.end(), [&](const CodeplugSlots& part) {
    return std::any_of(part.slots.begin(), part.slots.end(),
                       [&](const CodeplugSlot& slot) { return SlotDiffers(a, b, slot.n); });
  });
}

}  // namespace

ValueTree DumpCodeplug(const CloneImage& image, const RegionVariant& region) {
  const auto new_image = NewImage();
  const auto bare = WithoutSaved(image, *new_image);
  ValueTree tree = NoMembers();
  DumpParts(tree, PartsBeforeChannels(), *bare);
  DumpSlots(tree, *bare, *new_image, region);
  DumpParts(tree, PartsBehindChannels(), *bare);
  auto made = std::make_unique<CloneImage>(*new_image);
  BuildCodeplug(tree, *made, region);
  if (TellWrongSlots(tree, *bare, *made, *new_image)) {
    // What names channels, the groups, can come out differently now.
    *made = *new_image;
    BuildCodeplug(tree, *made, region);
  }
  std::vector<bool> marked(bare->size());
  for (std::size_t at = 0; at < marked.size(); ++at) {
    marked[at] = IsOtherByte(at) && (*bare)[at] != (*made)[at];
  }
  MarkWholeRows(marked);
  const bool tell_echo = EchoDiffers(*bare, *new_image);
  for (const Region echo : kOperatingEcho) {
    Mark(marked, echo, tell_echo);
  }
  ValueTree other = DumpOther(*bare, marked);
  if (!other.members.empty()) {
    AddMember(tree, kOtherName, std::move(other));
  }
  return tree;
}

std::vector<std::string> BuildCodeplug(const ValueTree& tree, CloneImage& image,
                                       const RegionVariant& region) {
  Errors errors;
  if (!HasMembers(tree, "codeplug", errors)) {
    return errors;
  }
  RebuildDerivedTables(image);
  const auto base = std::make_unique<CloneImage>(image);
  RefuseUnknownNames(tree, errors);
  if (const ValueTree* other = FindMember(tree, kOtherName)) {
    BuildOther(*other, image, errors);
  }
  for (const CodeplugPart& part : PartsBeforeChannels()) {
    BuildPart(part, tree, image, *base, errors);
  }
  for (const CodeplugSlots& part : SlotParts()) {
    if (const ValueTree* slots = FindMember(tree, part.name)) {
      BuildSlots(part, *slots, image, *base, region, errors);
    }
  }
  for (const CodeplugPart& part : PartsBehindChannels()) {
    BuildPart(part, tree, image, *base, errors);
  }
  if (image != *base && !TellsEcho(tree)) {
    RefreshOperatingState(image);
  }
  RebuildDerivedTables(image);
  return errors;
}

std::vector<std::string> ApplyToCodeplug(CloneImage& image, const ValueTree& patch,
                                         const RegionVariant& region) {
  ValueTree tree = DumpCodeplug(image, region);
  MergePatch(tree, patch);
  const auto before = std::make_unique<CloneImage>(image);
  RebuildDerivedTables(*before);
  MakeNewImage(image);
  Errors errors = BuildCodeplug(tree, image, region);
  if (!SameChannels(*before, image)) {
    RefreshOperatingState(image);
  }
  return errors;
}

}  // namespace qz7
