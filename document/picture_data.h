// SPDX-License-Identifier: MIT
//
// PictureData: the samples of a picture as the data of a stream, in whichever page language.
//
//     PictureData data = EncodePicture(picture, EncodingConstants::Flate, oddities);
//     lines.Append("/Filter ", FilterName(data.filter));
//     std::move(data).AppendTo(lines);
//
// Under ASCII85 and ASCIIHex the samples stay samples until the file is written: text takes up to
// twice their memory.
//
// In a classic document the samples go through the filter that was asked for. In a conforming one
// run-length data end as the filter wants; Flate takes the PNG predictors if that is smaller; and
// Original is the JPG file itself, or Flate for a picture that has no such file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <vellumark/enumerations.h>

#include "document/line_buffer.h"
#include "document/oddities.h"
#include "layout/picture.h"

namespace vellumark::document {

struct PictureData {
  EncodingConstants filter = EncodingConstants::ASCII85;  ///< Original: the filter of JPG data
  bool predicted = false;                                 ///< each row begins with its predictor
  std::string bytes = {};                  ///< end marker included; room for a line end behind them
  std::vector<std::uint8_t> samples = {};  ///< instead of the bytes: what becomes text
  std::uint64_t text_size = 0;             ///< of the text that the samples become

  /// Bytes of the data in the file, without line end.
  [[nodiscard]] std::uint64_t Size() const noexcept;

  /// One line.
  void AppendTo(LineBuffer& lines) &&;
};

/// Takes the samples out of `picture`.
[[nodiscard]] PictureData EncodePicture(layout::Picture& picture, EncodingConstants encoding,
                                        const Oddities& oddities);

/// The alpha of a picture that has one, as EncodePicture does gray samples of 8 bits under Flate.
[[nodiscard]] PictureData EncodeAlpha(const layout::Picture& picture);

}  // namespace vellumark::document
