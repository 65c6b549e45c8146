// SPDX-License-Identifier: MIT
#include "encoding/ascii85.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

#include "encoding/byte_access.h"
#include "encoding/encoded_output.h"

namespace vellumark::encoding {
namespace {

constexpr std::uint32_t kBase = 85;
constexpr std::uint32_t kPairBase = kBase * kBase;

struct DigitPair {
  std::uint8_t characters[2];
};

constexpr std::uint8_t Character(std::uint32_t digit) {
  return static_cast<std::uint8_t>('!' + digit);
}

// The two characters of each number below 85 * 85.
constexpr auto kPairs = [] {
  std::array<DigitPair, kPairBase> pairs{};
  for (std::uint32_t i = 0; i < kPairBase; ++i) {
    pairs[i] = {{Character(i / kBase), Character(i % kBase)}};
  }
  return pairs;
}();

// Writes the five characters of a group: one digit and two pairs.
void WriteDigits(std::uint32_t value, std::uint8_t* out) {
  const std::uint32_t upper = value / kPairBase;
  const DigitPair low = kPairs[value % kPairBase];
  const DigitPair middle = kPairs[upper % kPairBase];
  out[0] = Character(upper / kPairBase);
  std::memcpy(out + 1, middle.characters, 2);
  std::memcpy(out + 3, low.characters, 2);
}

std::uint8_t* EncodeGroups(std::span<const std::uint8_t> groups, std::uint8_t* out) {
  for (std::size_t i = 0; i < groups.size(); i += 4) {
    const auto value = LoadBigEndian<std::uint32_t>(groups.data() + i);
    if (value == 0) {
      *out++ = 'z';
    } else {
      WriteDigits(value, out);
      out += 5;
    }
  }
  return out;
}

std::uint8_t* EncodeRest(std::span<const std::uint8_t> rest, std::uint8_t* out) {
  std::array<std::uint8_t, 4> group{};
  std::copy(rest.begin(), rest.end(), group.begin());
  std::array<std::uint8_t, 5> digits{};
  WriteDigits(LoadBigEndian<std::uint32_t>(group.data()), digits.data());
  return std::copy_n(digits.begin(), rest.size() + 1, out);
}

}  // namespace

bool Ascii85::Encode(std::int32_t input_size, std::span<const std::uint8_t> input,
                     std::int32_t& output_size, std::string& output) {
  output_size = 0;
  output.clear();
  if (input_size < 0 || static_cast<std::size_t>(input_size) > input.size()) return false;
  const auto size = static_cast<std::size_t>(input_size);
  const std::uint64_t greatest_size = (std::uint64_t{size} + 3) / 4 * 5 + 2;
  if (!FitsOutputSize(greatest_size)) return false;

  EncodedOutput out(output, static_cast<std::size_t>(greatest_size));
  const std::size_t whole_groups = size / 4 * 4;
  constexpr std::size_t kStep = EncodedOutput::kBlockSize / 5 * 4;
  for (std::size_t i = 0; i < whole_groups; i += kStep) {
    const std::size_t step = std::min(kStep, whole_groups - i);
    out.Append(EncodeGroups(input.subspan(i, step), out.Block()));
  }
  const auto rest = input.subspan(whole_groups, size - whole_groups);
  if (!rest.empty()) out.Append(EncodeRest(rest, out.Block()));
  output += "~>";
  output_size = static_cast<std::int32_t>(output.size());
  return true;
}

}  // namespace vellumark::encoding
