// SPDX-License-Identifier: MIT
//
// WriteBookmark and SetAnchor: names for the current position, which the outline and links lead to.
#include "document/document_model.h"

namespace vellumark::document {

RefusalNote DocumentModel::WriteBookmark(std::string_view text, int level) noexcept {
  return Attempt([&]() -> RefusalNote {
    if (!state_.page_open) return {RefusalReason::NoPage};
    if (level < 1 || level > bookmark_level_ + 1) {
      return {RefusalReason::InvalidLevel, level, bookmark_level_ + 1};
    }
    if (const RefusalNote refused = writer_.RoomFor({.bookmarks = 1})) return refused;
    writer_.WriteBookmark(text, level, OnPage(state_.position_x, state_.Y()));
    bookmark_level_ = level;
    return {};
  });
}

RefusalNote DocumentModel::SetAnchor(std::string_view name) noexcept {
  return Attempt([&]() -> RefusalNote {
    if (!state_.page_open) return {RefusalReason::NoPage};
    if (name.empty()) return {RefusalReason::InvalidAnchor};
    writer_.SetAnchor(name, OnPage(state_.position_x, state_.Y()));
    return {};
  });
}

}  // namespace vellumark::document
