// SPDX-License-Identifier: MIT
#include <array>

#include "tools/inline_tokens.h"

namespace vellumark::tools {
namespace {

enum class Role : char { Plain, Opens, Closes };

/// The openers that wait for their counterpart, one stack per kind, so that looking for one takes
/// no time, however many others wait.
class WaitingOpeners {
 public:
  void Push(const InlineToken& token, std::size_t index) { StackOf(token).push_back(index); }

  /// Takes the latest opener that `closer` matches, and those behind it, which are crossed.
  bool TakeMatch(const InlineToken& closer, std::size_t& opener) {
    std::vector<std::size_t>& stack = StackOf(closer);
    if (stack.empty()) return false;
    opener = stack.back();
    for (std::vector<std::size_t>& other : stacks_) {
      while (!other.empty() && other.back() >= opener) other.pop_back();
    }
    return true;
  }

 private:
  std::vector<std::size_t>& StackOf(const InlineToken& token) {
    const std::size_t family = token.mark == '*' ? 0 : 2;
    return stacks_[family + (token.span.text.size() > 1 ? 1 : 0)];
  }

  std::array<std::vector<std::size_t>, 4> stacks_;
};

std::vector<Role> MatchDelimiters(const std::vector<InlineToken>& tokens) {
  std::vector<Role> roles(tokens.size(), Role::Plain);
  WaitingOpeners openers;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const InlineToken& token = tokens[i];
    if (token.mark == 0) continue;
    std::size_t opener = 0;
    // Nothing in between is nothing to emphasise.
    if (token.can_close && openers.TakeMatch(token, opener) && opener + 1 < i) {
      roles[opener] = Role::Opens;
      roles[i] = Role::Closes;
    } else if (token.can_open) {
      openers.Push(token, i);
    }
  }
  return roles;
}

}  // namespace

std::vector<Span> ResolveEmphasis(const std::vector<InlineToken>& tokens) {
  const std::vector<Role> roles = MatchDelimiters(tokens);
  std::vector<Span> spans;
  spans.reserve(tokens.size());
  int bold = 0;
  int italic = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (roles[i] != Role::Plain) {
      int& depth = tokens[i].span.text.size() > 1 ? bold : italic;
      depth += roles[i] == Role::Opens ? 1 : -1;
      continue;
    }
    Span span = tokens[i].span;
    span.bold = span.bold || bold > 0;
    span.italic = span.italic || italic > 0;
    spans.push_back(span);
  }
  return spans;
}

}  // namespace vellumark::tools
