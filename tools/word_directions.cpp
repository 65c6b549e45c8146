// SPDX-License-Identifier: MIT
#include "tools/word_directions.h"

#include <algorithm>
#include <iterator>
#include <utf8proc.h>

#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

enum class Direction { None, FromLeft, FromRight, Number };

/// That of the first letter; of the first digit if there is none.
Direction DirectionOf(const Word& word) {
  Direction found = Direction::None;
  for (const Piece& piece : word.pieces) {
    for (std::size_t at = 0; at < piece.text.size();) {
      const auto character = static_cast<utf8proc_int32_t>(NextCharacter(piece.text, at));
      switch (utf8proc_get_property(character)->bidi_class) {
        case UTF8PROC_BIDI_CLASS_L: return Direction::FromLeft;
        case UTF8PROC_BIDI_CLASS_R:
        case UTF8PROC_BIDI_CLASS_AL: return Direction::FromRight;
        case UTF8PROC_BIDI_CLASS_EN:
        case UTF8PROC_BIDI_CLASS_AN: found = Direction::Number; break;
        default: break;
      }
    }
  }
  return found;
}

}  // namespace

bool FindDirections(std::vector<Word>& words) {
  std::vector<Direction> directions;
  std::transform(words.begin(), words.end(), std::back_inserter(directions), DirectionOf);
  const auto is_letter = [](Direction one) {
    return one == Direction::FromLeft || one == Direction::FromRight;
  };
  const auto first = std::find_if(directions.begin(), directions.end(), is_letter);
  if (first == directions.end() || *first == Direction::FromLeft) return false;
  // A number behind a word from left to right belongs to it, and so do signs between two such
  // words.
  Direction before = Direction::FromRight;
  std::size_t signs = 0;  // since then
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (directions[i] == Direction::None) {
      ++signs;
      continue;
    }
    const bool number = directions[i] == Direction::Number;
    const bool from_left =
        directions[i] == Direction::FromLeft || (number && before == Direction::FromLeft);
    words[i].against_the_line = from_left || number;
    if (from_left && before == Direction::FromLeft) {
      for (std::size_t sign = i - signs; sign < i; ++sign) words[sign].against_the_line = true;
    }
    before = from_left ? Direction::FromLeft : Direction::FromRight;
    signs = 0;
  }
  return true;
}

}  // namespace vellumark::tools
