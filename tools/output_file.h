// SPDX-License-Identifier: MIT
//
// OutputFile: all of the document under its name, or nothing.
//
//     OutputFile output(name, inputs);         // refuses at once what cannot be written
//     output.Begin() << bytes;
//     output.CheckWritten();
//     output.Finish();
//
// The bytes go to a temporary file in the same directory (tools/temporary_file.h), which then takes
// the name. If the name is a link, the file that it points to is written, and created if it is not
// there. "-" is standard output; a device or pipe, which no file could replace, is written to
// directly, in the end. Every failure throws Failure with its reason.
#pragma once

#include <filesystem>
#include <optional>
#include <ostream>
#include <streambuf>
#include <string>
#include <system_error>
#include <vector>

#include "tools/document_sink.h"
#include "tools/temporary_file.h"

namespace vellumark::tools {

class OutputFile final : public DocumentSink, private std::streambuf {
 public:
  /// Checks that `name` can be written: its directory exists, and it is not a directory and not the
  /// input.
  OutputFile(std::string name, const std::vector<std::string>& inputs);

  /// The stream belongs to this object.
  [[nodiscard]] std::ostream& Begin() override;
  void CheckWritten() const override;

  /// Gives the document its name, or writes it to where it goes.
  void Finish();

 private:
  std::streamsize xsputn(const char* bytes, std::streamsize count) override;
  int overflow(int byte) override;

  void CheckDirectory() const;
  void WriteKept();
  [[noreturn]] void Fail(const std::error_code& error) const;

  std::string name_;              // for messages
  std::filesystem::path target_;  // links followed
  bool direct_ = false;           // a device, a pipe or standard output
  std::optional<TemporaryFile> file_;
  std::string kept_;  // the bytes that are not written yet; all of them if they go there directly
  std::error_code error_;
  std::ostream stream_{this};
};

}  // namespace vellumark::tools
