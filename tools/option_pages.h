// SPDX-License-Identifier: MIT
//
// The manual page and the completions of shells, made from the table of options itself.
//
//     std::cout << ManualPage(table);
//     std::cout << Completion(table, "bash");      // or "zsh" or "fish"
#pragma once

#include <CLI/CLI.hpp>
#include <map>
#include <string>
#include <string_view>

namespace vellumark::tools {

struct OptionTable {
  CLI::App app;
  /// By the long name of an option, such as "paper": the words that it takes, with ", " between.
  std::map<std::string, std::string_view> values;
};

inline constexpr std::string_view kShellNames = "bash, zsh, fish";

/// For man, in section 1.
[[nodiscard]] std::string ManualPage(const OptionTable& table);

/// The program that completes command lines in a shell of kShellNames.
[[nodiscard]] std::string Completion(const OptionTable& table, std::string_view shell);

}  // namespace vellumark::tools
