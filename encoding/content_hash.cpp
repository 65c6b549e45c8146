// SPDX-License-Identifier: MIT
#include "encoding/content_hash.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "encoding/byte_access.h"

namespace vellumark::encoding {
namespace {

constexpr std::uint64_t kLowFactor = 0x87C37B91114253D5;
constexpr std::uint64_t kHighFactor = 0x4CF5AD432745937F;

std::uint64_t SpreadLow(std::uint64_t word) {
  return std::rotl(word * kLowFactor, 31) * kHighFactor;
}

std::uint64_t SpreadHigh(std::uint64_t word) {
  return std::rotl(word * kHighFactor, 33) * kLowFactor;
}

std::uint64_t Finish(std::uint64_t word) {
  word = (word ^ word >> 33) * 0xFF51AFD7ED558CCD;
  word = (word ^ word >> 33) * 0xC4CEB9FE1A85EC53;
  return word ^ word >> 33;
}

}  // namespace

void ContentHash::Add(std::string_view bytes) noexcept {
  const auto* from = reinterpret_cast<const std::uint8_t*>(bytes.data());
  std::size_t left = bytes.size();
  const std::size_t waiting = size_ % kBlock;
  size_ += left;
  if (waiting != 0) {
    const std::size_t more = std::min(kBlock - waiting, left);
    std::copy_n(from, more, rest_.begin() + static_cast<std::ptrdiff_t>(waiting));
    from += more;
    left -= more;
    if (waiting + more < kBlock) return;
    AddBlock(rest_.data());
  }
  for (; left >= kBlock; left -= kBlock, from += kBlock) AddBlock(from);
  std::copy_n(from, left, rest_.begin());
}

void ContentHash::AddBlock(const std::uint8_t* block) noexcept {
  low_ ^= SpreadLow(LoadLittleEndian<std::uint64_t>(block));
  low_ = (std::rotl(low_, 27) + high_) * 5 + 0x52DCE729;
  high_ ^= SpreadHigh(LoadLittleEndian<std::uint64_t>(block + 8));
  high_ = (std::rotl(high_, 31) + low_) * 5 + 0x38495AB5;
}

std::array<std::uint8_t, 16> ContentHash::Value() const noexcept {
  std::array<std::uint8_t, kBlock> padded{};
  std::copy_n(rest_.begin(), size_ % kBlock, padded.begin());
  std::uint64_t low = low_ ^ SpreadLow(LoadLittleEndian<std::uint64_t>(padded.data())) ^ size_;
  std::uint64_t high =
      high_ ^ SpreadHigh(LoadLittleEndian<std::uint64_t>(padded.data() + 8)) ^ size_;
  low += high;
  high += low;
  low = Finish(low);
  high = Finish(high);
  low += high;
  high += low;
  std::array<std::uint8_t, 16> value{};
  StoreLittleEndian(value.data(), low);
  StoreLittleEndian(value.data() + 8, high);
  return value;
}

}  // namespace vellumark::encoding
