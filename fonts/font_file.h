// SPDX-License-Identifier: MIT
//
// FontFile: the bytes of a font file, and whether a face of it can be taken.
//
//     FontFile file(std::move(bytes), 0);
//     if (const std::string reason = file.Refused(); !reason.empty()) ...
//     hb_face_t* face = file.Face();
//
// What is checked: the kind of the file (TrueType, OpenType, or a collection of them), its size,
// the tables that a font cannot be without, that the outlines are all there, and the license bits
// of the OS/2 table (fsType): a font that forbids embedding, or to take a part of it, is refused.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "fonts/font_libraries.h"
#include "layout/font_face.h"

namespace vellumark::fonts {

/// Deletes HarfBuzz's objects.
struct Destroy {
  void operator()(hb_blob_t* blob) const { hb_blob_destroy(blob); }
  void operator()(hb_face_t* face) const { hb_face_destroy(face); }
  void operator()(hb_font_t* font) const { hb_font_destroy(font); }
  void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
};
template <class T>
using Owned = std::unique_ptr<T, Destroy>;

/// A table of a face; empty if it has none.
class Table {
 public:
  Table(hb_face_t* face, hb_tag_t tag) : blob_(hb_face_reference_table(face, tag)) {
    unsigned size = 0;
    const char* const data = hb_blob_get_data(blob_.get(), &size);
    bytes_ = {reinterpret_cast<const std::uint8_t*>(data), size};
  }

  [[nodiscard]] std::span<const std::uint8_t> Bytes() const noexcept { return bytes_; }
  [[nodiscard]] std::size_t Size() const noexcept { return bytes_.size(); }

  /// Numbers in the order of the file; 0 beyond the table's end.
  [[nodiscard]] std::uint16_t U16(std::size_t at) const noexcept {
    if (at + 2 > bytes_.size()) return 0;
    return static_cast<std::uint16_t>(bytes_[at] << 8 | bytes_[at + 1]);
  }
  [[nodiscard]] std::int16_t I16(std::size_t at) const noexcept {
    return static_cast<std::int16_t>(U16(at));
  }
  [[nodiscard]] std::uint32_t U32(std::size_t at) const noexcept {
    return std::uint32_t{U16(at)} << 16 | U16(at + 2);
  }

 private:
  Owned<hb_blob_t> blob_;
  std::span<const std::uint8_t> bytes_;
};

class FontFile {
 public:
  /// Takes the bytes; `index` counts the faces of a collection from 0.
  FontFile(std::vector<std::uint8_t> bytes, int index);

  /// Why no face can be taken, in a few words; empty if one can.
  [[nodiscard]] std::string Refused() const;

  /// The face; one without tables if it is refused.
  [[nodiscard]] hb_face_t* Face() const noexcept { return face_.get(); }

  /// Only for a file that is not refused.
  [[nodiscard]] layout::Outlines Outlines() const;

 private:
  [[nodiscard]] std::string WrongTables() const;
  [[nodiscard]] std::string WrongLicense() const;

  std::vector<std::uint8_t> bytes_;
  int index_;
  unsigned count_ = 0;
  Owned<hb_blob_t> blob_;
  Owned<hb_face_t> face_;
};

}  // namespace vellumark::fonts
