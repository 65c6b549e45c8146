// SPDX-License-Identifier: MIT
//
// Every allocation and every platform operation of a document fails in turn. Whatever fails, the
// host is told: a call that returned false left nothing behind, and a document that is not whole is
// told by Flush.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <vellumark/posix_platform.h>
#include <vellumark/vellumark.h>

#include "tests/failing_allocations.h"

namespace vellumark::tests {
namespace {

constexpr LocalTime kMoment{2026, 11, 15, 16, 5, 9, 0};

/// Files on the disk, in a folder that goes away with them.
class FolderPlatform : public PosixPlatform {
 public:
  FolderPlatform() {
    std::string pattern = (std::filesystem::temp_directory_path() / "faults-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
  }
  ~FolderPlatform() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  FolderPlatform(const FolderPlatform&) = delete;
  FolderPlatform& operator=(const FolderPlatform&) = delete;
  FolderPlatform(FolderPlatform&&) = delete;
  FolderPlatform& operator=(FolderPlatform&&) = delete;

  [[nodiscard]] std::string TakeFile(std::string_view name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  FileHandle CreateOutput(std::string_view name, std::error_code& error) override {
    return PosixPlatform::CreateOutput((folder_ / name).string(), error);
  }
  void ShowNotice(std::string_view /*text*/, std::string_view /*caption*/) override {}

 private:
  std::filesystem::path folder_;
};

/// Fails or throws in its n-th operation, and otherwise is a `Base`.
template <class Base>
class FailingPlatform : public Base {
 public:
  int fail_operation = 0;
  bool throws = false;

  FileHandle CreateOutput(std::string_view name, std::error_code& error) override {
    if (!Fails(error)) return Base::CreateOutput(name, error);
    return FileHandle::Invalid;
  }
  std::error_code WriteOutput(FileHandle file, std::string_view bytes) override {
    std::error_code error;
    return Fails(error) ? error : Base::WriteOutput(file, bytes);
  }
  std::error_code CloseOutput(FileHandle file) override {
    std::error_code error;
    const std::error_code closed = Base::CloseOutput(file);
    return Fails(error) ? error : closed;
  }
  bool DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) override {
    std::error_code error;
    if (!Fails(error)) return Base::DecodePicture(file, bitmap, reason);
    reason = error.message();
    return false;
  }
  LocalTime Now() override {
    std::error_code error;
    if (Fails(error)) throw std::runtime_error("no clock");
    return kMoment;
  }

 private:
  bool Fails(std::error_code& error) {
    if (fail_operation == 0 || --fail_operation > 0) return false;
    if (throws) throw std::runtime_error("broken platform");
    error = std::make_error_code(std::errc::io_error);
    return true;
  }
};

template <class AnyDocument>
using Call = std::function<bool(AnyDocument&)>;

/// Properties raise what fails.
bool Set(const std::function<void()>& property) {
  try {
    property();
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

bool Draw(Document& doc, const char* picture, EncodingConstants encoding) {
  return doc.DrawPicture(picture, {}, encoding);
}

/// Everything a document can hold, over a page break, so that each list has to grow.
template <class AnyDocument>
std::vector<Call<AnyDocument>> Calls() {
  std::string text;
  for (int i = 0; i < 120; ++i) text += "words to wrap and to justify ";
  const auto new_page = [](AnyDocument& doc) {
    doc.NewPage(50, 50, 400, 700, 255, 255, 200);
    return doc.LastRefusal().reason == RefusalReason::None;
  };
  const auto back_to_the_top = [](AnyDocument& doc) {
    doc.SetPosition(0, 0);
    return true;
  };
  std::vector<Call<AnyDocument>> calls = {
      new_page,
      [](AnyDocument& doc) { return doc.DrawCircle(50, 40, 9); },
      [](AnyDocument& doc) { return doc.WriteTitle("A title"); },
      [text](AnyDocument& doc) { return doc.WriteMultiText(text, 0, {}, true); },
      new_page,
      [](AnyDocument& doc) {
        doc.SetFont(FontNumberConstants::Helvetica, 9, {}, FontEffectConstants::Underline);
        doc.SetPictureDimensions(20, 20);
        return true;
      },
      [](AnyDocument& doc) { return doc.WriteText("underlined (\xC3\xA9)", true); },
      [](AnyDocument& doc) {
        return doc.WriteText("P\u0159\u00EDli\u0161 \u0434 \U0001F600", true);
      },
      [](AnyDocument& doc) {
        return doc.WriteMultiText("\u017Dlu\u0165 \u00FAp\u011Bl \u0436", 0, {}, true, 50);
      },
      [](AnyDocument& doc) { return Set([&] { doc.Header("a header of {pages} pages"); }); },
      [](AnyDocument& doc) { return Set([&] { doc.Footer("page {page} of {pages}"); }); },
      new_page,
      [](AnyDocument& doc) { return doc.DrawPicture(VELLUMARK_PICTURES "/landscape_8.bmp"); },
      back_to_the_top,
      [](AnyDocument& doc) {
        return Draw(doc, VELLUMARK_PICTURES "/landscape_24.bmp", EncodingConstants::Flate);
      },
      back_to_the_top,
      [](AnyDocument& doc) {
        return Draw(doc, VELLUMARK_PICTURES "/landscape_24.bmp", EncodingConstants::Flate);
      },
      back_to_the_top,
      [](AnyDocument& doc) {
        return Draw(doc, VELLUMARK_PICTURES "/landscape_progressive.jpg",
                    EncodingConstants::Original);
      }};
  if constexpr (std::is_base_of_v<PDF, AnyDocument>) {
    calls.push_back([](AnyDocument& doc) {
      return doc.WriteText("linked", true, 0, {}, "https://example.org/");
    });
    const std::string name = "an anchor whose name is too long for small strings";
    calls.push_back([link = "#" + name](AnyDocument& doc) {
      return doc.WriteText("linked", true, 0, {}, link);
    });
    calls.push_back([name](AnyDocument& doc) { return doc.SetAnchor(name); });
    calls.push_back([name](AnyDocument& doc) { return doc.WriteBookmark(name); });
  }
  return calls;
}

/// What came of a document: of Create, of each call, of Flush, and the file.
struct Run {
  bool created = false;
  std::vector<bool> done;
  RefusalReason flushed = RefusalReason::None;
  std::string lost;
  std::string file;
  bool met_failure = false;  ///< of the allocation that was to fail
};

/// Makes the document without the calls of which `done` says that they failed.
template <class AnyDocument, class Base>
Run Make(const std::shared_ptr<FailingPlatform<Base>>& platform, const std::vector<bool>& wanted,
         const std::function<void()>& arm) {
  static const std::vector<Call<AnyDocument>> calls = Calls<AnyDocument>();
  Run run;
  run.done.reserve(calls.size());
  AnyDocument doc(platform);
  doc.Title("A title that is too long for the small strings that need no memory of their own");
  arm();
  run.created = doc.Create("doc");
  if (!run.created) {
    // Nothing stays open: the name is free again.
    platform->fail_operation = 0;
    run.met_failure = !FailAllocation(0);
    EXPECT_TRUE(doc.Create("doc")) << doc.LastRefusal().sentence;
  }
  for (std::size_t i = 0; i < calls.size(); ++i) {
    run.done.push_back((wanted.empty() || wanted[i]) && calls[i](doc));
  }
  doc.Flush();
  run.met_failure = !FailAllocation(0) || run.met_failure;
  platform->fail_operation = 0;
  run.flushed = doc.LastRefusal().reason;
  run.lost = doc.LostCharacters();
  run.file = platform->TakeFile("doc");
  return run;
}

/// The objects of a PDF without what sets again a value that is in force, which a page does behind
/// a call that was taken back, and without lengths.
std::string WithoutRepetitions(const std::string& file) {
  std::string kept;
  std::map<std::string, std::string> in_force;
  const std::size_t end = file.find("\nxref\n");
  for (std::size_t at = 0; at < end;) {
    const std::size_t line_end = std::min(file.find('\n', at), end);
    const std::string line = file.substr(at, line_end - at);
    at = line_end + 1;
    if (line == "stream") {
      in_force = {{"rg", "0 g"}, {"RG", "0 G"}, {"w", "1 w"}, {"d", "[] 0 d"}};
    }
    std::string setter = line.substr(line.rfind(' ') + 1);
    if (setter == "g") setter = "rg";
    if (setter == "G") setter = "RG";
    const bool sets = in_force.contains(setter) || setter == "Tf";
    const bool repeats = sets && std::exchange(in_force[setter], line) == line;
    if (!repeats && !line.starts_with("/Length ")) kept.append(line).append("\n");
  }
  return kept;
}

/// If Flush was content, the file is the document of the calls that returned true.
template <class AnyDocument>
void ExpectToldOrWhole(const Run& run, const std::string& what) {
  if (run.flushed != RefusalReason::None) return;
  const auto platform = std::make_shared<FailingPlatform<MemoryPlatform>>();
  const Run same = Make<AnyDocument>(platform, run.done, [] {});
  EXPECT_EQ(run.lost, same.lost) << what;
  if (run.file == same.file) return;
  const std::string all_expected = WithoutRepetitions(same.file);
  const std::string all_written = WithoutRepetitions(run.file);
  const auto [expected, written] = std::mismatch(all_expected.begin(), all_expected.end(),
                                                 all_written.begin(), all_written.end());
  if (expected == all_expected.end() && written == all_written.end()) return;
  ADD_FAILURE() << what << ": expected \n"
                << std::string(expected, all_expected.end()).substr(0, 99) << "\nwritten\n"
                << std::string(written, all_written.end()).substr(0, 99);
}

template <class Case>
class Faults : public testing::Test {};

template <class Classic>
class ConformingDocument : public Classic {
 public:
  explicit ConformingDocument(std::shared_ptr<Platform> platform) : Classic(std::move(platform)) {
    Classic::Conforming(true);
    if constexpr (std::is_same_v<Classic, PDF>) Classic::Compressed(false);
  }
};

template <class AnyDocument, class AnyPlatform>
struct On {
  using Writes = AnyDocument;
  using Base = AnyPlatform;
};

using Classes = testing::Types<On<PDF, MemoryPlatform>, On<PS, MemoryPlatform>,
                               On<ConformingDocument<PDF>, MemoryPlatform>,
                               On<ConformingDocument<PS>, MemoryPlatform>, On<PDF, FolderPlatform>,
                               On<ConformingDocument<PDF>, FolderPlatform>>;
TYPED_TEST_SUITE(Faults, Classes);

TYPED_TEST(Faults, EveryAllocationFailsInTurn) {
  for (int number = 1;; ++number) {
    const auto platform = std::make_shared<FailingPlatform<typename TypeParam::Base>>();
    const Run run = Make<typename TypeParam::Writes>(platform, {}, [&] { FailAllocation(number); });
    const Run again = Make<typename TypeParam::Writes>(platform, {}, [] {});
    EXPECT_EQ(again.flushed, RefusalReason::None) << "allocation " << number;
    ExpectToldOrWhole<typename TypeParam::Writes>(run, "allocation " + std::to_string(number));
    if (!run.met_failure || this->HasFailure()) break;
  }
}

TYPED_TEST(Faults, ACreateThatFailsLeavesTheDocumentThatIsOpen) {
  using Writes = typename TypeParam::Writes;
  if (std::is_same_v<Writes, PS>) return;  // classic PostScript forgets it
  bool reached = true;
  for (int number = 1; reached; ++number) {
    const auto platform = std::make_shared<FailingPlatform<typename TypeParam::Base>>();
    Writes doc(platform);
    ASSERT_TRUE(doc.Create("doc"));
    doc.NewPage(50, 50, 50, 50, 255, 255, 255);
    FailAllocation(number);
    EXPECT_FALSE(doc.Create("doc")) << "it is open";
    reached = !FailAllocation(0);
    EXPECT_TRUE(doc.WriteText("whole"));
    doc.Flush();
    EXPECT_EQ(doc.LastRefusal().sentence, "") << number;
    EXPECT_NE(platform->TakeFile("doc").find("(whole)"), std::string::npos) << number;
  }
}

TYPED_TEST(Faults, EveryPlatformOperationFailsAndThrowsInTurn) {
  for (const bool throws : {false, true}) {
    for (int number = 1; number < 60; ++number) {
      const auto platform = std::make_shared<FailingPlatform<typename TypeParam::Base>>();
      const Run run = Make<typename TypeParam::Writes>(platform, {}, [&] {
        platform->fail_operation = number;
        platform->throws = throws;
      });
      ExpectToldOrWhole<typename TypeParam::Writes>(run, "operation " + std::to_string(number));
    }
  }
}

}  // namespace
}  // namespace vellumark::tests
