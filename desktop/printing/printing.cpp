#include "desktop/printing/printing.h"

#include <algorithm>
#include <memory>
#include <type_traits>

#include "core/editors/print_text.h"
#include "desktop/toolkit/dialog_support.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

// The system asks back without saying for which document.
struct Printing {
  HWND progress = nullptr;
  PrintJob* job = nullptr;
} printing;

struct PrintingNow {
  explicit PrintingNow(Printing now) { printing = now; }
  ~PrintingNow() { printing = {}; }
  PrintingNow(const PrintingNow&) = delete;
  PrintingNow& operator=(const PrintingNow&) = delete;
};

BOOL CALLBACK KeepPrinting(HDC, int) {
  return HandleMessagesWhilePrinting(*printing.job, printing.progress) ? TRUE : FALSE;
}

struct FontDeleter {
  void operator()(HFONT font) const { DeleteObject(font); }
};
using OwnedFont = std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter>;

// The font of the device, of a height in its pixels.
OwnedFont SameFont(HDC device, const TEXTMETRICA& metrics, int height) {
  LOGFONTA font{};
  font.lfHeight = height;
  font.lfWeight = metrics.tmWeight;
  font.lfItalic = metrics.tmItalic;
  font.lfCharSet = metrics.tmCharSet;
  font.lfPitchAndFamily = metrics.tmPitchAndFamily & 0xF0;
  GetTextFaceA(device, LF_FACESIZE, font.lfFaceName);
  return OwnedFont(CreateFontIndirectA(&font));
}

int LongestLine(HDC device, const std::vector<std::string>& lines) {
  LONG longest = 0;
  for (const std::string& line : lines) {
    SIZE size{};
    GetTextExtentPoint32A(device, line.data(), static_cast<int>(line.size()), &size);
    longest = std::max(longest, size.cx);
  }
  return static_cast<int>(longest);
}

int LongestLineIn(HDC device, HFONT font, const std::vector<std::string>& lines) {
  const HGDIOBJ old = SelectObject(device, font);
  const int longest = LongestLine(device, lines);
  SelectObject(device, old);
  return longest;
}

class DevicePrinter final : public Printer {
 public:
  explicit DevicePrinter(HDC device) : device_(device) {}

  bool InstallAbort() override { return SetAbortProc(device_, KeepPrinting) > 0; }

  bool StartDocument(const std::string& name) override {
    DOCINFOA document{};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    open_ = StartDocA(device_, &document) > 0;
    return open_;
  }

  void FitFont(const std::vector<std::string>& lines) override {
    const int room = GetDeviceCaps(device_, HORZRES) - GetDeviceCaps(device_, LOGPIXELSX) / 2;
    TEXTMETRICA metrics{};
    if (!GetTextMetricsA(device_, &metrics) || LongestLine(device_, lines) <= room) {
      return;
    }
    const auto width_at = [&](int height) {
      return LongestLineIn(device_, SameFont(device_, metrics, height).get(), lines);
    };
    font_ = SameFont(device_, metrics, FittingHeight(metrics.tmHeight, room, width_at));
    own_font_ = SelectObject(device_, font_.get());
  }

  DeviceFigures Figures() override {
    TEXTMETRICA font{};
    const bool measured = GetTextMetricsA(device_, &font) != FALSE;
    return {
        .horizontal_pixels_per_inch = GetDeviceCaps(device_, LOGPIXELSX),
        .vertical_pixels_per_inch = GetDeviceCaps(device_, LOGPIXELSY),
        .vertical_resolution = GetDeviceCaps(device_, VERTRES),
        .line_height = measured ? font.tmHeight + font.tmExternalLeading : kUnmeasuredLineHeight};
  }

  void StartPage() override { ::StartPage(device_); }

  void DrawLine(const PlacedLine& line) override {
    TextOutA(device_, line.x, line.y, line.text.data(), static_cast<int>(line.text.size()));
  }

  // Not every system asks between pages whether to go on.
  void EndPage() override {
    ::EndPage(device_);
    KeepPrinting(device_, 0);
  }

  bool EndDocument() override {
    open_ = false;
    return EndDoc(device_) > 0;
  }

