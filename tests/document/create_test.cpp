// SPDX-License-Identifier: MIT
#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <tuple>

#include <vellumark/run_time_error.h>

#include "document/resume_next.h"
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

class Create : public PdfTest {};

TEST_F(Create, ChecksOrientationAndPaperSizeBeforeItTouchesTheFile) {
  for (const int orientation : {0, 3, -1}) {
    doc.Orientation(static_cast<OrientationConstants>(orientation));
    EXPECT_FALSE(doc.Create("doc"));
    EXPECT_EQ(Why(), RefusalReason::InvalidOrientation);
  }
  doc.Orientation(OrientationConstants::Landscape);
  for (const int paper : {0, 2, 6, 10, 12, 13, 15, -9}) {
    doc.PaperSize(static_cast<PaperSizeConstants>(paper));
    EXPECT_FALSE(doc.Create("doc")) << paper;
    EXPECT_EQ(Why(), RefusalReason::InvalidPaperSize);
  }
  EXPECT_EQ(memory->File("doc"), nullptr);
}

TEST_F(Create, TakesThePageSizeOfPaperAndOrientation) {
  using enum PaperSizeConstants;
  struct Row {
    PaperSizeConstants paper;
    int width;
    int height;
  };
  for (const Row& row : {Row{A3, 842, 1191}, Row{A4, 595, 842}, Row{A5, 420, 595},
                         Row{Executive, 522, 756}, Row{Folio, 595, 935}, Row{Ledger, 1224, 792},
                         Row{Legal, 612, 1008}, Row{Letter, 612, 792}, Row{Tabloid, 792, 1224}}) {
    for (const bool turned : {false, true}) {
      PDF page(memory);
      page.PaperSize(row.paper);
      if (turned) page.Orientation(OrientationConstants::Landscape);
      ASSERT_TRUE(page.Create("page.pdf"));
      std::int16_t width = 0;
      std::int16_t height = 0;
      page.GetPageDimensions(width, height);
      EXPECT_EQ(std::tuple(width, height),
                turned ? std::tuple(row.height, row.width) : std::tuple(row.width, row.height));
      page.Flush();
    }
  }
}

TEST_F(Create, AStreamGetsTheBytesOfAFile) {
  const auto write = [&](const auto& target) {
    EXPECT_TRUE(doc.Create(target));
    doc.NewPage(50, 50, 50, 50, 255, 255, 255);
    EXPECT_TRUE(doc.WriteText("in a stream"));
    doc.Flush();
    EXPECT_EQ(Why(), RefusalReason::None);
  };
  for (const bool conforming : {false, true}) {
    doc.Conforming(conforming);
    write("doc");
    std::ostringstream stream;
    EXPECT_TRUE(doc.Create(stream));
    EXPECT_EQ(stream.str(), "") << "nothing before Flush";
    doc.NewPage(50, 50, 50, 50, 255, 255, 255);
    EXPECT_TRUE(doc.WriteText("in a stream"));
    doc.Flush();
    EXPECT_EQ(Why(), RefusalReason::None);
    EXPECT_EQ(stream.str(), *memory->File("doc"));
    const std::string once = stream.str();
    doc.Flush();
    EXPECT_EQ(Why(), RefusalReason::FileNotOpen) << "the stream is the document's once";
    EXPECT_EQ(stream.str(), once);
  }
  write("doc");
  EXPECT_EQ(doc.LastRefusal().sentence, "") << "and a file can follow";
}

/// Takes so many bytes and fails then, by a result or an exception.
class FullBuffer : public std::streambuf {
 public:
  FullBuffer(std::streamsize room, bool throws) : room_(room), throws_(throws) {}

 protected:
  std::streamsize xsputn(const char* /*bytes*/, std::streamsize count) override {
    if (throws_ && count > room_) throw std::runtime_error("the connection is gone");
    const std::streamsize taken = std::min(count, room_);
    room_ -= taken;
    return taken;
  }

 private:
  std::streamsize room_;
  bool throws_;
};

