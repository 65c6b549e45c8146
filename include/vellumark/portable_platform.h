// SPDX-License-Identifier: MIT
//
// PortablePlatform: the operations that are the same wherever the system offers nothing better of
// its own: Windows-1252 as code page, the linked-in width resources, the title and the legal
// notice, the C library's clock, and pictures from files of the system, decoded by this library.
// Output files and the notice are left to the platform that derives from it.
//
// A platform that finds pictures elsewhere overrides ReadPicture; DecodePicture then follows:
//
//     bool ReadPicture(std::string_view file, std::vector<std::uint8_t>& bytes,
//                      std::string& reason) override {
//       reason = archive_.Extract(file, bytes);    // why not, or an empty text
//       return reason.empty();
//     }
//
// Pictures are regular files of at most 2^31 - 1 bytes: a named pipe or a device, which could keep
// a document waiting for ever, is refused.
#pragma once

#include <limits>

#include <vellumark/platform.h>

namespace vellumark {

class VELLUMARK_API PortablePlatform : public Platform {
 public:
  /// The most bytes that decoding a picture may take, for a host that is handed pictures by
  /// strangers: a small file can ask for much memory. The bytes are those of the bitmap and its
  /// alpha, and for a JPG of several scans those of its coefficients. 2^31 - 1 at first, and at
  /// most. A larger picture is refused before memory is allocated for it, whether it comes from a
  /// file or from memory.
  void SetGreatestPicture(std::int32_t bytes) noexcept { greatest_picture_ = bytes; }
  [[nodiscard]] std::int32_t GreatestPicture() const noexcept { return greatest_picture_; }

  bool DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) override;
  bool ReadPicture(std::string_view file, std::vector<std::uint8_t>& bytes,
                   std::string& reason) override;
  bool DecodePictureBytes(std::span<const std::uint8_t> bytes, Bitmap& bitmap,
                          std::string& reason) override;
  LocalTime Now() override;
  std::string_view ToCodePage(std::string_view utf8, std::string& storage) override;
  std::span<const std::uint8_t> WidthResource(int number) override;
  std::string_view Title() override;
  std::string_view LegalNotice() override;

 private:
  std::int32_t greatest_picture_ = std::numeric_limits<std::int32_t>::max();
};

}  // namespace vellumark
