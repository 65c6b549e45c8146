// SPDX-License-Identifier: MIT
//
// PictureFile: the bytes of a file of the system, for the picture decoders.
//
// Only regular files are read: a named pipe or a device could keep a document waiting for ever.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace vellumark::platform {

inline constexpr std::string_view kNotRegular = "not a regular file";
inline constexpr std::string_view kLargerThan2Gb = "the file is larger than 2 GB";

class PictureFile {
 public:
  /// Reads the file `name` (UTF-8) of at most 2^31 - 1 bytes. False with a `reason` where that is
  /// not possible. Throws std::bad_alloc.
  [[nodiscard]] bool Read(std::string_view name, std::string& reason);

  [[nodiscard]] std::span<const std::uint8_t> Bytes() const noexcept {
    return {bytes_.get(), size_};
  }

 private:
  std::unique_ptr<std::uint8_t[]> bytes_;
  std::size_t size_ = 0;
};

}  // namespace vellumark::platform
