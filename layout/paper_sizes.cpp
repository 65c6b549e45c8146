// SPDX-License-Identifier: MIT
#include "layout/paper_sizes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vellumark::layout {
namespace {

struct Row {
  PaperSizeConstants papersize;
  Paper paper;
};

// Ledger is the Tabloid sheet turned: in Portrait it is wider than high.
constexpr std::array<Row, 9> kPapers = {{
    {PaperSizeConstants::A3, {842, 1191, "A3"}},
    {PaperSizeConstants::A4, {595, 842, "A4"}},
    {PaperSizeConstants::A5, {420, 595, "A5"}},
    {PaperSizeConstants::Executive, {522, 756, "Executive"}},
    {PaperSizeConstants::Folio, {595, 935, "Folio"}},
    {PaperSizeConstants::Ledger, {1224, 792, "Ledger"}},
    {PaperSizeConstants::Legal, {612, 1008, "Legal"}},
    {PaperSizeConstants::Letter, {612, 792, "Letter"}},
    {PaperSizeConstants::Tabloid, {792, 1224, "Tabloid"}},
}};

const Row* Find(PaperSizeConstants papersize) noexcept {
  const auto* const row = std::find_if(kPapers.begin(), kPapers.end(),
                                       [=](const Row& r) { return r.papersize == papersize; });
  return row == kPapers.end() ? nullptr : row;
}

}  // namespace

bool IsPaperSize(PaperSizeConstants papersize) noexcept { return Find(papersize) != nullptr; }

void GetPaperDimensions(PaperSizeConstants papersize, OrientationConstants orientation,
                        Paper& paper) noexcept {
  if (const Row* const row = Find(papersize)) paper = row->paper;
  if (orientation == OrientationConstants::Landscape) std::swap(paper.width, paper.height);
}

}  // namespace vellumark::layout
