// SPDX-License-Identifier: MIT
//
// DrawPicture: load, fit into the picture box, place, encode, link, advance.
#include "layout/picture.h"

#include "document/document_model.h"
#include "layout/alignment.h"
#include "layout/picture_alpha.h"
#include "layout/resize.h"

namespace vellumark::document {
namespace {

/// The last encoding that the document takes: the file's own bytes only in a conforming one.
EncodingConstants LastEncoding(const State& state) {
  return state.oddities.DeepSamplesStayAsTheyAre() ? EncodingConstants::Flate
                                                   : EncodingConstants::Original;
}

/// Before Create the page has no color, and nothing that is drawn there is ever shown.
layout::Rgb PaperColor(const State& state) {
  layout::Rgb color{};
  if (!state.page_color.view().empty()) layout::ParseColor(state.page_color.view(), color);
  return color;
}

}  // namespace

FileNote DocumentModel::DrawPicture(const PlacedPicture& placed) noexcept {
  return Attempt([&] { return TryDrawPicture(placed); });
}

FileNote DocumentModel::TryDrawPicture(const PlacedPicture& placed) {
  if (!layout::IsAlignment(placed.alignment)) {
    return RefusalNote{RefusalReason::InvalidAlignment,
                       static_cast<std::int32_t>(placed.alignment)};
  }
  const EncodingConstants last = LastEncoding(state_);
  if (placed.encoding < EncodingConstants::ASCII85 || placed.encoding > last) {
    return RefusalNote{RefusalReason::InvalidEncoding, static_cast<std::int32_t>(placed.encoding),
                       static_cast<std::int32_t>(last)};
  }
  if (const RefusalNote refused = CheckPage()) return refused;
  layout::Picture picture;
  std::string reason;
  const auto deep = state_.oddities.DeepSamplesStayAsTheyAre() ? layout::DeepSamples::AsTheyAre
                                                               : layout::DeepSamples::TrueColor;
  const bool original = placed.encoding == EncodingConstants::Original &&
                        layout::LoadOriginal(platform_, placed.source, picture);
  if (!original && !layout::LoadPicture(platform_, placed.source, deep, picture, reason)) {
    return {RefusalReason::PictureNotLoaded, layout::NameOf(placed.source) + ": " + reason};
  }
  if (!picture.alpha.empty() && !writer_.HasSoftMasks()) ComposeOver(PaperColor(state_), picture);
  const layout::Size size = PictureSize({picture.width, picture.height});
  const Points y = state_.Y();
  // From where it stands now, also if it is going to be aligned.
  const int right = state_.position_x.value() + size.width.value();
  const int bottom = y.value() + size.height.value();
  if (RefusalNote refused = Box().CheckReach(right, bottom)) {
    const bool across = refused.reason == RefusalReason::BeyondRightMargin;
    refused.reason = across ? RefusalReason::PictureTooWide : RefusalReason::PictureTooHigh;
    if (!state_.page_open) refused.reason = RefusalReason::NoPage;
    return refused;
  }
  const Pieces pieces = {.links = placed.hyperlink.empty() ? 0 : 1,
                         .images = 1,
                         .palettes = picture.HasPalette() ? 1 : 0,
                         .soft_masks = picture.alpha.empty() ? 0 : 1};
  if (const RefusalNote refused = writer_.RoomFor(pieces)) return refused;

  const bool aligned = placed.alignment != AlignmentConstants::NoAlignment;
  const Points x =
      aligned ? layout::GetAlignmentOffset(state_.UsableWidth(), size.width, placed.alignment)
              : state_.position_x;
  writer_.DrawImage(picture, {OnPage(x, y), size.width, size.height, placed.encoding});
  if (!placed.hyperlink.empty()) {
    writer_.WriteLink(placed.hyperlink, OnPage(x, y), OnPage(x + size.width, y + size.height));
  }
  state_.position_y = state_.position_y - size.height;
  state_.position_x = state_.line_start_x;
  return {};
}

/// A point for each pixel, unless a box makes it smaller or larger.
layout::Size DocumentModel::PictureSize(const layout::Size& pixels) const {
  if (state_.picture_width == 0) return pixels;
  const layout::Size box = {state_.picture_width, state_.picture_height};
  return layout::Resize(box, state_.pictures_enlarged ? layout::Enlarge(box, pixels) : pixels);
}

}  // namespace vellumark::document
