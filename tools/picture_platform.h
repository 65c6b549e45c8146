// SPDX-License-Identifier: MIT
//
// PicturePlatform: the platform of a conversion, whose document goes to a stream. Pictures are read
// from files, and the size of a picture can be asked for before it is drawn.
//
//     auto platform = std::make_shared<PicturePlatform>();
//     platform->SetFolder("notes");                                   // of the input
//     PictureSize pixels;
//     std::string reason;
//     if (!platform->Measure("logo.jpg", pixels, reason)) ...        // notes/logo.jpg
//     document.DrawPicture("logo.jpg");
//
// A picture that was measured is kept until it is drawn or another one is measured, so it is
// decoded only once. Pictures of 16 and 32 bits per pixel, which readers do not show as they are in
// the document, are converted to 24.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <vellumark/memory_platform.h>
#include <vellumark/vellumark.h>

namespace vellumark::tools {

struct PictureSize {
  int width = 0;
  int height = 0;
};

/// `size`, reduced in proportion if it is larger than `box`; at least 1 by 1.
[[nodiscard]] PictureSize FitInto(const PictureSize& box, const PictureSize& size);

class PicturePlatform final : public MemoryPlatform {
 public:
  /// Relative names of pictures start from `folder`; an empty one, as at first, is the current
  /// folder.
  void SetFolder(std::filesystem::path folder) {
    folder_ = std::move(folder);
    kept_name_.reset();
  }

  /// Sets the size of a picture in pixels. Returns false, with a `reason` of a few words, if it
  /// cannot be loaded.
  [[nodiscard]] bool Measure(std::string_view name, PictureSize& pixels, std::string& reason);

  bool DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) override;

  /// Reads from the folder; there are no files in memory.
  bool ReadPicture(std::string_view file, std::vector<std::uint8_t>& bytes,
                   std::string& reason) override;

 private:
  std::filesystem::path folder_;
  std::optional<std::string> kept_name_;  // of the picture in kept_
  Bitmap kept_;
};

}  // namespace vellumark::tools
