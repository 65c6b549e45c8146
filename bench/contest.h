// SPDX-License-Identifier: MIT
//
// Contest: contestants measured in turn, so that they can be compared on a busy machine.
//
//     Contest contest({[] { return Seconds(WriteOurs); }, [] { return Seconds(WriteTheirs); }});
//     while (...) contest.Round();
//     contest.Ratio(0, 1)      // ours to theirs
//
// If the machine is slow for a while, all contestants of a round are slow: a ratio is taken within
// each round, and the median of these ratios is the result. Every round reverses the order.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <vector>

namespace vellumark::bench {

class Contest {
 public:
  /// Does its work once and returns its value, such as the seconds that it took.
  using Contestant = std::function<double()>;

  /// Runs every contestant once without measuring, to load code and fill caches.
  explicit Contest(std::vector<Contestant> contestants);

  /// Measures every contestant once.
  void Round();

  /// The median of the values of one contestant.
  [[nodiscard]] double Value(std::size_t contestant) const;

  /// The median over the rounds of the ratio of the two values.
  [[nodiscard]] double Ratio(std::size_t one, std::size_t other) const;

 private:
  std::vector<Contestant> contestants_;
  std::vector<std::vector<double>> values_;  // by contestant, then by round
};

/// How long `work` takes.
template <class Work>
double Seconds(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace vellumark::bench
