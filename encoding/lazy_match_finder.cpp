// SPDX-License-Identifier: MIT
#include "encoding/lazy_match_finder.h"

namespace vellumark::encoding {

void LazyMatchFinder::Insert(std::uint32_t first, std::uint32_t end) {
  const std::uint32_t end_of_fours =
      window_.Holds(end, 3) ? end : std::min(end, static_cast<std::uint32_t>(window_.End()) - 3);
  while (first < end_of_fours) {
    InsertOne(first);
    ++first;
    if (first + 8 <= end_of_fours && IsRun(first)) first = InsertRun(first, end_of_fours);
  }
  for (; first < end; ++first) {
    const std::uint8_t* const at = window_.At(first);
    chain_.Insert(first, HashChain::Hash(at[0], at[1], at[2]));
  }
}

// Whether the eight bytes at the position and the one before it are all equal.
bool LazyMatchFinder::IsRun(std::uint32_t position) const {
  return LoadLittleEndian<std::uint64_t>(window_.At(position)) ==
         LoadLittleEndian<std::uint64_t>(window_.At(position - 1));
}

// All strings in a run of equal bytes have the same hashes, so each position's link is to the one
// before it. Returns the position behind those inserted.
std::uint32_t LazyMatchFinder::InsertRun(std::uint32_t first, std::uint32_t end) {
  const std::uint8_t* const at = window_.At(first);
  const auto bytes = LoadLittleEndian<std::uint32_t>(at);
  const std::uint32_t count =
      CountEqualBytes(at, at - 1, end - first + 3) - 3;  // the last three begin other strings
  std::uint32_t ordinal = links_[(first - 1) % Window::kStep].ordinal;
  for (std::uint32_t position = first; position < first + count; ++position) {
    links_[position % Window::kStep] = {static_cast<std::uint16_t>(position - 1),
                                        static_cast<std::uint16_t>(++ordinal)};
  }
  chain_.InsertRun(first, count, HashChain::Hash(bytes));
  newest_of_four_[Hash(bytes)] = static_cast<std::uint16_t>(first + count - 1);
  return first + count;
}

// The plain walk: for the last bytes of the input, for a first candidate at the very limit, and
// where the second chain is full of strangers.
Match LazyMatchFinder::FindOnFirstChain(std::uint32_t position, std::uint32_t newest,
                                        std::uint32_t best_length) {
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

Match LazyMatchFinder::FindNearEnd(std::uint32_t position, std::uint32_t best_length) {
  if (window_.Holds(position, 4)) {
    return FindOnFirstChain(position, InsertOne(position), best_length);
  }
  const std::uint8_t* const at = window_.At(position);
  return FindOnFirstChain(position, chain_.Insert(position, HashChain::Hash(at[0], at[1], at[2])),
                          best_length);
}

void LazyMatchFinder::MoveWindow() {
  chain_.Rebase();
  for (std::uint16_t& position : newest_of_four_) {
    position = static_cast<std::uint16_t>(Window::RebasedPosition(position));
  }
  for (Link& link : links_) {
    link.previous = static_cast<std::uint16_t>(Window::RebasedPosition(link.previous));
  }
  window_.Move();
}

}  // namespace vellumark::encoding
