#include <filesystem>
#include <memory>
#include <system_error>

#include "core/files/file_inspection.h"
#include "core/files/image_difference.h"
#include "core/files/messages.h"
#include "core/files/new_document.h"
#include "core/files/radio_data_file.h"
#include "ctl/commands.h"
#include "ctl/console.h"
#include "ctl/exchange_runner.h"
#include "ctl/line_decorators.h"
#include "ctl/port_access.h"

namespace qz7 {
namespace {

// A port that was opened for an exchange, with what the options put around it.
struct Line {
  std::unique_ptr<SerialPort> device = MakeSerialPort();
  std::unique_ptr<TracedPort> traced;
  std::unique_ptr<PausingPort> pausing;

  SerialPort& Port() {
    if (pausing) {
      return *pausing;
    }
    return traced ? static_cast<SerialPort&>(*traced) : *device;
  }
};

const char* StatusName(PortStatus status) {
  switch (status) {
    case PortStatus::kOpen:
      return "free";
    case PortStatus::kDenied:
      return "denied";
    default:
      return "busy";
  }
}

std::string WhyNot(const std::string& device, const PortResult& result) {
  switch (result.status) {
    case PortStatus::kAbsent:
      return device + ": there is no such serial port.";
    case PortStatus::kBusy:
      return device + ": the port is busy: another program has it.";
    case PortStatus::kDenied:
      return device + ": access is denied." + WhoIsLetIn(device);
    default:
      return device + ": the port cannot be opened: " +
             std::error_code(result.system_code, std::system_category()).message() + ".";
  }
}

bool OpenLine(Line& line, const PortOptions& options) {
  const PortResult result = line.device->Open(options.port);
  if (result.status != PortStatus::kOpen) {
    PrintError(WhyNot(options.port, result));
    return false;
  }
  CatchInterrupt();
  if (!options.trace.empty()) {
    line.traced = std::make_unique<TracedPort>(*line.device, options.trace);
    if (!line.traced->IsTraceGood()) {
      ShowFileError("Cannot create file:\n" + options.trace);
      return false;
    }
  }
  return true;
}

// Before ten seconds of exchange: a folder that is not there will not take the file afterwards.
bool HasFolder(const std::string& out) {
  const std::filesystem::path folder = std::filesystem::path(out).parent_path();
  std::error_code error;
  if (out == "-" || folder.empty() || std::filesystem::is_directory(folder, error)) {
    return true;
  }
  ShowFileError("Cannot create file:\n" + out);
  return false;
}

// Reads the radio into a new document.
bool ReadRadio(const PortOptions& options, CloneImage& image) {
  Line line;
  if (!OpenLine(line, options)) {
    return false;
  }
  MakeNewImage(image);
  PrintError("Start the clone send on the radio. Ctrl-C gives up.");
  CloneRead read;
  BeginCloneRead(read, line.Port(), std::span(image).subspan(kRadioBlock.offset, kRadioBlock.size));
  if (!RunCloneRead(read, line.Port(), options.port)) {
    return false;
  }
  CopyNamesToTable(image);
  return true;
}

// Everything that can be checked before the first byte is sent. `image` becomes what is sent.
bool PrepareWrite(const WriteOptions& options, const std::string& file, CloneImage& image) {
  CloneImage template_image;
  return LoadDocument(image, file) &&
         LoadTemplateFor(template_image, options.template_file) == TemplateOutcome::kUsable;
}

}  // namespace

int PortsCommand() {
  for (const PortInfo& port : ListSerialPorts()) {
    PrintLine(port.name + "\t" + port.description + "\t" + StatusName(port.status));
  }
  return kDone;
}

int ReadCommand(const PortOptions& options, const std::string& out) {
  CloneImage image;
  return HasFolder(out) && ReadRadio(options, image) && SaveDocumentTo(image, out) ? kDone
                                                                                   : kFailed;
}

int CompareCommand(const PortOptions& options, const std::string& file) {
  constexpr int kTrouble = 2;
  CloneImage expected;
  CloneImage image;
  if (!LoadDocument(expected, file) || !ReadRadio(options, image)) {
    return kTrouble;
  }
  const std::vector<std::string> lines = RadioDifferences(expected, image);
  for (const std::string& line : lines) {
    PrintLine(line);
  }
  return lines.empty() ? kDone : kFailed;
}

int TemplateCommand(const PortOptions& options, const std::string& out) {
  CloneImage image;
  return HasFolder(out) && ReadRadio(options, image) && WriteTemplateFile(image, out) ? kDone
                                                                                      : kFailed;
}

int WriteCommand(const WriteOptions& options, const std::string& file) {
  CloneImage image;
  Line line;
  if (!PrepareWrite(options, file, image) || !OpenLine(line, options)) {
    return kFailed;
  }
  if (options.gap_milliseconds > 0) {
    SerialPort& inner = line.Port();
    line.pausing = std::make_unique<PausingPort>(inner, options.gap_milliseconds);
  }
  CloneWrite write;
  BeginCloneWrite(write, line.Port(), image);
  StartCloneWrite(write, line.Port(), options.template_file);
  if (write.phase != CloneWrite::kIdle && RunCloneWrite(write, line.Port(), options.port)) {
    return kDone;
  }
  PrintError(
      "The radio has received only a part. Set it to clone receive again and repeat the write.");
  return kFailed;
}

int DryRunCommand(const WriteOptions& options, const std::string& file) {
  CloneImage image;
  if (!PrepareWrite(options, file, image)) {
    return kFailed;
  }
  PrintLine("All checks passed; nothing was sent.");
  PrintLine("document: " + file + ", " + std::to_string(CountProgrammedChannels(image)) +
            " programmed memory channels");
  PrintLine("template: " + options.template_file + ", whose radio identity would be sent");
  PrintLine("would be sent: " + std::to_string(kRadioBlock.size + 1) + " bytes, a header of " +
            std::to_string(kCloneHeaderSize) + ", " + std::to_string(kCloneBlockCount) +
            " blocks of " + std::to_string(kCloneBlockSize) + " and a checksum");
  return kDone;
}

}  // namespace qz7
