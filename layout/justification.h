// SPDX-License-Identifier: MIT
//
// JustifyWords: where the words of one line start so that the line fills its width to the point.
//
// The caller has cut the line from a paragraph at its blanks. The spare width goes between the
// words: the same whole number of points to each gap, then one point more to the first gaps until
// nothing is left.
//
//     std::vector<Points> positions;            // kept by the caller, its storage is used again
//     JustifyWords(sums, 100, 10, Rounding::Sums, positions);
//                                               // {0, 33, 75} for words of 20, 30 and 25 points
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "layout/points.h"

namespace vellumark::layout {

/// What is rounded to whole points: the width of each word, or the sum of those up to a word.
enum class Rounding : std::uint8_t { Words, Sums };

/// `sums` are the widths of the words in 1/1000 em, each but the last with its blank, in a font of
/// `height` points. Fills `positions`, from the start of the line, and returns true. A line of one
/// word has no gap to stretch: the result is false, and its position 0. A run-time error (an
/// overflow of a position) stops the work; the result is false, and `positions` has those found so
/// far, the others being 0. Words that are wider than `width` together, which the rounding of many
/// words can make them, keep their natural positions, and the line overflows.
bool JustifyWords(std::span<const std::int32_t> sums, Points width, std::uint8_t height,
                  Rounding rounding, std::vector<Points>& positions);

}  // namespace vellumark::layout
