// SPDX-License-Identifier: MIT
#include "document/picture_data.h"

#include <algorithm>
#include <span>
#include <utility>

#include <vellumark/run_time_error.h>

#include "encoding/encode_stream.h"
#include "encoding/packed_runs.h"
#include "encoding/png_predictor.h"

namespace vellumark::document {
namespace {

using Bytes = std::span<const std::uint8_t>;

/// What is compressed both ways to see which is smaller: whole rows from the middle of the picture.
constexpr std::size_t kTrial = std::size_t{128} << 10U;

/// Rows of samples.
struct Samples {
  Bytes bytes;
  std::size_t height = 0;
  std::size_t pixel = 0;  ///< bytes

  [[nodiscard]] std::size_t RowSize() const { return bytes.size() / height; }
};

std::string Compressed(Bytes bytes) {
  return encoding::EncodeStream(bytes, EncodingConstants::Flate);
}

/// The samples of a picture that was cut down for a trial, or of all of it.
Bytes TrialRows(const Samples& samples) {
  const std::size_t row = samples.RowSize();
  const std::size_t rows = std::clamp<std::size_t>(kTrial / row, 1, samples.height);
  return samples.bytes.subspan((samples.height - rows) / 2 * row, rows * row);
}

PictureData EncodeFlate(const Samples& samples) {
  const std::size_t row = samples.RowSize();
  const Bytes trial = TrialRows(samples);
  const bool whole = trial.size() == samples.bytes.size();
  std::string plain = Compressed(trial);
  std::string predicted = Compressed(encoding::PredictedRows(trial, row, samples.pixel).Bytes());
  const bool predict = predicted.size() < plain.size();
  if (whole) return {EncodingConstants::Flate, predict, std::move(predict ? predicted : plain)};
  if (!predict) return {EncodingConstants::Flate, false, Compressed(samples.bytes)};
  return {EncodingConstants::Flate, true,
          Compressed(encoding::PredictedRows(samples.bytes, row, samples.pixel).Bytes())};
}

}  // namespace

std::uint64_t PictureData::Size() const noexcept {
  return samples.empty() ? bytes.size() : text_size;
}

void PictureData::AppendTo(LineBuffer& lines) && {
  if (samples.empty()) {
    lines.AppendOwned(std::move(bytes));
  } else {
    lines.AppendEncoded(std::move(samples), filter, text_size);
  }
}

PictureData EncodePicture(layout::Picture& picture, EncodingConstants encoding,
                          const Oddities& oddities) {
  PictureData data = {.filter = encoding};
  if (!picture.original.empty()) {
    data.bytes.reserve(picture.original.size() + 2);
    data.bytes.assign(picture.original.begin(), picture.original.end());
    return data;
  }
  if (encoding::IsText(encoding)) {
    data.text_size = encoding::TextSize(picture.samples, encoding);
    if (encoding::FitsOutputSize(data.text_size)) {
      data.samples = std::move(picture.samples);
      return data;
    }
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
    case EncodingConstants::Original:
      data = EncodeFlate({picture.samples, static_cast<std::size_t>(picture.height),
                          static_cast<std::size_t>(std::max(1, picture.bits_per_pixel / 8))});
      break;
    default: data.bytes = encoding::EncodeStream(picture.samples, encoding);
  }
  if (data.bytes.empty()) throw RunTimeError(RunTimeError::Overflow);  // beyond 2^31 - 1 bytes
  return data;
}

PictureData EncodeAlpha(const layout::Picture& picture) {
  PictureData data = EncodeFlate({picture.alpha, static_cast<std::size_t>(picture.height), 1});
  if (data.bytes.empty()) throw RunTimeError(RunTimeError::Overflow);
  return data;
}

}  // namespace vellumark::document
