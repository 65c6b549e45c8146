// SPDX-License-Identifier: MIT
#include "tools/output_file.h"

#include <system_error>
#include <utility>

#include "tools/failure.h"
#include "tools/file_descriptor.h"
#include "tools/file_name.h"
#include "tools/temporary_file.h"

namespace vellumark::tools {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const std::string& name, const std::string& reason) {
  throw Failure("cannot write " + name + ": " + reason);
}

[[noreturn]] void Fail(const std::string& name, const std::error_code& error) {
  const bool limit = error == std::errc::file_too_large;
  Fail(name, error.message() + (limit ? " (the limit on file sizes, see ulimit -f)" : ""));
}

/// What a chain of links ends at, whether it is there or not.
fs::path FollowLinks(const std::string& name) {
  constexpr int kMostLinks = 40;  // as many as the system follows
  fs::path path = PathOf(name);
  std::error_code error;
  for (int i = 0; i < kMostLinks; ++i) {
    if (!fs::is_symlink(path, error)) return path;
    const fs::path link = fs::read_symlink(path, error);
    if (error) Fail(name, error);
    path = path.parent_path() / link;
  }
  Fail(name, std::make_error_code(std::errc::too_many_symbolic_link_levels));
}

}  // namespace

OutputFile::OutputFile(std::string name, const std::vector<std::string>& inputs)
    : name_(std::move(name)) {
  if (name_ == "-") return;
  if (name_.empty()) throw Failure("the name of the output is empty");
  target_ = FollowLinks(name_);
  std::error_code error;
  const fs::file_status status = fs::status(target_, error);
  if (status.type() == fs::file_type::not_found) {
    CheckDirectory();
    return;
  }
  if (error) Fail(name_, error);
  if (fs::is_directory(status)) Fail(name_, "it is a directory");
  for (const std::string& input : inputs) {
    if (input != "-" && fs::equivalent(PathOf(input), target_, error))
      Fail(name_, "it is the input");
  }
  direct_ = !fs::is_regular_file(status);
  if (direct_) return;
  try {
    CheckWritable(TextOf(target_));
  } catch (const std::system_error& denied) {
    Fail(name_, denied.code());
  }
}

void OutputFile::CheckDirectory() const {
  const fs::path directory = target_.has_parent_path() ? target_.parent_path() : fs::path(".");
  std::error_code error;
  const fs::file_status status = fs::status(directory, error);
  if (status.type() == fs::file_type::not_found) {
    Fail(name_, "there is no directory " + TextOf(directory));
  }
  if (error) Fail(name_, error);
  if (!fs::is_directory(status)) Fail(name_, TextOf(directory) + " is not a directory");
}

void OutputFile::Write(std::string_view bytes) const {
  const bool standard_output = name_ == "-";
  try {
    if (standard_output) {
      WriteAll(kStandardOutput, bytes);
    } else if (direct_) {
      FileDescriptor file = FileDescriptor::OpenToWrite(TextOf(target_));
      WriteAll(file.number(), bytes);
      file.Close();
    } else {
      TemporaryFile file(target_);
      file.Write(bytes);
      file.ReplaceTarget();
    }
  } catch (const std::system_error& error) {
    Fail(standard_output ? "standard output" : name_, error.code());
  }
}

}  // namespace vellumark::tools
