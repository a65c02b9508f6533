#pragma once

namespace qz7 {

// The file of the radio's font, beside the program: the system's other programs are told of it, and
// that it went. Where there is none, nothing happens.
void InstallFontFile();
void RemoveFontFile();

}  // namespace qz7
