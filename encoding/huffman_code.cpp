// SPDX-License-Identifier: MIT
#include "encoding/huffman_code.h"

#include <algorithm>
#include <utility>

namespace vellumark::encoding {
namespace {

constexpr std::size_t kMaxSymbols = format::kLiteralLengthCodes;
constexpr std::size_t kMaxNodes = 2 * kMaxSymbols - 1;

// A node waiting to be joined: frequency, depth and number in one word, so that one comparison
// without the number gives the order of the heap: smaller frequency first, then smaller depth.
class Node {
 public:
  Node() = default;
  Node(std::uint32_t frequency, std::uint32_t depth, std::uint32_t number)
      : word_(static_cast<std::uint64_t>(frequency) << 32 | depth << 16 | number) {}

  [[nodiscard]] std::uint32_t Number() const { return word_ & 0xFFFFU; }
  [[nodiscard]] bool TakenBefore(Node other) const { return word_ >> 16 <= other.word_ >> 16; }

  static Node Last() { return {UINT32_MAX, 0, 0}; }
  static Node Join(Node a, Node b, std::uint32_t number) {
    return {a.Frequency() + b.Frequency(), std::max(a.Depth(), b.Depth()) + 1, number};
  }

 private:
  [[nodiscard]] std::uint32_t Frequency() const { return static_cast<std::uint32_t>(word_ >> 32); }
  [[nodiscard]] std::uint32_t Depth() const { return word_ >> 16 & 0xFFFFU; }

  std::uint64_t word_;
};

// The least node is in slot 1; the children of slot k are in slots 2k and 2k + 1. Behind the last
// node is one that is never taken, so that every node has two children to compare.
class Heap {
 public:
  void Append(Node node) {
    slots_[++size_] = node;
    slots_[size_ + 1] = Node::Last();
  }
  void Order() {
    for (std::size_t slot = size_ / 2; slot >= 1; --slot) SiftDown(slot, slots_[slot]);
  }
  [[nodiscard]] std::size_t Size() const { return size_; }
  [[nodiscard]] Node Least() const { return slots_[1]; }
  void ReplaceLeast(Node node) { SiftDown(1, node); }
  void RemoveLeast() {
    const Node last = slots_[size_];
    slots_[size_--] = Node::Last();
    SiftDown(1, last);
  }

 private:
  void SiftDown(std::size_t slot, Node node) {
    for (std::size_t child = 2 * slot; child <= size_; child = 2 * slot) {
      child += slots_[child + 1].TakenBefore(slots_[child]) ? 1 : 0;
      if (node.TakenBefore(slots_[child])) break;
      slots_[slot] = slots_[child];
      slot = child;
    }
    slots_[slot] = node;
  }

  std::size_t size_ = 0;
  std::array<Node, kMaxSymbols + 2> slots_;
};

// Builds one tree: leaves are numbered by their symbols, joined nodes upwards from the number of
// symbols, and the order in which nodes were taken from the heap is kept.
class Tree {
 public:
  Tree(std::span<const std::uint16_t> frequencies, int max_length)
      : symbols_(frequencies.size()), max_length_(static_cast<std::size_t>(max_length)) {
    CollectLeaves(frequencies);
    JoinAll();
    MeasureDepths();
  }

  [[nodiscard]] int HighestSymbol() const { return highest_; }

  void StoreLengths(std::span<HuffmanCode> codes) {
    std::fill(codes.begin(), codes.end(), HuffmanCode{});
    if (overflow_ > 0) {
      RepairCounts();
      StoreByCounts(codes);
      return;
    }
    for (const std::uint16_t node : Taken()) {
      if (IsLeaf(node)) codes[node].length = lengths_[node];
    }
  }

 private:
  [[nodiscard]] bool IsLeaf(std::uint16_t node) const { return node < symbols_; }
  [[nodiscard]] std::span<const std::uint16_t> Taken() const {
    return {taken_.data(), taken_count_};
  }

  // A code needs two symbols. The second one is the one after the only symbol if that is 0 or 1,
  // else symbol 0.
  void CollectLeaves(std::span<const std::uint16_t> frequencies) {
    for (std::uint32_t symbol = 0; symbol < symbols_; ++symbol) {
      if (frequencies[symbol] == 0) continue;
      heap_.Append({frequencies[symbol], 0, symbol});
      highest_ = static_cast<int>(symbol);
    }
    while (heap_.Size() < 2) {
      const int added = highest_ < 2 ? ++highest_ : 0;
      heap_.Append({1, 0, static_cast<std::uint32_t>(added)});
    }
  }

  void JoinAll() {
    heap_.Order();
    auto number = static_cast<std::uint16_t>(symbols_);
    while (heap_.Size() >= 2) {
      const Node first = heap_.Least();
      heap_.RemoveLeast();
      const Node second = heap_.Least();
      for (const Node node : {first, second}) {
        taken_[taken_count_++] = static_cast<std::uint16_t>(node.Number());
        parents_[node.Number()] = number;
      }
      heap_.ReplaceLeast(Node::Join(first, second, number));
      root_ = number++;
    }
  }

  // From the root down, each node one below its parent, cut at the greatest length.
  void MeasureDepths() {
    lengths_[root_] = 0;
    for (std::size_t i = taken_count_; i-- > 0;) {
      const std::uint16_t node = taken_[i];
      std::size_t length = lengths_[parents_[node]] + 1U;
      if (length > max_length_) {
        length = max_length_;
        ++overflow_;
      }
      lengths_[node] = static_cast<std::uint16_t>(length);
      if (IsLeaf(node)) ++counts_[length];
    }
  }

  // Makes the code complete again: a leaf of the deepest level above the last moves one level down
  // and becomes the sibling of a leaf that was cut. A subtree cut away with k leaves had 2k - 2
  // nodes below the limit, and needs k - 1 such moves.
  void RepairCounts() {
    for (; overflow_ > 0; overflow_ -= 2) {
      std::size_t level = max_length_ - 1;
      while (counts_[level] == 0) --level;
      --counts_[level];
      counts_[level + 1] += 2;
      --counts_[max_length_];
    }
  }

  // The longest codes go to the leaves that were taken first, which are the rarest.
  void StoreByCounts(std::span<HuffmanCode> codes) {
    std::size_t length = max_length_;
    for (const std::uint16_t node : Taken()) {
      if (!IsLeaf(node)) continue;
      while (counts_[length] == 0) --length;
      --counts_[length];
      codes[node].length = static_cast<std::uint16_t>(length);
    }
  }

  std::size_t symbols_;
  std::size_t max_length_;
  int highest_ = -1;
  int overflow_ = 0;
  std::uint16_t root_ = 0;
  Heap heap_;
  std::size_t taken_count_ = 0;
  std::array<std::uint16_t, kMaxNodes> taken_;
  std::array<std::uint16_t, kMaxNodes> parents_;
  std::array<std::uint16_t, kMaxNodes> lengths_;
  std::array<std::uint16_t, format::kMaxCodeLength + 1> counts_{};
};

}  // namespace

std::size_t BuildCodeLengths(std::span<const std::uint16_t> frequencies, int max_length,
                             std::span<HuffmanCode> codes) {
  Tree tree(frequencies, max_length);
  tree.StoreLengths(codes);
  return static_cast<std::size_t>(tree.HighestSymbol()) + 1;
}

}  // namespace vellumark::encoding
