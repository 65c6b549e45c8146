// SPDX-License-Identifier: MIT
#include "platform/output_file.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace vellumark::platform {
namespace {

/// A system that takes few bytes at a time and, after some, none.
class SmallSystem final : public OutputFile {
 public:
  SmallSystem(std::size_t at_once, std::size_t at_most) : at_once_(at_once), at_most_(at_most) {}
  SmallSystem(const SmallSystem&) = delete;
  SmallSystem& operator=(const SmallSystem&) = delete;
  SmallSystem(SmallSystem&&) = delete;
  SmallSystem& operator=(SmallSystem&&) = delete;
  ~SmallSystem() override { Close(); }

  std::string taken;
  int writes = 0;
  std::error_code at_close;

 private:
  std::size_t WriteSome(std::string_view bytes, std::error_code& /*error*/) noexcept override {
    ++writes;
    const std::size_t count = std::min({bytes.size(), at_once_, at_most_ - taken.size()});
    taken.append(bytes, 0, count);
    return count;
  }
  std::error_code CloseFile() noexcept override { return at_close; }

  std::size_t at_once_;
  std::size_t at_most_;
};

TEST(OutputFile, CollectsLinesAndContinuesShortWrites) {
  SmallSystem file(40000, 1 << 20);
  std::string expected;
  for (const std::size_t size :
       {0U, 1U, 8U, 15U, 31U, 16000U, 16000U, 16000U, 12000U, 5481U, 70000U, 3U}) {
    const std::string line(size, static_cast<char>('a' + size % 26));
    expected += line;
    EXPECT_FALSE(file.Write(line));
  }
  EXPECT_EQ(file.writes, 4) << "64 KiB in two pieces, and the long line in two";
  const std::string piece(OutputFile::kLong, 'p');
  EXPECT_FALSE(file.Write(piece));
  EXPECT_EQ(file.writes, 6) << "what is long is not collected, but keeps its place";
  EXPECT_FALSE(file.Close());
  EXPECT_EQ(file.taken, expected + piece);
  EXPECT_EQ(file.writes, 6);
}

TEST(OutputFile, ASystemThatTakesNothingMoreIsAnErrorThatStays) {
  SmallSystem file(1000, 5000);
  EXPECT_FALSE(file.Write("held back"));
  EXPECT_EQ(file.Write(std::string(65536, 'x')), std::errc::io_error);
  const int writes = file.writes;
  EXPECT_EQ(file.Write("more"), std::errc::io_error);
  EXPECT_EQ(file.Close(), std::errc::io_error);
  EXPECT_EQ(file.writes, writes);
  EXPECT_EQ(file.taken.size(), 5000U);
}

TEST(OutputFile, AFailedCloseIsTold) {
  SmallSystem file(1000, 5000);
  file.at_close = std::make_error_code(std::errc::no_space_on_device);
  EXPECT_FALSE(file.Write("line"));
  EXPECT_EQ(file.Close(), std::errc::no_space_on_device);
  EXPECT_EQ(file.Close(), std::errc::no_space_on_device);
}

TEST(OutputFiles, AHandleThatWasClosedIsNoFile) {
  OutputFiles files;
  std::error_code error;
  const auto opens = [](std::string_view, std::error_code&) -> std::unique_ptr<OutputFile> {
    return std::make_unique<SmallSystem>(100, 100);
  };
  const FileHandle first = files.Create(opens, "a", error);
  const FileHandle second = files.Create(opens, "b", error);
  EXPECT_FALSE(files.Close(first));
  for (const FileHandle stale : {first, static_cast<FileHandle>(7), FileHandle::Invalid}) {
    EXPECT_EQ(files.Close(stale), std::errc::bad_file_descriptor);
    EXPECT_EQ(files.Write(stale, "x"), std::errc::bad_file_descriptor);
  }
  EXPECT_FALSE(files.Write(second, "x"));
  EXPECT_FALSE(files.Close(second));
}

TEST(OutputFiles, MemoryShortageIsToldAndTakesNoHandle) {
  OutputFiles files;
  std::error_code error;
  const auto fails = [](std::string_view, std::error_code&) -> std::unique_ptr<OutputFile> {
    throw std::bad_alloc();
  };
  const auto opens = [](std::string_view, std::error_code&) -> std::unique_ptr<OutputFile> {
    return std::make_unique<SmallSystem>(1, 1);
  };
  EXPECT_EQ(files.Create(fails, "a", error), FileHandle::Invalid);
  EXPECT_EQ(error, std::errc::not_enough_memory);
  const FileHandle first = files.Create(opens, "a", error);
  const FileHandle second = files.Create(opens, "b", error);
  EXPECT_FALSE(error);
  EXPECT_NE(first, second);
  EXPECT_FALSE(files.Close(first));
  EXPECT_EQ(files.Write(first, "x"), std::errc::bad_file_descriptor);
  EXPECT_FALSE(files.Write(second, "x"));
}

}  // namespace
}  // namespace vellumark::platform
