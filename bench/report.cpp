// SPDX-License-Identifier: MIT
#include "bench/report.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <string_view>

namespace vellumark::bench {
namespace {

constexpr const char* kColumns = "%-44s %15s %26s %7s   %-7s %s\n";

std::string Number(double value) {
  std::array<char, 32> text{};
  const int decimals = value < 10 ? 2 : value < 100 ? 1 : 0;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::fixed, decimals);
  return {text.data(), end.ptr};
}

std::string GoalText(const Goal& goal) {
  if (goal.kind == Goal::Kind::None) return "-";
  return (goal.kind == Goal::Kind::AtLeast ? ">= " : "<= ") + Number(goal.bound);
}

const char* Verdict(const Row& row) {
  switch (row.goal.kind) {
    case Goal::Kind::AtLeast: return row.ratio >= row.goal.bound ? "met" : "MISSED";
    case Goal::Kind::AtMost: return row.ratio <= row.goal.bound ? "met" : "MISSED";
    default: return "for information";
  }
}

}  // namespace

bool Report::ReportContext(const Context& /*context*/) {
  std::printf(kColumns, "measure", "vellumark", "peer", "ratio", "goal", "");
  return true;
}

void Report::ReportRuns(const std::vector<Run>& /*runs*/) {
  std::printf(kColumns, row_.measure.c_str(), row_.ours.c_str(), row_.peer.c_str(),
              Number(row_.ratio).c_str(), GoalText(row_.goal).c_str(), Verdict(row_));
  (void)std::fflush(stdout);
}

std::string CallsPerSecond(double calls, double seconds) {
  const double rate = calls / seconds;
  return rate >= 1e6 ? Number(rate / 1e6) + " M calls/s" : Number(rate / 1e3) + " k calls/s";
}

std::string Duration(double seconds) {
  if (seconds < 1e-6) return Number(seconds * 1e9) + " ns";
  if (seconds < 1e-3) return Number(seconds * 1e6) + " us";
  return Number(seconds * 1e3) + " ms";
}

std::string Memory(double kib) { return Number(kib / 1024) + " MiB"; }

}  // namespace vellumark::bench
