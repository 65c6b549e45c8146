// SPDX-License-Identifier: MIT
#include "document/document_model.h"

namespace vellumark::document {
namespace {

constexpr std::uint8_t kSmallestFont = 8;
constexpr std::uint8_t kLargestFont = 72;

}  // namespace

void DocumentModel::SetFont(FontNumberConstants number, std::uint8_t height,
                            FontStyleConstants style, FontEffectConstants effect) noexcept {
  using enum FontNumberConstants;
  layout::Font& font = state_.font;
  const bool loaded = state_.fonts.Face(static_cast<int>(number)) != nullptr &&
                      !state_.oddities.TextIsCodePageBytes();
  font.number = loaded || (number >= Courier && number <= ZapfDingbats) ? number : Courier;
  font.height = height >= kSmallestFont && height <= kLargestFont ? height : kSmallestFont;
  // The number as passed decides: an unknown one above the text families forces Regular, one of 0
  // or below keeps the style asked for.
  const bool styled = style >= FontStyleConstants::Bold && style <= FontStyleConstants::BoldItalic;
  font.style = styled && number < Symbol ? style : FontStyleConstants::Regular;
  const bool known =
      effect >= FontEffectConstants::NoFontEffect && effect <= FontEffectConstants::Underline;
  font.effect = known ? effect : FontEffectConstants::NoFontEffect;
}

void DocumentModel::SetPictureDimensions(Points width, Points height) noexcept {
  if (width < 1 || height < 1) return;
  state_.picture_width = width;
  state_.picture_height = height;
}

void DocumentModel::SetPosition(Points x, Points y) {
  const UsableBox box = Box();
  if (x >= 0 && x <= box.width) {
    state_.position_x = x;
    state_.line_start_x = x;
  }
  if (y >= 0 && y <= box.height) state_.position_y = state_.page.height - y;
}

void DocumentModel::SetThickness(std::uint8_t thickness) noexcept {
  if (thickness > 0) state_.thickness = thickness;
}

}  // namespace vellumark::document
