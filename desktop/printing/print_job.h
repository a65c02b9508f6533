#pragma once

#include <functional>
#include <string>
#include <vector>

namespace qz7 {

// What a device says of itself and of its current font, in its own pixels.
struct DeviceFigures {
  int horizontal_pixels_per_inch = 0;
  int vertical_pixels_per_inch = 0;
  int vertical_resolution = 0;  // of the printable area
  int line_height = 0;
};

// The line height of a device whose font cannot be measured.
inline constexpr int kUnmeasuredLineHeight = 20;

struct PlacedLine {
  std::string text;
  int x;
  int y;
};
using PrintPage = std::vector<PlacedLine>;

// Half an inch is left free at the left, at the top and at the bottom. A page takes one line at
// least; no lines are no page.
std::vector<PrintPage> Paginate(const std::vector<std::string>& lines,
                                const DeviceFigures& figures);

// The largest height of a font, not above `height`, whose longest line is at most `room` wide;
// never below 1. A font need not shrink evenly: `width_at` tells how wide the longest line is at a
// height.
int FittingHeight(int height, int room, const std::function<int(int)>& width_at);

// A device that takes one document. False is the device's refusal; it shows nothing.
class Printer {
 public:
  Printer() = default;
  Printer(const Printer&) = delete;
  Printer& operator=(const Printer&) = delete;
  virtual ~Printer() = default;

  // Has the device ask again and again whether to go on; the asking is when the user's Cancel is
  // heard.
  virtual bool InstallAbort() = 0;
  virtual bool StartDocument(const std::string& name) = 0;
  // Takes the device's own font as large as the lines have room in it.
  virtual void FitFont(const std::vector<std::string>& lines) = 0;
  virtual DeviceFigures Figures() = 0;
  virtual void StartPage() = 0;
  virtual void DrawLine(const PlacedLine& line) = 0;
  virtual void EndPage() = 0;
  virtual bool EndDocument() = 0;
};

struct PrintJob {
  std::string document_name;
  int copies = 1;
  // Set by the user's Cancel and by a failure. No further copy begins then, and the document is not
  // ended; what is left of the current copy still goes to the device.
  bool aborted = false;
  std::function<void(const std::string&)> show_copy = {};  // "Copy 1 of 2", when there are several
  std::function<void(const std::string&)> show_page = {};  // "Page 1"
};

// Prints the lines. A refusal is shown as "Printing Failed (1)." (the abort callback), "Printing
// Failed (2)." (the document) or "Printing Failed (3)" (its end).
void RunPrintJob(PrintJob& job, const std::vector<std::string>& lines, Printer& printer);

}  // namespace qz7