TEST_F(Create, AStreamThatFailsIsToldAndNothingIsThrown) {
  for (const bool buffer_throws : {false, true}) {
    for (const bool stream_throws : {false, true}) {
      FullBuffer buffer(1000, buffer_throws);
      std::ostream stream(&buffer);
      if (stream_throws) stream.exceptions(std::ios::badbit | std::ios::failbit);
      ASSERT_TRUE(doc.Create(stream));
      doc.Flush();
      EXPECT_EQ(doc.LastRefusal().sentence,
                "the file cannot be written: the stream failed: Input/output error");
      EXPECT_FALSE(doc.Create(stream));
      EXPECT_EQ(doc.LastRefusal().sentence,
                "the file cannot be created: the stream has failed before");
    }
  }
}

TEST_F(Create, AStreamThatIsRefusedLeavesTheDocumentThatIsOpen) {
  Start();
  std::ostringstream failed;
  failed.setstate(std::ios::failbit);
  EXPECT_FALSE(doc.Create(failed));
  EXPECT_EQ(FlushedLines().back(), "%%EOF") << "which goes on undisturbed";
  std::ostringstream first;
  std::ostringstream second;
  ASSERT_TRUE(doc.Create(first));
  ASSERT_TRUE(doc.Create(second));
  doc.Flush();
  EXPECT_EQ(first.str(), "") << "another Create takes its place";
  EXPECT_TRUE(second.str().starts_with("%PDF-"));
}

TEST_F(Create, AFileThatIsOpenCannotBeCreatedAgain) {
  Start();
  PDF second(memory);
  EXPECT_FALSE(second.Create("doc"));
  EXPECT_EQ(second.LastRefusal().reason, RefusalReason::FileNotCreated);
  EXPECT_EQ(second.LastRefusal().sentence,
            "the file cannot be created: doc: Device or resource busy");
  EXPECT_FALSE(doc.Create("doc")) << "nor by the document that has it open";
  EXPECT_EQ(FlushedLines().back(), "%%EOF") << "which goes on undisturbed";
  EXPECT_TRUE(second.Create("doc"));
}

TEST_F(Create, MarginsThatLeaveNoRoomAreNotTaken) {
  Start(10);
  const auto margins_after = [&](std::int16_t l, std::int16_t t, std::int16_t r, std::int16_t b) {
    doc.NewPage(l, t, r, b, 255, 255, 255);
    doc.GetPageMargins(l, t, r, b);
    return std::tuple(l, t, r, b);
  };
  EXPECT_EQ(margins_after(300, 0, 300, 0), std::tuple(10, 10, 10, 10));
  EXPECT_EQ(doc.LastRefusal().sentence,
            "two opposite margins are 600 points together, but at most 574 points leave room on "
            "the page; "
            "the page has the previous margins");
  EXPECT_EQ(margins_after(275, 0, 300, 0), std::tuple(10, 10, 10, 10));
  EXPECT_EQ(margins_after(32767, 0, 32767, 0), std::tuple(10, 10, 10, 10)) << "sum overflows";
  EXPECT_EQ(margins_after(0, -1, 0, 0), std::tuple(10, 10, 10, 10));
  EXPECT_EQ(margins_after(0, 411, 0, 411), std::tuple(10, 10, 10, 10)) << "only together";
  EXPECT_EQ(margins_after(274, 0, 300, 821), std::tuple(274, 0, 300, 821));
  EXPECT_EQ(Why(), RefusalReason::None);
  doc.Flush();
  EXPECT_EQ(doc.LastRefusal().sentence, "") << "the document is whole all the same";
}

TEST_F(Create, ContentBeforeTheFirstPageIsDroppedFromIt) {
  ASSERT_TRUE(doc.Create("doc"));
  EXPECT_TRUE(doc.DrawLine(0, 0, 10, 10));
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  const Lines lines = FlushedLines();
  EXPECT_TRUE(Has(lines, "/Contents [ 20 0 R 22 0 R ]"));
}

