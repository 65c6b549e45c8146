// SPDX-License-Identifier: MIT
//
// Each system call behind a file fails in its own way: interrupted, partly done, refused. A program
// of its own, because it replaces the calls.
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <unistd.h>
#include <utility>

#include <vellumark/posix_platform.h>
#include <vellumark/vellumark.h>

#include "tests/failing_system_calls.h"

namespace vellumark::tests {
namespace {

using enum SystemCall;
using Fault = FailingSystemCalls::Fault;
constexpr int kAlways = 1 << 20;

std::ptrdiff_t OpenDescriptors() {
  const std::filesystem::directory_iterator open("/proc/self/fd");
  return std::distance(begin(open), end(open));
}

class SystemCalls : public testing::Test {
 protected:
  SystemCalls() {
    ::setenv("VELLUMARK_NOTICE", "off", 1);  // NOLINT(concurrency-mt-unsafe): a single thread
    std::ofstream(name) << "old";
    open_before_ = OpenDescriptors();
  }
  ~SystemCalls() override {
    EXPECT_EQ(OpenDescriptors(), open_before_) << "a descriptor was left open, or another's closed";
    std::filesystem::remove(name);
  }

  [[nodiscard]] std::string Content() const {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// Writes a file of 200,000 bytes under faults; returns the errors of writing and of closing.
  std::pair<std::error_code, std::error_code> Write(const Fault& fault, const Fault& second = {}) {
    PosixPlatform platform;
    FailingSystemCalls failing(fault);
    if (second.error != 0) failing.Also(second);
    std::error_code error;
    const FileHandle file = platform.CreateOutput(name, error);
    EXPECT_FALSE(error) << error.message();
    const std::error_code written = platform.WriteOutput(file, bytes);
    return {written, platform.CloseOutput(file)};
  }

  const std::string name = testing::TempDir() + "system_calls." + std::to_string(::getpid());
  const std::string bytes = std::string(199'990, 'x') + "the end..\n";

 private:
  std::ptrdiff_t open_before_ = 0;
};

TEST_F(SystemCalls, OnlyAFileWithBytesIsTruncated) {
  PosixPlatform platform;
  for (const bool old : {true, false}) {
    if (!old) std::filesystem::resize_file(name, 0);
    FailingSystemCalls failing({.call = Truncate, .error = EIO});
    std::error_code error;
    const FileHandle file = platform.CreateOutput(name, error);
    EXPECT_EQ(failing.Count(Truncate), old ? 1 : 0);
    EXPECT_EQ(static_cast<bool>(error), old);
    EXPECT_EQ(static_cast<bool>(platform.CloseOutput(file)), old);
  }
}

TEST_F(SystemCalls, AnInterruptedWriteIsRepeated) {
  EXPECT_EQ(Write({.call = SystemCall::Write, .times = 3, .error = EINTR}).second,
            std::error_code());
  EXPECT_EQ(Content(), bytes);
}

TEST_F(SystemCalls, AShortWriteIsContinued) {
  EXPECT_EQ(Write({.call = SystemCall::Write, .times = kAlways, .at_most = 7}).second,
            std::error_code());
  EXPECT_EQ(Content(), bytes);
}

TEST_F(SystemCalls, AWriteOfNothingIsAnErrorAndNotALoop) {
  const auto [written, closed] = Write({.call = SystemCall::Write, .times = kAlways});
  EXPECT_EQ(written, std::errc::io_error);
  EXPECT_EQ(closed, std::errc::io_error);
}

TEST_F(SystemCalls, AFailedWriteIsToldAndStays) {
  for (const int error : {ENOSPC, EIO, EDQUOT, EPIPE, EAGAIN}) {
    const auto [written, closed] = Write({.call = SystemCall::Write, .error = error});
    EXPECT_EQ(written.value(), error);
    EXPECT_EQ(closed.value(), error) << "though later writes would have gone well";
  }
}

TEST_F(SystemCalls, AFailedCloseIsToldAndNotRepeated) {
  for (const int error : {EIO, ENOSPC, EDQUOT}) {
    const auto [written, closed] = Write({.call = Close, .error = error});
    EXPECT_FALSE(written);
    EXPECT_EQ(closed.value(), error);
  }
  EXPECT_FALSE(Write({.call = Close, .error = EINTR}).second) << "the file is closed all the same";
  EXPECT_EQ(Content(), bytes);
}

TEST_F(SystemCalls, TheFirstOfTwoErrorsIsTold) {
  EXPECT_EQ(Write({.call = SystemCall::Write, .error = ENOSPC}, {.call = Close, .error = EIO})
                .second.value(),
            ENOSPC);
}

TEST_F(SystemCalls, AFileThatCannotBeOpenedLockedOrEmptiedKeepsItsContent) {
  for (const Fault& fault :
       {Fault{.call = Open, .error = EMFILE}, Fault{.call = Open, .error = EINTR},
        Fault{.call = Stat, .error = EIO}, Fault{.call = Lock, .error = EWOULDBLOCK},
        Fault{.call = Truncate, .error = EIO}}) {
    PosixPlatform platform;
    std::error_code error;
    {
      const FailingSystemCalls failing(fault);
      EXPECT_EQ(platform.CreateOutput(name, error), FileHandle::Invalid);
      EXPECT_EQ(failing.Count(Close), fault.call == Open ? 0 : 1);
    }
    EXPECT_EQ(error.value(), fault.error == EWOULDBLOCK ? EBUSY : fault.error);
    EXPECT_EQ(Content(), "old");
  }
}

TEST_F(SystemCalls, AFileSystemWithoutLocksOrASizeIsWrittenAllTheSame) {
  EXPECT_FALSE(Write({.call = Lock, .error = ENOLCK}).second);
  EXPECT_EQ(Content(), bytes);
  EXPECT_FALSE(Write({.call = Stat, .first = 2, .error = EIO}).second);
  EXPECT_EQ(Content(), bytes);
}

TEST_F(SystemCalls, AStandardStreamThatIsClosedIsNotReplacedEvenIfDescriptorsAreShort) {
  const int kept = ::dup(STDIN_FILENO);
  ::close(STDIN_FILENO);
  PosixPlatform platform;
  std::error_code error;
  {
    const FailingSystemCalls failing({.call = Duplicate, .error = EMFILE});
    EXPECT_EQ(platform.CreateOutput(name, error), FileHandle::Invalid);
  }
  EXPECT_EQ(error, std::errc::too_many_files_open);
  EXPECT_EQ(Content(), "old");
  const bool still_closed = ::fcntl(STDIN_FILENO, F_GETFD) < 0;
  ::dup2(kept, STDIN_FILENO);
  ::close(kept);
  EXPECT_TRUE(still_closed);
}

TEST_F(SystemCalls, APictureIsReadThroughInterruptionsAndRefusedAfterAnError) {
  const std::string picture = VELLUMARK_PICTURES "/landscape_8.bmp";
  PosixPlatform platform;
  Bitmap bitmap;
  std::string reason;
  for (const Fault& fault : {Fault{.call = Read, .times = 3, .error = EINTR},
                             Fault{.call = Read, .times = kAlways, .at_most = 100}}) {
    const FailingSystemCalls failing(fault);
    EXPECT_TRUE(platform.DecodePicture(picture, bitmap, reason)) << reason;
    EXPECT_GT(failing.Count(Read), 3);
  }
  const std::pair<Fault, const char*> faults[] = {
      {{.call = Read, .error = EIO}, "Input/output error"},
      {{.call = Stat, .error = EOVERFLOW}, "Value too large for defined data type"},
      {{.call = Open, .error = ENFILE}, "Too many open files in system"},
      {{.call = Read, .times = kAlways},
       "not a BMP, GIF, JPG or PNG file"},  // it was cut meanwhile
  };
  for (const auto& [fault, expected] : faults) {
    const FailingSystemCalls failing(fault);
    EXPECT_FALSE(platform.DecodePicture(picture, bitmap, reason));
    EXPECT_EQ(reason, expected);
  }
}

/// Makes a document of several writes; returns whether no call and not Flush said otherwise.
bool MakeDocument(const std::string& name) {
  PDF doc;
  if (!doc.Create(name)) return false;
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  bool done = doc.DrawPicture(VELLUMARK_PICTURES "/landscape_24.bmp");
  for (int i = 0; i < 9000; ++i) done = doc.DrawLine(0, 0, 9, 9) && done;
  doc.Flush();
  return done && doc.LastRefusal().reason == RefusalReason::None;
}

TEST_F(SystemCalls, WhicheverCallOfADocumentFailsTheHostIsToldOrTheFileIsWhole) {
  ::setenv("SOURCE_DATE_EPOCH", "1700000000", 1);  // NOLINT(concurrency-mt-unsafe)
  ASSERT_TRUE(MakeDocument(name));
  const std::string whole = Content();
  int told = 0;
  for (const SystemCall call : {Open, Stat, Lock, Truncate, Read, SystemCall::Write, Close}) {
    for (int number = 1; number < 9; ++number) {
      bool done = false;
      {
        const FailingSystemCalls failing({.call = call, .first = number, .error = EIO});
        done = MakeDocument(name);
      }
      if (done) {
        EXPECT_EQ(Content(), whole) << "call " << static_cast<int>(call) << ", number " << number;
      } else {
        ++told;
      }
    }
  }
  EXPECT_GT(told, 8);
  ::unsetenv("SOURCE_DATE_EPOCH");  // NOLINT(concurrency-mt-unsafe)
}

#if VELLUMARK_LIBRARIES_ARE_LOADED
TEST_F(SystemCalls, AMissingLibraryIsToldAndAskedForAgainByTheNextPictureOrFont) {
  PDF doc;
  EXPECT_TRUE(doc.Create(name));
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  const auto is_told = [&](RefusalReason reason) {
    const Refusal refused = doc.LastRefusal();
    EXPECT_EQ(refused.reason, reason);
    EXPECT_TRUE(refused.sentence.find("lib") != std::string::npos) << refused.sentence;
  };
  for (const std::string kind : {"gif", "jpg", "png"}) {
    const std::string picture = VELLUMARK_PICTURES "/landscape." + kind;
    {
      const FailingSystemCalls failing({.call = LoadLibrary});
      EXPECT_FALSE(doc.DrawPicture(picture));
      is_told(RefusalReason::PictureNotLoaded);
    }
    EXPECT_TRUE(doc.DrawPicture(picture)) << doc.LastRefusal().sentence;
  }
  const std::string font = VELLUMARK_TEST_FONTS "/boxes.ttf";
  for (int library = 1; library <= 5; ++library) {
    const FailingSystemCalls failing({.call = LoadLibrary});
    EXPECT_EQ(doc.LoadFont(font), FontNumberConstants{});
    is_told(RefusalReason::FontNotLoaded);
    // Those before the missing one are there now.
    const FailingSystemCalls next({.call = LoadLibrary, .first = 2});
    EXPECT_EQ(doc.LoadFont(font) != FontNumberConstants{}, library == 5);
  }
}
#endif

}  // namespace
}  // namespace vellumark::tests
