// SPDX-License-Identifier: MIT
#include "platform/utf8.h"

namespace vellumark::platform {
namespace {

/// What a lead byte says: how many continuation bytes follow, its own bits, and the range of the
/// first continuation byte, which keeps out overlong forms, surrogates and values above U+10FFFF.
struct Lead {
  int continuations = 0;
  char32_t bits = 0;
  std::uint8_t first_low = 0x80;
  std::uint8_t first_high = 0xBF;
};

Lead LeadOf(std::uint8_t byte) noexcept {
  const auto b = static_cast<char32_t>(byte);
  if (byte >= 0xC2 && byte <= 0xDF) return {1, b & 0x1F};
  if (byte == 0xE0) return {2, b & 0x0F, 0xA0, 0xBF};
  if (byte == 0xED) return {2, b & 0x0F, 0x80, 0x9F};
  if (byte >= 0xE1 && byte <= 0xEF) return {2, b & 0x0F};
  if (byte == 0xF0) return {3, b & 0x07, 0x90, 0xBF};
  if (byte >= 0xF1 && byte <= 0xF3) return {3, b & 0x07};
  if (byte == 0xF4) return {3, b & 0x07, 0x80, 0x8F};
  return {};
}

}  // namespace

char32_t Utf8Reader::Next() noexcept {
  const auto first = static_cast<std::uint8_t>(text_[position_++]);
  if (first < 0x80) return first;
  Lead lead = LeadOf(first);
  char32_t character = lead.bits;
  bool whole = lead.continuations > 0;
  for (int i = 0; whole && i < lead.continuations; ++i) {
    const std::uint8_t byte = AtEnd() ? 0 : static_cast<std::uint8_t>(text_[position_]);
    whole = byte >= lead.first_low && byte <= lead.first_high;
    if (!whole) break;
    character = (character << 6) | (byte & 0x3FU);
    ++position_;
    lead.first_low = 0x80;
    lead.first_high = 0xBF;
  }
  if (whole) return character;
  malformed_ = true;
  return kReplacementCharacter;
}

void AppendUtf8(char32_t character, std::string& text) {
  const auto append = [&](char32_t byte) { text += static_cast<char>(byte); };
  const auto continuation = [&](int shift) { append(0x80U | (character >> shift & 0x3FU)); };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xC0U | character >> 6);
    continuation(0);
  } else if (character < 0x10000) {
    append(0xE0U | character >> 12);
    continuation(6);
    continuation(0);
  } else {
    append(0xF0U | character >> 18);
    continuation(12);
    continuation(6);
    continuation(0);
  }
}

}  // namespace vellumark::platform
