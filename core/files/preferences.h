#pragma once

#include <array>
#include <filesystem>
#include <string>

namespace qz7 {

// What outlives a run in the preferences file (core/files/seams.h).
struct Preferences {
  std::filesystem::path data_folder;    // without a "\" at its end
  std::filesystem::path template_path;  // empty: none chosen
  int port_index = 0;  // 0 none, 1..9 COM1..COM9; larger values until the port dialog opens
  bool use_main_defaults_new = false;
  bool use_main_defaults_open = false;
  bool use_setting_defaults = false;
  bool use_vorn_defaults = false;
  bool use_dial_defaults = false;
  bool use_wx_names_defaults = false;
  bool use_icon_defaults = false;
  bool use_dont_ask_defaults = false;
  bool allow_any_band = false;  // kept, but nothing depends on it
};

// The flags that the preferences dialog edits, each with its key.
struct PreferenceFlag {
  const char* key;
  bool Preferences::*flag;
};
inline constexpr std::array<PreferenceFlag, 8> kPreferenceFlags = {{
    {"UseMainDefaultsNew", &Preferences::use_main_defaults_new},
    {"UseMainDefaultsOpen", &Preferences::use_main_defaults_open},
    {"UseSettingDefaults", &Preferences::use_setting_defaults},
    {"UseVornDefaults", &Preferences::use_vorn_defaults},
    {"UseDialDefaults", &Preferences::use_dial_defaults},
    {"UseWxNamesDefaults", &Preferences::use_wx_names_defaults},
    {"UseIconDefaults", &Preferences::use_icon_defaults},
    {"UseDontAskDefaults", &Preferences::use_dont_ask_defaults},
}};

// Reads everything at start-up and reports a template file that is named, exists and is bad. An
// empty data folder becomes `program_folder` and is written back.
void LoadPreferences(Preferences& preferences, const std::filesystem::path& program_folder);

// Writes the flags of the preferences dialog as "0" or "1".
void SavePreferenceFlags(const Preferences& preferences);

// Each changes the preference and writes it; the data folder only when more than the case of its
// letters is new, the port only when it is another one.
void ChangeDataFolder(Preferences& preferences, const std::filesystem::path& folder);
void SaveTemplatePath(const Preferences& preferences);
void SavePortIndex(const Preferences& preferences);

// The stored text of a port, as an index; 0 for what is negative or no number.
int PortIndexOf(const std::string& text);

}  // namespace qz7