  // A document that was not ended is taken back, so that nothing of it waits in the queue.
  ~DevicePrinter() override {
    if (font_) {
      SelectObject(device_, own_font_);
    }
    if (open_) {
      AbortDoc(device_);
    }
  }

 private:
  HDC device_;
  OwnedFont font_;  // where the device's own one is too large
  HGDIOBJ own_font_ = nullptr;
  bool open_ = false;
};

BOOL OnInit(HWND dialog, LPARAM state) {
  SetUpDialog(dialog, state);
  const auto& job = StateOf<PrintJob>(dialog);
  SetDlgItemTextA(dialog, ID_PRINTED_DOCUMENT, ("Printing " + job.document_name).c_str());
  EnableMenuItem(GetSystemMenu(dialog, FALSE), SC_CLOSE, MF_BYCOMMAND | MF_GRAYED);
  return TRUE;
}

}  // namespace

extern "C" INT_PTR CALLBACK DlgProcPrinting(HWND dialog, UINT message, WPARAM, LPARAM l) {
  switch (message) {
    case WM_INITDIALOG:
      return OnInit(dialog, l);
    case WM_COMMAND:
      StateOf<PrintJob>(dialog).aborted = true;
      return TRUE;
    default:
      return FALSE;
  }
}

namespace {

// A field is painted at once: a short page gives no time for it later.
std::function<void(const std::string&)> TextSetter(HWND dialog, int control) {
  const HWND field = GetDlgItem(dialog, control);
  return [field](const std::string& text) {
    SetWindowTextA(field, text.c_str());
    UpdateWindow(field);
  };
}

struct PrinterRelease {
  explicit PrinterRelease(const ChosenPrinter& chosen) : printer(chosen) {}
  ~PrinterRelease() {
    DeleteDC(printer.device);
    GlobalFree(printer.settings);
    GlobalFree(printer.names);
  }
  PrinterRelease(const PrinterRelease&) = delete;
  PrinterRelease& operator=(const PrinterRelease&) = delete;
  ChosenPrinter printer;
};

void PrintLinesOn(const ChosenPrinter& chosen, const std::vector<std::string>& lines,
                  const std::string& document_name) {
  PrintJob job{.document_name = document_name, .copies = chosen.copies};
  const HWND owner = DialogOwner();
  DisabledOwner modal(owner);
  modal.dialog = CreateModelessDialog("DlgPrinting", owner, DlgProcPrinting, &job);
  const HWND progress = modal.dialog;
  job.show_copy = TextSetter(progress, ID_PRINTED_COPY);
  job.show_page = TextSetter(progress, ID_PRINTED_PAGE);
  ShowWindow(progress, SW_SHOW);
  UpdateWindow(progress);
  const PrintingNow now({.progress = progress, .job = &job});
  DevicePrinter printer(chosen.device);
  RunPrintJob(job, lines, printer);
}

}  // namespace

PRINTDLGA MakePrintBox(HWND owner) {
  PRINTDLGA box{};
  box.lStructSize = sizeof box;
  box.hwndOwner = owner;
  box.Flags = PD_RETURNDC | PD_NOSELECTION | PD_NOPAGENUMS | PD_COLLATE;
  box.nCopies = 1;
  return box;
}

bool HandleMessagesWhilePrinting(PrintJob& job, HWND progress) {
  MSG message;
  while (!job.aborted && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      job.aborted = true;
      PostQuitMessage(static_cast<int>(message.wParam));
    } else if (progress == nullptr || !IsDialogMessageA(progress, &message)) {
      TranslateMessage(&message);
      DispatchMessageA(&message);
    }
  }
  return !job.aborted;
}

void PrintDocument(const Document& document, DtmfDisplay display) {
  PrintText text;
  if (!BuildPrintText(document.image, document.name, display, document.region, text)) {
    return;
  }
  const std::vector<std::string> lines = PrintLines(text);
  const auto chosen = ShowPrintBox();
  if (!chosen) {
    return;
  }
  const PrinterRelease release(*chosen);
  PrintLinesOn(*chosen, lines, document.name);
}

}  // namespace qz7
