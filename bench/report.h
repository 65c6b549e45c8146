// SPDX-License-Identifier: MIT
//
// Report: what was measured, as one table of ratios and goals.
//
//     measure                             vellumark               peer      ratio    goal
//     text, 40 pages x 40 lines       1.63 M calls/s   libharu 0.51 M calls/s   3.20  >= 2.0  met
//
// It takes the place of the benchmark library's own report. A benchmark keeps its row while it
// runs, and that is printed when it has ended; one that the library runs again, to find out how
// often it must, keeps a new row in place of the old.
#pragma once

#include <benchmark/benchmark.h>
#include <string>
#include <utility>
#include <vector>

namespace vellumark::bench {

/// What a ratio should be.
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
