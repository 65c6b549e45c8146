// SPDX-License-Identifier: MIT
//
// ObjectTable: the numbers of a document's objects and where each one starts.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include <vellumark/run_time_error.h>

namespace vellumark::pdf {

/// Object numbers start at 1.
class ObjectTable {
 public:
  /// The highest number of 16 bits, and the highest that readers take.
  static constexpr int kHighest16Bits = std::numeric_limits<std::int16_t>::max();
  static constexpr int kHighest = 8388607;

  explicit ObjectTable(int highest = kHighest16Bits) : highest_(highest) {}

  /// How many numbers are left.
  [[nodiscard]] int Left() const noexcept { return highest_ - count_; }

  /// The next number, without an offset. Raises run-time error 6 when all are handed out.
  int Reserve() {
    if (count_ == highest_) throw RunTimeError(RunTimeError::Overflow);
    return ++count_;
  }

  /// The next number, for an object that starts at `offset`.
  int Add(std::int64_t offset) {
    const int number = Reserve();
    SetOffset(number, offset);
    return number;
  }

  /// Records where an object starts that was reserved before.
  void SetOffset(int number, std::int64_t offset) {
    const auto index = static_cast<std::size_t>(number);
    if (index == offsets_.size()) {
      offsets_.push_back(offset);
      return;
    }
    if (index > offsets_.size()) offsets_.resize(index + 1);
    offsets_[index] = offset;
  }

  /// A place to go back to.
  struct Mark {
    int count = 0;
    std::size_t offsets = 0;
  };

  [[nodiscard]] Mark Here() const noexcept { return {count_, offsets_.size()}; }

  /// Forgets every number handed out since `mark` was taken.
  void RollBack(const Mark& mark) noexcept {
    count_ = mark.count;
    offsets_.resize(std::min(mark.offsets, offsets_.size()));
  }

  /// The highest number handed out.
  [[nodiscard]] int Count() const noexcept { return count_; }

  /// Where an object starts; 0 if that was never recorded.
  [[nodiscard]] std::int64_t Offset(int number) const noexcept {
    const auto index = static_cast<std::size_t>(number);
    return index < offsets_.size() ? offsets_[index] : 0;
  }

 private:
  int highest_;
  int count_ = 0;
  std::vector<std::int64_t> offsets_;  // by object number; entry 0 is unused
};

}  // namespace vellumark::pdf
