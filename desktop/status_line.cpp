#include "desktop/status_line.h"

#include "core/files/file_inspection.h"
#include "core/files/paths.h"
#include "core/files/seams.h"
#include "core/link/port_setup.h"

namespace qz7 {
namespace {

const char* SavedState(const Document& document, const CloneImage& shown) {
  if (DiffersFromFile(document, shown)) {
    return "not saved";
  }
  return document.untitled ? "new" : "saved";
}

std::string ChannelsState(const CloneImage& image) {
  return std::to_string(CountProgrammedChannels(image)) + " of " +
         std::to_string(GetChannelCount(image)) + " channels";
}

std::string RegionState(const RegionVariant& region) {
  return "Region " + std::to_string(static_cast<int>(region.variant)) +
         (region.extended_version ? " extended" : "");
}

std::string PortState(const SerialPort& port, int index) {
  if (port.IsLost()) {
    return PortName(index) + " lost";
  }
  return port.IsOpen() ? PortName(index) : "no port";
}

std::string TemplateState(const std::filesystem::path& path) {
  return path.empty() ? "no template" : PathText(NamePart(path));
}

}  // namespace

std::string StatusText(const Document& document, const CloneImage& shown, const SerialPort& port,
                       const std::string& note) {
  return (note.empty() ? "" : note + " | ") + document.name + ", " + SavedState(document, shown) +
         " | " + ChannelsState(shown) + " | " + RegionState(document.region) + " | " +
         PortState(port, document.preferences.port_index) + " | " +
         TemplateState(document.preferences.template_path);
}

std::string ImportedNote(const PlacedChannels& placed) {
  const std::string first = std::to_string(placed.first);
  switch (placed.count) {
    case 0:
      return "No channel imported";
    case 1:
      return "1 channel imported to " + first + ", not saved";
    default:
      return std::to_string(placed.count) + " channels imported to " + first + "-" +
             std::to_string(placed.first + placed.count - 1) + ", not saved";
  }
}

std::string TransferredNote(const char* how, const Document& document) {
  return std::to_string(kRadioBlock.size) + " bytes " + how + " " +
         PortName(document.preferences.port_index);
}

std::string DroppedNote(const std::string& note, std::size_t files) {
  if (files == 1) {
    return note;
  }
  return (note.empty() ? "" : note + "; ") + "the first of " + std::to_string(files) +
         " files was taken";
}

}  // namespace qz7
