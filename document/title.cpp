// SPDX-License-Identifier: MIT
//
// WriteTitle: a disc or square in front of one line of text.
#include <utility>

#include "document/document_model.h"
#include "layout/alignment.h"

namespace vellumark::document {

RefusalNote DocumentModel::WriteTitle(const Title& title) noexcept {
  return Attempt([&] { return TryWriteTitle(title); });
}

RefusalNote DocumentModel::TryWriteTitle(const Title& title) {
  const Points width = Setter().WidthInPoints(title.text, state_.font) + state_.font.height - 1;
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
  // Before Create there is no fill color.
  if (state_.fill_color.view().empty()) throw RunTimeError(RunTimeError::SubscriptOutOfRange);
  const bool fill_style = state_.fill_style;
  HostText dash = std::exchange(state_.dash, {});
  state_.fill_style = true;
  const RefusalNote outcome = AllOrNothing([&] { return WriteBulletAndText(title); });
  state_.dash = std::move(dash);
  state_.fill_style = fill_style;
  return outcome;
}

/// A bullet or text that does not fit is left out; only a lack of object numbers refuses the title.
RefusalNote DocumentModel::WriteBulletAndText(const Title& title) {
  const int h = state_.font.height;
  const Points x = state_.position_x;
  const Points y = state_.Y();
  const RefusalNote bullet = title.bullet == BulletConstants::Disc
                                 ? TryDrawCircle(x + h / 8, y + h / 8 + h / 2 + 1, h / 8)
                                 : TryDrawRectangle(x, y + h / 2 + 1, h / 4, h / 4);
  if (bullet.reason == RefusalReason::NoObjectNumbersLeft) return bullet;
  state_.position_x = x + h - 1;
  const RefusalNote text =
      TryWriteText({.text = title.text, .carriage_return = true, .hyperlink = title.hyperlink});
  return text.reason == RefusalReason::NoObjectNumbersLeft ? text : RefusalNote{};
}

}  // namespace vellumark::document
