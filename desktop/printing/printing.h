#pragma once

#include <windows.h>
// Behind <windows.h>.
#include <commdlg.h>

#include <optional>

#include "core/editors/autodial.h"
#include "core/files/document.h"
#include "desktop/printing/print_job.h"

namespace qz7 {

// What the user chose in the print box. The chooser's caller gives all three back to the system.
struct ChosenPrinter {
  HDC device;
  int copies;
  HGLOBAL settings = nullptr;
  HGLOBAL names = nullptr;
};

// The system's print box: one copy, collated, no selection and no page range; it gives a device.
PRINTDLGA MakePrintBox(HWND owner);

// Shows that box; nothing when the user cancels. Defined by each program, as the other boxes are.
std::optional<ChosenPrinter> ShowPrintBox();

// Handles the messages that wait, those of the progress dialog as a dialog's, until the job is
// aborted; false once it is. The user's press of Cancel is among them. A message to quit aborts the
// job, too, and waits for the program's own loop again.
bool HandleMessagesWhilePrinting(PrintJob& job, HWND progress);

// File, Print: the listing of the document, to a printer of the user's choice.
void PrintDocument(const Document& document, DtmfDisplay display);

}  // namespace qz7
