// SPDX-License-Identifier: MIT
//
// PicturePlatform: the platform of a conversion. The document stays in memory, pictures come from
// disk, and their size is known before they are drawn, which placing them needs.
//
//     auto platform = std::make_shared<PicturePlatform>("notes");    // the folder of the input
//     PictureSize pixels;
//     std::string reason;
//     if (!platform->Measure("logo.jpg", pixels, reason)) ...        // notes/logo.jpg
//     document.DrawPicture("logo.jpg");
//
// A picture that was measured is kept until it is drawn or another one is measured, so it is
// decoded once. Pictures of 16 and 32 bits per pixel, which documents hold but readers do not show,
// reach the document with 24.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <vellumark/vellumark.h>

namespace vellumark::tools {

struct PictureSize {
  int width = 0;
  int height = 0;
};

/// `size` made smaller, in its own proportions, where it is larger than `box`; at least 1 by 1.
[[nodiscard]] PictureSize FitInto(const PictureSize& box, const PictureSize& size);

class PicturePlatform final : public MemoryPlatform {
 public:
  /// Relative names are looked for in `folder`; empty is the current one.
  explicit PicturePlatform(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// Size of a picture in pixels. False, with a few words of `reason`, where it cannot be loaded.
  [[nodiscard]] bool Measure(std::string_view name, PictureSize& pixels, std::string& reason);

  bool DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) override;

  /// Reads from the folder, and not from the files in memory: the only one there is the document.
  bool ReadPicture(std::string_view file, std::vector<std::uint8_t>& bytes,
                   std::string& reason) override;

 private:
  std::filesystem::path folder_;
  std::optional<std::string> kept_name_;  // of the picture in kept_
  Bitmap kept_;
};

}  // namespace vellumark::tools
