// SPDX-License-Identifier: MIT
//
// Typesetter: makes a document from texts, in Markdown or plain.
//
//     TypesetResult result;
//     Typesetter typesetter(output, measure, pictures, style, &targets);
//     typesetter.SetCoverPage(cover);
//     typesetter.SetContentsPages(headings);
//     typesetter.Typeset(source, result, progress);
//
// It decides how a document looks: sizes, spaces, indents, and what is kept together. A title stays
// with the text below it, and no page begins or ends with a single line of a paragraph. Titles
// become bookmarks, and links within the text lead to them. If the document is full,
// ObjectNumbersUsedUp is thrown, and result.line is the line that was reached.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "tools/block_setting.h"
#include "tools/cover_page.h"
#include "tools/link_targets.h"
#include "tools/markdown_tree.h"
#include "tools/picture_platform.h"
#include "tools/source.h"
#include "tools/typeset_result.h"

namespace vellumark::tools {

using Progress = std::function<void(int pages, std::size_t line)>;

class Typesetter {
 public:
  /// Opens the first page of the created document. `style` and `targets` must outlive this object;
  /// without targets there are neither bookmarks nor links within the text.
  Typesetter(OutputFormat& output, TextMeasure& measure, PicturePlatform& pictures,
             const TextStyle& style, const LinkTargets* targets);

  // Each of these sets one part behind those before it, on a page of its own.

  /// It has neither header nor footer.
  void SetCoverPage(const CoverText& cover);

  /// Returns how many pages the table takes.
  int SetContentsPages(const std::vector<PlacedHeading>& headings);

  /// The sources must be those of the targets, in their order.
  void Typeset(const Source& source, TypesetResult& result, const Progress& progress);

 private:
  void BeginPart();
  void TypesetTree(const MarkdownTree& tree, const Progress& progress);
  void Enter(NodeWalk& walk, NodeKind kind);
  void EnterList(cmark_node* list);
  void SetTitle(cmark_node* heading);
  void SetText(InlineText text);
  void SetWords(const InlineText& text);
  void SetPictures(const InlineText& text);
  void SetRule();

  /// Draws a picture; otherwise says why not.
  [[nodiscard]] bool Draw(const InlineText& text, const InlinePicture& picture,
                          const PictureSize& size, std::string& reason);

  /// The room for a picture.
  [[nodiscard]] PictureSize Box() const;

  /// The size that a picture is drawn in; nothing, with a reason, if it cannot be loaded.
  [[nodiscard]] std::optional<PictureSize> FittedSize(const std::string& file, std::string& reason);

  /// Counts what a text lacks, and makes its links lead to where they should.
  void Prepare(InlineText& text);
  void ResolveLinks(InlineText& text);
  void AddAnchors(const InlineText& text);

  /// A title as a bookmark and for the table of contents.
  void WriteBookmark(cmark_node* heading, const InlineText& text);

  [[nodiscard]] int HeightBelowTitle(cmark_node* heading);
  [[nodiscard]] cmark_node* NextShown(cmark_node* block) const;
  [[nodiscard]] int HeightOfStart(cmark_node* block);

  PicturePlatform& pictures_;
  OutputFormat& output_;
  const TextStyle& style_;
  PageWriter pages_;
  TextFlow flow_;
  BlockSetting setting_;
  const LinkTargets* targets_;
  bool begun_ = false;                       // a part was set
  TypesetResult* result_ = nullptr;          // of the source that is set
  std::size_t source_ = 0;                   // its number
  std::vector<int> open_levels_;             // of the titles around the place that was reached
  std::unordered_set<std::string> anchors_;  // of its elements: the first of a name counts
};

}  // namespace vellumark::tools
