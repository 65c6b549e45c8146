// SPDX-License-Identifier: MIT
//
// OutputFile: all of the document under its name, or nothing.
//
//     const OutputFile output(name, inputs);   // refuses at once what cannot be written
//     output.Write(bytes);
//
// The bytes go to a temporary file in the same directory (tools/temporary_file.h), which then takes
// the name. If the name is a link, the file that it points to is written, and created if it is not
// there. "-" is standard output; a device or pipe, which no file could replace, is written to
// directly. Every failure throws Failure with its reason.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::tools {

class OutputFile {
 public:
  /// Checks that `name` can be written: its directory exists, and it is not a directory and not the
  /// input.
  OutputFile(std::string name, const std::vector<std::string>& inputs);

  void Write(std::string_view bytes) const;

 private:
  void CheckDirectory() const;

  std::string name_;              // for messages
  std::filesystem::path target_;  // links followed
  bool direct_ = false;           // a device or pipe
};

}  // namespace vellumark::tools
