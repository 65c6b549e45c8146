// SPDX-License-Identifier: MIT
#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

#include <vellumark/posix_platform.h>
#include <vellumark/vellumark.h>

#include "platform/windows_1252.h"

namespace vellumark {
namespace {

class PosixFiles : public testing::Test {
 protected:
  PosixFiles() { std::filesystem::create_directories(folder); }
  ~PosixFiles() override { std::filesystem::remove_all(folder); }

  [[nodiscard]] std::string Path(const std::string& name) const { return folder + "/" + name; }

  static std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  FileHandle Create(const std::string& path) { return platform.CreateOutput(path, error); }

  std::string folder = testing::TempDir() + "vellumark." + std::to_string(::getpid());
  std::error_code error;
  PosixPlatform platform;
};

TEST_F(PosixFiles, APictureIsARegularFileOrRefusedAtOnce) {
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  Bitmap bitmap;
  std::string reason;
  for (const std::string& name : {Path("pipe"), std::string("/dev/zero"), folder}) {
    EXPECT_FALSE(platform.DecodePicture(name, bitmap, reason));
    EXPECT_EQ(reason, "not a regular file") << name;
  }
  std::ofstream(Path("empty")) << "";
  EXPECT_FALSE(platform.DecodePicture(Path("empty"), bitmap, reason));
  EXPECT_EQ(reason, "not a BMP, GIF, JPG or PNG file");
  EXPECT_FALSE(platform.DecodePicture(std::string("a\0b", 3), bitmap, reason));
  EXPECT_EQ(reason, "No such file or directory");
}

TEST_F(PosixFiles, AnExistingFileIsEmptiedAndWrittenAnew) {
  std::ofstream(Path("a")) << "old and long content";
  const FileHandle file = Create(Path("a"));
  EXPECT_FALSE(platform.WriteOutput(file, "new\r\n"));
  EXPECT_FALSE(platform.CloseOutput(file));
  EXPECT_EQ(Content(Path("a")), "new\r\n");
  EXPECT_TRUE(platform.CloseOutput(file)) << "a handle closes once";
  EXPECT_TRUE(platform.WriteOutput(file, "x"));
  EXPECT_TRUE(platform.WriteOutput(FileHandle::Invalid, "x"));
}

TEST_F(PosixFiles, ANewFileMayBeReadAndWrittenByWhomTheProcessLets) {
  const mode_t kept = ::umask(027);
  platform.CloseOutput(Create(Path("a")));
  ::umask(kept);
  struct stat facts {};
  ASSERT_EQ(::stat(Path("a").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 07777U, 0640U);
}

TEST_F(PosixFiles, AFileInUseIsRefusedAndLeftAlone) {
  const FileHandle file = Create(Path("a"));
  EXPECT_FALSE(platform.WriteOutput(file, "kept"));
  PosixPlatform other;
  EXPECT_EQ(other.CreateOutput(Path("a"), error), FileHandle::Invalid);
  EXPECT_EQ(error, std::errc::device_or_resource_busy);
  EXPECT_FALSE(platform.CloseOutput(file));
  EXPECT_EQ(Content(Path("a")), "kept");
  EXPECT_NE(other.CreateOutput(Path("a"), error), FileHandle::Invalid);
}

TEST_F(PosixFiles, LinesOfEverySizeArriveInOrder) {
  std::string expected;
  const FileHandle file = Create(Path("a"));
  for (const std::size_t size : {1U, 65535U, 1U, 65536U, 3U, 200000U, 0U, 70000U, 5U}) {
    const std::string line(size, static_cast<char>('a' + expected.size() % 26));
    expected += line;
    EXPECT_FALSE(platform.WriteOutput(file, line));
  }
  EXPECT_FALSE(platform.CloseOutput(file));
  EXPECT_EQ(Content(Path("a")), expected);
}

TEST_F(PosixFiles, WhatCannotBeCreatedIsRefusedAtOnce) {
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  using namespace std::string_literals;
  for (const std::string& path : {""s, folder, Path("no/such/folder"), Path("pipe"), "a\0b"s}) {
    EXPECT_EQ(Create(path), FileHandle::Invalid) << path;
    EXPECT_TRUE(error);
  }
}

TEST_F(PosixFiles, AFullDiskIsReportedByCloseAtTheLatest) {
  const FileHandle file = Create("/dev/full");
  ASSERT_NE(file, FileHandle::Invalid);
  EXPECT_FALSE(platform.WriteOutput(file, "held back"));
  EXPECT_EQ(platform.CloseOutput(file), std::errc::no_space_on_device);
}

TEST_F(PosixFiles, ADocumentThatIsNotFlushedLeavesAnEmptyFileAndLetsItGo) {
  {
    PDF doc;
    ASSERT_TRUE(doc.Create(Path("a.pdf")));
    doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  }
  EXPECT_EQ(Content(Path("a.pdf")), "");
  EXPECT_NE(Create(Path("a.pdf")), FileHandle::Invalid);
}

TEST_F(PosixFiles, AFileDoesNotTakeThePlaceOfAClosedStandardError) {
  const int kept = ::dup(STDERR_FILENO);
  ::close(STDERR_FILENO);
  const FileHandle file = Create(Path("a.pdf"));
  const PDF gives_notice_on_standard_error;
  ::dup2(kept, STDERR_FILENO);
  ::close(kept);
  ASSERT_NE(file, FileHandle::Invalid);
  platform.CloseOutput(file);
  EXPECT_EQ(Content(Path("a.pdf")), "");
}

TEST_F(PosixFiles, ANoticeGoesToAStandardErrorThatTakesItAtOnce) {
  int ends[2] = {};
  ASSERT_EQ(::pipe2(ends, O_NONBLOCK), 0);
  const int kept = ::dup(STDERR_FILENO);
  ::dup2(ends[1], STDERR_FILENO);
  const auto shown = [&] {
    platform.ShowNotice("hello", "Vellumark");
    std::array<char, 64> text{};
    const ssize_t count = ::read(ends[0], text.data(), text.size());
    return std::string(text.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
  };
  EXPECT_EQ(shown(), "Vellumark: hello\n");
  ::setenv("VELLUMARK_NOTICE", "OFF", 1);
  EXPECT_EQ(shown(), "");
  ::unsetenv("VELLUMARK_NOTICE");
  while (::write(ends[1], "", 1) == 1) {
  }
  platform.ShowNotice("to a full pipe, which nobody waits for", "Vellumark");
  ::close(ends[0]);
  platform.ShowNotice("to nobody, which would end the process", "Vellumark");
  ::dup2(kept, STDERR_FILENO);
  ::close(kept);
  ::close(ends[1]);
}

TEST(PosixClock, HonorsSourceDateEpochInUtc) {
  ::setenv("SOURCE_DATE_EPOCH", "1700000000", 1);
  const LocalTime fixed = PosixPlatform().Now();
  EXPECT_EQ(std::tuple(fixed.year, fixed.month, fixed.day, fixed.hour, fixed.minute, fixed.second,
                       fixed.weekday),
            std::tuple(2023, 11, 14, 22, 13, 20, 2));
  ::setenv("SOURCE_DATE_EPOCH", "0", 1);
  EXPECT_EQ(PosixPlatform().Now().year, 1970);
  ::setenv("SOURCE_DATE_EPOCH", "253402300799", 1);
  EXPECT_EQ(PosixPlatform().Now().year, 9999);
  for (const char* const invalid :
       {"soon", "", "-1700000000", "1700000000.5", "253402300800", "99999999999999999999"}) {
    ::setenv("SOURCE_DATE_EPOCH", invalid, 1);
    EXPECT_GE(PosixPlatform().Now().year, 2026) << invalid;
    EXPECT_LE(PosixPlatform().Now().year, 9999) << invalid;
  }
  ::unsetenv("SOURCE_DATE_EPOCH");
}

TEST(Windows1252, HasOneByteForEachCharacter) {
  const auto bytes = [](std::string_view utf8) {
    std::string storage;
    return std::string(platform::ToWindows1252(utf8, storage));
  };
  EXPECT_EQ(bytes("plain ASCII, more than eight bytes"), "plain ASCII, more than eight bytes");
  EXPECT_EQ(bytes("é€“ÿ\u0081"), "\xE9\x80\x93\xFF\x81");
  EXPECT_EQ(bytes("日𝄞\u0100"), "???");
  EXPECT_EQ(bytes(std::string_view("\0é", 3)), std::string("\0\xE9", 2));
  EXPECT_EQ(bytes("\xE0\xA0\x80 \xF1\x80\x80\x80 \xF3\xBF\xBF\xBF \xF4\x8F\xBF\xBF"), "? ? ? ?");
  EXPECT_EQ(bytes("\xE0\x9F\x80 \xF0\x8F\xBF\xBF"), "??? ????") << "overlong";
  EXPECT_EQ(bytes("a\xC0\xAF\xED\xA0\x80\xF4\x90z\xE9"), "a???????z?")
      << "overlong, surrogate, too high, cut off: one for each part that is not UTF-8";
}

}  // namespace
}  // namespace vellumark
