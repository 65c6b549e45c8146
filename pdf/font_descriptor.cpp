// SPDX-License-Identifier: MIT
#include "pdf/font_descriptor.h"

#include <cstddef>

#include "pdf/wrapped_words.h"

namespace vellumark::pdf {
namespace {

constexpr int kFirstFont = 4;

constexpr std::array<FontDescriptor, 8> kDescriptors = {{
    {32, {-166, -225, 1000, 931}, 0, 718, -207, 718, 88},
    {32, {-170, -228, 1003, 962}, 0, 718, -207, 718, 140},
    {96, {-170, -225, 1116, 931}, -12, 718, -207, 718, 88},
    {96, {-174, -228, 1114, 962}, -12, 718, -207, 718, 140},
    {34, {-168, -218, 1000, 898}, 0, 683, -217, 662, 84},
    {34, {-168, -218, 1000, 935}, 0, 683, -217, 676, 139},
    {98, {-169, -217, 1010, 883}, -15.5, 683, -217, 653, 76},
    {98, {-200, -218, 996, 921}, -15, 683, -217, 669, 121},
}};

}  // namespace

const FontDescriptor& DescriptorOf(int font) noexcept {
  return kDescriptors[static_cast<std::size_t>(font - kFirstFont)];
}

std::string WidthsArray(const layout::CodeWidths& widths, int first, int last) {
  WrappedWords words("[");
  for (int code = first; code <= last; ++code) {
    words.Add(std::to_string(widths[static_cast<std::size_t>(code)]));
  }
  words.Add("]");
  return words.Text();
}

}  // namespace vellumark::pdf
