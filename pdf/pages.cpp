// SPDX-License-Identifier: MIT
#include <span>
#include <string>

#include "pdf/content_stream.h"
#include "pdf/syntax.h"

namespace vellumark::pdf {
namespace {

/// "[ 30 0 R 33 0 R ]"
std::string ReferenceArray(std::span<const int> numbers) {
  std::string array = "[ ";
  for (const int number : numbers) array.append(std::to_string(number)).append(" 0 R ");
  return array.append("]");
}

}  // namespace

void PdfWriter::BeginPage() {
  objects_.page_contents = objects_.contents.size();
  objects_.page_annotations = objects_.annotations.size();
  objects_.state_saved = false;
}

/// The whole page, margins included, filled in the page colour and stroked with the default pen.
void PdfWriter::PaintBackground() {
  WriteContentStream(GraphicsState::Saved, [&] {
    lines_.Append(state_.page_color.view(), " rg");
    lines_.Append("0 0 ", state_.page.width, ' ', state_.page.height, " re");
    lines_.Append("B");
  });
}

void PdfWriter::EndPage() {
  const int page = BeginObject();
  objects_.pages.push_back(page);
  lines_.Append("<<");
  lines_.Append("/Type /Page");
  const auto annotations = std::span(objects_.annotations).subspan(objects_.page_annotations);
  const auto contents = std::span(objects_.contents).subspan(objects_.page_contents);
  if (!annotations.empty()) lines_.Append("/Annots ", ReferenceArray(annotations));
  if (!contents.empty()) lines_.Append("/Contents ", ReferenceArray(contents));
  lines_.Append("/Parent ", Reference{objects_.page_tree});
  lines_.Append("/Resources ", Reference{objects_.resources});
  lines_.Append("/Rotate ", oddities::RotateValue(state_.rotated));
  lines_.Append(">>");
  lines_.Append("endobj");
}

/// The page tree has one level and carries the page size for all pages.
void PdfWriter::WritePageTree() {
  BeginReservedObject(objects_.page_tree);
  lines_.Append("<<");
  lines_.Append("/Type /Pages");
  lines_.Append("/Count ", objects_.pages.size());
  lines_.Append("/MediaBox [ 0 0 ", state_.page.width, ' ', state_.page.height, " ]");
  lines_.Append("/Kids ", ReferenceArray(objects_.pages));
  lines_.Append(">>");
  lines_.Append("endobj");
}

}  // namespace vellumark::pdf
