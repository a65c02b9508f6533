#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace qz7 {

// What a program file's version record says; empty where it has no such value.
struct VersionTexts {
  std::string description;
  std::string version;
  std::string legal;
  std::string company;
  std::string address;
  std::string support;
  std::string special_build;  // the box does not show it
  bool operator==(const VersionTexts&) const = default;
};

// Nothing for a file that cannot be read, has no version record or names no translation in it.
std::optional<VersionTexts> ReadVersionTexts(const std::filesystem::path& path);

}  // namespace qz7
