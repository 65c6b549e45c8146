// SPDX-License-Identifier: MIT
#include "automation/enumeration_table.h"

#include <algorithm>

namespace vellumark::automation {
namespace {

template <class E>
constexpr EnumerationMember NamedValue(std::string_view name, E value) noexcept {
  return {name, static_cast<std::int32_t>(value)};
}

using enum AlignmentConstants;
constexpr EnumerationMember kAlignment[] = {
    NamedValue("NoAlignment", NoAlignment),
    NamedValue("LeftAlign", LeftAlign),
    NamedValue("Center", Center),
    NamedValue("RightAlign", RightAlign),
};

using enum BulletConstants;
constexpr EnumerationMember kBullet[] = {
    NamedValue("Disc", Disc),
    NamedValue("Square", Square),
};

using enum EncodingConstants;
constexpr EnumerationMember kEncoding[] = {
    NamedValue("ASCII85", ASCII85),     NamedValue("ASCIIHex", ASCIIHex),
    NamedValue("RunLength", RunLength), NamedValue("Flate", Flate),
    NamedValue("Original", Original),
};

using enum FontEffectConstants;
constexpr EnumerationMember kFontEffect[] = {
    NamedValue("NoFontEffect", NoFontEffect),
    NamedValue("Strikethrough", Strikethrough),
    NamedValue("Underline", Underline),
};

using enum FontNumberConstants;
constexpr EnumerationMember kFontNumber[] = {
    NamedValue("Courier", Courier),
    NamedValue("Helvetica", Helvetica),
    NamedValue("Times", Times),
    NamedValue("Symbol", Symbol),
    NamedValue("ZapfDingbats", ZapfDingbats),
};

using enum FontStyleConstants;
constexpr EnumerationMember kFontStyle[] = {
    NamedValue("Regular", Regular),
    NamedValue("Bold", Bold),
    NamedValue("Italic", Italic),
    NamedValue("BoldItalic", BoldItalic),
};

using enum OrientationConstants;
constexpr EnumerationMember kOrientation[] = {
    NamedValue("Portrait", Portrait),
    NamedValue("Landscape", Landscape),
};

using enum PaperSizeConstants;
constexpr EnumerationMember kPaperSize[] = {
    NamedValue("A3", A3),           NamedValue("A4", A4),
    NamedValue("A5", A5),           NamedValue("Executive", Executive),
    NamedValue("Folio", Folio),     NamedValue("Ledger", Ledger),
    NamedValue("Legal", Legal),     NamedValue("Letter", Letter),
    NamedValue("Tabloid", Tabloid),
};

}  // namespace

namespace detail {

constinit const Enumeration enumerations[8] = {
    {"AlignmentConstants", "Where a text or picture stands within the usable width.", kAlignment},
    {"BulletConstants", "What stands in front of a title.", kBullet},
    {"EncodingConstants", "The filter that a picture's samples are encoded with.", kEncoding},
    {"FontEffectConstants", "A line drawn with a text.", kFontEffect},
    {"FontNumberConstants", "The font family.", kFontNumber},
    {"FontStyleConstants", "The face of a font family.", kFontStyle},
    {"OrientationConstants", "Which way up the paper is.", kOrientation},
    {"PaperSizeConstants", "The size of the paper.", kPaperSize},
};

}  // namespace detail

std::span<const Enumeration> EnumerationTable() noexcept { return detail::enumerations; }

const EnumerationMember* FindMember(const Enumeration& enumeration, std::int32_t value) noexcept {
  const auto members = enumeration.members;
  const auto found = std::ranges::find(members, value, &EnumerationMember::value);
  return found == members.end() ? nullptr : &*found;
}

}  // namespace vellumark::automation
