// SPDX-License-Identifier: MIT
//
// DecodeGif: the first frame of a GIF file on its logical screen, 8 bits with 256 colours.
//
// The frame is clipped to the screen; the screen around it shows the background's index. Colours
// come from the frame's own table or the file's, those beyond the table are black, and transparency
// is not looked at. The file is read record by record up to the end of that frame and no further.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include <vellumark/bitmap.h>

namespace vellumark::platform {

/// See DecodePicture (platform/picture_decoder.h).
[[nodiscard]] std::string_view DecodeGif(std::span<const std::uint8_t> file, std::int64_t greatest,
                                         Bitmap& bitmap);

}  // namespace vellumark::platform
