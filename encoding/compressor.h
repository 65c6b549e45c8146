// SPDX-License-Identifier: MIT
//
// Parses the input into literals and matches and hands them to the block writer, block by block.
//
// The greedy method (levels 1 to 3) takes the match that it finds. The lazy method (levels 4 to 9)
// first looks whether the next position has a longer one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "encoding/block_writer.h"
#include "encoding/level_parameters.h"
#include "encoding/match_finder.h"
#include "encoding/symbol_buffer.h"

namespace vellumark::encoding {

class Compressor {
 public:
  /// Appends to `output`. `level` is 1 to 9.
  Compressor(std::span<const std::uint8_t> input, int level, std::string& output)
      : level_(level),
        parameters_(kLevelParameters[static_cast<std::size_t>(level - 1)]),
        finder_(input, parameters_),
        symbols_(level >= kFirstEarlyCutLevel),
        blocks_(output) {}

  /// Compresses the whole input.
  void Run();

 private:
  static constexpr int kFirstEarlyCutLevel = 3;
  // A match of three bytes from farther away costs more than three literals, mostly.
  static constexpr std::uint32_t kFarForThreeBytes = 4096;

  void RunGreedy();
  void RunLazy();

  /// Slides the window if the position asks for it. False at the end of the input.
  bool PrepareStep();
  /// Steps from positions below this need no PrepareStep.
  [[nodiscard]] std::uint32_t StepLimit() const;
  [[nodiscard]] bool HasThreeBytes(std::uint32_t position) const {
    return position + format::kMinMatch <= finder_.End();
  }

  void TakeMatch(Match match);
  std::uint32_t FindCandidate() {
    return HasThreeBytes(position_) ? finder_.Insert(position_) : MatchFinder::kNone;
  }
  void InsertUpTo(std::uint32_t first, std::uint32_t end);
  [[nodiscard]] std::int32_t BlockBytes() const {
    return static_cast<std::int32_t>(position_) - block_start_;
  }
  void WriteBlock(bool is_final);

  int level_;
  LevelParameters parameters_;
  MatchFinder finder_;
  SymbolBuffer symbols_;
  BlockWriter blocks_;
  std::uint32_t position_ = 0;
  std::int32_t block_start_ = 0;             // negative once the window has moved past it
  Match current_ = {2, MatchFinder::kNone};  // lazy: the match found at the last position
};

}  // namespace vellumark::encoding
