// SPDX-License-Identifier: MIT
//
// ContentHash: a number of 128 bits that stands for a document's contents, in its /ID for example.
//
//     ContentHash hash;
//     for (const auto& line : lines) hash.Add(line);
//     hash.Value();                         // 16 bytes
//
// The same bytes give the same value on every machine, however they are cut into pieces. It is
// MurmurHash3 (x64, 128 bits, seed 0): fast and well spread, and no protection: whoever wants to
// can make two contents of one value.
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
  static constexpr std::size_t kBlock = 16;

  void AddBlock(const std::uint8_t* block) noexcept;

  std::uint64_t low_ = 0;
  std::uint64_t high_ = 0;
  std::uint64_t size_ = 0;
  std::array<std::uint8_t, kBlock> rest_{};  // the bytes behind the last whole block
};

}  // namespace vellumark::encoding
