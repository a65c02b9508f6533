#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/editors/channel_editor.h"
#include "core/image/channel_description.h"

namespace qz7 {

// The channel editor's fields by name, for those who set them without a window: the names and
// values of core/image/channel_description.h. What a field shows already is always taken and
// changes nothing, and so is the empty value of a field that the slot lacks. Otherwise the rules of
// the controls hold: lengths, lists, and what is disabled. Whether a receive frequency is one is
// for the editor's OK to say.

// False, with the reason, for a name or a value that cannot be set. A transmit frequency can be
// set after the shift has become "split".
bool SetEditorField(ChannelEditor& editor, std::string_view name, std::string_view value,
                    std::string& why_not);

// Sets several fields, in whatever order they are given: those come first that others follow. On
// false the editor is half changed and to be given up.
bool SetEditorFields(ChannelEditor& editor, const std::vector<NamedValue>& values,
                     std::string& why_not);

// The same to the end of the list: the name of each field that cannot be set, and the reason.
std::vector<NamedValue> SetFieldsTellingRefusals(ChannelEditor& editor,
                                                 const std::vector<NamedValue>& values);

}  // namespace qz7
