// SPDX-License-Identifier: MIT
//
// SampleText: the words of the sample documents, the same in every run.
//
// The constructor makes all of them, so that a measured loop only reads. There is no limit on the
// number of a line or paragraph; they repeat:
//
//     const SampleText text;
//     text.Line(0)         // about 70 characters: "document margin a page ..."
//     text.Paragraph(7)    // 200 words
//
// The words are plain arrays, so that a process that measures another library need not load ours
// (see writer_alone.cpp).
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace vellumark::bench {

class SampleText {
 public:
  SampleText();

  /// 66 to 74 ASCII characters, with a zero byte behind the last one.
  [[nodiscard]] std::string_view Line(int number) const {
    return lines_[static_cast<std::size_t>(number) % lines_.size()].View();
  }

  /// 200 words, with a zero byte behind the last one.
  [[nodiscard]] std::string_view Paragraph(int number) const {
    return paragraphs_[static_cast<std::size_t>(number) % paragraphs_.size()].View();
  }

 private:
  template <std::size_t kSize>
  struct Text {
    std::array<char, kSize> bytes{};
    std::size_t size = 0;

    [[nodiscard]] std::string_view View() const { return {bytes.data(), size}; }
    void AddWord(std::string_view word);
  };

  std::array<Text<80>, 64> lines_;
  std::array<Text<2048>, 16> paragraphs_;
};

}  // namespace vellumark::bench
