// SPDX-License-Identifier: MIT
#include "encoding/run_length.h"

#include <algorithm>
#include <cstddef>

#include <vellumark/run_time_error.h>

#include "encoding/byte_access.h"
#include "encoding/encoded_output.h"
#include "encoding/oddities.h"

namespace vellumark::encoding {
namespace {

constexpr std::size_t kGreatestRun = 128;

std::size_t CountRuns(std::span<const std::uint8_t> data) {
  std::size_t runs = 0;
  for (std::size_t start = 0; start < data.size(); start += RunAt(data, start, kGreatestRun))
    ++runs;
  return runs;
}

std::uint8_t LengthByte(std::size_t run, bool is_final) {
  if (run == 1) return 0;
  const int less = is_final ? oddities::kFinalRunLengthByteLess : 0;
  return static_cast<std::uint8_t>(257 - static_cast<int>(run) - less);
}

}  // namespace

std::string EncodeRunLength(std::span<const std::uint8_t> data) {
  if (data.empty()) throw RunTimeError(RunTimeError::SubscriptOutOfRange);
  std::string output;
  output.reserve(2 * CountRuns(data) + 1 + kLineEndRoom);
  const PieceSink sink = [&output](std::string_view piece) { output += piece; };
  EncodedOutput out(sink);
  for (std::size_t start = 0; start < data.size();) {
    std::uint8_t* to = out.Block();
    const std::uint8_t* const block_end = to + EncodedOutput::kBlockSize;
    while (to != block_end && start < data.size()) {
      const std::size_t run = RunAt(data, start, kGreatestRun);
      *to++ = LengthByte(run, start + run == data.size());
      *to++ = data[start];
      start += run;
    }
    out.Append(to);
  }
  output += static_cast<char>(oddities::kRunLengthEndMarker);
  return output;
}

}  // namespace vellumark::encoding
