#include "core/files/defaults_record.h"

#include <algorithm>

#include "core/files/file_output.h"
#include "core/files/paths.h"
#include "core/image/settings_map.h"

namespace qz7 {
namespace {

struct MirroredPiece {
  std::size_t place;  // in the record
  Region image;
};
constexpr std::array<MirroredPiece, 4> kPieces = {{
    {0, kMirroredSettings},
    {789, kMirroredStates},
    {793, {.offset = kMirroredState, .size = 1}},
    {794, kMirroredLevels},
}};
static_assert(kPieces.back().place + kPieces.back().image.size == kDefaultsRecordSize);

struct MainDefault {
  std::size_t offset;
  std::uint8_t bits;  // that belong to the main dialog
};
// Two bits of the last field and one before it belong to other dialogs and stay as they are.
constexpr std::array<MainDefault, 11> kMainDefaults = {{
    {kLock, 0xFF},
    {kMainChoice, 0xFF},
    {kReceiveSaver, 0xFF},
    {kLamp, 0xFF},
    {kBell, 0xFF},
    {kSensorDisplay, 0xFF},
    {kAutoPowerOff, 0xFF},
    {kTransmitTimeOut, 0xFF},
    {kSwitchesA, 0xFF},
    {kSwitchesB, 0xBF},
    {kSwitchesC, 0xB7},
}};

std::uint8_t Mixed(std::uint8_t kept, std::uint8_t taken, std::uint8_t bits) {
  return static_cast<std::uint8_t>((kept & ~bits) | (taken & bits));
}

bool ReadRecord(DefaultsRecord& record, const std::filesystem::path& path) {
  std::ifstream file = OpenToRead(path);
  file.read(reinterpret_cast<char*>(record.data()), static_cast<std::streamsize>(record.size()));
  return file.is_open();
}

}  // namespace

std::size_t DefaultsPlace(std::size_t image_offset) {
  for (const MirroredPiece& piece : kPieces) {
    if (image_offset >= piece.image.offset && image_offset < piece.image.end()) {
      return piece.place + (image_offset - piece.image.offset);
    }
  }
  return kDefaultsRecordSize;
}

void FillDefaultsRecord(DefaultsRecord& record, const CloneImage& image) {
  for (const MirroredPiece& piece : kPieces) {
    std::copy_n(image.begin() + piece.image.offset, piece.image.size, record.begin() + piece.place);
  }
}

void CopyMainDefaultsToImage(const DefaultsRecord& record, CloneImage& image) {
  for (const MainDefault& field : kMainDefaults) {
    std::uint8_t& byte = image[field.offset];
    byte = Mixed(byte, record[DefaultsPlace(field.offset)], field.bits);
  }
}

void CopyMainDefaultsToRecord(const CloneImage& image, DefaultsRecord& record) {
  for (const MainDefault& field : kMainDefaults) {
    std::uint8_t& byte = record[DefaultsPlace(field.offset)];
    byte = Mixed(byte, image[field.offset], field.bits);
  }
}

DefaultsFile ChooseDefaultsFile(const std::filesystem::path& current_path,
                                const std::filesystem::path& user_path) {
  if (user_path.empty() || CanWriteFile(current_path)) {
    return {.path = current_path, .fallback_path = ""};
  }
  return {.path = user_path, .fallback_path = current_path};
}

bool LoadDefaultsRecord(DefaultsRecord& record, const DefaultsFile& file) {
  return ReadRecord(record, file.path) ||
         (!file.fallback_path.empty() && ReadRecord(record, file.fallback_path));
}

void SaveDefaultsRecord(const DefaultsRecord& record, const DefaultsFile& file) {
  WriteWholeFile(file.path, record);
}

}  // namespace qz7
