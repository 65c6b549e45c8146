// SPDX-License-Identifier: MIT
//
// PortablePlatform: the operations that are alike wherever the system offers nothing better of its
// own: Windows-1252 as code page, the linked-in width resources, the title and the legal notice,
// and the C library's clock. Files and the notice are left to the platform that derives from it.
#pragma once

#include "platform/platform.h"

namespace vellumark {

inline constexpr std::string_view kTitle = "Vellumark";
inline constexpr std::string_view kLegalNotice = "Copyright © 2026 Vellumark";

class VELLUMARK_API PortablePlatform : public Platform {
 public:
  LocalTime Now() override;
  std::string_view ToCodePage(std::string_view utf8, std::string& storage) override;
  std::span<const std::uint8_t> WidthResource(int number) override;
  std::string_view Title() override;
  std::string_view LegalNotice() override;
};

}  // namespace vellumark
