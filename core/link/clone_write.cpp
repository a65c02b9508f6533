#include "core/link/clone_write.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>

#include "core/files/paths.h"
#include "core/files/radio_data_file.h"
#include "core/files/seams.h"
#include "core/image/operating_state.h"

namespace qz7 {
namespace {

constexpr int kSize = static_cast<int>(kRadioBlock.size);
constexpr std::size_t kMarketVersion = 8;  // in the radio block
constexpr std::uint8_t kJapaneseVersion = 1;

// The echo of all the bytes, so that what the port has not taken is never taken for sent.
void ExpectEcho(CloneWrite& write, std::span<const std::uint8_t> bytes, std::size_t taken) {
  write.echo_expected = static_cast<std::uint8_t>(bytes.size());
  write.unsent = bytes.subspan(taken);
  write.phase = CloneWrite::kWaitEcho;
  write.response_countdown = kResponseTicks;
}

bool StepSendBlock(CloneWrite& write, SerialPort& port) {
  const std::size_t place =
      kCloneHeaderSize + static_cast<std::size_t>(write.blocks_sent) * kCloneBlockSize;
  const auto bytes = write.block.subspan(place, kCloneBlockSize);
  const std::size_t taken = port.Write(bytes);
  ++write.blocks_sent;
  write.echo_received = 0;
  ExpectEcho(write, bytes, taken);
  return true;
}

bool StepWaitEcho(CloneWrite& write, SerialPort& port) {
  if (!write.unsent.empty()) {
    write.unsent = write.unsent.subspan(port.Write(write.unsent));
  }
  while (write.echo_received < write.echo_expected) {
    std::array<std::uint8_t, 256> scratch;
    const auto missing = static_cast<std::size_t>(write.echo_expected - write.echo_received);
    const std::size_t count = ReadArrived(write, port, std::span(scratch).first(missing));
    if (count == 0) {
      return false;
    }
    write.echo_received = static_cast<std::uint8_t>(write.echo_received + count);
  }
  if (!write.unsent.empty()) {
    return false;
  }
  write.phase = CloneWrite::kBlockEchoed;
  write.bytes_confirmed += write.echo_received;
  write.echo_received = 0;
  SetProgress(write.meter, write.bytes_confirmed);
  return true;
}

void RefuseAnswer(CloneWrite& write) {
  write.response_countdown = 0;
  write.echo_received = 0;
  write.phase = CloneWrite::kIdle;
  write.blocks_sent = 0;
  AskForRetry(write, LinkError::kAcknowledge, "Acknowledge Error");
}

// A checksum that the port does not take is sent again by a later step.
bool SendChecksum(CloneWrite& write, SerialPort& port) {
  const std::array<std::uint8_t, 1> checksum = {CloneChecksum(write.block)};
  const bool taken = port.Write(checksum) == checksum.size();
  if (taken) {
    write.phase = CloneWrite::kFinished;
  }
  return taken;
}

// The radio answers the header and the first block; its answer to the last one is consumed when it
// is there, and not waited for.
bool StepBlockEchoed(CloneWrite& write, SerialPort& port) {
  const bool last = write.blocks_sent == kCloneBlockCount;
  if (write.blocks_sent > 1 && !last) {
    write.phase = CloneWrite::kSendBlock;
    return true;
  }
  std::array<std::uint8_t, 1> answer;
  const bool answered = ReadArrived(write, port, answer) == 1;
  if (answered && answer[0] != kAck) {
    RefuseAnswer(write);
    return true;
  }
  if (last) {
    return SendChecksum(write, port);
  }
  if (answered) {
    write.phase = CloneWrite::kSendBlock;
  }
  return answered;
}

bool StepFinished(CloneWrite& write, SerialPort& port) {
  port.Purge(Queues::kTransmit);
  EndExchange(write, 0);
  return true;
}

void AnswerAcknowledgeError(CloneWrite& write, SerialPort& port, bool retry) {
  // Retry leaves the buttons disabled on purpose: the user can only cancel.
  if (retry) {
    RestartExchange(write, port);
  } else {
    EndExchange(write, -1);
  }
}

void AnswerNoResponse(CloneWrite& write, SerialPort& port) {
  write.phase = CloneWrite::kIdle;
  write.blocks_sent = 0;
  write.can_start = true;
  RestartExchange(write, port);
}

bool IsWaitingForRadio(const CloneWrite& write) {
  return write.phase == CloneWrite::kSendBlock || write.phase == CloneWrite::kBlockEchoed;
}

}  // namespace

void BeginCloneWrite(CloneWrite& write, SerialPort& port, CloneImage& working_copy) {
  write = CloneWrite{};
  write.block = RadioBlockOf(working_copy);
  write.meter.total = kSize;
  MirrorOperatingChannel(working_copy);
  RestartExchange(write, port);
}

bool IsTemplateNamed(const std::filesystem::path& template_path) {
  if (template_path.empty()) {
    ShowMessage(
        "No template file specified.\nUse Browse Template to select one\n"
        "or Help for create instructions.\n",
        kProgramTitle, Buttons::kOk, Icon::kNone);
  }
  return !template_path.empty();
}

TemplateOutcome LoadTemplateFor(CloneImage& template_image,
                                const std::filesystem::path& template_path) {
  if (!ReadTemplateFile(template_image, template_path)) {
    return TemplateOutcome::kStay;
  }
  if (template_image[kRadioBlock.offset + kMarketVersion] == kJapaneseVersion) {
    ShowMessage(
        "Template file is for a Japanese Version of the QZ-7 Radio.\n\n"
        "This software does not work with that version of the radio.",
        kProgramTitle, Buttons::kOk, Icon::kStop);
    return TemplateOutcome::kGiveUp;
  }
  return TemplateOutcome::kUsable;
}

void StartCloneWrite(CloneWrite& write, SerialPort& port,
                     const std::filesystem::path& template_path) {
  if (write.phase != CloneWrite::kIdle || !write.can_start || !IsTemplateNamed(template_path)) {
    return;
  }
  const std::unique_ptr<CloneImage> template_image(new (std::nothrow) CloneImage{});
  if (!template_image) {
    ShowMessage("Out of memory", kProgramTitle, Buttons::kOk, Icon::kNone);
    EndExchange(write, -1);
    return;
  }
  switch (LoadTemplateFor(*template_image, template_path)) {
    case TemplateOutcome::kUsable:
      StartCloneWrite(write, port, *template_image);
      break;
    case TemplateOutcome::kStay:
      break;
    case TemplateOutcome::kGiveUp:
      EndExchange(write, -1);
      break;
  }
}

void StartCloneWrite(CloneWrite& write, SerialPort& port, const CloneImage& template_image) {
  MergeTemplate(write.block,
                std::span(template_image).subspan(kRadioBlock.offset, kRadioBlock.size));
  write.can_start = false;
  port.Purge(Queues::kTransmit);
  const auto header = write.block.first(kCloneHeaderSize);
  ExpectEcho(write, header, WriteBytesOneByOne(port, header));
  write.blocks_sent = 0;
}

void MergeTemplate(std::span<std::uint8_t> block, std::span<const std::uint8_t> template_block) {
  std::array<std::uint8_t, 14> identity;
  std::copy_n(template_block.begin(), identity.size(), identity.begin());
  identity[10] = identity[6];
  identity[11] = identity[7];
  std::copy(identity.begin(), identity.end(), block.begin());
}

bool StepCloneWrite(CloneWrite& write, SerialPort& port) {
  if (write.question) {
    return false;
  }
  switch (write.phase) {
    case CloneWrite::kSendBlock:
      return StepSendBlock(write, port);
    case CloneWrite::kWaitEcho:
      return StepWaitEcho(write, port);
    case CloneWrite::kBlockEchoed:
      return StepBlockEchoed(write, port);
    case CloneWrite::kFinished:
      return StepFinished(write, port);
    default:
      return false;
  }
}

std::size_t BytesAwaited(const CloneWrite& write) {
  const bool echo_missing =
      write.phase == CloneWrite::kWaitEcho && write.echo_received < write.echo_expected;
  return echo_missing ? static_cast<std::size_t>(write.echo_expected - write.echo_received) : 1;
}

const char* AwaitedBy(const CloneWrite& write) {
  switch (write.phase) {
    case CloneWrite::kWaitEcho:
      return "the cable to give back what was sent";
    case CloneWrite::kBlockEchoed:
      return "the radio's answer";
    default:
      return "";
  }
}

const char* InvitedBy(const CloneWrite& write) {
  const bool begins = write.phase == CloneWrite::kIdle && write.can_start;
  return begins && !write.ended ? "Start receiving on the radio, then press OK." : "";
}

const char* RemedyFor(const CloneWrite& write) {
  return write.phase == CloneWrite::kWaitEcho ? "Press Cancel, check the cable, and start again."
                                              : "Press Cancel and start again, on the radio too.";
}

void NotifyCloneWrite(CloneWrite& write, SerialPort& port) {
  while (HasTurn(write) && IsRunning(write, port) && write.phase != CloneWrite::kFinished &&
         StepCloneWrite(write, port)) {
  }
}

void TickCloneWrite(CloneWrite& write, SerialPort& port) {
  if (!IsRunning(write, port)) {
    return;
  }
  if (write.phase == CloneWrite::kFinished) {
    EndExchange(write, 0);
  } else if (IsWaitingForRadio(write) && write.response_countdown == 0) {
    AskForOk(write, LinkError::kNoResponse, "Timeout waiting for QZ-7 response");
  } else {
    NotifyCloneWrite(write, port);
  }
}

void AnswerCloneWrite(CloneWrite& write, SerialPort& port, Answer answer) {
  switch (TakeQuestion(write).value_or(LinkError::kFailedRead)) {
    case LinkError::kAcknowledge:
      AnswerAcknowledgeError(write, port, answer == Answer::kRetry);
      break;
    case LinkError::kNoResponse:
      AnswerNoResponse(write, port);
      break;
    default:
      break;
  }
  NotifyCloneWrite(write, port);
}

void CancelCloneWrite(CloneWrite& write) { EndExchange(write, -1); }

std::string TemplateDisplayName(const std::filesystem::path& path) {
  constexpr std::size_t kShown = 30;
  const std::filesystem::path::string_type& text = path.native();
  const std::size_t separator = text.rfind(kPathSeparator);
  if (separator != std::filesystem::path::string_type::npos) {
    return PathText(text.substr(separator + 1));
  }
  return PathText(text.size() > kShown ? text.substr(text.size() - kShown) : text);
}

}  // namespace qz7
