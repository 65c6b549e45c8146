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

// Halfway, a block that is coding well is ended at once: few matches, yet an estimated size below
// half of its bytes. Its statistics are good, and the text that follows may have others.
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
