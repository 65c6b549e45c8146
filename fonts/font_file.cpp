// SPDX-License-Identifier: MIT
#include "fonts/font_file.h"

#include <array>
#include <new>
#include <string_view>

namespace vellumark::fonts {
namespace {

constexpr std::size_t kGreatestFile = std::size_t{256} << 20;
constexpr int kGreatestUnits = 16384;  // per em; the format's own limits
constexpr int kFewestUnits = 16;
constexpr hb_tag_t kTrueType = HB_TAG(0, 1, 0, 0);
constexpr hb_tag_t kCff = HB_TAG('O', 'T', 'T', 'O');

bool IsFontFile(const std::vector<std::uint8_t>& bytes) {
  if (bytes.size() < 12) return false;
  const hb_tag_t tag = HB_TAG(bytes[0], bytes[1], bytes[2], bytes[3]);
  return tag == kTrueType || tag == kCff || tag == HB_TAG('t', 'r', 'u', 'e') ||
         tag == HB_TAG('t', 't', 'c', 'f');
}

/// The table of the places of all glyphs leads beyond their outlines.
bool OutlinesAreCutOff(hb_face_t* face) {
  const Table head(face, HB_TAG('h', 'e', 'a', 'd'));
  const Table loca(face, HB_TAG('l', 'o', 'c', 'a'));
  const Table glyf(face, HB_TAG('g', 'l', 'y', 'f'));
  constexpr std::size_t kIndexFormat = 50;
  const bool wide = head.I16(kIndexFormat) != 0;
  const std::size_t glyphs = hb_face_get_glyph_count(face);
  const std::size_t size = (glyphs + 1) * (wide ? 4 : 2);
  if (loca.Size() < size) return true;
  const std::size_t end =
      wide ? loca.U32(size - 4) : 2 * static_cast<std::size_t>(loca.U16(size - 2));
  return end > glyf.Size();
}

}  // namespace

FontFile::FontFile(std::vector<std::uint8_t> bytes, int index)
    : bytes_(std::move(bytes)), index_(index) {
  if (!IsFontFile(bytes_) || bytes_.size() > kGreatestFile) return;
  blob_.reset(hb_blob_create(reinterpret_cast<const char*>(bytes_.data()),
                             static_cast<unsigned>(bytes_.size()), HB_MEMORY_MODE_READONLY, nullptr,
                             nullptr));
  if (blob_.get() == hb_blob_get_empty()) throw std::bad_alloc();
  count_ = hb_face_count(blob_.get());
  if (index_ < 0 || static_cast<unsigned>(index_) >= count_) return;
  face_.reset(hb_face_create(blob_.get(), static_cast<unsigned>(index_)));
  if (face_.get() == hb_face_get_empty()) throw std::bad_alloc();
}

std::string FontFile::Refused() const {
  if (bytes_.size() > kGreatestFile) {
    return "it has " + std::to_string(bytes_.size() >> 20) + " MiB, and a font may have 256";
  }
  if (!blob_) return "it is not a TrueType or OpenType font";
  if (count_ == 0) return "it is damaged: it has no face";
  if (!face_) {
    return "it has " + std::to_string(count_) + (count_ == 1 ? " face" : " faces") +
           ", so the index must be 0" +
           (count_ == 1 ? std::string() : " to " + std::to_string(count_ - 1));
  }
  const std::string tables = WrongTables();
  return tables.empty() ? WrongLicense() : tables;
}

std::string FontFile::WrongTables() const {
  constexpr std::array<const char*, 5> kNeeded = {"cmap", "head", "hhea", "hmtx", "maxp"};
  constexpr std::size_t kHeadSize = 54;
  for (const char* const name : kNeeded) {
    if (Table(face_.get(), HB_TAG(name[0], name[1], name[2], name[3])).Size() == 0) {
      return std::string("it is damaged: it has no table ") + name;
    }
  }
  const Table head(face_.get(), HB_TAG('h', 'e', 'a', 'd'));
  const int units = head.U16(18);
  if (head.Size() < kHeadSize || units < kFewestUnits || units > kGreatestUnits) {
    return "it is damaged: its head is not one of a font";
  }
  const unsigned glyphs = hb_face_get_glyph_count(face_.get());
  if (glyphs == 0 || glyphs > 0xFFFF) return "it is damaged: it has no glyphs";
  if (Table(face_.get(), HB_TAG('C', 'F', 'F', ' ')).Size() > 0) return {};
  if (Table(face_.get(), HB_TAG('g', 'l', 'y', 'f')).Size() > 0) {
    return OutlinesAreCutOff(face_.get()) ? "it is damaged: its outlines are cut off"
                                          : std::string();
  }
  if (Table(face_.get(), HB_TAG('C', 'F', 'F', '2')).Size() > 0) {
    return "its outlines are of the kind CFF2, which no document can embed";
  }
  return "it has no outlines that a document can embed";
}

std::string FontFile::WrongLicense() const {
  constexpr unsigned kUsageBits = 0x000F;
  constexpr unsigned kRestricted = 0x0002;
  constexpr unsigned kNoSubset = 0x0100;
  constexpr unsigned kBitmapsOnly = 0x0200;
  const unsigned bits = Table(face_.get(), HB_TAG('O', 'S', '/', '2')).U16(8);
  if ((bits & kUsageBits) == kRestricted || (bits & kBitmapsOnly) != 0) {
    return "its license bits forbid embedding";
  }
  if ((bits & kNoSubset) != 0) return "its license bits forbid to embed a part of it";
  return {};
}

layout::Outlines FontFile::Outlines() const {
  return Table(face_.get(), HB_TAG('C', 'F', 'F', ' ')).Size() > 0 ? layout::Outlines::Cff
                                                                   : layout::Outlines::TrueType;
}

}  // namespace vellumark::fonts
