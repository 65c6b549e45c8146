// SPDX-License-Identifier: MIT
//
// Every allocation and every platform operation of a document fails in turn. Whatever fails, the
// host is told: a call that returned false left nothing behind, and a document that is not whole is
// told by Flush.
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include <vellumark/vellumark.h>

#include "tests/failing_allocations.h"

namespace vellumark::tests {
namespace {

constexpr LocalTime kMoment{2026, 11, 15, 16, 5, 9, 0};

/// Fails or throws in its n-th operation, and otherwise is a MemoryPlatform.
class FailingPlatform : public MemoryPlatform {
 public:
  FailingPlatform() { SetTime(kMoment); }

  int fail_operation = 0;
  bool throws = false;

  FileHandle CreateOutput(std::string_view name, std::error_code& error) override {
    if (!Fails(error)) return MemoryPlatform::CreateOutput(name, error);
    return FileHandle::Invalid;
  }
  std::error_code WriteOutput(FileHandle file, std::string_view bytes) override {
    std::error_code error;
    return Fails(error) ? error : MemoryPlatform::WriteOutput(file, bytes);
  }
  std::error_code CloseOutput(FileHandle file) override {
    std::error_code error;
    const std::error_code closed = MemoryPlatform::CloseOutput(file);
    return Fails(error) ? error : closed;
  }
  bool DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) override {
    std::error_code error;
    if (!Fails(error)) return MemoryPlatform::DecodePicture(file, bitmap, reason);
    reason = error.message();
    return false;
  }
  LocalTime Now() override {
    std::error_code error;
    if (Fails(error)) throw std::runtime_error("no clock");
    return MemoryPlatform::Now();
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

/// Everything a document can hold, over a page break, so that each list has to grow.
template <class AnyDocument>
std::vector<Call<AnyDocument>> Calls() {
  std::string text;
  for (int i = 0; i < 120; ++i) text += "words to wrap and to justify ";
  const auto new_page = [](AnyDocument& doc) {
    doc.NewPage(50, 50, 400, 700, 255, 255, 200);
    return doc.LastRefusal().reason == RefusalReason::None;
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
      [](AnyDocument& doc) { return doc.DrawPicture(VELLUMARK_PICTURES "/landscape_8.bmp"); }};
  if constexpr (std::is_same_v<AnyDocument, PDF>) {
    calls.push_back([](AnyDocument& doc) {
      return doc.WriteText("linked", true, 0, {}, "https://example.org/");
    });
  }
  return calls;
}

/// What came of a document: of Create, of each call, of Flush, and the file.
struct Run {
  bool created = false;
  std::vector<bool> done;
  RefusalReason flushed = RefusalReason::None;
  std::string file;
  bool met_failure = false;  ///< of the allocation that was to fail
};

/// Makes the document without the calls of which `done` says that they failed.
template <class AnyDocument>
Run Make(const std::shared_ptr<FailingPlatform>& platform, const std::vector<bool>& wanted,
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
  run.file = platform->TakeFile("doc");
  return run;
}

/// If Flush was content, the file is the document of the calls that returned true.
template <class AnyDocument>
void ExpectToldOrWhole(const Run& run, const std::string& what) {
  if (run.flushed != RefusalReason::None) return;
  const Run same = Make<AnyDocument>(std::make_shared<FailingPlatform>(), run.done, [] {});
  const auto [expected, written] =
      std::mismatch(same.file.begin(), same.file.end(), run.file.begin(), run.file.end());
  if (expected == same.file.end() && written == run.file.end()) return;
  ADD_FAILURE() << what << ": expected \n"
                << std::string(expected, same.file.end()).substr(0, 99) << "\nwritten\n"
                << std::string(written, run.file.end()).substr(0, 99);
}

template <class AnyDocument>
class Faults : public testing::Test {};
using Classes = testing::Types<PDF, PS>;
TYPED_TEST_SUITE(Faults, Classes);

TYPED_TEST(Faults, EveryAllocationFailsInTurn) {
  for (int number = 1;; ++number) {
    const auto platform = std::make_shared<FailingPlatform>();
    const Run run = Make<TypeParam>(platform, {}, [&] { FailAllocation(number); });
    const Run again = Make<TypeParam>(platform, {}, [] {});
    EXPECT_EQ(again.flushed, RefusalReason::None) << "allocation " << number;
    ExpectToldOrWhole<TypeParam>(run, "allocation " + std::to_string(number));
    if (!run.met_failure || this->HasFailure()) break;
  }
}

TYPED_TEST(Faults, EveryPlatformOperationFailsAndThrowsInTurn) {
  for (const bool throws : {false, true}) {
    for (int number = 1; number < 60; ++number) {
      const auto platform = std::make_shared<FailingPlatform>();
      const Run run = Make<TypeParam>(platform, {}, [&] {
        platform->fail_operation = number;
        platform->throws = throws;
      });
      ExpectToldOrWhole<TypeParam>(run, "operation " + std::to_string(number));
    }
  }
}

}  // namespace
}  // namespace vellumark::tests
