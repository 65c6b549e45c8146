// SPDX-License-Identifier: MIT
//
// LoadWindowsPng: a PNG file, in memory, through the system's imaging component.
//
// Gray and indexed pictures of up to 8 bits without transparency keep their depth; the others have
// 24 bits, and alpha if it is not opaque all over.
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
[[nodiscard]] std::string LoadWindowsPng(std::span<const std::uint8_t> file, std::int64_t greatest,
                                         Bitmap& bitmap);

}  // namespace vellumark::platform
