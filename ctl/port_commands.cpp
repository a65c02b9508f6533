#include <filesystem>
#include <functional>
#include <memory>
#include <system_error>

#include "core/editors/image_difference.h"
#include "core/files/file_inspection.h"
#include "core/files/new_document.h"
#include "core/files/paths.h"
#include "core/files/seams.h"
#include "core/link/radio_transfer.h"
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
    if (!line.traced->FlushTrace()) {
      ShowFileError("Cannot create file:\n" + PathText(options.trace));
      return false;
    }
  }
  return true;
}

// At the end of an exchange; a trace with a gap is no trace.
bool FinishTrace(Line& line, const PortOptions& options) {
  if (line.traced && !line.traced->FlushTrace()) {
    ShowFileError("Error writing file:\n" + PathText(options.trace));
    return false;
  }
  return true;
}

// Before ten seconds of exchange: a folder that is not there will not take the file afterwards.
bool HasFolder(const std::filesystem::path& out) {
  const std::filesystem::path folder = out.parent_path();
  std::error_code error;
  if (out == "-" || folder.empty() || std::filesystem::is_directory(SystemPath(folder), error)) {
    return true;
  }
  ShowFileError("Cannot create file:\n" + PathText(out));
  return false;
}

// Opens the line and receives on it; `receive` is given the runner of the exchange.
bool ReceiveInto(CloneImage& image, const PortOptions& options,
                 const std::function<bool(SerialPort&, const RunRead&)>& receive) {
  Line line;
  if (!OpenLine(line, options)) {
    return false;
  }
  MakeNewImage(image);
  PrintError("Start the clone send on the radio. Ctrl-C gives up.");
  return receive(line.Port(), [&](CloneRead& read) {
    const bool done = RunCloneRead(read, line.Port(), options.port);
    return FinishTrace(line, options) && done;
  });
}

// Reads the radio into a new document.
bool ReadNewDocument(const PortOptions& options, CloneImage& image) {
  return ReceiveInto(image, options, [&](SerialPort& port, const RunRead& run) {
    return ReadRadio(image, port, run);
  });
}

// Everything that can be checked before the first byte is sent.
bool LoadWhatToSend(const WriteOptions& options, const std::filesystem::path& file,
                    CloneImage& image, CloneImage& template_image) {
  if (!LoadOneDocument(image, file) || !IsTemplateNamed(options.template_file)) {
    return false;
  }
  const MessagesAbout messages(options.template_file);
  return LoadTemplateFor(template_image, options.template_file) == TemplateOutcome::kUsable;
}

bool RunStartedWrite(CloneWrite& write, SerialPort& port, const CloneImage& template_image,
                     const std::string& device) {
  StartCloneWrite(write, port, template_image);
  return RunCloneWrite(write, port, device);
}

}  // namespace

int ReadCommand(const PortOptions& options, const std::filesystem::path& out) {
  CloneImage image;
  return HasFolder(out) && ReadNewDocument(options, image) && SaveDocumentTo(image, out) ? kDone
                                                                                         : kFailed;
}

int CompareCommand(const PortOptions& options, const std::filesystem::path& file) {
  constexpr int kTrouble = 2;
  CloneImage expected;
  CloneImage image;
  if (!LoadDocument(expected, file) || !ReadNewDocument(options, image)) {
    return kTrouble;
  }
  const std::vector<std::string> lines = RadioDifferences(expected, image, kRegion);
  for (const std::string& line : lines) {
    PrintLine(line);
  }
  return lines.empty() ? kDone : kFailed;
}

int TemplateCommand(const PortOptions& options, const std::filesystem::path& out) {
  CloneImage image;
  const auto write = [&](CloneImage& read) { return SaveTemplateTo(read, out); };
  const auto receive = [&](SerialPort& port, const RunRead& run) {
    return ReadRadioIntoTemplate(image, port, run, write);
  };
  return HasFolder(out) && ReceiveInto(image, options, receive) ? kDone : kFailed;
}

int WriteCommand(const WriteOptions& options, const std::filesystem::path& file) {
  CloneImage image;
  CloneImage template_image;
  Line line;
  if (!LoadWhatToSend(options, file, image, template_image) || !OpenLine(line, options)) {
    return kFailed;
  }
  if (options.gap_milliseconds > 0) {
    SerialPort& inner = line.Port();
    line.pausing = std::make_unique<PausingPort>(inner, options.gap_milliseconds);
  }
  const bool sent = SendToRadio(image, line.Port(), [&](CloneWrite& write) {
    return RunStartedWrite(write, line.Port(), template_image, options.port);
  });
  if (!sent) {
    PrintError(
        "The radio has received only a part. Set it to clone receive again and repeat the write.");
  }
  return FinishTrace(line, options) && sent ? kDone : kFailed;
}

int DryRunCommand(const WriteOptions& options, const std::filesystem::path& file) {
  CloneImage image;
  CloneImage template_image;
  if (!LoadWhatToSend(options, file, image, template_image)) {
    return kFailed;
  }
  PrintLine("All checks passed; nothing was sent.");
  PrintUtf8Line("document: " + PathText(file) + ", " +
                std::to_string(CountProgrammedChannels(image)) + " programmed memory channels");
  PrintUtf8Line("template: " + PathText(options.template_file) +
                ", whose radio identity would be sent");
  PrintLine("would be sent: " + std::to_string(kRadioBlock.size + 1) + " bytes, a header of " +
            std::to_string(kCloneHeaderSize) + ", " + std::to_string(kCloneBlockCount) +
            " blocks of " + std::to_string(kCloneBlockSize) + " and a checksum");
  return kDone;
}

}  // namespace qz7
