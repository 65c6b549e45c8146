// SPDX-License-Identifier: MIT
//
// OutputFile: all of the document under its name, or nothing.
//
//     const OutputFile output(name);    // refuses at once what cannot be written
//     output.Write(bytes);
//
// The bytes go to a file of an unpredictable name in the same directory, created for nobody else,
// which then takes the wanted name; a failure removes it. A name that is a link is followed. "-" is
// standard output; a device or pipe, which no file could replace, is written to directly. Every
// failure throws Failure.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vellumark::tools {

class OutputFile {
 public:
  /// Checks that `name` is no directory and its directory exists. `input` must be another file.
  OutputFile(std::string name, const std::string& input);

  void Write(std::string_view bytes) const;

 private:
  void WriteBeside(std::string_view bytes) const;

  std::string name_;              // for messages
  std::filesystem::path target_;  // links followed
  bool direct_ = false;           // a device or pipe
};

}  // namespace vellumark::tools
