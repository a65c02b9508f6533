// What a user may type into the frequency and offset fields.

#include <string_view>

#include "core/image/band_plan.h"
#include "core/image/channel_record.h"
#include "core/image/channel_text.h"
#include "core/image/frequency_check.h"
#include "fuzz/fuzz_seams.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qz7;
  const CloneImage& image = NewImage();
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const Frequency f = ParseFrequency(text);
  const Frequency offset = ParseOffset(text);
  const Frequency zero;
  Check(f >= zero && offset >= zero && ParseFrequency(FormatFrequency(f)) >= zero);
  // A frequency that the radio takes reads back from its own text.
  Check(!IsValidFrequency(image, f) || ParseFrequency(FormatFrequency(f)) == f);
  CheckOffset(offset);
  for (const Variant variant : {Variant::kZero, Variant::kOne, Variant::kTwo}) {
    const RegionVariant region{.variant = variant, .sub_variant = 2};
    GridClass(f, region);
    BandOf(f, region);
    FillStepList(f, 1, region);
    for (const int n : {1, 240, -1, -15, -30}) {
      CheckReceive(image, n, f, region);
      CheckTransmit(image, n, f, region);
    }
  }
  for (const Shift shift : {Shift::kSimplex, Shift::kMinus, Shift::kPlus, Shift::kOddSplit}) {
    RecomputeTransmit(f, shift, offset, f);
  }
  return 0;
}
