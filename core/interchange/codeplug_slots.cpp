#include "core/interchange/codeplug_slots.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "core/editors/channel_editor.h"
#include "core/editors/channel_fields.h"
#include "core/editors/memory_list.h"
#include "core/image/blanks.h"
#include "core/image/channel_description.h"
#include "core/image/channel_record.h"
#include "core/image/frequency_check.h"
#include "core/interchange/codeplug_other.h"

namespace qz7 {
namespace {

constexpr std::uint8_t kKeptRecordBit = 0x80;  // of record byte 0
constexpr std::uint8_t kKeptFlags = 0xF0;

template <typename Pointer>
std::size_t OffsetIn(const CloneImage& image, Pointer* bytes) {
  return static_cast<std::size_t>(reinterpret_cast<const std::uint8_t*>(bytes) - image.data());
}

constexpr std::array<SlotPiece, 4> kPieces = {{
    {"record", kRecordSize,
     [](const CloneImage& image, int n) { return OffsetIn(image, GetChannelRecord(image, n)); },
     false},
    {"flags", 1,
     [](const CloneImage& image, int n) { return OffsetIn(image, GetChannelFlagByte(image, n)); },
     false},
    {"name-entry", kNameEntrySize,
     [](const CloneImage& image, int n) { return OffsetIn(image, NameEntry(image, n)); }, true},
    {"comment", kCommentSize,
     [](const CloneImage& image, int n) { return OffsetIn(image, ChannelComment(image, n)); },
     true},
}};

bool HasPiece(const SlotPiece& piece, int n) { return !piece.memory_only || !IsSpecialSlot(n); }

std::span<const std::uint8_t> BytesOf(const CloneImage& image, const SlotPiece& piece, int n) {
  return std::span(image).subspan(piece.offset(image, n), piece.size);
}

bool PieceDiffers(const CloneImage& a, const CloneImage& b, const SlotPiece& piece, int n) {
  const auto bytes = BytesOf(a, piece, n);
  return !std::equal(bytes.begin(), bytes.end(), BytesOf(b, piece, n).begin());
}

using KeptBytes = std::array<std::uint8_t, kKeptSize>;

KeptBytes KeptOf(const CloneImage& image, int n) {
  const std::uint8_t* record = GetChannelRecord(image, n);
  return {static_cast<std::uint8_t>(record[0] & kKeptRecordBit), record[kRecordKept],
          record[kRecordKept + 1],
          static_cast<std::uint8_t>(*GetChannelFlagByte(image, n) & kKeptFlags)};
}

void PutKept(CloneImage& image, int n, const KeptBytes& kept) {
  std::uint8_t* record = GetChannelRecord(image, n);
  std::uint8_t* flags = GetChannelFlagByte(image, n);
  record[0] = static_cast<std::uint8_t>((record[0] & ~kKeptRecordBit) | (kept[0] & kKeptRecordBit));
  record[kRecordKept] = kept[1];
  record[kRecordKept + 1] = kept[2];
  *flags = static_cast<std::uint8_t>((*flags & ~kKeptFlags) | (kept[3] & kKeptFlags));
}

std::string_view ValueOf(const std::vector<NamedValue>& fields, std::string_view name) {
  const auto field = std::find_if(fields.begin(), fields.end(),
                                  [=](const NamedValue& value) { return value.first == name; });
  return field != fields.end() ? std::string_view(field->second) : std::string_view{};
}

// An odd split has a transmit frequency of its own, any other channel an offset.
bool IsStored(const std::vector<NamedValue>& fields, std::string_view name) {
  const bool split = ValueOf(fields, "shift") == NameOf(kShiftNames, Shift::kOddSplit);
  return name == "tx" ? split : name != "offset" || !split;
}

// Whether the record, without what is kept, is what the editor would write of it, and the comment
// what it would write of its text.
bool LooksEdited(const CloneImage& image, int n, const CloneImage& new_image,
                 const RegionVariant& region) {
  ChannelRecord old{};
  std::copy_n(GetChannelRecord(new_image, n), kRecordSize, old.begin());
  const std::uint8_t* record = GetChannelRecord(image, n);
  old[0] = record[0];
  std::copy_n(record + kRecordKept, 2, old.begin() + kRecordKept);
  const ChannelRecord built = BuildChannelRecord(old, DecodeChoices(record, region),
                                                 DecodeFrequencies(record, region), n, region);
  const bool record_edited = std::equal(built.begin(), built.end(), record);
  if (!record_edited || IsSpecialSlot(n)) {
    return record_edited;
  }
  const char* comment = ChannelComment(image, n);
  const std::size_t text = ChannelCommentText(image, n).size();
  return std::all_of(comment + text, comment + kCommentSize, [](char c) { return c == '\0'; });
}

void BuildPieces(const ValueTree& other, int n, const std::string& place, CloneImage& image,
                 std::vector<std::string>& errors) {
  if (!HasMembers(other, place, errors)) {
    return;
  }
  for (const ValueTree::Member& member : other.members) {
    const std::string& name = member.name;
    const ValueTree& value = member.value;
    const std::string piece_place = place + "/" + name;
    const auto* piece = std::find_if(
        kPieces.begin(), kPieces.end(),
        [&, n](const SlotPiece& listed) { return listed.name == name && HasPiece(listed, n); });
    const bool kept = name == kKeptPiece;
    if (piece == kPieces.end() && !kept) {
      TellError(errors, piece_place, "there is no such value");
      continue;
    }
    if (!IsText(value, piece_place, errors)) {
      continue;
    }
    const std::size_t size = kept ? kKeptSize : piece->size;
    const auto bytes = ParseHex(value.text);
    if (!bytes || bytes->size() != size) {
      TellError(errors, piece_place, HexRefusal(size));
    } else if (kept) {
      PutKept(image, n, {(*bytes)[0], (*bytes)[1], (*bytes)[2], (*bytes)[3]});
    } else {
      std::copy(bytes->begin(), bytes->end(),
                image.begin() + static_cast<std::ptrdiff_t>(piece->offset(image, n)));
    }
  }
}

// The fields that the slot is to have: those of the base, but for the ones that are given.
std::vector<NamedValue> WantedFields(const ValueTree& slot, int n, const std::string& place,
                                     const CloneImage& base, const RegionVariant& region,
                                     std::vector<std::string>& errors) {
  std::vector<NamedValue> wanted = DescribeChannel(base, n, region);
  std::erase_if(wanted, [=](const NamedValue& field) { return !SlotHasField(n, field.first); });
  for (const auto& [name, value] : slot.members) {
    const auto field =
        std::find_if(wanted.begin(), wanted.end(),
                     [&name = name](const NamedValue& listed) { return listed.first == name; });
    if (name == kOtherName) {
      continue;
    }
    if (field == wanted.end()) {
      TellError(errors, place + "/" + name, "there is no such value");
    } else if (IsText(value, place + "/" + name, errors)) {
      field->second = value.text;
    }
  }
  const std::vector<NamedValue> all = wanted;
  std::erase_if(wanted, [&](const NamedValue& field) {
    return FindMember(slot, field.first) == nullptr && !IsStored(all, field.first);
  });
  return wanted;
}

bool Shows(const CloneImage& image, int n, const std::vector<NamedValue>& wanted,
           const RegionVariant& region) {
  const std::vector<NamedValue> shown = DescribeChannel(image, n, region);
  return HoldsChannel(image, n) &&
         std::all_of(wanted.begin(), wanted.end(), [&](const NamedValue& field) {
           return ValueOf(shown, field.first) == field.second;
         });
}

const char* NameOf(EditorField field) {
  switch (field) {
    case EditorField::kOffset:
      return "offset";
    case EditorField::kTransmit:
      return "tx";
    default:
      return "rx";
  }
}

void EditSlot(CloneImage& image, int n, const std::string& place,
              const std::vector<NamedValue>& wanted, const RegionVariant& region,
              std::vector<std::string>& errors) {
  ChannelEditor editor = *OpenChannelEditor(image, n, region);
  const std::vector<NamedValue> refusals = SetFieldsTellingRefusals(editor, wanted);
  for (const auto& [name, reason] : refusals) {
    TellError(errors, place + "/" + name, reason);
  }
  const ChannelRefusal refused = CheckChannel(image, editor);
  if (refused.field != EditorField::kNone) {
    const std::string name = NameOf(refused.field);
    if (ValueOf(refusals, name).empty()) {
      TellError(errors, place + "/" + name, refused.message);
    }
  } else if (refusals.empty()) {
    AcceptChannel(image, editor);
  }
}

CodeplugSlots SlotsFrom(const char* name, int first, int count) {
  CodeplugSlots part{.name = name, .slots = {}};
  CloneImage image{};
  WriteU16(image.data() + kChannelCountOffset, kChannelCount);
  for (int i = 0; i < count; ++i) {
    const int n = first < 0 ? first - i : first + i;
    part.slots.push_back({.name = WithoutLeadingBlanks(ChannelLabel(image, n)), .n = n});
  }
  return part;
}

}  // namespace

const std::vector<CodeplugSlots>& SlotParts() {
  constexpr int kOrdinary = kChannelCount - kPmsChannelCount;
  static const std::vector<CodeplugSlots> parts = {
      SlotsFrom("channels", 1, kOrdinary), SlotsFrom("pms", kOrdinary + 1, kPmsChannelCount),
      SlotsFrom("vfo-a", -1, kBandCount), SlotsFrom("vfo-b", -1 - kBandCount, kBandCount),
      SlotsFrom("home", -1 - 2 * kBandCount, kBandCount)};
  return parts;
}

const CodeplugSlot* FindSlot(const CodeplugSlots& part, const std::string& name) {
  const auto slot = std::find_if(part.slots.begin(), part.slots.end(),
                                 [&](const CodeplugSlot& listed) { return listed.name == name; });
  return slot != part.slots.end() ? &*slot : nullptr;
}

std::span<const SlotPiece> SlotPieces() { return kPieces; }

bool HoldsChannel(const CloneImage& image, int n) {
  return IsSpecialSlot(n) || IsProgrammed(image, n);
}

bool SlotDiffers(const CloneImage& a, const CloneImage& b, int n) {
  return std::any_of(kPieces.begin(), kPieces.end(), [&](const SlotPiece& piece) {
    return HasPiece(piece, n) && PieceDiffers(a, b, piece, n);
  });
}

ValueTree DumpSlot(const CloneImage& image, int n, const CloneImage& new_image,
                   const RegionVariant& region) {
  ValueTree slot = NoMembers();
  const std::vector<NamedValue> fields = DescribeChannel(image, n, region);
  for (const auto& [name, value] : fields) {
    if (SlotHasField(n, name) && IsStored(fields, name)) {
      AddMember(slot, name, TextValue(value));
    }
  }
  if (!LooksEdited(image, n, new_image, region)) {
    TellWholeSlot(slot, image, n, new_image);
  } else if (const KeptBytes kept = KeptOf(image, n); kept != KeptOf(new_image, n)) {
    AddMember(AddMember(slot, kOtherName, NoMembers()), kKeptPiece, TextValue(HexText(kept)));
  }
  return slot;
}

void TellWholeSlot(ValueTree& slot, const CloneImage& image, int n, const CloneImage& new_image) {
  std::erase_if(slot.members,
                [](const ValueTree::Member& member) { return member.name == kOtherName; });
  ValueTree& other = AddMember(slot, kOtherName, NoMembers());
  for (const SlotPiece& piece : kPieces) {
    if (HasPiece(piece, n) && PieceDiffers(image, new_image, piece, n)) {
      AddMember(other, piece.name, TextValue(HexText(BytesOf(image, piece, n))));
    }
  }
}

void BuildSlot(const ValueTree& slot, int n, const std::string& place, CloneImage& image,
               const CloneImage& base, const RegionVariant& region,
               std::vector<std::string>& errors) {
  if (slot.kind == ValueTree::Kind::kNothing && !IsSpecialSlot(n) && n != 1) {
    ClearChannel(image, n);
    return;
  }
  if (n == 1 && slot.kind == ValueTree::Kind::kNothing) {
    TellError(errors, place, "Memory channel 1 must always be programmed");
    return;
  }
  if (!HasMembers(slot, place, errors)) {
    return;
  }
  if (const ValueTree* other = FindMember(slot, kOtherName)) {
    BuildPieces(*other, n, place + "/" + kOtherName, image, errors);
  }
  const std::vector<NamedValue> wanted = WantedFields(slot, n, place, base, region, errors);
  if (!Shows(image, n, wanted, region)) {
    EditSlot(image, n, place, wanted, region, errors);
  }
}

}  // namespace qz7
