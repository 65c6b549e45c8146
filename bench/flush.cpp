// SPDX-License-Identifier: MIT
#include "bench/flush.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <unistd.h>

#include <vellumark/vellumark.h>

#include "bench/contest.h"
#include "bench/document_writer.h"
#include "bench/fail.h"

namespace vellumark::bench {
namespace {

constexpr int kPages = 42;  // a line of text is some 17 lines of the file

void WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0) Fail("buffered write", std::strerror(errno));
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

void WriteBuffered(int fd, const std::vector<std::string_view>& lines) {
  constexpr std::size_t kBufferSize = 65536;
  const std::unique_ptr<char[]> buffer(new char[kBufferSize]);
  std::size_t used = 0;
  for (const std::string_view line : lines) {
    if (line.size() > kBufferSize - used) {
      WriteAll(fd, {buffer.get(), used});
      used = 0;
    }
    std::memcpy(buffer.get() + used, line.data(), line.size());
    used += line.size();
  }
  WriteAll(fd, {buffer.get(), used});
}

}  // namespace

double SecondsToFlush(const SampleText& text, const std::string& path) {
  std::filesystem::remove(
      path);  // some file systems write a file that is overwritten to the disk when it is closed
  PDF document;
  bool done = document.Create(path);
  for (int page = 0; page < kPages; ++page) {
    document.NewPage(kMargin, kMargin, kMargin, kMargin, 255, 255, 255);
    for (int i = 0; i < kLinesPerPage; ++i) {
      done = document.WriteText(text.Line(i), true, kLineStep - kFontHeight) && done;
    }
  }
  const double seconds = Seconds([&] { document.Flush(); });
  if (!done || document.LastRefusal().reason != RefusalReason::None) {
    Fail("Flush", document.LastRefusal().sentence.c_str());
  }
  return seconds;
}

FileLines::FileLines(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  bytes_.assign(std::istreambuf_iterator<char>(file), {});
  for (std::string_view rest = bytes_; !rest.empty();) {
    const std::string_view line = rest.substr(0, rest.find('\n') + 1);
    lines_.push_back(line);
    rest.remove_prefix(line.size());
  }
}

double FileLines::SecondsToWrite(const std::string& path) const {
  std::filesystem::remove(path);
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (fd < 0) Fail(path.c_str(), std::strerror(errno));
  return Seconds([&] {
    WriteBuffered(fd, lines_);
    ::close(fd);
  });
}

}  // namespace vellumark::bench
