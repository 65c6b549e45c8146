// SPDX-License-Identifier: MIT
//
// Reads any bytes as a picture file, all the way to samples.
#include <cstdint>
#include <cstdlib>
#include <string>

#include <vellumark/memory_platform.h>
#include <vellumark/run_time_error.h>

#include "layout/picture.h"
#include "layout/picture_alpha.h"

using vellumark::layout::Picture;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::int32_t kGreatest = 1 << 22;  // larger ones take longer and find nothing more
  vellumark::MemoryPlatform memory;
  memory.SetGreatestPicture(kGreatest);
  memory.PutFile("picture", std::string(reinterpret_cast<const char*>(data), size));
  Picture picture;
  std::string reason;
  try {
    if (!vellumark::layout::LoadPicture(
            memory, "picture", vellumark::layout::DeepSamples::AsTheyAre, picture, reason)) {
      if (reason.empty()) std::abort();
      return 0;
    }
  } catch (const vellumark::RunTimeError&) {
    return 0;  // a row that is too long
  }
  if (!picture.alpha.empty()) {
    const auto width = static_cast<std::size_t>(picture.width);
    if (picture.alpha.size() != width * static_cast<std::size_t>(picture.height)) std::abort();
    vellumark::layout::ComposeOver({1, 2, 3}, picture);
  }
  // Reads every byte, so that a sanitizer finds one that was never written.
  std::uint32_t sum = 0;
  for (const std::uint8_t sample : picture.samples) sum = sum * 31 + sample;
  for (const std::uint8_t part : picture.palette) sum = sum * 31 + part;
  const std::size_t bits = static_cast<std::size_t>(picture.width) * picture.bits_per_pixel;
  if (picture.samples.size() < bits / 8 * static_cast<std::size_t>(picture.height)) std::abort();
  return sum == 0 && picture.samples.empty() ? -1 : 0;
}
