// SPDX-License-Identifier: MIT
//
// reader_pages FOLDER: the documents of known content that readers_test.py opens.
#include <memory>
#include <string>

#include <vellumark/posix_platform.h>
#include <vellumark/vellumark.h>

using namespace vellumark;

namespace {

class StoppedClock : public PosixPlatform {
 public:
  LocalTime Now() override { return {2026, 11, 15, 16, 5, 9, 0}; }
};

/// 900 numbered words, justified over three pages, and two links.
bool WritePages(const std::string& file) {
  PDF doc(std::make_shared<StoppedClock>());
  doc.Title("Reader pages");
  doc.Author("A. Author");
  doc.PaperSize(PaperSizeConstants::Letter);
  if (!doc.Create(file)) return false;
  doc.NewPage(50, 50, 50, 80, 255, 255, 255);
  doc.SetFont(FontNumberConstants::Times, 18, FontStyleConstants::Regular, {});
  std::string text = "w0";
  for (int i = 1; i < 900; ++i) text += " w" + std::to_string(i);
  if (!doc.WriteMultiText(text, 2, {}, true)) return false;
  return doc.WriteText("one", true, 0, {}, "https://example.org/a") &&
         doc.WriteTitle("two", {}, BulletConstants::Disc, "https://example.org/b") &&
         (doc.Flush(), doc.LastRefusal().reason == RefusalReason::None);
}

bool WriteLandscape(const std::string& file) {
  PDF doc;
  doc.Orientation(OrientationConstants::Landscape);
  if (!doc.Create(file)) return false;
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  return doc.DrawRectangle(0, 0, 842, 595) && (doc.Flush(), true);
}

}  // namespace

int main(int, char** argv) {
  const std::string folder = argv[1];
  return WritePages(folder + "/pages.pdf") && WriteLandscape(folder + "/landscape.pdf") ? 0 : 1;
}
