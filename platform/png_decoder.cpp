// SPDX-License-Identifier: MIT
//
// A PNG file of any color type and depth, interlaced or not.
//
//     file                              bitmap
//     gray or indexed, opaque           1, 4 or 8 bits with a palette; 2 bits become 4
//     gray with transparency            8 bits with 256 grays, and alpha
//     indexed with transparency         8 bits with the file's palette, and alpha
//     true color                        24 bits; with alpha if the file has transparency
//
// Samples of 16 bits become 8. Color profiles, gamma and the background color are ignored. Every
// checksum that belongs to the pixels must be right, and the file must end with its last chunk.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <png.h>
#include <vector>

#include "platform/jump_frame.h"
#include "platform/loaded_library.h"
#include "platform/picture_decoder.h"
#include "platform/picture_format.h"
#include "platform/png_header.h"
#include "platform/png_pixels.h"

namespace vellumark::platform {
namespace {

#define VELLUMARK_PNG_FUNCTIONS(X, Table)   \
  X(Table, png_create_info_struct)          \
  X(Table, png_create_read_struct_2)        \
  X(Table, png_destroy_read_struct)         \
  X(Table, png_get_PLTE)                    \
  X(Table, png_get_bit_depth)               \
  X(Table, png_get_channels)                \
  X(Table, png_get_error_ptr)               \
  X(Table, png_get_io_ptr)                  \
  X(Table, png_get_mem_ptr)                 \
  X(Table, png_get_rowbytes)                \
  X(Table, png_get_tRNS)                    \
  X(Table, png_get_valid)                   \
  X(Table, png_read_end)                    \
  X(Table, png_read_info)                   \
  X(Table, png_read_row)                    \
  X(Table, png_read_update_info)            \
  X(Table, png_set_benign_errors)           \
  X(Table, png_set_bgr)                     \
  X(Table, png_set_check_for_invalid_index) \
  X(Table, png_set_expand_gray_1_2_4_to_8)  \
  X(Table, png_set_interlace_handling)      \
  X(Table, png_set_keep_unknown_chunks)     \
  X(Table, png_set_packing)                 \
  X(Table, png_set_read_fn)                 \
  X(Table, png_set_scale_16)                \
  X(Table, png_set_tRNS_to_alpha)           \
  X(Table, png_set_user_limits)
VELLUMARK_LOADED_LIBRARY(PngLibrary, VELLUMARK_SONAME_PNG, VELLUMARK_PNG_FUNCTIONS)

constexpr std::uint8_t kOpaque = 255;

/// What a row has once the PNG library has transformed it.
struct RowFormat {
  int bits = 0;            ///< of the bitmap
  std::size_t size = 0;    ///< bytes of a transformed row
  std::size_t stride = 0;  ///< from row to row
  bool two_bits = false;   ///< to be widened to the bitmap's four
  bool has_alpha = false;  ///< a sample of its own behind the colors
};

class PngReader {
 public:
  explicit PngReader(std::span<const std::uint8_t> file) : left_(file) {}
  PngReader(const PngReader&) = delete;
  PngReader& operator=(const PngReader&) = delete;
  PngReader(PngReader&&) = delete;
  PngReader& operator=(PngReader&&) = delete;
  ~PngReader() { png_destroy_read_struct(&png_, &info_, nullptr); }

