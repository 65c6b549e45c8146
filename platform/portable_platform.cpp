// SPDX-License-Identifier: MIT
#include <vellumark/portable_platform.h>

#include "platform/library_identity.h"
#include "platform/picture_decoder.h"
#include "platform/picture_file.h"
#include "platform/system_clock.h"
#include "platform/width_resources.h"
#include "platform/windows_1252.h"

namespace vellumark {

bool PortablePlatform::DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) {
  platform::PictureFile picture;
  if (picture.Read(file, reason)) return DecodePictureBytes(picture.Bytes(), bitmap, reason);
  bitmap = {};
  return false;
}

bool PortablePlatform::DecodePictureBytes(std::span<const std::uint8_t> bytes, Bitmap& bitmap,
                                          std::string& reason) const {
  reason = platform::DecodePicture(bytes, greatest_picture_, bitmap);
  return reason.empty();
}

LocalTime PortablePlatform::Now() { return platform::SystemLocalTime(); }

std::string_view PortablePlatform::ToCodePage(std::string_view utf8, std::string& storage) {
  return platform::ToWindows1252(utf8, storage);
}

std::span<const std::uint8_t> PortablePlatform::WidthResource(int number) {
  return platform::WidthResource(number);
}

std::string_view PortablePlatform::Title() { return kTitle; }

std::string_view PortablePlatform::LegalNotice() { return kLegalNotice; }

}  // namespace vellumark
