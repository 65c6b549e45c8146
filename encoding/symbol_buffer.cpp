// SPDX-License-Identifier: MIT
#include "encoding/symbol_buffer.h"

namespace vellumark::encoding {

void SymbolBuffer::Clear() {
  count_ = 0;
  next_check_ = cuts_early_ ? kEarlyCut : kFull;
  literal_lengths_.fill(0);
  distances_.fill(0);
  literal_lengths_[format::kEndOfBlock] = 1;
}

// A half-full block that compresses well already is ended at once: it has few matches, and yet its
// estimated size is below half of its bytes. What follows may have other statistics.
bool SymbolBuffer::IsFull(std::int32_t block_bytes) {
  if (count_ == kFull) return true;
  next_check_ = kFull;
  std::size_t matches = 0;
  std::size_t bits = count_ * 8;
  for (std::size_t code = 0; code < distances_.size(); ++code) {
    const auto extra = static_cast<std::size_t>(format::DistanceExtraBits(static_cast<int>(code)));
    matches += distances_[code];
    bits += distances_[code] * (5 + extra);
  }
  return matches < count_ / 2 && bits / 8 < static_cast<std::size_t>(block_bytes) / 2;
}

}  // namespace vellumark::encoding
