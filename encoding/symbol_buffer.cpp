// SPDX-License-Identifier: MIT
#include "encoding/symbol_buffer.h"

namespace vellumark::encoding {

// Halfway, a block that is coding well is ended at once: few matches, yet an estimated size below
// half of its bytes. Its statistics are good, and the text that follows may have others.
bool SymbolBuffer::IsFull(std::int32_t block_bytes) {
  if (count_ == kFull) return true;
  next_check_ = kFull;
  std::size_t matches = 0;
  std::size_t bits = count_ * 8;
  for (const Symbol symbol : Symbols()) {
    if (symbol.IsLiteral()) continue;
    ++matches;
    bits += static_cast<std::size_t>(
        5 + format::DistanceExtraBits(static_cast<int>(format::DistanceCode(symbol.Distance()))));
  }
  return matches < count_ / 2 && bits / 8 < static_cast<std::size_t>(block_bytes) / 2;
}

}  // namespace vellumark::encoding
