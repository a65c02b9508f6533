#include "core/link/exchange.h"

#include <numeric>
#include <utility>

namespace qz7 {
namespace {

void AskLinkError(Exchange& exchange, LinkError error, const char* text, Buttons buttons) {
  exchange.polling = false;
  exchange.question = {error, text, "Communications Error", buttons};
}

}  // namespace

std::span<std::uint8_t> RadioBlockOf(CloneImage& image) {
  return std::span(image).subspan(kRadioBlock.offset, kRadioBlock.size);
}

std::uint8_t CloneChecksum(std::span<const std::uint8_t> block) {
  return static_cast<std::uint8_t>(std::accumulate(block.begin(), block.end(), 0U));
}

bool IsRunning(const Exchange& exchange, const SerialPort& port) {
  return exchange.polling && !exchange.question && !exchange.ended && !port.IsLost();
}

void BeginTurn(Exchange& exchange) {
  constexpr std::chrono::milliseconds kTurn(20);
  exchange.turn_end = std::chrono::steady_clock::now() + kTurn;
}

bool HasTurn(const Exchange& exchange) {
  return !exchange.turn_end || std::chrono::steady_clock::now() < *exchange.turn_end;
}

void RestartExchange(Exchange& exchange, SerialPort& port) {
  port.RestartEvents();
  port.Purge(Queues::kBoth);
  exchange.polling = true;
  SetProgress(exchange.meter, 0);
}

std::size_t ReadArrived(Exchange& exchange, SerialPort& port, std::span<std::uint8_t> buffer) {
  const std::optional<std::size_t> count = port.Read(buffer);
  const bool failed_before = std::exchange(exchange.read_failed, !count);
  if (!count && failed_before) {
    port.Lose();
  } else if (!count) {
    exchange.question = {LinkError::kFailedRead, "ERROR", "Read Error", Buttons::kOk};
  }
  exchange.heard += count.value_or(0);
  return count.value_or(0);
}

void AskForRetry(Exchange& exchange, LinkError error, const char* text) {
  AskLinkError(exchange, error, text, Buttons::kRetryCancel);
}

void AskForOk(Exchange& exchange, LinkError error, const char* text) {
  AskLinkError(exchange, error, text, Buttons::kOk);
}

std::optional<LinkError> TakeQuestion(Exchange& exchange) {
  const auto question = std::exchange(exchange.question, std::nullopt);
  return question ? std::optional(question->error) : std::nullopt;
}

void EndExchange(Exchange& exchange, int result) {
  exchange.polling = false;
  exchange.question.reset();
  exchange.ended = result;
}

}  // namespace qz7
