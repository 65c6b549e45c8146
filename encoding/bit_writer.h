// SPDX-License-Identifier: MIT
//
// Writes numbers of any bit count into a string, the lowest bit first, as deflate wants them.
//
//     BitWriter bits(output);
//     bits.Reserve(100);        // room for 100 more bytes, asked for once per block
//     bits.Put(5, 3);
//     bits.Flush();             // after at most 56 bits
//     bits.AlignToByte();
//     bits.Finish();            // cuts the string to what was written
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>

#include "encoding/byte_access.h"

namespace vellumark::encoding {

class BitWriter {
 public:
  /// What Reserve takes beyond the bytes asked for: a flush stores 8 bytes whatever it has.
  static constexpr std::size_t kSlack = 16;

  /// Appends to `output`, which must outlive the writer and is its own until Finish().
  explicit BitWriter(std::string& output) : output_(output), used_(output.size()) {}

  /// Makes room for `bytes` more bytes.
  void Reserve(std::size_t bytes) { output_.resize(used_ + bytes + kSlack); }

  /// Adds the low `count` bits of `value`, whose other bits are 0. At most 56 bits may be added
  /// between two calls of Flush.
  void Put(std::uint64_t value, unsigned count) {
    buffer_ |= value << count_;
    count_ += count;
  }

  /// Writes out the whole bytes of what was put.
  void Flush() {
    StoreLittleEndian(Position(), buffer_);
    used_ += count_ / 8;
    buffer_ >>= count_ & ~7U;
    count_ &= 7U;
  }

  /// Fills the last byte with zero bits.
  void AlignToByte() {
    count_ = (count_ + 7) & ~7U;
    Flush();
  }

  /// Copies whole bytes; the writer must be aligned to a byte.
  void PutBytes(std::span<const std::uint8_t> bytes) {
    if (!bytes.empty()) std::memcpy(Position(), bytes.data(), bytes.size());
    used_ += bytes.size();
  }

  /// Takes over the state of a copy that a hot loop has written with.
  void Continue(const BitWriter& copy) {
    used_ = copy.used_;
    buffer_ = copy.buffer_;
    count_ = copy.count_;
  }

  /// Cuts the string to the whole bytes written.
  void Finish() { output_.resize(used_); }

 private:
  std::uint8_t* Position() { return reinterpret_cast<std::uint8_t*>(output_.data()) + used_; }

  std::string& output_;
  std::size_t used_;
  std::uint64_t buffer_ = 0;
  unsigned count_ = 0;  // bits in buffer_, at most 7 after a flush
};

}  // namespace vellumark::encoding
