// SPDX-License-Identifier: MIT
#include "bench/contest.h"

#include <algorithm>
#include <utility>

namespace vellumark::bench {
namespace {

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace

Contest::Contest(std::vector<Contestant> contestants)
    : contestants_(std::move(contestants)), values_(contestants_.size()) {
  for (const Contestant& contestant : contestants_) contestant();
}

void Contest::Round() {
  const std::size_t count = contestants_.size();
  const bool backwards = values_.front().size() % 2 == 1;
  for (std::size_t turn = 0; turn < count; ++turn) {
    const std::size_t i = backwards ? count - 1 - turn : turn;
    values_[i].push_back(contestants_[i]());
  }
}

double Contest::Value(std::size_t contestant) const { return Median(values_[contestant]); }

double Contest::Ratio(std::size_t one, std::size_t other) const {
  std::vector<double> ratios;
  for (std::size_t round = 0; round < values_[one].size(); ++round) {
    ratios.push_back(values_[one][round] / values_[other][round]);
  }
  return Median(std::move(ratios));
}

}  // namespace vellumark::bench
