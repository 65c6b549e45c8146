// SPDX-License-Identifier: MIT
#include "encoding/match_finder.h"

namespace vellumark::encoding {

std::uint32_t MatchFinder::Slide() {
  const auto rebase = [](std::uint16_t& position) {
    position =
        static_cast<std::uint16_t>(std::max<std::uint32_t>(position, kWindowStep) - kWindowStep);
  };
  for (std::uint16_t& position : newest_) rebase(position);
  for (std::uint16_t& position : previous_) rebase(position);
  window_ += kWindowStep;
  end_ -= kWindowStep;
  return kWindowStep;
}

}  // namespace vellumark::encoding
