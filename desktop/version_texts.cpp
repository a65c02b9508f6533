#include "desktop/version_texts.h"

#include <windows.h>

#include <cstdio>
#include <vector>

#include "core/files/paths.h"
#include "desktop/toolkit/ansi_text.h"

namespace qz7 {
namespace {

// Empty without a record.
std::vector<char> ReadRecord(const std::filesystem::path& given) {
  const std::filesystem::path path = SystemPath(given);
  DWORD ignored = 0;
  std::vector<char> record(GetFileVersionInfoSizeW(path.c_str(), &ignored));
  if (!record.empty() &&
      !GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(record.size()), record.data())) {
    record.clear();
  }
  return record;
}

// Eight hexadecimal digits. The translation's language and code page are stored the other way round
// than a path names them.
std::string TranslationOf(const std::vector<char>& record) {
  void* value = nullptr;
  UINT size = 0;
  if (record.empty() ||
      !VerQueryValueW(record.data(), L"\\VarFileInfo\\Translation", &value, &size) ||
      size < 2 * sizeof(WORD)) {
    return "";
  }
  const WORD* words = static_cast<const WORD*>(value);
  char digits[9] = "";
  std::snprintf(digits, sizeof digits, "%04x%04x", words[0], words[1]);
  return digits;
}

std::string ValueOf(const std::vector<char>& record, const std::string& translation,
                    const char* name) {
  const std::wstring path = WideText("\\StringFileInfo\\" + translation + "\\" + name);
  void* value = nullptr;
  UINT size = 0;
  if (!VerQueryValueW(record.data(), path.c_str(), &value, &size) || size == 0) {
    return "";
  }
  return AnsiText(static_cast<const wchar_t*>(value));
}

}  // namespace

std::optional<VersionTexts> ReadVersionTexts(const std::filesystem::path& path) {
  const std::vector<char> record = ReadRecord(path);
  const std::string translation = TranslationOf(record);
  if (translation.empty()) {
    return std::nullopt;
  }
  const auto value = [&](const char* name) { return ValueOf(record, translation, name); };
  return VersionTexts{.description = value("FileDescription"),
                      .version = value("FileVersion"),
                      .legal = value("LegalCopyRight"),
                      .company = value("CompanyName"),
                      .address = value("Address"),
                      .support = value("Support"),
                      .special_build = value("SpecialBuild")};
}

}  // namespace qz7
