// SPDX-License-Identifier: MIT
#include "automation/enumeration_table.h"

#include <algorithm>

namespace vellumark::automation {
namespace {

template <class E>
constexpr EnumerationMember Member(std::string_view name, E value) noexcept {
  return {name, static_cast<std::int32_t>(value)};
}

using enum AlignmentConstants;
constexpr EnumerationMember kAlignment[] = {
    Member("NoAlignment", NoAlignment),
    Member("LeftAlign", LeftAlign),
    Member("Center", Center),
    Member("RightAlign", RightAlign),
};

using enum BulletConstants;
constexpr EnumerationMember kBullet[] = {
    Member("Disc", Disc),
    Member("Square", Square),
};

using enum EncodingConstants;
constexpr EnumerationMember kEncoding[] = {
    Member("ASCII85", ASCII85), Member("ASCIIHex", ASCIIHex), Member("RunLength", RunLength),
    Member("Flate", Flate),     Member("Original", Original),
};

using enum FontEffectConstants;
constexpr EnumerationMember kFontEffect[] = {
    Member("NoFontEffect", NoFontEffect),
    Member("Strikethrough", Strikethrough),
    Member("Underline", Underline),
};

using enum FontNumberConstants;
constexpr EnumerationMember kFontNumber[] = {
    Member("Courier", Courier), Member("Helvetica", Helvetica),       Member("Times", Times),
    Member("Symbol", Symbol),   Member("ZapfDingbats", ZapfDingbats),
};

using enum FontStyleConstants;
constexpr EnumerationMember kFontStyle[] = {
    Member("Regular", Regular),
    Member("Bold", Bold),
    Member("Italic", Italic),
    Member("BoldItalic", BoldItalic),
};

using enum OrientationConstants;
constexpr EnumerationMember kOrientation[] = {
    Member("Portrait", Portrait),
    Member("Landscape", Landscape),
};

using enum PaperSizeConstants;
constexpr EnumerationMember kPaperSize[] = {
    Member("A3", A3),           Member("A4", A4),
    Member("A5", A5),           Member("Executive", Executive),
    Member("Folio", Folio),     Member("Ledger", Ledger),
    Member("Legal", Legal),     Member("Letter", Letter),
    Member("Tabloid", Tabloid),
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
