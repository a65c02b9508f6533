// What a user may type into the frequency and offset fields.

#include <cstdlib>
#include <memory>
#include <string_view>

#include "core/files/new_document.h"
#include "core/image/band_plan.h"
#include "core/image/channel_record.h"
#include "core/image/channel_text.h"
#include "core/image/frequency_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qz7;
  static const auto image = [] {
    auto fresh = std::make_unique<CloneImage>();
    MakeNewImage(*fresh);
    return fresh;
  }();
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const Frequency f = ParseFrequency(text);
  const OffsetCheck offset = CheckOffset(text);
  if (f < 0 || offset.offset < 0 || ParseFrequency(FormatFrequency(f)) < 0) {
    std::abort();
  }
  // A frequency that the radio takes reads back from its own text.
  if (IsValidFrequency(*image, f) && ParseFrequency(FormatFrequency(f)) != f) {
    std::abort();
  }
  GridClass(f);
  BandOf(f);
  FillStepList(f, 1);
  for (const int shift : {kSimplex, kMinus, kPlus, kOddSplit}) {
    RecomputeTransmit(f, shift, offset.offset, f);
  }
  for (const int n : {1, 240, -1, -15, -30}) {
    CheckReceive(*image, n, text);
    CheckTransmit(*image, n, text);
  }
  return 0;
}
