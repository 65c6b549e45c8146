// SPDX-License-Identifier: MIT
//
// WriteText: one run of text, its underline or strike-through, its link, and the advance.
#include "document/document_model.h"
#include "layout/alignment.h"

namespace vellumark::document {

RefusalNote DocumentModel::CheckText(Points width, AlignmentConstants alignment) const {
  if (!layout::IsAlignment(alignment)) {
    return {RefusalReason::InvalidAlignment, static_cast<std::int32_t>(alignment)};
  }
  if (const RefusalNote refused = CheckPage()) return refused;
  const UsableBox box = Box();
  const bool aligned = alignment != AlignmentConstants::NoAlignment;
  const int left = box.width.value() - (aligned ? 0 : state_.position_x.value());
  if (width.value() > left) return {RefusalReason::TextTooWide, width.value(), left};
  const int bottom = state_.Y().value() + state_.font.height;
  if (bottom > box.height.value()) {
    const auto reason =
        state_.page_open ? RefusalReason::BeyondBottomMargin : RefusalReason::NoPage;
    return {reason, bottom, box.height.value()};
  }
  return {};
}

/// Where the font effect's line lies for text whose top is at `y`.
inline std::optional<Points> DocumentModel::EffectLine(Points y) const {
  const std::uint8_t height = state_.font.height;
  switch (state_.font.effect) {
    case FontEffectConstants::Strikethrough: return y + height / 4 + height / 2;
    case FontEffectConstants::Underline: return y + height + height / 8;
    default: return std::nullopt;
  }
}

RefusalNote DocumentModel::WriteText(const TextRun& run) noexcept {
  return Attempt([&] { return TryWriteText(run); });
}

RefusalNote DocumentModel::TryWriteText(const TextRun& run, Numbers numbers) {
  Setter().Encode(run.text, state_.font, encoded_);
  return PlaceText(run, layout::FontWidths::InPoints(state_.font.height, encoded_.Width()),
                   numbers);
}

/// Writes what was encoded, if it fits.
RefusalNote DocumentModel::PlaceText(const TextRun& run, Points width, Numbers numbers) {
  if (const RefusalNote refused = CheckText(width, run.alignment)) return refused;
  const bool aligned = run.alignment != AlignmentConstants::NoAlignment;
  const Points x = aligned ? layout::GetAlignmentOffset(state_.UsableWidth(), width, run.alignment)
                           : state_.position_x;
  const Points y = state_.Y();
  const std::uint8_t height = state_.font.height;
  const Points end = x + width;
  const std::optional<Points> effect_y = EffectLine(y);
  const bool effect_fits = effect_y && !Box().CheckPoints({{x, *effect_y}, {end, *effect_y}});
  if (numbers == Numbers::Free) {
    const Pieces pieces = {.marks = effect_fits ? 2 : 1, .links = run.hyperlink.empty() ? 0 : 1};
    if (const RefusalNote refused = writer_.RoomFor(pieces)) return refused;
  }

  if (run.words.empty()) {
    lost_.Add(encoded_.Lost());
    writer_.ShowText(encoded_.Runs(), OnPage(x, y + height));
  } else {
    writer_.ShowWords(run.words, OnPage(x, y + height));
  }
  if (effect_fits) writer_.DrawLine(OnPage(x, *effect_y), OnPage(end, *effect_y));
  if (!run.hyperlink.empty()) {
    // Two points wider than the text, and a fifth of its height deeper.
    const Points below = y + height + height / 5;
    writer_.WriteLink(run.hyperlink, OnPage(x, y), OnPage(end + 2, below));
  }
  if (run.carriage_return) {
    state_.position_y = state_.position_y - height - run.dy;
    state_.position_x = state_.line_start_x;
  } else {
    state_.position_x = end;
  }
  return {};
}

}  // namespace vellumark::document
