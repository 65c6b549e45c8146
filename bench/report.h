// SPDX-License-Identifier: MIT
//
// Report: the results of a benchmark as one table of ratios and goals.
//
//     measure                             vellumark               peer      ratio    goal
//     text, 40 pages x 40 lines       1.63 M calls/s   libharu 0.51 M calls/s   3.20  >= 2.0  met
//
// It replaces the report of the benchmark library. A benchmark keeps its row while it runs, and the
// row is printed when it has ended. The library may run a benchmark several times to find out how
// many iterations it needs; each run replaces the row of the one before.
#pragma once

#include <benchmark/benchmark.h>
#include <string>
#include <utility>
#include <vector>

namespace vellumark::bench {

/// The bound that a ratio should meet.
struct Goal {
  enum class Kind { None, AtLeast, AtMost };
  Kind kind = Kind::None;
  double bound = 0;
};

struct Row {
  std::string measure;
  std::string ours;
  std::string peer;
  double ratio = 0;
  Goal goal;
};

class Report : public benchmark::BenchmarkReporter {
 public:
  void Keep(Row row) { row_ = std::move(row); }

  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;

 private:
  Row row_;
};

/// "1.63 M calls/s", "12.3 k calls/s"
[[nodiscard]] std::string CallsPerSecond(double calls, double seconds);

/// "1.63 ms", "163 ns"
[[nodiscard]] std::string Duration(double seconds);

[[nodiscard]] std::string Memory(double kib);

}  // namespace vellumark::bench
