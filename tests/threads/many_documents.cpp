// SPDX-License-Identifier: MIT
//
// Many documents at once and one after the other.
//
//     many_documents threads     500 in each of 8 threads, with the bytes that they have alone
//     many_documents memory      thousands, whose memory stays flat
//     many_documents fork        one that is open on both sides of a fork
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <malloc.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "tests/random_documents.h"

namespace {

using vellumark::tests::Checksum;
using vellumark::tests::RandomDocument;

int Fail(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  return EXIT_FAILURE;
}

int RunThreads() {
  constexpr std::uint32_t kThreads = 8;
  constexpr std::uint32_t kDocuments = 500;
  constexpr std::uint32_t kDifferent = 40;
  std::vector<std::uint64_t> alone;
  for (std::uint32_t number = 0; number < kDifferent; ++number) {
    alone.push_back(Checksum(RandomDocument(number).file));
  }
  std::atomic<int> different = 0;
  std::vector<std::thread> threads;
  for (std::uint32_t thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&, thread] {
      for (std::uint32_t i = 0; i < kDocuments; ++i) {
        const std::uint32_t number = (i + 7 * thread) % kDifferent;
        if (Checksum(RandomDocument(number).file) != alone[number]) ++different;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  return different == 0 ? EXIT_SUCCESS : Fail("a document of a thread has other bytes");
}

/// Bytes in use on the heap.
std::size_t InUse() { return mallinfo2().uordblks; }

int RunMemory() {
  constexpr std::uint32_t kDocuments = 3000;
  constexpr std::uint32_t kDifferent = 100;
  constexpr std::size_t kGrowth = 4096;  // what the C library keeps for itself
  for (std::uint32_t number = 0; number < kDifferent; ++number) RandomDocument{number};
  const std::size_t before = InUse();
  for (std::uint32_t i = 0; i < kDocuments; ++i) RandomDocument{i % kDifferent};
  const std::size_t after = InUse();
  std::printf("%zu bytes before, %zu after %u documents\n", before, after, kDocuments);
  return after <= before + kGrowth ? EXIT_SUCCESS : Fail("memory is not flat");
}

std::string Content(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Only the process that flushes writes: a child that drops its copy, or ends, leaves the file to
/// its parent.
int RunFork() {
  ::setenv("VELLUMARK_NOTICE", "off", 1);
  ::setenv("SOURCE_DATE_EPOCH", "1700000000", 1);
  const std::string name = "fork." + std::to_string(::getpid()) + ".pdf";
  std::array<std::string, 2> files;
  for (const bool forks : {false, true}) {
    {
      vellumark::PDF doc;
      if (!doc.Create(name)) return Fail("the file cannot be created");
      doc.NewPage(50, 50, 50, 50, 255, 255, 255);
      doc.WriteText("before");
      const pid_t child = forks ? ::fork() : -1;
      if (child == 0) {
        doc.WriteText("in the child");
        ::_exit(0);
      }
      if (child > 0) ::waitpid(child, nullptr, 0);
      doc.WriteText("behind");
      doc.Flush();
    }
    files[forks ? 1 : 0] = Content(name);
  }
  ::unlink(name.c_str());
  return !files[0].empty() && files[0] == files[1] ? EXIT_SUCCESS
                                                   : Fail("a fork changed the parent's file");
}

}  // namespace

int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape): the test fails
  const std::string_view what = argc > 1 ? argv[1] : "";
  if (what == "threads") return RunThreads();
  if (what == "memory") return RunMemory();
  if (what == "fork") return RunFork();
  return Fail("usage: many_documents threads|memory|fork");
}
