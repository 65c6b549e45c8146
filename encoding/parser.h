// SPDX-License-Identifier: MIT
//
// What both ways of parsing the input into literals and matches share: the walk over the input
// with the window behind it, and the blocks.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "encoding/block_writer.h"
#include "encoding/level_parameters.h"
#include "encoding/symbol_buffer.h"
#include "encoding/window.h"

namespace vellumark::encoding {

template <typename Finder>
class Parser {
 protected:
  Parser(std::span<const std::uint8_t> input, int level, std::string& output)
      : parameters_(kLevelParameters[static_cast<std::size_t>(level - 1)]),
        finder_(input, parameters_),
        symbols_(level >= kFirstEarlyCutLevel),
        blocks_(output) {}

  /// Moves the window if the position requires it; returns by how much positions became smaller.
  Position MoveWindow(Position position) {
    if (position < finder_.Bytes().MoveFrom()) return 0;
    finder_.MoveWindow();
    block_start_ -= Window::kStep;
    return Window::kStep;
  }

  [[nodiscard]] bool AtEnd(Position position) const { return position >= finder_.Bytes().End(); }

  /// The first position at which the window must move, or the end of the input.
  [[nodiscard]] Position StretchEnd() const {
    return static_cast<Position>(
        std::min<std::ptrdiff_t>(finder_.Bytes().End(), finder_.Bytes().MoveFrom()));
  }

  [[nodiscard]] bool HasThreeBytes(Position position) const {
    return finder_.Bytes().Holds(position, format::kMinMatch);
  }

  [[nodiscard]] std::int32_t BlockBytes(Position position) const { return position - block_start_; }

  /// Writes the symbols up to the position as a block.
  void WriteBlock(Position position, bool is_final) {
    std::optional<std::span<const std::uint8_t>> bytes;
    if (block_start_ >= 0) {
      bytes.emplace(finder_.Bytes().At(block_start_),
                    static_cast<std::size_t>(BlockBytes(position)));
    }
    blocks_.Write(symbols_, bytes, is_final);
    symbols_.Clear();
    block_start_ = position;
  }

  LevelParameters parameters_;
  Finder finder_;
  SymbolBuffer symbols_;
  BlockWriter blocks_;
  Position block_start_ = 0;  // in the window; negative once that has moved past it
};

}  // namespace vellumark::encoding