  /// Reads up to the pixels, and chooses how they come.
  bool ReadHeader(const PngHeader& header) {
    return frame_.Run([&] {
      png_ = png_create_read_struct_2(PNG_LIBPNG_VER_STRING, this, OnError, OnWarning, this,
                                      Allocate, Free);
      if (png_ != nullptr) info_ = png_create_info_struct(png_);
      if (info_ == nullptr) {
        frame_.RunsOutOfMemory();
        frame_.Fail("");
      }
      png_set_read_fn(png_, this, Read);
      // The sides are checked already, and of what only describes the picture nothing is kept.
      png_set_user_limits(png_, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
      png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
      png_set_benign_errors(png_, 1);
      png_set_check_for_invalid_index(png_, 0);  // colors beyond the palette are black
      png_read_info(png_, info_);
      ChooseFormat(header);
    });
  }

  [[nodiscard]] const RowFormat& Format() const noexcept { return format_; }

  /// Reads every row to its place, `pixels` being the bottom row.
  bool ReadRows(std::uint8_t* pixels, std::size_t height) {
    return frame_.Run([&] {
      for (int pass = 0; pass < passes_; ++pass) {
        std::uint8_t* row = pixels + format_.stride * height;
        for (std::size_t y = 0; y < height; ++y) {
          row -= format_.stride;  // rows come from the top
          png_read_row(png_, row, nullptr);
        }
      }
      png_read_end(png_, nullptr);  // which checks what comes behind the last row
    });
  }

  /// Fills the palette of a bitmap with the file's, or with grays.
  void TakePalette(const PngHeader& header, Bitmap& bitmap) const {
    if (header.colors != PngHeader::Indexed) {
      TakeGrays(format_.two_bits ? 4 : bitmap.palette.size(), bitmap);
      return;
    }
    png_colorp colors = nullptr;
    int count = 0;
    png_get_PLTE(png_, info_, &colors, &count);
    const std::size_t most = std::min(bitmap.palette.size(), static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < most; ++i) {
      bitmap.palette[i] = {.blue = colors[i].blue, .green = colors[i].green, .red = colors[i].red};
    }
  }

  /// How opaque each color of the palette is; empty if all are.
  [[nodiscard]] std::span<const std::uint8_t> PaletteAlpha() const {
    if (format_.has_alpha) return {};
    png_bytep alpha = nullptr;
    int count = 0;
    png_get_tRNS(png_, info_, &alpha, &count, nullptr);  // changes neither if the file has none
    return {alpha, static_cast<std::size_t>(count)};
  }

  /// Why a step returned false.
  [[nodiscard]] const char* Reason() const noexcept { return frame_.Reason(); }

 private:
  static JumpFrame& FrameOf(png_struct* png) {
    return static_cast<PngReader*>(png_get_error_ptr(png))->frame_;
  }

  static void OnError(png_struct* png, const char* message) {
    const bool short_of_pixels = std::strcmp(message, "Not enough image data") == 0;
    FrameOf(png).Fail(short_of_pixels ? kCutOff : kDamagedPng);
  }

  /// The library would go on without a transparency whose checksum is wrong.
  static void OnWarning(png_struct* png, const char* message) {
    if (std::strcmp(message, "tRNS: CRC error") != 0) return;
    FrameOf(png).Fail(kDamagedPng);
  }

  static void Read(png_struct* png, png_byte* to, std::size_t size) {
    auto& reader = *static_cast<PngReader*>(png_get_io_ptr(png));
    if (size > reader.left_.size()) reader.frame_.Fail(kCutOff);
    std::memcpy(to, reader.left_.data(), size);
    reader.left_ = reader.left_.subspan(size);
  }

  static void* Allocate(png_struct* png, png_alloc_size_t size) {
    void* const memory = std::malloc(size);  // NOLINT: the library is C
    if (memory == nullptr) static_cast<PngReader*>(png_get_mem_ptr(png))->frame_.RunsOutOfMemory();
    return memory;
  }

  static void Free(png_struct* /*png*/, void* memory) { std::free(memory); }  // NOLINT: likewise

  void ChooseFormat(const PngHeader& header) {
    const bool color = header.colors == PngHeader::True || header.colors == PngHeader::TrueAlpha;
    const bool keyed = png_get_valid(png_, info_, PNG_INFO_tRNS) != 0;
    const bool indexed = header.colors == PngHeader::Indexed;
    if (header.depth == 16) png_set_scale_16(png_);
    if (keyed && indexed) png_set_packing(png_);
    if (keyed && !indexed) {
      if (!color) png_set_expand_gray_1_2_4_to_8(png_);
      png_set_tRNS_to_alpha(png_);
    }
    if (color) png_set_bgr(png_);
    passes_ = png_set_interlace_handling(png_);
    png_read_update_info(png_, info_);

    const int depth = png_get_bit_depth(png_, info_);
    const int samples = png_get_channels(png_, info_);
    format_.has_alpha = samples == 2 || samples == 4;
    format_.two_bits = depth == 2;
    format_.bits = color ? 24 : format_.two_bits ? 4 : depth;
    format_.size = png_get_rowbytes(png_, info_);
    format_.stride = std::max(format_.size, Bitmap::RowSize(header.width, format_.bits));
  }

  png_struct* png_ = nullptr;
  png_info* info_ = nullptr;
  std::span<const std::uint8_t> left_;
  RowFormat format_;
  int passes_ = 1;
  JumpFrame frame_;
};

void TakePaletteAlpha(std::span<const std::uint8_t> of_color, Bitmap& bitmap) {
  const auto width = static_cast<std::size_t>(bitmap.width);
  const auto height = static_cast<std::size_t>(bitmap.height);
  bitmap.alpha.assign(width * height, kOpaque);
  for (std::size_t y = 0; y < height; ++y) {
    const std::uint8_t* const row = bitmap.pixels.data() + y * bitmap.RowSize();
    for (std::size_t x = 0; x < width; ++x) {
      if (row[x] < of_color.size()) bitmap.alpha[y * width + x] = of_color[row[x]];
    }
  }
  ForgetOpaqueAlpha(bitmap);
}

}  // namespace

std::string DecodePng(std::span<const std::uint8_t> file, std::int64_t greatest, Bitmap& bitmap) {
  if (std::string missing = PngLibrary::Load(); !missing.empty()) return missing;
  PngHeader header;
  std::string why_not = ReadPngHeader(file, greatest, header);
  if (!why_not.empty()) return why_not;
  PngReader reader(file);
  if (!reader.ReadHeader(header)) return reader.Reason();
  const RowFormat& format = reader.Format();
  const auto height = static_cast<std::size_t>(header.height);
  SetFormat(header.width, header.height, format.bits, bitmap);
  bitmap.pixels.resize(format.stride * height);
  if (!reader.ReadRows(bitmap.pixels.data(), height)) return reader.Reason();

  if (!bitmap.palette.empty()) reader.TakePalette(header, bitmap);
  if (format.has_alpha) {
    SeparateAlpha(format.stride, bitmap);
  } else if (format.two_bits) {
    WidenTwoBits(format.stride, bitmap);
  } else if (const auto of_color = reader.PaletteAlpha(); !of_color.empty()) {
    TakePaletteAlpha(of_color, bitmap);
  }
  return {};
}

}  // namespace vellumark::platform
