#include "core/editors/vorn.h"
#include "desktop/editors/feature_frame.h"
#include "desktop/toolkit/help.h"
#include "resources/control_ids.h"

namespace qz7 {
namespace {

constexpr const char* kShorterIdentifier =
    ". A shorter text leaves the rest of the old one: blanks erase it.";

}  // namespace

bool ShowVornDialog(const FeatureEditor& editor) {
  return ShowFeatureWindow({.dialog_template = "DLLDlgVorn",
                            .help_context = kHelpVorn,
                            .screen = VornScreen(),
                            .controls = {{"vorn-mode", {ID_VORN_MODE_FIRST}},
                                         {"vorn-switch", {ID_VORN_SWITCH_FIRST}},
                                         {"vorn-flag", {ID_VORN_FLAG}},
                                         {"vorn-identifier",
                                          {.number = ID_VORN_IDENTIFIER,
                                           .radio_font = true,
                                           .remark = kShorterIdentifier}}}},
                           editor);
}

}  // namespace qz7
