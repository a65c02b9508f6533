#pragma once

#include "core/image/clone_image.h"

namespace qz7 {

// Fills the image's radio block with the factory state: version type 0, subtype 1, wide coverage;
// memory channel 1 and all VFO and home slots programmed; every screen shows valid choices.
void WriteDefaultRadioBlock(CloneImage& image);

// A new document: zeros, the document header, the factory state of the radio.
void MakeNewImage(CloneImage& image);

}  // namespace qz7
