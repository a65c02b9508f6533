#pragma once

#include <functional>

#include "core/files/document.h"

namespace qz7 {

// What the window that opens the channel editor wants to know of it.
struct EditorListener {
  std::function<void(int n)> written = [](int) {};  // channel n was accepted
  std::function<void(int n)> shown = [](int) {};    // the editor has turned to channel n
};

// The channel editor on memory channel or special slot n of the document's image. True for OK;
// false for Cancel, and at once for an absent channel.
bool ShowChannelEditorDialog(Document& document, int n, const EditorListener& listener = {});

}  // namespace qz7
