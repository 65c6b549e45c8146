// SPDX-License-Identifier: MIT
#include "bench/child_process.h"

#include <array>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bench/fail.h"

namespace vellumark::bench {
namespace {

std::string BesideThisProgram(const std::string& program) {
  return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / program).string();
}

std::string ReadAll(int fd) {
  std::string text;
  std::array<char, 256> buffer{};
  for (ssize_t size = 0; (size = ::read(fd, buffer.data(), buffer.size())) > 0;) {
    text.append(buffer.data(), static_cast<std::size_t>(size));
  }
  return text;
}

/// Starts the program with `output` as its standard output.
pid_t Start(const std::string& path, const std::vector<std::string>& arguments, int output) {
  std::vector<char*> argv = {const_cast<char*>(path.c_str())};
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions{};
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  pid_t child = 0;
  const int error = ::posix_spawn(&child, path.c_str(), &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) Fail(path.c_str(), "cannot be started");
  return child;
}

}  // namespace

std::string RunChild(const std::string& program, const std::vector<std::string>& arguments) {
  static const std::string path_of_any = BesideThisProgram({});
  const std::string path = path_of_any + program;
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) Fail(path.c_str(), "no pipe");
  const pid_t child = Start(path, arguments, ends[1]);
  ::close(ends[1]);
  std::string output = ReadAll(ends[0]);
  ::close(ends[0]);
  int status = 0;
  if (::waitpid(child, &status, 0) != child || status != 0) Fail(path.c_str(), output.c_str());
  return output;
}

}  // namespace vellumark::bench
