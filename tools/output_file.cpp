// SPDX-License-Identifier: MIT
#include "tools/output_file.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <random>
#include <system_error>
#include <utility>

#include "tools/failure.h"

namespace vellumark::tools {
namespace {

namespace fs = std::filesystem;

struct CloseFile {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

[[noreturn]] void Fail(const std::string& name, int error) {
  throw Failure("cannot write " + name + ": " + std::generic_category().message(error));
}

/// Writes everything and makes sure that it arrived; 0 or the error.
int WriteAll(std::FILE* file, std::string_view bytes) {
  errno = 0;
  const bool written =
      std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() && std::fflush(file) == 0;
  if (written) return 0;
  return errno != 0 ? errno : EIO;
}

int CloseAfter(File file, int error) {
  errno = 0;
  const bool closed = std::fclose(file.release()) == 0;
  if (error != 0 || closed) return error;
  return errno != 0 ? errno : EIO;
}

fs::path TemporaryName(const fs::path& target) {
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
  std::random_device device;
  std::uniform_int_distribution<std::size_t> letter(0, kLetters.size() - 1);
  std::string name = ".vellumark-";
  for (int i = 0; i < 16; ++i) name += kLetters[letter(device)];
  return target.parent_path() / (name + ".part");
}

/// A new file that was not there before, not even as a link.
File CreateNew(const fs::path& path) { return File(std::fopen(path.string().c_str(), "wbx")); }

}  // namespace

OutputFile::OutputFile(std::string name, const std::string& input) : name_(std::move(name)) {
  if (name_ == "-") return;
  if (name_.empty()) throw Failure("the name of the output is empty");
  std::error_code error;
  target_ = fs::path(name_);
  if (fs::is_symlink(target_, error)) {
    target_ = fs::weakly_canonical(target_, error);
    if (error) Fail(name_, error.value());
  }
  const fs::file_status status = fs::status(target_, error);
  if (fs::is_directory(status)) throw Failure("cannot write " + name_ + ": it is a directory");
  direct_ = fs::exists(status) && !fs::is_regular_file(status);
  if (!fs::exists(status)) {
    const fs::path directory = target_.has_parent_path() ? target_.parent_path() : fs::path(".");
    if (!fs::is_directory(directory, error)) {
      throw Failure("cannot write " + name_ + ": there is no directory " + directory.string());
    }
  } else if (input != "-" && fs::equivalent(input, target_, error)) {
    throw Failure("cannot write " + name_ + ": it is the input");
  } else if (!direct_ && !File(std::fopen(target_.string().c_str(), "rb+"))) {
    Fail(name_, errno);
  }
}

void OutputFile::Write(std::string_view bytes) const {
  if (name_ == "-") {
    if (const int error = WriteAll(stdout, bytes)) Fail("standard output", error);
  } else if (direct_) {
    File file(std::fopen(target_.string().c_str(), "wb"));
    if (!file) Fail(name_, errno);
    const int error = WriteAll(file.get(), bytes);
    if (const int result = CloseAfter(std::move(file), error)) Fail(name_, result);
  } else {
    WriteBeside(bytes);
  }
}

void OutputFile::WriteBeside(std::string_view bytes) const {
  constexpr int kAttempts = 8;
  fs::path temporary;
  File file;
  for (int i = 0; i < kAttempts && !file; ++i) {
    temporary = TemporaryName(target_);
    errno = 0;
    file = CreateNew(temporary);
    if (!file && errno != EEXIST) Fail(name_, errno);
  }
  if (!file) Fail(name_, EEXIST);
  const int error = WriteAll(file.get(), bytes);
  std::error_code renamed;
  const int result = CloseAfter(std::move(file), error);
  if (result == 0) fs::rename(temporary, target_, renamed);
  if (result == 0 && !renamed) return;
  std::error_code ignored;
  fs::remove(temporary, ignored);
  Fail(name_, result != 0 ? result : renamed.value());
}

}  // namespace vellumark::tools
