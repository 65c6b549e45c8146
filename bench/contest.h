// SPDX-License-Identifier: MIT
//
// Contest: contestants measured in turn, so that they can be compared on a busy machine.
//
//     Contest contest({[] { return Seconds(WriteOurs); }, [] { return Seconds(WriteTheirs); }});
//     while (...) contest.Round();
//     contest.Ratio(0, 1)      // ours to theirs
//
// What slows the machine down for a while slows down all contestants of a round alike: a ratio is
// taken within each round, and the median of the rounds' ratios is the result. The order turns
// round with each round.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <vector>

namespace vellumark::bench {

class Contest {
 public:
  /// Does its work once and answers its value, such as the seconds it took.
  using Contestant = std::function<double()>;

  /// Lets everybody run once unmeasured, to load code and fill caches.
  explicit Contest(std::vector<Contestant> contestants);

  /// Measures every contestant once.
  void Round();

  /// Median of the values of one contestant.
  [[nodiscard]] double Value(std::size_t contestant) const;

  /// Median over the rounds of the value of one to that of the other.
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
