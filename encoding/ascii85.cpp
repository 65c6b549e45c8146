// SPDX-License-Identifier: MIT
#include "encoding/ascii85.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "encoding/base85_groups.h"
#include "encoding/byte_access.h"
#include "encoding/encoded_output.h"

namespace vellumark::encoding {
namespace {

std::uint8_t* EncodeRest(std::span<const std::uint8_t> rest, std::uint8_t* out) {
  std::array<std::uint8_t, 4> group{};
  std::copy(rest.begin(), rest.end(), group.begin());
  std::array<std::uint8_t, 5> digits{};
  WriteBase85Group(LoadBigEndian<std::uint32_t>(group.data()), digits.data());
  return std::copy_n(digits.begin(), rest.size() + 1, out);
}

}  // namespace

bool Ascii85::Encode(std::int32_t input_size, std::span<const std::uint8_t> input,
                     std::int32_t& output_size, std::string& output) {
  output_size = 0;
  output.clear();
  if (input_size < 0 || static_cast<std::size_t>(input_size) > input.size()) return false;
  const auto bytes = input.first(static_cast<std::size_t>(input_size));
  // Without counting the zero groups: at most this.
  const std::uint64_t greatest_size = (std::uint64_t{bytes.size()} + 3) / 4 * 5 + 2;
  if (!FitsOutputSize(greatest_size)) return false;
  output.reserve(static_cast<std::size_t>(greatest_size) + kLineEndRoom);
  EncodeTo([&output](std::string_view piece) { output += piece; }, bytes);
  output_size = static_cast<std::int32_t>(output.size());
  return true;
}

std::uint64_t Ascii85::TextSize(std::span<const std::uint8_t> input) noexcept {
  const std::size_t groups = input.size() / 4;
  std::size_t zero_groups = 0;
  for (std::size_t i = 0; i < groups; ++i) {
    if (LoadLittleEndian<std::uint32_t>(input.data() + 4 * i) == 0) ++zero_groups;
  }
  const std::size_t rest = input.size() % 4;
  return std::uint64_t{5} * groups - 4 * zero_groups + (rest == 0 ? 0 : rest + 1) + 2;
}

void Ascii85::EncodeTo(const PieceSink& sink, std::span<const std::uint8_t> input) {
  EncodedOutput out(sink);
  const std::size_t whole_groups = input.size() / 4 * 4;
  constexpr std::size_t kStep = EncodedOutput::kBlockSize / 5 * 4;
  for (std::size_t i = 0; i < whole_groups; i += kStep) {
    const std::size_t step = std::min(kStep, whole_groups - i);
    out.Append(WriteBase85Groups(input.subspan(i, step), out.Block()));
  }
  const auto rest = input.subspan(whole_groups);
  if (!rest.empty()) out.Append(EncodeRest(rest, out.Block()));
  sink("~>");
}

}  // namespace vellumark::encoding
