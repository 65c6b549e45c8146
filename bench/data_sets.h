// SPDX-License-Identifier: MIT
//
// Data of the kinds that documents contain, made from a seed: the same bytes on every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vellumark::bench {

struct DataSet {
  std::string name;
  std::vector<std::uint8_t> bytes;
};

/// Prose-like text: words of a made-up language, the common ones short and frequent, in sentences.
DataSet Prose(std::size_t size);

/// Photo-like RGB samples: smooth shapes and shading under sensor noise.
DataSet Photo(std::size_t size);

/// Palette-index screens: windows, frames, rules and lines of small type.
DataSet Screens(std::size_t size);

}  // namespace vellumark::bench
