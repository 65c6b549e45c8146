// SPDX-License-Identifier: MIT
#include "document/glyph_use.h"

#include <limits>

#include <vellumark/run_time_error.h>

#include "layout/shown_characters.h"
#include "platform/utf8.h"

namespace vellumark::document {
namespace {

constexpr char32_t kNonJoiner = 0x200C;
constexpr char32_t kJoiner = 0x200D;

bool Counts(char32_t character) {
  if (character == layout::kSoftHyphen) return false;
  return layout::AppearanceOf(character) != layout::Appearance::Nothing ||
         character == kNonJoiner || character == kJoiner;
}

/// The text without its invisible characters, in `storage` if it has some.
std::string_view WithoutInvisible(std::string_view utf8, std::string& storage) {
  if (layout::CountPlain(utf8) == utf8.size()) return utf8;
  storage.clear();
  bool all = true;
  platform::Utf8Reader reader(utf8);
  for (std::size_t begin = 0; begin < utf8.size();) {
    const bool counts = Counts(reader.Next());
    if (counts) storage.append(utf8.substr(begin, reader.Position() - begin));
    all = all && counts;
    begin = reader.Position();
  }
  return all ? utf8 : std::string_view(storage);
}

}  // namespace

void GlyphUse::Clear() noexcept {
  by_number_.clear();
  log_.clear();
}

GlyphUse::Font& GlyphUse::Begin(int number) {
  const auto index = static_cast<std::size_t>(number - layout::FontCollection::kFirstNumber);
  if (index >= by_number_.size()) by_number_.resize(index + 1);
  auto font = std::make_unique<Font>();
  font->number = number;
  font->face = fonts_.Face(number);
  font->code_of.assign(std::size_t{std::numeric_limits<std::uint16_t>::max()} + 1, 0);
  font->glyphs.push_back(0);
  font->advances.push_back(font->face->Advance(0));
  font->texts.emplace_back();
  font->shorts.push_back(0);
  by_number_[index] = std::move(font);
  return *by_number_[index];
}

std::uint16_t GlyphUse::Add(Font& font, std::uint16_t glyph) {
  const std::size_t code = font.glyphs.size();
  if (code > std::numeric_limits<std::uint16_t>::max()) {
    throw RunTimeError(RunTimeError::Overflow);
  }
  if (font.shorts.capacity() == code) {
    const std::size_t room = 2 * code + 64;
    font.glyphs.reserve(room);
    font.advances.reserve(room);
    font.texts.reserve(room);
    font.shorts.reserve(room);
  }
  log_.push_back({&font, static_cast<std::uint16_t>(code), false});
  font.glyphs.push_back(glyph);
  font.advances.push_back(font.face->Advance(glyph));
  font.texts.emplace_back();
  font.shorts.push_back(0);
  font.code_of[glyph] = static_cast<std::uint16_t>(code);
  return static_cast<std::uint16_t>(code);
}

bool GlyphUse::Learn(Font& font, std::uint16_t code, std::string_view text) {
  std::string& known = font.texts[code];
  if (known == text) return true;
  std::string storage;
  const std::string_view visible = WithoutInvisible(text, storage);
  if (visible.empty()) return true;
  if (!known.empty() || code == 0) return known == visible;
  log_.push_back({&font, code, true});
  known = visible;
  font.shorts[code] = InOneNumber(visible);
  return true;
}

void GlyphUse::LearnPart(Font& font, std::uint16_t code, std::string_view text) {
  if (code == 0 || !font.texts[code].empty()) return;
  platform::Utf8Reader reader(text);
  for (std::size_t begin = 0; begin < text.size(); begin = reader.Position()) {
    if (font.face->GlyphOf(reader.Next()) != font.glyphs[code]) continue;
    Learn(font, code, text.substr(begin, reader.Position() - begin));
    return;
  }
}

void GlyphUse::RollBack(std::size_t place) noexcept {
  for (; log_.size() > place; log_.pop_back()) {
    const Step& step = log_.back();
    if (step.text) {
      step.font->texts[step.code].clear();
      step.font->shorts[step.code] = 0;
      continue;
    }
    step.font->code_of[step.font->glyphs.back()] = 0;
    step.font->glyphs.pop_back();
    step.font->advances.pop_back();
    step.font->texts.pop_back();
    step.font->shorts.pop_back();
  }
}

std::vector<GlyphUse::Font*> GlyphUse::Used() const {
  std::vector<Font*> used;
  for (const auto& font : by_number_) {
    if (font != nullptr && font->glyphs.size() > 1) used.push_back(font.get());
  }
  return used;
}

std::string EmbeddedName(const GlyphUse::Font& font) {
  std::uint64_t hash = 0xCBF29CE484222325;
  const auto add = [&hash](std::uint64_t value) { hash = (hash ^ value) * 0x100000001B3; };
  add(static_cast<std::uint64_t>(font.number));
  for (const std::uint16_t glyph : font.glyphs) add(glyph);
  hash ^= hash >> 32;
  std::string name;
  for (int i = 0; i < 6; ++i, hash /= 26) name += static_cast<char>('A' + hash % 26);
  return name + '+' + font.face->Facts().name;
}

std::vector<std::uint8_t> GlyphNumbers(const layout::FontProgram& program) {
  std::vector<std::uint8_t> numbers;
  numbers.reserve(2 * program.glyph_of_code.size());
  for (const std::uint16_t glyph : program.glyph_of_code) {
    numbers.push_back(static_cast<std::uint8_t>(glyph >> 8));
    numbers.push_back(static_cast<std::uint8_t>(glyph & 0xFF));
  }
  return numbers;
}

}  // namespace vellumark::document
