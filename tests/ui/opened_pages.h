#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qz7 {

// The system's browser is a program that records what it is started with, as long as this lives.
class OpenedPages {
 public:
  // Keeps the record in an existing folder.
  explicit OpenedPages(const std::filesystem::path& folder);
  OpenedPages(const OpenedPages&) = delete;
  OpenedPages& operator=(const OpenedPages&) = delete;
  ~OpenedPages();

  // The files that the browser was started for, once they are so many; fails the test when they do
  // not become so many.
  std::vector<std::filesystem::path> WaitFor(std::size_t count) const;

 private:
  std::vector<std::string> Lines() const;

  std::wstring command_;
  std::filesystem::path record_;
};

}  // namespace qz7
