// SPDX-License-Identifier: MIT
#include "encoding/content_hash.h"

#include <algorithm>
#include <bit>

#include "encoding/byte_access.h"

namespace vellumark::encoding {
namespace {

// The primes of XXH64; the lanes begin as the sum of the first two, the second, 0, and minus the
// first.
constexpr std::uint64_t kFirstFactor = 0x9E3779B185EBCA87;
constexpr std::uint64_t kSecondFactor = 0xC2B2AE3D27D4EB4F;
constexpr std::uint64_t kThirdFactor = 0x165667B19E3779F9;
constexpr std::uint64_t kFourthFactor = 0x85EBCA77C2B2AE63;
constexpr std::uint64_t kFifthFactor = 0x27D4EB2F165667C5;

constexpr std::uint64_t Round(std::uint64_t lane, std::uint64_t word) noexcept {
  return std::rotl(lane + word * kSecondFactor, 31) * kFirstFactor;
}

void StoreBigEndian(std::uint8_t* to, std::uint64_t number) noexcept {
  for (int shift = 56; shift >= 0; shift -= 8) *to++ = static_cast<std::uint8_t>(number >> shift);
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
    AddBlocks(rest_.data(), 1);
  }
  AddBlocks(from, left / kBlock);
  from += left / kBlock * kBlock;
  std::copy_n(from, left % kBlock, rest_.begin());
}

void ContentHash::AddBlocks(const std::uint8_t* from, std::size_t count) noexcept {
  Lanes lanes = lanes_;
  for (; count > 0; --count, from += kBlock) {
    lanes[0] = Round(lanes[0], LoadLittleEndian<std::uint64_t>(from));
    lanes[1] = Round(lanes[1], LoadLittleEndian<std::uint64_t>(from + 8));
    lanes[2] = Round(lanes[2], LoadLittleEndian<std::uint64_t>(from + 16));
    lanes[3] = Round(lanes[3], LoadLittleEndian<std::uint64_t>(from + 24));
  }
  lanes_ = lanes;
}

std::uint64_t ContentHash::Digest(const Lanes& lanes, std::uint64_t start) const noexcept {
  std::uint64_t digest = start;
  if (size_ >= kBlock) {
    digest = std::rotl(lanes[0], 1) + std::rotl(lanes[1], 7) + std::rotl(lanes[2], 12) +
             std::rotl(lanes[3], 18);
    for (const std::uint64_t lane : lanes) {
      digest = (digest ^ Round(0, lane)) * kFirstFactor + kFourthFactor;
    }
  }
  digest += size_;
  const std::uint8_t* from = rest_.data();
  std::size_t left = size_ % kBlock;
  for (; left >= 8; left -= 8, from += 8) {
    digest ^= Round(0, LoadLittleEndian<std::uint64_t>(from));
    digest = std::rotl(digest, 27) * kFirstFactor + kFourthFactor;
  }
  if (left >= 4) {
    digest ^= LoadLittleEndian<std::uint32_t>(from) * kFirstFactor;
    digest = std::rotl(digest, 23) * kSecondFactor + kThirdFactor;
    left -= 4;
    from += 4;
  }
  for (; left > 0; --left) digest = std::rotl(digest ^ *from++ * kFifthFactor, 11) * kFirstFactor;
  digest = (digest ^ digest >> 33) * kSecondFactor;
  digest = (digest ^ digest >> 29) * kThirdFactor;
  return digest ^ digest >> 32;
}

std::array<std::uint8_t, 16> ContentHash::Value() const noexcept {
  const Lanes opposite = {lanes_[3], lanes_[2], lanes_[1], lanes_[0]};
  std::array<std::uint8_t, 16> value{};
  StoreBigEndian(value.data(), Digest(lanes_, kFifthFactor));
  StoreBigEndian(value.data() + 8, Digest(opposite, kFourthFactor));
  return value;
}

}  // namespace vellumark::encoding
