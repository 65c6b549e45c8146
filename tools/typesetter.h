// SPDX-License-Identifier: MIT
//
// Typesetter: makes a document from texts, in Markdown or plain.
//
//     TypesetResult result;
//     Typesetter typesetter(output, measure, pictures, style);
//     typesetter.Typeset(source, result, progress);
//
// It decides how a document looks: sizes, spaces, indents, and what is kept together. A title stays
// with the text below it, and no page begins or ends with a single line of a paragraph. If the
// document is full, ObjectNumbersUsedUp is thrown, and result.line is the line that was reached.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "tools/block_setting.h"
#include "tools/markdown_tree.h"
#include "tools/picture_platform.h"
#include "tools/source.h"
#include "tools/typeset_result.h"

namespace vellumark::tools {

using Progress = std::function<void(int pages, std::size_t line)>;

class Typesetter {
 public:
  /// Opens the first page of the created document. `style` must outlive this object.
  Typesetter(OutputFormat& output, TextMeasure& measure, PicturePlatform& pictures,
             const TextStyle& style);

  /// Sets one input behind those before it, on a page of its own.
  void Typeset(const Source& source, TypesetResult& result, const Progress& progress);

 private:
  void TypesetTree(const MarkdownTree& tree, const Progress& progress);
  void Enter(NodeWalk& walk, NodeKind kind);
  void EnterList(cmark_node* list);
  void SetTitle(cmark_node* heading);
  void SetText(const InlineText& text);
  void SetWords(const InlineText& text);
  void SetPictures(const InlineText& text);
  void SetRule();

  /// Draws a picture; otherwise says why not.
  [[nodiscard]] bool Draw(const InlinePicture& picture, const PictureSize& size,
                          std::string& reason);

  /// The room for a picture.
  [[nodiscard]] PictureSize Box() const;

  /// The size that a picture is drawn in; nothing, with a reason, if it cannot be loaded.
  [[nodiscard]] std::optional<PictureSize> FittedSize(const std::string& file, std::string& reason);

  /// Counts what a text lacks.
  void Note(const InlineText& text);

  [[nodiscard]] int HeightBelowTitle(cmark_node* heading);

  PicturePlatform& pictures_;
  OutputFormat& output_;
  const TextStyle& style_;
  PageWriter pages_;
  TextFlow flow_;
  BlockSetting setting_;
  TypesetResult* result_ = nullptr;  // of the source that is set
};

}  // namespace vellumark::tools
