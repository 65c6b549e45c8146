// SPDX-License-Identifier: MIT
#include "tools/markdown_inline.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <optional>
#include <utility>

#include "tools/inline_links.h"
#include "tools/inline_tokens.h"

namespace vellumark::tools {
namespace {

constexpr std::string_view kEscapable = "*_`[]<>#";

bool IsBlank(char c) { return c == ' ' || c == '\n'; }
bool IsPunctuation(char c) { return std::ispunct(static_cast<unsigned char>(c)) != 0; }
bool IsAlphanumeric(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

std::size_t RunLength(std::string_view text, std::size_t at) {
  return std::min(text.find_first_not_of(text[at], at), text.size()) - at;
}

/// Where the runs of backticks stand, by length: which of them end a code span is then one look.
class BacktickRuns {
 public:
  explicit BacktickRuns(std::string_view text) {
    for (std::size_t at = text.find('`'); at < text.size(); at = text.find('`', at)) {
      const std::size_t length = RunLength(text, at);
      starts_[length].push_back(at);
      at += length;
    }
  }

  [[nodiscard]] std::optional<std::size_t> Next(std::size_t length, std::size_t from) const {
    const auto runs = starts_.find(length);
    if (runs == starts_.end()) return std::nullopt;
    const auto next = std::lower_bound(runs->second.begin(), runs->second.end(), from);
    return next == runs->second.end() ? std::nullopt : std::optional(*next);
  }

 private:
  std::map<std::size_t, std::vector<std::size_t>> starts_;
};

/// Cuts a text into tokens. The label of a link is cut by a cutter of its own, in which no further
/// link is looked for.
class TokenCutter {
 public:
  TokenCutter(std::string_view text, std::vector<std::string>& links, Span look)
      : text_(text), links_(links), look_(look), backticks_(text) {}

  std::vector<InlineToken> Cut() {
    while (at_ < text_.size()) {
      if (!TakeSpecial()) ++at_;
    }
    FlushPlain(at_);
    return std::move(tokens_);
  }

 private:
  bool TakeSpecial() {
    switch (text_[at_]) {
      case '\\': return TakeEscape();
      case '`': return TakeCode();
      case '*':
      case '_': return TakeDelimiter();
      case '[': return TakeLabelled(FindLinkAt(at_));
      case '!': return TakeImage();
      case '<': return Take(look_.link == 0 ? FindBracketedAddress(text_, at_) : std::nullopt);
      case 'h':
      case 'm': return TakeBareAddress();
      default: return false;
    }
  }

  /// Ends the plain piece in front of `at_` and goes on at `next`.
  void FlushPlain(std::size_t next) {
    if (at_ > plain_) Emit(text_.substr(plain_, at_ - plain_));
    at_ = plain_ = next;
  }

  void Emit(std::string_view piece) {
    InlineToken token{.span = look_};
    token.span.text = piece;
    tokens_.push_back(token);
  }

  bool TakeEscape() {
    const bool escapes =
        at_ + 1 < text_.size() && kEscapable.find(text_[at_ + 1]) != std::string_view::npos;
    if (!escapes) return false;
    FlushPlain(at_ + 1);
    ++at_;  // what was escaped is plain
    return true;
  }

  bool TakeCode() {
    const std::size_t length = RunLength(text_, at_);
    const auto end = backticks_.Next(length, at_ + length);
    if (!end) {
      at_ += length;
      return true;
    }
    std::string_view code = text_.substr(at_ + length, *end - at_ - length);
    const bool padded = code.size() > 1 && IsBlank(code.front()) && IsBlank(code.back()) &&
                        !std::all_of(code.begin(), code.end(), IsBlank);
    if (padded) code = code.substr(1, code.size() - 2);
    FlushPlain(*end + length);
    Emit(code);
    tokens_.back().span.code = true;
    return true;
  }

  /// One or two marks are a delimiter, three are both; more are plain.
  bool TakeDelimiter() {
    const std::size_t length = RunLength(text_, at_);
    const char before = at_ == 0 ? ' ' : text_[at_ - 1];
    const char behind = at_ + length < text_.size() ? text_[at_ + length] : ' ';
    const bool word = text_[at_] == '_';
    const bool left = !IsBlank(behind) && (!IsPunctuation(behind) || !IsAlphanumeric(before));
    const bool right = !IsBlank(before) && (!IsPunctuation(before) || !IsAlphanumeric(behind));
    InlineToken token{.span = look_, .mark = text_[at_]};
    token.can_open = left && (!word || IsBlank(before) || IsPunctuation(before));
    token.can_close = right && (!word || IsBlank(behind) || IsPunctuation(behind));
    if (length > 3 || (!token.can_open && !token.can_close)) {
      at_ += length;
      return true;
    }
    const std::size_t start = at_;
    FlushPlain(at_ + length);
    // "***" opens bold, then italic, and closes them the other way round.
    const std::size_t first = length < 3 ? length : (token.can_close ? 1 : 2);
    token.span.text = text_.substr(start, first);
    tokens_.push_back(token);
    if (first == length) return true;
    token.span.text = text_.substr(start + first, length - first);
    tokens_.push_back(token);
    return true;
  }

  [[nodiscard]] std::optional<FoundLink> FindLinkAt(std::size_t at) const {
    return look_.link == 0 ? FindLink(text_, at) : std::nullopt;
  }

  bool TakeImage() {
    if (at_ + 1 >= text_.size() || text_[at_ + 1] != '[') return false;
    const auto image = FindLink(text_, at_ + 1);
    if (!image) return false;
    FlushPlain(image->end);
    Emit(image->label);
    tokens_.back().span.italic = true;
    return true;
  }

  /// A link whose label may contain marks itself.
  bool TakeLabelled(const std::optional<FoundLink>& link) {
    if (!link) return false;
    FlushPlain(link->end);
    Span look = look_;
    if (!link->address.empty()) {
      links_.push_back(link->address);
      look.link = links_.size();
    }
    const std::vector<InlineToken> label = TokenCutter(link->label, links_, look).Cut();
    tokens_.insert(tokens_.end(), label.begin(), label.end());
    return true;
  }

  /// An address that is its own label.
  bool Take(const std::optional<FoundLink>& link) {
    if (!link) return false;
    FlushPlain(link->end);
    links_.push_back(link->address);
    Emit(link->label);
    tokens_.back().span.link = links_.size();
    return true;
  }

  bool TakeBareAddress() {
    const bool starts_word = at_ == 0 || !IsAlphanumeric(text_[at_ - 1]);
    return look_.link == 0 && starts_word && Take(FindBareAddress(text_, at_));
  }

  std::string_view text_;
  std::vector<std::string>& links_;
  Span look_;  // of everything in this text
  BacktickRuns backticks_;
  std::size_t at_ = 0;
  std::size_t plain_ = 0;  // where the present plain piece began
  std::vector<InlineToken> tokens_;
};

}  // namespace

InlineText ParseInline(std::string_view text) {
  InlineText result;
  result.spans = ResolveEmphasis(TokenCutter(text, result.links, {}).Cut());
  return result;
}

std::string PlainText(const InlineText& text) {
  std::string plain;
  for (const Span& span : text.spans) plain += span.text;
  std::replace(plain.begin(), plain.end(), '\n', ' ');
  return plain;
}

}  // namespace vellumark::tools
