// SPDX-License-Identifier: MIT
//
// Source: one input of a document, as it was read.
//
//     const Source source = ReadSource("notes.md", TextKind::ByName);
//     for (std::size_t i = 0; i < source.Trees(); ++i) Typeset(*source.Tree(i));
//     if (!source.markdown) ...                    // it is set as it stands
//
// What kind of text an input is follows from its name unless the user says it: .txt, .log, .diff
// and .patch are plain, and so is standard input; everything else is Markdown.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "tools/markdown_parts.h"
#include "tools/source_place.h"

namespace vellumark::tools {

enum class TextKind { ByName, Plain, Markdown };

struct Source {
  std::string name;  ///< a file name, or "-" for standard input
  std::string text;
  std::optional<MarkdownParts> markdown;  ///< nothing for a plain text

  /// The trees of a text in Markdown, one behind the other; a plain text has none.
  [[nodiscard]] std::size_t Trees() const { return markdown ? markdown->Count() : 0; }
  [[nodiscard]] std::shared_ptr<const MarkdownTree> Tree(std::size_t number) const {
    return markdown->Tree(number, text);
  }

  /// The folder that relative names of pictures start from.
  [[nodiscard]] std::filesystem::path Folder() const;

  /// The first title in the text, or the file's name if it is plain.
  [[nodiscard]] std::string Title() const;

  /// The first place of a character in what is shown of the text; nothing if it is not there.
  [[nodiscard]] std::optional<Place> PlaceOf(char32_t character) const;
};

/// Throws Failure as ReadInput does.
[[nodiscard]] Source ReadSource(const std::string& name, TextKind kind);

}  // namespace vellumark::tools
