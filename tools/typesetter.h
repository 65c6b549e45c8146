// SPDX-License-Identifier: MIT
//
// Typesetter: makes a document from blocks.
//
//     TypesetResult result;
//     Typesetter(output, measure, pictures, style).Typeset(blocks, result, progress);
//
// It decides how a document looks: sizes, spaces, indents, and what is kept together. A title stays
// with the text below it, and no page begins or ends with a single line of a paragraph. If the
// document is full, ObjectNumbersUsedUp is thrown, and result.line is the line that was reached.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tools/markdown_blocks.h"
#include "tools/page_writer.h"

namespace vellumark::tools {

struct TextStyle {
  FontNumberConstants font = FontNumberConstants::Times;
  int size = 11;
  bool justify = true;
  EncodingConstants encoding = EncodingConstants::ASCII85;  ///< of pictures
  PageSetup page;  ///< its largest_size is ignored, and computed from `size`
};

struct TypesetResult {
  int pages = 0;
  std::size_t line = 0;  ///< of the input, where the last block begins
  std::size_t missing = 0;
  char32_t first_missing = 0;
  Place first_missing_place;
  std::vector<std::string> lost_pictures;  ///< name and reason of each
};

using Progress = std::function<void(int pages, std::size_t line)>;

class Typesetter {
 public:
  /// Opens the first page of the created document.
  Typesetter(OutputFormat& output, GlyphMeasure& measure, PicturePlatform& pictures,
             const TextStyle& style);

  void Typeset(const std::vector<Block>& blocks, TypesetResult& result, const Progress& progress);

 private:
  void SetTitle(const std::vector<Block>& blocks, std::size_t index);
  void SetParagraph(const Block& block);
  void SetCode(const Block& block);
  void SetRule(const Block& block);
  void SetPicture(const Block& block);

  /// The size that the picture is drawn in; nothing, with a reason, if it cannot be loaded.
  [[nodiscard]] std::optional<PictureSize> FittedSize(const Block& block, std::string& reason);
  [[nodiscard]] PictureSize PictureBox(const Block& block) const;
  void LosePicture(const Block& block, const std::string& reason);

  /// The words of a block in the given faces. Counts its missing characters.
  [[nodiscard]] std::vector<Word> Words(const Block& block, const InlineText& text,
                                        const BlockFaces& faces);
  [[nodiscard]] std::vector<GlyphRun> CodeRows(const Block& block, std::size_t columns);
  void CountMissing(const Block& block, const char* where, char32_t character);
  void WriteMarker(const Block& block, int indent);
  void Space(int before);
  void Make(int height);

  [[nodiscard]] int Indent(const Block& block) const;
  [[nodiscard]] int SpaceBefore(const Block& block) const;
  [[nodiscard]] BlockFaces TitleFaces(int level) const;
  [[nodiscard]] BlockFaces TextFaces() const;
  [[nodiscard]] int HeightBelowTitle(const std::vector<Block>& blocks, std::size_t index);

  GlyphMeasure& measure_;
  PicturePlatform& pictures_;
  OutputFormat& output_;
  TextStyle style_;
  PageWriter pages_;
  TypesetResult* result_ = nullptr;
  int space_after_ = 0;  // below the last block
};

}  // namespace vellumark::tools
