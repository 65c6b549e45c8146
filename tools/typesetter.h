// SPDX-License-Identifier: MIT
//
// Typesetter: blocks to a document.
//
//     TypesetResult result;
//     Typesetter(output, measure, pictures, style).Typeset(blocks, result, progress);
//
// It knows how a document looks: sizes, spaces, indents, what is kept together. Titles stay with
// the text below them, a paragraph leaves no single line at the end or the beginning of a page.
// Where the document is full, ObjectNumbersUsedUp comes out, and result.line says how far it went.
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
  PageSetup page;                                           ///< its largest_size is computed
};

struct TypesetResult {
  int pages = 0;
  std::size_t line = 0;  ///< of the input, begun last
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

  /// As large as the picture is drawn; none, with a reason, where it cannot be loaded.
  [[nodiscard]] std::optional<PictureSize> FittedSize(const Block& block, std::string& reason);
  [[nodiscard]] PictureSize PictureBox(const Block& block) const;
  void LosePicture(const Block& block, const std::string& reason);

  /// Words of a block in the given faces, its missing characters counted.
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
  int space_after_ = 0;  // that the block set last asks for
};

}  // namespace vellumark::tools
