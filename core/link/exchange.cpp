#include "core/link/exchange.h"

#include <numeric>

#include "core/files/seams.h"

namespace qz7 {
namespace {

Answer ShowLinkError(Exchange& exchange, const char* message, Buttons buttons) {
  exchange.polling = false;
  return ShowMessage(message, "Communications Error", buttons, Icon::kNone);
}

}  // namespace

std::uint8_t CloneChecksum(std::span<const std::uint8_t> block) {
  return static_cast<std::uint8_t>(std::accumulate(block.begin(), block.end(), 0U));
}

void RestartExchange(Exchange& exchange, SerialPort& port) {
  port.RestartEvents();
  port.Purge(Queues::kBoth);
  exchange.polling = true;
  ShowExchangeProgress(exchange, 0);
}

bool LinkErrorRetry(Exchange& exchange, const char* message) {
  return ShowLinkError(exchange, message, Buttons::kRetryCancel) == Answer::kRetry;
}

void LinkErrorOk(Exchange& exchange, const char* message) {
  ShowLinkError(exchange, message, Buttons::kOk);
}

void ShowExchangeProgress(Exchange& exchange, int count) {
  exchange.meter_changed |= SetProgress(exchange.meter, count);
}

void EndExchange(Exchange& exchange, int result) {
  exchange.polling = false;
  exchange.ended = result;
}

}  // namespace qz7
