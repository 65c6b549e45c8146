// SPDX-License-Identifier: MIT
//
// WriteTitle: a disc or square in front of one line of text.
#include "document/document_model.h"
#include "layout/alignment.h"

namespace vellumark::document {

bool DocumentModel::WriteTitle(const Title& title) noexcept {
  return Attempt([&] { return TryWriteTitle(title); });
}

RefusalNote DocumentModel::TryWriteTitle(const Title& title) {
  const Points width = Widths().GetTextWidth(title.text, state_.font) + state_.font.height - 1;
  if (title.bullet != BulletConstants::Disc && title.bullet != BulletConstants::Square) {
    return {RefusalReason::InvalidBullet, static_cast<std::int32_t>(title.bullet)};
  }
  if (RefusalNote refused = CheckText(width, title.alignment)) {
    if (refused.reason == RefusalReason::TextTooWide) refused.reason = RefusalReason::TitleTooWide;
    return refused;
  }
  if (title.alignment != AlignmentConstants::NoAlignment) {
    state_.position_x = layout::GetAlignmentOffset(state_.UsableWidth(), width, title.alignment);
  }
  // A bullet, the text, the line of a font effect.
  return AllOrNothing({.marks = 3, .links = 1}, [&] { return WriteBulletAndText(title); });
}

RefusalNote DocumentModel::WriteBulletAndText(const Title& title) {
  const HostText dash = state_.dash;
  const layout::Rgb fill_color = Parse(state_.fill_color);
  const bool fill_style = state_.fill_style;
  state_.dash = {};
  state_.fill_style = true;

  const int h = state_.font.height;
  const Points x = state_.position_x;
  const Points y = state_.Y();
  if (title.bullet == BulletConstants::Disc) {
    DrawCircle(x + h / 8, y + h / 8 + h / 2 + 1, h / 8);
  } else {
    DrawRectangle(x, y + h / 2 + 1, h / 4, h / 4);
  }
  if (note_.reason == RefusalReason::NoObjectNumbersLeft) return note_;
  state_.position_x = x + h - 1;
  WriteText({.text = title.text, .carriage_return = true, .hyperlink = title.hyperlink});
  if (note_.reason == RefusalReason::NoObjectNumbersLeft) return note_;

  state_.dash = dash;
  state_.fill_color = layout::FormatColor(fill_color.red, fill_color.green, fill_color.blue);
  state_.fill_style = fill_style;
  return {};
}

}  // namespace vellumark::document
