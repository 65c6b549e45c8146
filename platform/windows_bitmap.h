// SPDX-License-Identifier: MIT
//
// CopyWindowsBitmap: what a bitmap of the graphics interface holds, as a Bitmap.
//
//     Bitmap bitmap;
//     const std::string_view why_not = CopyWindowsBitmap(handle, bitmap);
//
// A bitmap with pixel memory (a DIB section of 1, 4, 8, 16, 24 or 32 bits) keeps its depth and its
// palette. One without, which belongs to a device, becomes 24 bits.
#pragma once

#include <string_view>

#include <vellumark/bitmap.h>

namespace vellumark::platform {

/// `handle` is an HBITMAP that is selected into no device context. Answers an empty text, or a few
/// words that say why not; then `bitmap` is empty. Throws std::bad_alloc.
[[nodiscard]] std::string_view CopyWindowsBitmap(void* handle, Bitmap& bitmap);

}  // namespace vellumark::platform
