// SPDX-License-Identifier: MIT
#include "ps/used_fonts.h"

#include "layout/text_encoding.h"

namespace vellumark::ps {
namespace {

using layout::TextEncoding;

constexpr std::size_t kFonts = layout::kFontNames.size();
constexpr std::size_t kLongestLine = 80;

constexpr bool IsPrintableAscii(std::size_t code) { return code >= ' ' && code <= '~'; }

layout::Font FontOf(std::size_t resource) {
  constexpr std::size_t kTextFonts = 12;
  const std::size_t index = resource % kFonts;
  const bool text = index < kTextFonts;
  layout::Font font;
  font.number = static_cast<FontNumberConstants>(text ? index / 4 + 1 : index - 8);
  font.style = static_cast<FontStyleConstants>(text ? index % 4 + 1 : 1);
  return font;
}

// Words one behind the other, in lines.
class Words {
 public:
  explicit Words(std::string& text) : text_(text) {}

  void Add(std::string_view word) {
    if (text_.size() - line_ + 1 + word.size() > kLongestLine) {
      text_ += '\n';
      line_ = text_.size();
    } else if (text_.back() != '{') {
      text_ += ' ';
    }
    text_ += word;
  }

 private:
  std::string& text_;
  std::size_t line_ = 0;  // where the last one begins
};

}  // namespace

void UsedFonts::AddCode(std::size_t resource, std::size_t code) {
  if (codes_[resource][code]) return;
  added_.push_back(static_cast<std::uint16_t>(256 * resource + code));
  codes_[resource][code] = true;
}

void UsedFonts::AddCodes(int resource, std::string_view bytes) {
  for (const char byte : bytes) {
    const std::size_t code = static_cast<std::uint8_t>(byte);
    if (!IsPrintableAscii(code)) AddCode(static_cast<std::size_t>(resource), code);
  }
}

void UsedFonts::RollBack(std::size_t mark) noexcept {
  for (; added_.size() > mark; added_.pop_back()) {
    codes_[added_.back() / 256U][added_.back() % 256U] = false;
  }
}

std::string UsedFonts::NeededResources() const {
  std::string comments;
  for (std::size_t font = 0; font < kFonts; ++font) {
    if (!Uses(font) && !Uses(font + kFonts)) continue;
    comments.append(comments.empty() ? "%%DocumentNeededResources: font " : "%%+ font ");
    comments.append(layout::kFontNames[font]).append("\n");
  }
  return comments;
}

std::string UsedFonts::Setup() const {
  std::string setup;
  for (std::size_t font = 0; font < kFonts; ++font) {
    if (!Uses(font) && !Uses(font + kFonts)) continue;
    setup.append("%%IncludeResource: font ").append(layout::kFontNames[font]).append("\n");
    for (const std::size_t resource : {font, font + kFonts}) {
      if (Uses(resource)) AppendFont(resource, setup);
    }
  }
  return setup;
}

void UsedFonts::AppendFont(std::size_t resource, std::string& setup) const {
  const TextEncoding encoding = document::EncodingOf(resource);
  const layout::CodedGlyphs& glyphs = layout::GlyphsOf(encoding);
  const layout::CodeWidths& widths = layout::WidthsOf(FontOf(resource), encoding);
  const bool latin = encoding <= TextEncoding::Extended;
  std::string name(1, 'F');
  name += std::to_string(resource);
  setup.append("/").append(name).append("/Vellumark-").append(name).append("/");
  setup.append(layout::kFontNames[resource % kFonts]);
  setup.append(latin ? " StandardEncoding\n" : " null\n");
  const std::size_t line = setup.size();
  std::string codes = "{";
  Words words(codes);
  for (std::size_t code = 0; code < glyphs.size(); ++code) {
    // In ASCII, StandardEncoding has curly quotes for these two.
    const bool quote = latin && (code == '\'' || code == '`');
    const bool used = codes_[resource][code] && !IsPrintableAscii(code);
    if ((!quote && !used) || glyphs[code].name.empty()) continue;
    words.Add(std::to_string(code)
                  .append("/")
                  .append(glyphs[code].name)
                  .append(" ")
                  .append(std::to_string(widths[code])));
  }
  setup.insert(line, codes);
  setup.append("}N\n");
}

}  // namespace vellumark::ps
