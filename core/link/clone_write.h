#pragma once

#include <filesystem>
#include <string>

#include "core/image/clone_image.h"
#include "core/link/exchange.h"

namespace qz7 {

// The document's block goes to a radio that waits for it, under the identity (header) of a template
// that was read from the user's own radio.
struct CloneWrite : Exchange {
  enum Phase { kIdle = 0, kSendBlock = 1, kBlockEchoed = 2, kFinished = 3, kWaitEcho = 4 };
  int phase = kIdle;
  int blocks_sent = 0;             // 0..507
  std::uint8_t echo_expected = 0;  // bytes that the last write was to put on the line
  std::uint8_t echo_received = 0;
  std::span<const std::uint8_t> unsent;  // of these bytes, what the port has not taken yet
  int bytes_confirmed = 0;               // for the meter
  // Loaded with 10 and on purpose never counted down: a radio that stops answering leaves the
  // exchange waiting for Cancel.
  int response_countdown = 0;
  bool can_start = true;  // the OK and Browse Template buttons are enabled
};

inline constexpr int kResponseTicks = 10;

// Opens the exchange on a working copy: refreshes its operating-channel mirror and waits for
// StartCloneWrite. The working copy must outlive the exchange.
void BeginCloneWrite(CloneWrite& write, SerialPort& port, CloneImage& working_copy);

// The user's OK: loads the template and starts. One that cannot be used leaves the exchange as it
// is; one of the Japanese version ends it. Ignored unless the exchange is idle.
void StartCloneWrite(CloneWrite& write, SerialPort& port,
                     const std::filesystem::path& template_path);
// Merges a template that is loaded and sends the header.
void StartCloneWrite(CloneWrite& write, SerialPort& port, const CloneImage& template_image);

// The checks of a template, with their messages. kStay: choose another.
bool IsTemplateNamed(const std::filesystem::path& template_path);
enum class TemplateOutcome { kUsable, kStay, kGiveUp };
TemplateOutcome LoadTemplateFor(CloneImage& template_image,
                                const std::filesystem::path& template_path);

// Puts the template's identity into the block to be sent: bytes 0..9 are the template's header,
// 10 and 11 repeat its bytes 6 and 7, 12 and 13 are the template's.
void MergeTemplate(std::span<std::uint8_t> block, std::span<const std::uint8_t> template_block);

// One send step; true when the next step may find something to do. A step does nothing while a
// question is open.
bool StepCloneWrite(CloneWrite& write, SerialPort& port);

// How many bytes the next step can use: a driver that can wait for so many need not wake for each.
std::size_t BytesAwaited(const CloneWrite& write);

// What it waits for at present, as the user knows it: "the radio's answer"; empty for nothing.
const char* AwaitedBy(const CloneWrite& write);
// What the user is to do on the radio before anything moves; empty once it does.
const char* InvitedBy(const CloneWrite& write);
// What the user can do when the exchange stands still.
const char* RemedyFor(const CloneWrite& write);

// A tick of the 10 ms timer, and bytes that have come: steps until one finds nothing to do. The
// step that finishes is left to a later tick, when the checksum byte has left the machine.
void TickCloneWrite(CloneWrite& write, SerialPort& port);
void NotifyCloneWrite(CloneWrite& write, SerialPort& port);
// The question's answer: the exchange goes on with what the answer says, then with its steps.
void AnswerCloneWrite(CloneWrite& write, SerialPort& port, Answer answer);

void CancelCloneWrite(CloneWrite& write);

// The name that the dialog shows for a template's path: what follows the last "\", or the last 30
// characters of a path without one.
std::string TemplateDisplayName(const std::filesystem::path& path);

}  // namespace qz7
