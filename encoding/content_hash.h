// SPDX-License-Identifier: MIT
//
// ContentHash: a number of 128 bits that stands for a document's contents, in its /ID for example.
//
//     ContentHash hash;
//     for (const auto& line : lines) hash.Add(line);
//     hash.Value();                         // 16 bytes
//
// The same bytes give the same value on every machine, however they are cut into pieces. The first
// eight bytes are XXH64 (seed 0, the highest byte first); the others are made of the same four
// lanes in the opposite order. Fast and well spread, and no protection: whoever wants to can make
// two contents of one value.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vellumark::encoding {

class ContentHash {
 public:
  void Add(std::string_view bytes) noexcept;

  /// The value of all bytes so far; more may be added afterwards.
  [[nodiscard]] std::array<std::uint8_t, 16> Value() const noexcept;

 private:
  static constexpr std::size_t kBlock = 32;
  using Lanes = std::array<std::uint64_t, 4>;

  void AddBlocks(const std::uint8_t* from, std::size_t count) noexcept;
  [[nodiscard]] std::uint64_t Digest(const Lanes& lanes, std::uint64_t start) const noexcept;

  Lanes lanes_ = {0x60EA27EEADC0B5D6, 0xC2B2AE3D27D4EB4F, 0, 0x61C8864E7A143579};
  std::uint64_t size_ = 0;
  std::array<std::uint8_t, kBlock> rest_{};  // the bytes behind the last whole block
};

}  // namespace vellumark::encoding
