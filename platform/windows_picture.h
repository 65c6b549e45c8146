// SPDX-License-Identifier: MIT
//
// LoadWindowsPicture: a BMP, GIF, JPG or PNG file, in memory, through the system's picture
// loader, or for PNG through its imaging component (windows_png.h).
//
// The loader opens icons and metafiles too; a document has no use for them, so the file's first
// bytes are looked at before. The depth of the result is the loader's choice: a GIF or JPG comes
// with 24 bits from one system and with its own depth from another.
//
// Works with and without an initialized component runtime on the calling thread, and leaves nothing
// behind.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include <vellumark/bitmap.h>

namespace vellumark::platform {

/// Fills `bitmap` and returns an empty text, or a few words that say why not; then `bitmap` is
/// empty. `greatest` is the most bytes that the bitmap may have. Throws std::bad_alloc.
[[nodiscard]] std::string LoadWindowsPicture(std::span<const std::uint8_t> file,
                                             std::int64_t greatest, Bitmap& bitmap);

/// Copies what a bitmap of the graphics interface holds; results as above. `handle` is an HBITMAP
/// that is not selected into a device context. A bitmap with pixel memory (a DIB section of 1, 4,
/// 8, 16, 24 or 32 bits) keeps its depth and its palette. One without, which belongs to a device,
/// becomes 24 bits.
[[nodiscard]] std::string CopyWindowsBitmap(void* handle, std::int64_t greatest, Bitmap& bitmap);

}  // namespace vellumark::platform
