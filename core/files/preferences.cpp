#include "core/files/preferences.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <memory>

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

bool ReadFlag(const char* key, const char* missing) {
  return ReadProfile(key, missing, kLongestFlag).starts_with('1');
}

// The file itself is not kept: only a bad one is reported.
void ReportBadTemplate(const std::string& path) {
  std::error_code ignored;
  if (path.empty() || !std::filesystem::is_regular_file(path, ignored)) {
    return;
  }
  const auto buffer = std::make_unique<CloneImage>();
  ReadTemplateFile(*buffer, path);
}

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

void LoadPreferences(Preferences& preferences, const std::string& program_folder) {
  preferences.port_index = PortIndexOf(ReadProfile(kPortKey, "0", kLongestPort));
  preferences.data_folder = ReadProfile(kDataFolderKey, "", kLongestFolder);
  if (preferences.data_folder.empty()) {
    preferences.data_folder = program_folder;
    WriteProfile(kDataFolderKey, program_folder);
  }
  preferences.template_path = ReadProfile(kTemplateKey, "", kLongestPath);
  ReportBadTemplate(preferences.template_path);
  for (const PreferenceFlag& flag : kPreferenceFlags) {
    preferences.*flag.flag = ReadFlag(flag.key, "X");
  }
  preferences.allow_any_band = ReadFlag("AllowAnyBand", "0");
}

void SavePreferenceFlags(const Preferences& preferences) {
  for (const PreferenceFlag& flag : kPreferenceFlags) {
    WriteProfile(flag.key, preferences.*flag.flag ? "1" : "0");
  }
}

void ChangeDataFolder(Preferences& preferences, const std::string& folder) {
  if (!SamePath(folder, preferences.data_folder)) {
    WriteProfile(kDataFolderKey, folder);
  }
  preferences.data_folder = folder;
}

void SaveTemplatePath(const Preferences& preferences) {
  WriteProfile(kTemplateKey, preferences.template_path);
}

void SavePortIndex(const Preferences& preferences) {
  WriteProfile(kPortKey, std::to_string(preferences.port_index));
}

int PortIndexOf(const std::string& text) {
  const long value = std::strtol(text.c_str(), nullptr, 10);
  return static_cast<int>(std::clamp<long>(value, 0, std::numeric_limits<int>::max()));
}

bool SamePath(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

}  // namespace qz7