TEST_F(Create, FlushTellsWhetherTheFileWasWritten) {
  doc.Flush();
  EXPECT_EQ(Why(), RefusalReason::FileNotOpen);
  Start();
  doc.Flush();
  EXPECT_EQ(Why(), RefusalReason::None);
  const std::string once = *memory->File("doc");
  doc.Flush();
  EXPECT_EQ(Why(), RefusalReason::FileNotOpen);
  EXPECT_EQ(*memory->File("doc"), once) << "a second Flush has no file to write to";

  class FullDisk : public MemoryPlatform {
    std::error_code WriteOutput(FileHandle, std::string_view) override {
      return std::make_error_code(std::errc::no_space_on_device);
    }
  };
  PDF unlucky(std::make_shared<FullDisk>());
  ASSERT_TRUE(unlucky.Create("full.pdf"));
  unlucky.Flush();
  EXPECT_EQ(unlucky.LastRefusal().sentence, "the file cannot be written: No space left on device");

  class BadDisk : public MemoryPlatform {
   public:
    std::errc at_write{};
    std::errc at_close{};
    std::error_code WriteOutput(FileHandle, std::string_view) override {
      return std::make_error_code(at_write);
    }
    std::error_code CloseOutput(FileHandle) override { return std::make_error_code(at_close); }
  };
  for (const auto& [at_write, at_close, told] :
       {std::tuple(std::errc::io_error, std::errc::no_space_on_device, "Input/output error"),
        std::tuple(std::errc{}, std::errc::no_space_on_device, "No space left on device")}) {
    const auto disk = std::make_shared<BadDisk>();
    disk->at_write = at_write;
    disk->at_close = at_close;
    PDF doc_on_it(disk);
    ASSERT_TRUE(doc_on_it.Create("bad.pdf"));
    doc_on_it.Flush();
    EXPECT_EQ(doc_on_it.LastRefusal().sentence, std::string("the file cannot be written: ") + told);
  }
  class GetsWorse : public MemoryPlatform {
    std::error_code WriteOutput(FileHandle, std::string_view) override {
      const std::error_code error = std::make_error_code(next_);
      next_ = std::errc::broken_pipe;
      return error;
    }
    std::errc next_ = std::errc::io_error;
  };
  PDF worse(std::make_shared<GetsWorse>());
  ASSERT_TRUE(worse.Create("bad.pdf"));
  worse.Flush();
  EXPECT_EQ(worse.LastRefusal().sentence, "the file cannot be written: Input/output error")
      << "the first of several errors";

  class Throwing : public MemoryPlatform {
    std::error_code WriteOutput(FileHandle, std::string_view) override { throw std::bad_alloc(); }
  };
  PDF short_of_memory(std::make_shared<Throwing>());
  ASSERT_TRUE(short_of_memory.Create("a.pdf"));
  short_of_memory.Flush();
  EXPECT_EQ(short_of_memory.LastRefusal().reason, RefusalReason::FileNotWritten);
  EXPECT_TRUE(short_of_memory.Create("a.pdf")) << "the file was closed all the same";
}

TEST(ResumeNext, RunsAllStepsAndReturnsTheFirstFailure) {
  int steps = 0;
  const document::RefusalNote first =
      document::ResumeNext([&] { ++steps; },
                           [&] {
                             ++steps;
                             throw RunTimeError(RunTimeError::Overflow);
                           },
                           [&]() -> document::RefusalNote {
                             ++steps;
                             return {RefusalReason::NoPage};
                           },
                           [&] {
                             ++steps;
                             throw std::bad_alloc();
                           });
  EXPECT_EQ(steps, 4);
  EXPECT_EQ(first.reason, RefusalReason::RunTimeFault);
  EXPECT_EQ(first.got, RunTimeError::Overflow);
  EXPECT_FALSE(document::ResumeNext([] {}, []() -> document::RefusalNote { return {}; }));
}

/// Not even an exception.
class ThrowsANumber final : public MemoryPlatform {
 public:
  LocalTime Now() override { throw 7; }  // NOLINT(hicpp-exception-baseclass)
};

TEST(CreateDeathTest, APlatformThatThrowsWhatIsNotAnExceptionEndsTheProcess) {
  PDF doc(std::make_shared<ThrowsANumber>());
  EXPECT_DEATH(doc.Create("doc"), "");
}

}  // namespace
}  // namespace vellumark::tests
