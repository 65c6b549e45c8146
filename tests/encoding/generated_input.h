// SPDX-License-Identifier: MIT
//
// Inputs made from a seed, the same on every machine: noise, runs, copies from up to 40,000 bytes
// back, and words over a few letters, in stretches of random length.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vellumark::encoding::testing {

using Bytes = std::vector<std::uint8_t>;

class Random {
 public:
  explicit Random(std::uint32_t seed) : state_(seed) {}

  std::uint32_t Next() {
    state_ = state_ * 1664525U + 1013904223U;
    return state_ >> 16;
  }
  std::uint8_t Byte() { return static_cast<std::uint8_t>(Next() & 0xFFU); }

 private:
  std::uint32_t state_;
};

inline Bytes Noise(std::size_t size, std::uint32_t seed = 1) {
  Random random(seed);
  Bytes bytes(size);
  for (std::uint8_t& byte : bytes) byte = random.Byte();
  return bytes;
}

inline Bytes GeneratedInput(std::size_t size, std::uint32_t seed,
                            std::uint32_t longest_noise = 400) {
  Random random(seed);
  Bytes bytes;
  while (bytes.size() < size) {
    const std::uint32_t kind = random.Next() % 4;
    const std::uint32_t length = 1 + random.Next() % (kind == 0 ? longest_noise : 400);
    const std::uint32_t distance = 1 + random.Next() % 40000;
    for (std::uint32_t i = 0; i < length; ++i) {
      if (kind == 0) {
        bytes.push_back(random.Byte());
      } else if (kind == 1) {
        bytes.push_back(static_cast<std::uint8_t>(distance));
      } else if (kind == 2 && distance <= bytes.size()) {
        bytes.push_back(bytes[bytes.size() - distance]);
      } else {
        bytes.push_back(static_cast<std::uint8_t>('a' + (random.Next() & random.Next() & 15U)));
      }
    }
  }
  bytes.resize(size);
  return bytes;
}

/// Copies of 3 to `longest` bytes from random distances in the last 32 KB, after noise.
inline Bytes FarCopies(std::size_t size, std::uint32_t longest, std::uint32_t seed) {
  Bytes bytes = Noise(32768, seed);
  Random random(seed + 1);
  while (bytes.size() < size) {
    const std::size_t distance = 1 + random.Next() % 32768;
    const std::uint32_t length = 3 + random.Next() % (longest - 2);
    for (std::uint32_t i = 0; i < length; ++i) bytes.push_back(bytes[bytes.size() - distance]);
  }
  bytes.resize(size);
  return bytes;
}

}  // namespace vellumark::encoding::testing
