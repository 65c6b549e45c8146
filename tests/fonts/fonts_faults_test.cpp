// SPDX-License-Identifier: MIT
//
// Every allocation of a document with loaded fonts fails in turn, those of the library: a call that
// was refused left nothing behind, and a document that is not whole is told.
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <vellumark/vellumark.h>

#include "tests/failing_allocations.h"
#include "tests/fonts/test_font.h"

namespace vellumark::tests {
namespace {

struct Written {
  std::vector<bool> done;
  bool whole = false;
  bool met_failure = false;
  std::string file;
};

/// Writes with the fonts of the tests what `wanted` names, all if it is empty.
template <class AnyDocument>
Written WriteAll(const FontBytes& font, const FontBytes& fallback, int failing,
                 const std::vector<bool>& wanted) {
  const auto memory = std::make_shared<MemoryPlatform>();
  memory->SetTime({2026, 11, 15, 16, 5, 9, 0});
  AnyDocument doc(memory);
  doc.Conforming(true);
  if constexpr (std::is_same_v<AnyDocument, PDF>) doc.Compressed(false);
  Written written;
  written.done.reserve(8);
  const auto call = [&](bool done) { written.done.push_back(done); };
  const auto asked = [&] { return wanted.empty() || wanted[written.done.size()]; };
  FailAllocation(failing);
  const FontNumberConstants number = asked() ? doc.LoadFont(font) : FontNumberConstants{};
  call(number != FontNumberConstants{});
  const FontNumberConstants second = asked() ? doc.LoadFont(fallback) : FontNumberConstants{};
  call(second != FontNumberConstants{});
  call(asked() && doc.AddFallbackFont(second));
  if (!doc.Create("doc")) {
    written.met_failure = !FailAllocation(0);
    return written;
  }
  doc.NewPage(50, 50, 50, 50, 255, 255, 255);
  doc.SetFont(number, 9, {}, {});
  call(asked() && doc.WriteText("AV fi A\u0301 \u044B (\u05D0)", true));
  call(asked() && doc.WriteMultiText("some \u6F22\u5B57 \u05D0\u05D1", 0, {}, true, 60));
  doc.SetFont(FontNumberConstants::Times, 9, {}, {});
  call(asked() && doc.WriteText("Times \u6F22", true));
  doc.Flush();
  written.whole = doc.LastRefusal().reason == RefusalReason::None;
  written.met_failure = !FailAllocation(0);
  if (const auto* const file = memory->File("doc")) written.file = *file;
  return written;
}

/// The operators that show glyphs.
std::vector<std::string> Shown(const std::string& file) {
  std::vector<std::string> shown;
  for (std::size_t at = 0, end = 0; (end = file.find('\n', at)) != std::string::npos;
       at = end + 1) {
    const std::string line = file.substr(at, end - at);
    if (line.ends_with("]TJ") || line.ends_with("]K")) shown.push_back(line);
  }
  return shown;
}

template <class AnyDocument>
class FontFaults : public testing::Test {};
using Documents = testing::Types<PDF, PS>;
TYPED_TEST_SUITE(FontFaults, Documents);

TYPED_TEST(FontFaults, EveryAllocationFailsInTurn) {
  const FontBytes font = TestFont();
  const FontBytes fallback = TestFont("boxes.otf");
  for (int number = 1;; ++number) {
    const Written run = WriteAll<TypeParam>(font, fallback, number, {});
    if (run.whole) {
      const Written same = WriteAll<TypeParam>(font, fallback, 0, run.done);
      EXPECT_EQ(run.done, same.done) << "allocation " << number;
      EXPECT_EQ(Shown(run.file), Shown(same.file)) << "allocation " << number;
      // A text behind one that was taken back sets its font again.
      const bool all = std::find(run.done.begin(), run.done.end(), false) == run.done.end();
      if (all) {
        EXPECT_EQ(run.file, same.file) << "allocation " << number;
      }
    }
    if (!run.met_failure) {
      EXPECT_TRUE(run.whole);
      EXPECT_EQ(run.done, std::vector<bool>(6, true));
      break;
    }
  }
}

}  // namespace
}  // namespace vellumark::tests
