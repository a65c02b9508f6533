#pragma once

namespace qz7 {

// Whether standard error and standard output are shown to a person.
bool IsErrorTerminal();
bool IsOutputTerminal();

// Standard input and output carry bytes as they are; standard output otherwise has "\n" line ends.
void UseBinaryStreams();

}  // namespace qz7
