#include "core/files/preferences.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <memory>

#include "core/files/paths.h"
#include "core/files/profile_paths.h"
#include "core/files/radio_data_file.h"
#include "core/files/seams.h"
#include "core/image/band_plan.h"

namespace qz7 {
namespace {

constexpr const char* kDataFolderKey = "DataDir";
constexpr const char* kTemplateKey = "TemplateFile";
constexpr const char* kPortKey = "Com";
constexpr std::size_t kLongestFolder = 244;
constexpr std::size_t kLongestPath = 259;
constexpr std::size_t kLongestPort = 20;
constexpr std::size_t kLongestFlag = 20;

bool ReadFlag(const Profile& profile, const char* key, const char* missing) {
  return ProfileText(profile, key, missing, kLongestFlag).starts_with('1');
}

// The file itself is not kept: only a bad one is reported.
void ReportBadTemplate(const std::filesystem::path& path) {
  std::error_code ignored;
  if (path.empty() || !std::filesystem::is_regular_file(SystemPath(path), ignored)) {
    return;
  }
  const auto buffer = std::make_unique<CloneImage>();
  ReadTemplateFile(*buffer, path);
}

}  // namespace

void LoadPreferences(Preferences& preferences, const std::filesystem::path& program_folder) {
  const Profile profile = ReadProfile();
  preferences.port_index = PortIndexOf(ProfileText(profile, kPortKey, "0", kLongestPort));
  preferences.data_folder = ReadProfilePath(profile, kDataFolderKey, kLongestFolder);
  if (preferences.data_folder.empty()) {
    preferences.data_folder = program_folder;
    WriteProfilePath(kDataFolderKey, program_folder, kLongestFolder);
  }
  preferences.template_path = ReadProfilePath(profile, kTemplateKey, kLongestPath);
  ReportBadTemplate(preferences.template_path);
  for (const PreferenceFlag& flag : kPreferenceFlags) {
    preferences.*flag.flag = ReadFlag(profile, flag.key, "X");
  }
  preferences.allow_any_band = ReadFlag(profile, "AllowAnyBand", "0");
}

void SavePreferenceFlags(const Preferences& preferences) {
  for (const PreferenceFlag& flag : kPreferenceFlags) {
    WriteProfile(flag.key, preferences.*flag.flag ? "1" : "0");
  }
}

void ChangeDataFolder(Preferences& preferences, const std::filesystem::path& folder) {
  if (!SamePath(folder, preferences.data_folder)) {
    WriteProfilePath(kDataFolderKey, folder, kLongestFolder);
  }
  preferences.data_folder = folder;
}

void SaveTemplatePath(const Preferences& preferences) {
  WriteProfilePath(kTemplateKey, preferences.template_path, kLongestPath);
}

void SavePortIndex(const Preferences& preferences) {
  WriteProfile(kPortKey, std::to_string(preferences.port_index));
}

int PortIndexOf(const std::string& text) {
  const long value = std::strtol(text.c_str(), nullptr, 10);
  return static_cast<int>(std::clamp<long>(value, 0, std::numeric_limits<int>::max()));
}

}  // namespace qz7
