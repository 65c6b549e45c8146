// SPDX-License-Identifier: MIT
//
// Bookmarks, anchors and the links to them.
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

class Navigation : public PdfTest {
 protected:
  Navigation() { doc.Compressed(false); }

  /// The lines of the file that begin with `key`; the first call flushes it.
  Lines With(std::string_view key) {
    if (memory->File("doc")->empty()) doc.Flush();
    const std::string* const file = memory->File("doc");
    Lines lines;
    for (std::size_t begin = 0; begin < file->size();) {
      const std::size_t end = std::min(file->find('\n', begin), file->size());
      std::string line = file->substr(begin, end - begin);
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (line.starts_with(key)) lines.push_back(line);
      begin = end + 1;
    }
    return lines;
  }
};

TEST_F(Navigation, BookmarksNestAndLeadToTheirPlace) {
  Start();
  EXPECT_TRUE(doc.WriteBookmark("One"));
  doc.SetPosition(10, 100);
  EXPECT_TRUE(doc.WriteBookmark("Below (1)", 2));
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  EXPECT_TRUE(doc.WriteBookmark("Two", 1));
  // 18 to 27 are the pages' objects; the outline follows the resources and the page tree.
  EXPECT_EQ(With("/Dest"),
            (Lines{"/Dest [ 22 0 R /XYZ 50 792 null ]", "/Dest [ 22 0 R /XYZ 60 692 null ]",
                   "/Dest [ 27 0 R /XYZ 0 842 null ]"}));
  EXPECT_EQ(With("/Title (")[2], "/Title (Below \\(1\\))");
  // Two pages, then three entries, one of them below the first.
  EXPECT_EQ(With("/Count "), (Lines{"/Count 2", "/Count 3", "/Count 1"}));
}

TEST_F(Navigation, ABookmarkMayNotJumpOverALevel) {
  EXPECT_FALSE(doc.WriteBookmark("x"));
  EXPECT_EQ(Why(), RefusalReason::NoPage);
  Start();
  for (const int level : {0, 2, -1}) EXPECT_FALSE(doc.WriteBookmark("x", level)) << level;
  EXPECT_TRUE(doc.WriteBookmark("x", 1));
  EXPECT_TRUE(doc.WriteBookmark("x", 2));
  EXPECT_FALSE(doc.WriteBookmark("x", 4));
  EXPECT_EQ(doc.LastRefusal().sentence, "bookmark level is 4, but it must be 1 to 3");
}

TEST_F(Navigation, ALinkLeadsToAnAnchorThatComesLater) {
  doc.Conforming(true);
  Start();
  EXPECT_TRUE(doc.WriteText("x", true, 0, kNoAlignment, "#later (1)"));
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  EXPECT_TRUE(doc.SetAnchor("later (1)"));
  EXPECT_EQ(With("/A "), Lines{"/A << /D (later \\(1\\)) /S /GoTo >>"});
  EXPECT_EQ(Why(), RefusalReason::None);
  EXPECT_EQ(With("(later").size(), 1U);
}

TEST_F(Navigation, AnAnchorThatNeverComesIsTold) {
  doc.Conforming(true);
  Start();
  EXPECT_FALSE(doc.SetAnchor(""));
  EXPECT_TRUE(doc.WriteText("x", true, 0, kNoAlignment, "#never"));
  doc.Flush();
  EXPECT_EQ(doc.LastRefusal().sentence,
            "the file is whole, but a link leads to #never, and no anchor has this name; call "
            "SetAnchor");
}

TEST_F(Navigation, AClassicLinkStaysAnAddress) {
  Start();
  EXPECT_TRUE(doc.WriteText("x", true, 0, kNoAlignment, "#a"));
  EXPECT_EQ(With("/A "), Lines{"/A << /URI (#a) /S /URI >>"});
}

}  // namespace
}  // namespace vellumark::tests
