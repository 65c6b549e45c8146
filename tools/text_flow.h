// SPDX-License-Identifier: MIT
//
// TextFlow: where the next block goes: between which edges, how far below the last one, on which
// page.
//
//     flow.EnterQuote();
//     flow.BeginBlock(flow.ParagraphSpace());
//     flow.Make(pitch);                         // on the next page if there is no room for a line
//     flow.WriteMarker();                       // of a list item that begins with this line
//     pages.WriteLine(line, links, flow.left(), size);
//     pages.Advance(pitch);
//     flow.Leave();
//
// It knows the quotes, lists and items around the block. A quote gets a bar at its left edge, on
// every page that it is on. However deep they are nested, half of the width is left for text.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tools/page_writer.h"
#include "tools/text_style.h"

namespace vellumark::tools {

struct ListLook {
  bool tight = true;
  bool ordered = false;
  int first_number = 1;
  int last_number = 1;
  char delimiter = '.';  ///< behind a number
};

enum class TaskBox { None, Open, Checked };

class TextFlow {
 public:
  TextFlow(PageWriter& pages, TextMeasure& measure, const TextStyle& style)
      : pages_(pages), measure_(measure), style_(style) {}

  [[nodiscard]] int left() const { return containers_.empty() ? 0 : containers_.back().left; }
  [[nodiscard]] int width() const { return pages_.width() - left(); }

  void EnterQuote();
  void EnterList(const ListLook& look);
  void EnterItem(TaskBox box);

  /// Leaves the innermost of them. An item without content gets a line for its marker.
  void Leave();

  /// The space above a paragraph here: less in a tight list.
  [[nodiscard]] int SpaceOfParagraph() const;

  /// Leaves `above` points, or what the block before wants below itself, if that is more.
  void BeginBlock(int above);

  /// What the block wants below itself.
  void EndBlock(int below) { space_after_ = below; }

  /// Starts a new page if less than `height` is left on this one.
  void Make(int height);
  void NewPage();

  /// Names the place where the next line will be.
  void AddAnchor(std::string name) { anchors_.push_back(std::move(name)); }

  /// Writes the markers of the items whose first line is at the current position, and the anchors.
  void WriteMarker();
  void WriteAnchors();

 private:
  enum class Kind { Quote, List, Item };

  struct Container {
    Kind kind = Kind::Quote;
    int left = 0;              // of the text in it
    bool has_content = false;  // a block was begun in it
    ListLook list;             // of a list; first_number is the next one
    int bar_top = 0;           // of a quote, on this page
  };

  [[nodiscard]] Container Nested(Kind kind, int indent) const;
  [[nodiscard]] std::string NumberText(const ListLook& look, int number) const;
  [[nodiscard]] int WidthOf(const std::string& text);
  void NoteContent();
  void DrawBar(const Container& quote);
  void DrawBox(TaskBox box, int right);

  PageWriter& pages_;
  TextMeasure& measure_;
  const TextStyle& style_;
  std::vector<Container> containers_;
  std::size_t list_depth_ = 0;
  int space_after_ = 0;

  struct Marker {
    TaskBox box = TaskBox::None;
    std::string text;  // if there is no box
    int right = 0;
  };
  std::vector<Marker> markers_;  // of the items that begin with the next line
  std::vector<std::string> anchors_;
};

}  // namespace vellumark::tools
