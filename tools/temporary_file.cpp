// SPDX-License-Identifier: MIT
#include "tools/temporary_file.h"

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vellumark::tools {
namespace {

constexpr std::array<int, 5> kEndingSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU};

/// What the signal handler needs, and nothing else can give it. Changed with the signals blocked.
struct Removal {
  std::array<char, PATH_MAX> path{};
  std::array<struct sigaction, kEndingSignals.size()> previous{};
};
Removal removal;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

/// Runs once: SA_RESETHAND has put the default action back, which ends the program when the handler
/// returns and the raised signal is no longer blocked.
extern "C" void RemoveAndEnd(int signal) {
  ::unlink(removal.path.data());
  static_cast<void>(::raise(signal));
}

/// While one exists, no ending signal arrives.
class SignalsBlocked {
 public:
  SignalsBlocked() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal : kEndingSignals) sigaddset(&ending, signal);
    ::sigprocmask(SIG_BLOCK, &ending, &previous_);
  }
  ~SignalsBlocked() { ::sigprocmask(SIG_SETMASK, &previous_, nullptr); }
  SignalsBlocked(const SignalsBlocked&) = delete;
  SignalsBlocked& operator=(const SignalsBlocked&) = delete;
  SignalsBlocked(SignalsBlocked&&) = delete;
  SignalsBlocked& operator=(SignalsBlocked&&) = delete;

 private:
  sigset_t previous_{};
};

/// A signal that the program was started to ignore (nohup) stays ignored.
void RemoveOnSignals(const std::string& path) {
  std::memcpy(removal.path.data(), path.c_str(), path.size() + 1);
  struct sigaction action {};
  action.sa_handler = &RemoveAndEnd;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigfillset(&action.sa_mask);
  for (std::size_t i = 0; i < kEndingSignals.size(); ++i) {
    ::sigaction(kEndingSignals[i], nullptr, &removal.previous[i]);
    const bool ignored = removal.previous[i].sa_handler == SIG_IGN;
    if (!ignored) ::sigaction(kEndingSignals[i], &action, nullptr);
  }
}

void ForgetOnSignals() {
  for (std::size_t i = 0; i < kEndingSignals.size(); ++i) {
    ::sigaction(kEndingSignals[i], &removal.previous[i], nullptr);
  }
}

std::filesystem::path RandomNameBeside(const std::filesystem::path& target) {
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
  std::random_device device;
  std::uniform_int_distribution<std::size_t> letter(0, kLetters.size() - 1);
  std::string name = ".vellumark-";
  for (int i = 0; i < 16; ++i) name += kLetters[letter(device)];
  return target.parent_path() / (name + ".part");
}

}  // namespace

TemporaryFile::TemporaryFile(std::filesystem::path target) : target_(std::move(target)) {
  struct stat status {};
  if (::stat(target_.c_str(), &status) == 0) replaced_ = status;
  constexpr int kAttempts = 8;
  for (int attempt = 1; !exists_; ++attempt) {
    path_ = RandomNameBeside(target_);
    try {
      Create();
    } catch (const std::system_error& error) {
      if (error.code() != std::errc::file_exists || attempt == kAttempts) throw;
    }
  }
}

TemporaryFile::~TemporaryFile() {
  if (!exists_) return;
  const SignalsBlocked blocked;
  ::unlink(path_.c_str());
  ForgetOnSignals();
}

/// A file that was not there before, not even as a link. Until it has the mode of the file that it
/// replaces, nobody else can read it.
void TemporaryFile::Create() {
  const std::string name = path_.string();
  const SignalsBlocked blocked;
  file_ = FileDescriptor::CreateNew(name, replaced_.has_value());
  exists_ = true;
  RemoveOnSignals(name);
}

/// A group that cannot be kept must not leave its rights to another. Some file systems have no
/// owners and modes of their own, so a failure is not an error.
void TemporaryFile::TakeOwnerAndMode(const struct stat& owner) {
  const int file = file_->number();
  mode_t mode = owner.st_mode & 07777U;
  if (::fchown(file, owner.st_uid, owner.st_gid) != 0) {
    mode &= 0777U;
    const bool group_kept = ::fchown(file, static_cast<uid_t>(-1), owner.st_gid) == 0;
    if (!group_kept) mode &= ~(~mode << 3U & 070U);
  }
  static_cast<void>(::fchmod(file, mode));
}

void TemporaryFile::ReplaceTarget() {
  if (replaced_) TakeOwnerAndMode(*replaced_);
  Synchronize(file_->number());
  file_->Close();
  const SignalsBlocked blocked;
  if (std::rename(path_.c_str(), target_.c_str()) != 0) ThrowSystemError();
  exists_ = false;
  ForgetOnSignals();
}

}  // namespace vellumark::tools
