// SPDX-License-Identifier: MIT
#include "bench/jpeg_raster.h"

#include <cstdio>  // jpeglib.h needs FILE
#include <cstdlib>
#include <jpeglib.h>

namespace vellumark::bench {

std::string EncodeJpeg(const Raster& picture) {
  jpeg_error_mgr errors{};
  jpeg_compress_struct info{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* file = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&info, &file, &size);
  info.image_width = static_cast<JDIMENSION>(picture.width);
  info.image_height = static_cast<JDIMENSION>(picture.height);
  info.input_components = 3;
  info.in_color_space = JCS_RGB;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, 90, TRUE);
  jpeg_start_compress(&info, TRUE);
  while (info.next_scanline < info.image_height) {
    const std::size_t row_size = 3 * static_cast<std::size_t>(picture.width);
    auto* row = const_cast<JSAMPLE*>(picture.samples.data() + info.next_scanline * row_size);
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  std::string bytes(reinterpret_cast<const char*>(file), size);
  std::free(file);  // NOLINT: the library's own allocation
  return bytes;
}

std::vector<std::uint8_t> DecodeJpeg(const std::string& file) {
  jpeg_error_mgr errors{};
  jpeg_decompress_struct info{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&info);
  jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(file.data()),
               static_cast<unsigned long>(file.size()));
  jpeg_read_header(&info, TRUE);
  jpeg_start_decompress(&info);
  const std::size_t row_size = 3 * static_cast<std::size_t>(info.output_width);
  std::vector<std::uint8_t> samples(row_size * info.output_height);
  while (info.output_scanline < info.output_height) {
    JSAMPLE* row = samples.data() + info.output_scanline * row_size;
    jpeg_read_scanlines(&info, &row, 1);
  }
  jpeg_finish_decompress(&info);
  jpeg_destroy_decompress(&info);
  return samples;
}

}  // namespace vellumark::bench
