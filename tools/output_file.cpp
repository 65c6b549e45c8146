// SPDX-License-Identifier: MIT
#include "tools/output_file.h"

#include <system_error>
#include <utility>

#include "tools/failure.h"
#include "tools/file_descriptor.h"
#include "tools/file_name.h"

namespace vellumark::tools {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kWriteSize = std::size_t{64} << 10U;

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
  direct_ = name_ == "-";
  if (direct_) return;
  if (name_.empty()) throw Failure("the name of the output is empty");
  target_ = FollowLinks(name_);
  std::error_code error;
  const fs::file_status status = fs::status(target_, error);
  if (status.type() == fs::file_type::not_found) {
    CheckDirectory();
    return;
  }
  if (error) tools::Fail(name_, error);
  if (fs::is_directory(status)) tools::Fail(name_, "it is a directory");
  for (const std::string& input : inputs) {
    if (input != "-" && fs::equivalent(PathOf(input), target_, error))
      tools::Fail(name_, "it is the input");
  }
  direct_ = !fs::is_regular_file(status);
  if (direct_) return;
  try {
    CheckWritable(TextOf(target_));
  } catch (const std::system_error& denied) {
    tools::Fail(name_, denied.code());
  }
}

void OutputFile::CheckDirectory() const {
  const fs::path directory = target_.has_parent_path() ? target_.parent_path() : fs::path(".");
  std::error_code error;
  const fs::file_status status = fs::status(directory, error);
  if (status.type() == fs::file_type::not_found) {
    tools::Fail(name_, "there is no directory " + TextOf(directory));
  }
  if (error) tools::Fail(name_, error);
  if (!fs::is_directory(status)) tools::Fail(name_, TextOf(directory) + " is not a directory");
}

std::ostream& OutputFile::Begin() {
  file_.reset();
  kept_.clear();
  error_.clear();
  stream_.clear();
  return stream_;
}

std::streamsize OutputFile::xsputn(const char* bytes, std::streamsize count) {
  if (error_) return 0;
  try {
    kept_.append(bytes, static_cast<std::size_t>(count));
    if (!direct_ && kept_.size() >= kWriteSize) WriteKept();
    return count;
  } catch (const std::system_error& error) {
    error_ = error.code();
  } catch (const std::exception&) {
    error_ = std::make_error_code(std::errc::not_enough_memory);
  }
  return 0;
}

int OutputFile::overflow(int byte) {
  if (traits_type::eq_int_type(byte, traits_type::eof())) return traits_type::not_eof(byte);
  const char c = traits_type::to_char_type(byte);
  return xsputn(&c, 1) == 1 ? byte : traits_type::eof();
}

void OutputFile::WriteKept() {
  if (!file_) file_.emplace(target_);
  file_->Write(kept_);
  kept_.clear();
}

void OutputFile::CheckWritten() const {
  if (error_) Fail(error_);
}

void OutputFile::Finish() {
  try {
    if (name_ == "-") {
      WriteAll(kStandardOutput, kept_);
    } else if (direct_) {
      FileDescriptor file = FileDescriptor::OpenToWrite(TextOf(target_));
      WriteAll(file.number(), kept_);
      file.Close();
    } else {
      WriteKept();
      file_->ReplaceTarget();
    }
  } catch (const std::system_error& error) {
    file_.reset();
    Fail(error.code());
  }
}

void OutputFile::Fail(const std::error_code& error) const {
  tools::Fail(name_ == "-" ? "standard output" : name_, error);
}

}  // namespace vellumark::tools
