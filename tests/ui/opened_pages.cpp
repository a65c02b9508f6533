#include "tests/ui/opened_pages.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <fstream>

#include "tests/ui/window_fixture.h"

namespace qz7 {
namespace {

constexpr const wchar_t* kSuffixKey = L".html";
constexpr const wchar_t* kKindKey = L"qz7_test_page";

void SetDefaultValue(const std::wstring& key, const std::wstring& value) {
  EXPECT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, value.c_str(),
                            static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))),
            ERROR_SUCCESS);
}

std::filesystem::path Recorder() {
  wchar_t path[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  return std::filesystem::path(path).replace_filename("page_recorder.exe");
}

}  // namespace

OpenedPages::OpenedPages(const std::filesystem::path& folder)
    : record_(std::filesystem::absolute(folder) / "opened") {
  EXPECT_TRUE(std::filesystem::exists(Recorder()));
  command_ = L"\"" + Recorder().wstring() + L"\" \"" + record_.wstring() + L"\" ";
  SetDefaultValue(kSuffixKey, L"qz7_test_page");
  SetDefaultValue(std::wstring(kKindKey) + L"\\shell\\open\\command", command_ + L"\"%1\"");
}

OpenedPages::~OpenedPages() {
  RegDeleteTreeW(HKEY_CLASSES_ROOT, kSuffixKey);
  RegDeleteTreeW(HKEY_CLASSES_ROOT, kKindKey);
}

std::vector<std::string> OpenedPages::Lines() const {
  std::ifstream file(record_);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    lines.push_back(line);
  }
  return lines;
}

std::vector<std::filesystem::path> OpenedPages::WaitFor(std::size_t count) const {
  EXPECT_TRUE(HandleMessagesUntil([&] { return Lines().size() >= count; }));
  std::vector<std::filesystem::path> pages;
  for (const std::string& line : Lines()) {
    const std::wstring wide = std::filesystem::u8path(line).wstring();
    const bool whole = wide.starts_with(command_ + L"\"") && wide.ends_with(L'"');
    EXPECT_TRUE(whole) << line;
    pages.emplace_back(whole ? wide.substr(command_.size() + 1, wide.size() - command_.size() - 2)
                             : L"");
  }
  return pages;
}

}  // namespace qz7
