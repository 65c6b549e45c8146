// SPDX-License-Identifier: MIT
#include <atomic>
#include <io.h>
#include <random>
#include <string>
#include <system_error>
#include <utility>
#include <windows.h>

#include "tools/file_name.h"
#include "tools/temporary_file.h"

namespace vellumark::tools {
namespace {

/// What the console's handler closes and removes, on a thread of its own; no path if there is no
/// file. Set before the handler is known, and forgotten after it.
struct Removal {
  std::atomic<int> descriptor = -1;
  std::atomic<const wchar_t*> path = nullptr;
};
Removal removal;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

/// Ctrl-C, a closed console, a user who logs off: an open file cannot be removed, so it is closed
/// first; the write that it may interrupt fails, in a program that ends.
BOOL WINAPI RemoveAndEnd(DWORD /*event*/) {
  if (const wchar_t* const path = removal.path.exchange(nullptr)) {
    _close(removal.descriptor);
    DeleteFileW(path);
  }
  return FALSE;  // the next handler ends the program
}

std::filesystem::path RandomNameBeside(const std::filesystem::path& target) {
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
  std::random_device device;
  std::uniform_int_distribution<std::size_t> letter(0, kLetters.size() - 1);
  std::string name = ".vellumark-";
  for (int i = 0; i < 16; ++i) name += kLetters[letter(device)];
  return target.parent_path() / PathOf(name + ".part");
}

}  // namespace

TemporaryFile::TemporaryFile(std::filesystem::path target) : target_(std::move(target)) {
  path_ = RandomNameBeside(target_);
  Create();
}

TemporaryFile::~TemporaryFile() {
  if (!exists_) return;
  SetConsoleCtrlHandler(RemoveAndEnd, FALSE);
  removal.path = nullptr;
  file_.reset();  // an open file cannot be removed
  DeleteFileW(path_.c_str());
}

void TemporaryFile::Create() {
  file_ = FileDescriptor::CreateNew(TextOf(path_), true);
  exists_ = true;
  removal.descriptor = file_->number();
  removal.path = path_.c_str();
  SetConsoleCtrlHandler(RemoveAndEnd, TRUE);
}

void TemporaryFile::ReplaceTarget() {
  Synchronize(file_->number());
  file_->Close();
  const DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  if (MoveFileExW(path_.c_str(), target_.c_str(), how) == 0) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
  }
  SetConsoleCtrlHandler(RemoveAndEnd, FALSE);
  removal.path = nullptr;
  exists_ = false;
}

}  // namespace vellumark::tools
