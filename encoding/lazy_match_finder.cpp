// SPDX-License-Identifier: MIT
#include "encoding/lazy_match_finder.h"

namespace vellumark::encoding {

void LazyMatchFinder::Insert(Position first, Position end) {
  if (!window_.Holds(end, 3)) end = static_cast<Position>(window_.End()) - 3;
  while (first < end) {
    InsertOne(first);
    ++first;
    if (first + 8 <= end && IsRun(first)) first = InsertRun(first, end);
  }
}

// Whether the eight bytes at the position and the one before it are all equal.
bool LazyMatchFinder::IsRun(Position position) const {
  return LoadLittleEndian<std::uint64_t>(window_.At(position)) ==
         LoadLittleEndian<std::uint64_t>(window_.At(position - 1));
}

// All strings in a run of equal bytes have the same hashes, so each position is linked to the one
// before it. Returns the position behind those inserted.
Position LazyMatchFinder::InsertRun(Position first, Position end) {
  const std::uint8_t* const at = window_.At(first);
  const auto bytes = LoadLittleEndian<std::uint32_t>(at);
  // The last three bytes of the run begin other strings.
  const Position run_end = first + CountEqualBytes(at, at - 1, end - first + 3) - 3;
  std::uint32_t ordinal = links_[Window::RingIndex(first - 1)].Ordinal();
  for (Position position = first; position < run_end; ++position) {
    links_[Window::RingIndex(position)] = {1, ++ordinal};
  }
  chain_.InsertRun(first, run_end, HashChain::Hash(bytes));
  newest_of_four_[Hash(bytes)] = static_cast<std::uint16_t>(run_end - 1);
  return run_end;
}

// The plain walk: for the last bytes of the input, for a first candidate at the very limit, and if
// most positions of the second chain are there only by a hash collision.
Match LazyMatchFinder::FindOnFirstChain(Position position, Position newest,
                                        std::int32_t best_length) const {
  if (newest == kNoPosition || position - newest > Window::kGreatestDistance) {
    return {format::kMinMatch - 1, kNoPosition};
  }
  Match match = chain_.Longest(window_, position, newest, best_length,
                               LimitsAt(position, window_, parameters_, best_length));
  if (match.length == format::kMinMatch && position - match.start > kFarForThreeBytes) {
    match.length = format::kMinMatch - 1;
  }
  return match;
}

Match LazyMatchFinder::FindNearEnd(Position position, std::int32_t best_length) {
  if (window_.Holds(position, 4)) {
    return FindOnFirstChain(position, InsertOne(position), best_length);
  }
  const std::uint8_t* const at = window_.At(position);
  return FindOnFirstChain(position, chain_.Insert(position, HashChain::Hash(at[0], at[1], at[2])),
                          best_length);
}

void LazyMatchFinder::MoveWindow() {
  chain_.Rebase();
  for (std::uint16_t& position : newest_of_four_) position = Window::RebasedPosition(position);
  window_.Move();
}

}  // namespace vellumark::encoding
