// SPDX-License-Identifier: MIT
//
// The example of README.md: one page with a title, a paragraph and a link.
#include <vellumark/vellumark.h>

using namespace vellumark;

int main() {
  PDF doc;
  doc.Conforming(true);
  doc.Title("First page");
  if (!doc.Create("first_page.pdf")) return 1;
  doc.NewPage(50, 50, 50, 50, 255, 255, 255);
  doc.SetFont(FontNumberConstants::Times, 16, FontStyleConstants::Bold, {});
  doc.WriteTitle("Hello from Vellumark");
  doc.SetFont(FontNumberConstants::Times, 12, FontStyleConstants::Regular, {});
  doc.WriteMultiText("Wrapped, justified and measured, in Łódź too.", 2, {}, true);
  doc.WriteText("Read more", true, 0, {}, "https://example.org/");
  doc.Flush();
}
