// SPDX-License-Identifier: MIT
//
// Names of files: UTF-8 in texts, and what the system has in a path.
//
//     const std::filesystem::path path = PathOf("grüße.md");
//     TextOf(path.parent_path() / "logo.png")
//
// Where names are bytes they stay as they are. On Windows they are wide characters there, and "/"
// separates folders in texts.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vellumark::tools {

[[nodiscard]] inline std::filesystem::path PathOf(std::string_view name) {
  return {std::u8string(name.begin(), name.end())};
}

[[nodiscard]] inline std::string TextOf(const std::filesystem::path& path) {
  const std::u8string name = path.generic_u8string();
  return {name.begin(), name.end()};
}

}  // namespace vellumark::tools
