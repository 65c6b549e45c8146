// SPDX-License-Identifier: MIT
//
// Face: a font as text is set in it.
#pragma once

#include <cstddef>
#include <cstdint>

#include <vellumark/enumerations.h>

namespace vellumark::tools {

struct Face {
  FontNumberConstants family = FontNumberConstants::Times;  ///< Courier, Helvetica or Times
  FontStyleConstants style = FontStyleConstants::Regular;
  std::uint8_t size = 11;

  friend bool operator==(const Face&, const Face&) = default;
};

/// The number of a face's family and style: 0 to 11.
[[nodiscard]] constexpr std::size_t FaceIndex(const Face& face) {
  return (static_cast<std::size_t>(face.family) - 1) * 4 + static_cast<std::size_t>(face.style) - 1;
}

}  // namespace vellumark::tools
