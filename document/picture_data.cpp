// SPDX-License-Identifier: MIT
#include "document/picture_data.h"

#include <algorithm>
#include <limits>
#include <span>

#include <vellumark/run_time_error.h>

#include "encoding/encode_stream.h"
#include "encoding/packed_runs.h"
#include "encoding/png_predictor.h"

namespace vellumark::document {
namespace {

using Bytes = std::span<const std::uint8_t>;

/// What is compressed both ways to see which is smaller: whole rows from the middle of the picture.
constexpr std::size_t kTrial = std::size_t{128} << 10U;

std::size_t RowSize(const layout::Picture& picture) {
  return picture.samples.size() / static_cast<std::size_t>(picture.height);
}

std::size_t PixelSize(const layout::Picture& picture) {
  return std::max(1, picture.bits_per_pixel / 8);
}

std::string Compressed(Bytes bytes) {
  return encoding::EncodeStream(bytes, EncodingConstants::Flate);
}

/// The samples of a picture that was cut down for a trial, or of all of it.
Bytes TrialRows(const layout::Picture& picture) {
  const std::size_t row = RowSize(picture);
  const auto height = static_cast<std::size_t>(picture.height);
  const std::size_t rows = std::clamp<std::size_t>(kTrial / row, 1, height);
  return Bytes(picture.samples).subspan((height - rows) / 2 * row, rows * row);
}

PictureData EncodeFlate(const layout::Picture& picture) {
  const std::size_t row = RowSize(picture);
  const std::size_t pixel = PixelSize(picture);
  const Bytes trial = TrialRows(picture);
  const bool whole = trial.size() == picture.samples.size();
  std::string plain = Compressed(trial);
  std::string predicted = Compressed(encoding::PredictedRows(trial, row, pixel).Bytes());
  const bool predict = predicted.size() < plain.size();
  if (whole) return {EncodingConstants::Flate, predict, predict ? predicted : plain};
  if (!predict) return {EncodingConstants::Flate, false, Compressed(picture.samples)};
  return {EncodingConstants::Flate, true,
          Compressed(encoding::PredictedRows(picture.samples, row, pixel).Bytes())};
}

}  // namespace

PictureData EncodePicture(const layout::Picture& picture, EncodingConstants encoding,
                          const Oddities& oddities) {
  PictureData data = {encoding, false, {}};
  if (!picture.original.empty()) {
    data.bytes.reserve(picture.original.size() + 2);
    data.bytes.assign(picture.original.begin(), picture.original.end());
    return data;
  }
  if (oddities.RunLengthDataEndOtherwise()) {
    data.bytes = encoding::EncodeStream(picture.samples, encoding);
    return data;
  }
  switch (encoding) {
    case EncodingConstants::RunLength:
      data.bytes = encoding::EncodePackedRuns(picture.samples);
      break;
    case EncodingConstants::Flate:
    case EncodingConstants::Original: data = EncodeFlate(picture); break;
    default: data.bytes = encoding::EncodeStream(picture.samples, encoding);
  }
  if (data.bytes.empty()) throw RunTimeError(RunTimeError::Overflow);  // beyond 2^31 - 1 bytes
  return data;
}

}  // namespace vellumark::document
