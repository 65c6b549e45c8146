// SPDX-License-Identifier: MIT
#include "tools/markdown_parser.h"

#include <algorithm>
#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm/parser.h>
#include <cstdio>
#include <cstdlib>
#include <unordered_set>
#include <vector>

namespace vellumark::tools {
namespace {

/// The parser would call abort.
void* Checked(void* memory) {
  if (memory != nullptr) return memory;
  static_cast<void>(std::fputs("vellumark: out of memory\n", stderr));
  std::_Exit(2);
}

void* Allocate(std::size_t count, std::size_t size) { return Checked(std::calloc(count, size)); }
void* Reallocate(void* memory, std::size_t size) { return Checked(std::realloc(memory, size)); }

cmark_mem* Memory() {
  static cmark_mem memory = {&Allocate, &Reallocate, &std::free};
  return &memory;
}

/// The address of a definition, so that reading it gives these bytes back.
void AppendAddress(std::string_view address, std::string& text) {
  text += '<';
  for (const char c : address) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = byte >= 0x80 || byte == ' ' || (byte >= '0' && byte <= '9') ||
                       (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    if (byte < ' ' || byte == 0x7F) {
      text.append("&#").append(std::to_string(byte)).append(";");
      continue;
    }
    if (!plain) text += '\\';
    text += c;
  }
  text += '>';
}

}  // namespace

MarkdownParser::MarkdownParser() {
  cmark_gfm_core_extensions_ensure_registered();
  parser_.reset(cmark_parser_new_with_mem(CMARK_OPT_DEFAULT, Memory()));
  for (const char* const name : {"table", "strikethrough", "tasklist", "autolink"}) {
    cmark_parser_attach_syntax_extension(parser_.get(), cmark_find_syntax_extension(name));
  }
}

void MarkdownParser::CountFrom(std::size_t lines) {
  parser_->line_number = static_cast<int>(lines);
}

cmark_node* MarkdownParser::LastBlock() const { return cmark_node_last_child(parser_->root); }

void MarkdownParser::ForgetBlocks() {
  cmark_node* const last = LastBlock();
  cmark_node* const kept = last != nullptr ? cmark_node_previous(last) : nullptr;
  if (kept == nullptr) return;
  while (cmark_node* const block = cmark_node_previous(kept)) cmark_node_free(block);
}

std::string MarkdownParser::Definitions() const {
  // The newest is the first of the list, but the oldest of a label holds.
  std::vector<const cmark_reference*> found;
  for (const cmark_map_entry* entry = parser_->refmap->refs; entry != nullptr;
       entry = entry->next) {
    found.push_back(reinterpret_cast<const cmark_reference*>(entry));
  }
  std::reverse(found.begin(), found.end());
  std::string text;
  std::unordered_set<std::string_view> labels;
  for (const cmark_reference* const reference : found) {
    const std::string_view label = reinterpret_cast<const char*>(reference->entry.label);
    if (!labels.insert(label).second) continue;
    text.append("[").append(label).append("]: ");
    AppendAddress({reinterpret_cast<const char*>(reference->url.data),
                   static_cast<std::size_t>(reference->url.len)},
                  text);
    text += '\n';
  }
  return text;
}

}  // namespace vellumark::tools
