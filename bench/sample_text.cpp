// SPDX-License-Identifier: MIT
#include "bench/sample_text.h"

#include <cstdint>
#include <cstring>

namespace vellumark::bench {
namespace {

constexpr std::size_t kShortestLine = 66;
constexpr int kWordsPerParagraph = 200;

// Five letters on average and nine at most, as in a letter or a manual.
constexpr std::array<std::string_view, 40> kWords = {
    "a",      "account",  "and",   "answer", "at",        "between", "by",      "copy",
    "date",   "delivery", "each",  "every",  "figure",    "for",     "from",    "have",
    "in",     "is",       "it",    "letter", "line",      "margin",  "month",   "number",
    "of",     "on",       "order", "page",   "paragraph", "please",  "printed", "report",
    "sample", "table",    "text",  "that",   "the",       "this",    "width",   "year"};

/// Words in an order without an obvious pattern.
class WordSource {
 public:
  std::string_view Next() {
    state_ = state_ * 1664525U + 1013904223U;
    return kWords[(state_ >> 16U) % kWords.size()];
  }

 private:
  std::uint32_t state_ = 1;
};

}  // namespace

template <std::size_t kSize>
void SampleText::Text<kSize>::AddWord(std::string_view word) {
  if (size > 0) bytes[size++] = ' ';
  std::memcpy(&bytes[size], word.data(), word.size());
  size += word.size();
}

SampleText::SampleText() {
  WordSource words;
  for (auto& line : lines_) {
    while (line.size < kShortestLine) line.AddWord(words.Next());
  }
  for (auto& paragraph : paragraphs_) {
    for (int i = 0; i < kWordsPerParagraph; ++i) paragraph.AddWord(words.Next());
  }
}

}  // namespace vellumark::bench
