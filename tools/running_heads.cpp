// SPDX-License-Identifier: MIT
#include "tools/running_heads.h"

#include <algorithm>
#include <string_view>

#include "tools/failure.h"

namespace vellumark::tools {
namespace {

constexpr int kHeadSize = 10;               // of the library's headers and footers
constexpr int kRoomAbove = 12 + kHeadroom;  // the header and the space below it

/// The text with the widest numbers that a document may have.
std::string Widest(std::string text) {
  for (const std::string_view number : {"{page}", "{pages}"}) {
    for (std::size_t at = 0; (at = text.find(number, at)) != std::string::npos;) {
      text.replace(at, number.size(), "00000");
    }
  }
  return text;
}

void CheckWidth(const std::string& option, const std::string& text, int room, Document& document) {
  document.SetFont(FontNumberConstants::Times, kHeadSize, FontStyleConstants::Regular,
                   FontEffectConstants::NoFontEffect);
  const int width = document.TextWidth(Widest(text));
  const bool too_long = document.LastRefusal().reason != RefusalReason::None;
  if (!too_long && width <= room) return;
  throw Failure(option + ": the text is " + (too_long ? "over 32767" : std::to_string(width)) +
                " points wide, and the margins leave " + std::to_string(std::max(room, 0)) +
                " points; make it shorter");
}

}  // namespace

void SetRunningHeads(const RunningHeads& heads, const Margins& margins, Document& document) {
  std::int16_t width = 0;
  std::int16_t height = 0;
  document.GetPageDimensions(width, height);
  const int room = width - margins.left - margins.right;
  if (!heads.header.empty() && margins.top < kRoomAbove) {
    throw Failure("--header: the top margin is " + std::to_string(margins.top) +
                  " points, and the header needs " + std::to_string(kRoomAbove) +
                  "; make it larger with --margins");
  }
  CheckWidth("--header", heads.header, room, document);
  CheckWidth("--footer", heads.footer, room, document);
  document.Header(heads.header);
  document.Footer(heads.footer);
}

}  // namespace vellumark::tools
