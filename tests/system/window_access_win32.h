#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// How the driver reaches the windows of another program, and what its commands are given and
// answer.

using Fields = std::vector<std::string>;

// The reason for a "no".
struct Refused : std::runtime_error {
  using std::runtime_error::runtime_error;
};

std::string NumberOf(HWND window);
LONG_PTR Number(const std::string& text);
HWND WindowOf(const std::string& text);

LRESULT Ask(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0);
void Post(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0);

std::string Utf8(std::wstring_view text);
std::wstring Wide(std::string_view text);

std::string ClassOf(HWND window);
std::string TitleOf(HWND window);
// Asked from the window itself.
std::string TextOf(HWND control);

std::vector<HWND> VisibleWindows();
std::vector<HWND> VisibleControls(HWND window);

// Of the window itself or of a dialog inside it. The file boxes give one number to several controls
// of different classes.
HWND ControlOf(const std::string& window, const std::string& identifier,
               const std::string& class_name = "");
// A user can do nothing with a disabled control.
HWND UsableControlOf(const std::string& window, const std::string& identifier,
                     const std::string& class_name = "");
