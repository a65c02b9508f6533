#pragma once

#include <windows.h>

#include <string>

namespace qz7 {

// What the help needs of the system's viewer. Defined by each program, as the boxes are.

// The system has a viewer for its old help files. One that only says that it is no longer a part of
// the system is none.
bool HasHelpViewer();
// The viewer knows HELP_PARTIALKEY; Wine's does not.
bool HelpViewerSearches();
// The system has "WINHELP.HLP", the viewer's own help.
bool HasHelpOnHelp();
// HELP_CONTEXT with a topic's number, HELP_CONTENTS, HELP_PARTIALKEY with a text, HELP_QUIT.
void AskHelpViewer(const std::string& file, UINT command, ULONG_PTR data);

}  // namespace qz7
