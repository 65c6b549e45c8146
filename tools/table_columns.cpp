// SPDX-License-Identifier: MIT
#include "tools/table_columns.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace vellumark::tools {
namespace {

int Sum(const std::vector<int>& values) { return std::accumulate(values.begin(), values.end(), 0); }

/// Distributes what is left of `room` over `widths`, so that none gets more than it `wants`.
void Distribute(std::vector<int>& widths, const std::vector<int>& wants, int room) {
  std::int64_t rest = room - Sum(widths);
  std::int64_t wanted = Sum(wants) - Sum(widths);
  for (std::size_t i = 0; i < widths.size() && wanted > 0 && rest > 0; ++i) {
    const std::int64_t want = wants[i] - widths[i];
    const std::int64_t share = std::min(want, rest * want / wanted);
    widths[i] += static_cast<int>(share);
    rest -= share;
    wanted -= want;
  }
}

}  // namespace

bool FitsUnbroken(const std::vector<ColumnNeed>& needs, int room) {
  int sum = 0;
  for (const ColumnNeed& need : needs) sum += need.least;
  return sum <= room;
}

std::vector<int> ChooseWidths(const std::vector<ColumnNeed>& needs, int room) {
  const int share = room / static_cast<int>(std::max<std::size_t>(needs.size(), 1));
  std::vector<int> widths;
  std::vector<int> least;
  std::vector<int> natural;
  for (const ColumnNeed& need : needs) {
    widths.push_back(std::min(need.least, share));  // in any case
    least.push_back(need.least);
    natural.push_back(need.natural);
  }
  Distribute(widths, least, room);
  Distribute(widths, natural, room);
  return widths;
}

std::size_t ColumnsSideBySide(const std::vector<ColumnNeed>& needs, std::size_t first,
                              int narrowest, int room) {
  int sum = 0;
  std::size_t end = first;
  for (; end < needs.size(); ++end) {
    sum += std::min(needs[end].least, narrowest);
    if (sum > room) break;
  }
  return std::max<std::size_t>(end - first, 1);
}

}  // namespace vellumark::tools
