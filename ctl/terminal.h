#pragma once

namespace qz7 {

// Whether standard error is shown to a person.
bool IsErrorTerminal();

// Standard input and output carry bytes as they are; standard output otherwise has "\n" line ends.
void UseBinaryStreams();

}  // namespace qz7
