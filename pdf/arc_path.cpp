// SPDX-License-Identifier: MIT
#include "pdf/arc_path.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "layout/rounding.h"

namespace vellumark::pdf {
namespace {

constexpr double kFullTurn = 360.0;
constexpr double kLargestPart = 180.0;
constexpr double kLargestSegment = 90.0;

double Radians(double degrees) { return degrees * std::numbers::pi / 180.0; }

/// Appends the arc from `from` over `span` degrees in equal segments.
void AppendPart(ArcPath& path, document::PagePoint center, layout::Points radius, double from,
                double span) {
  const int count = static_cast<int>(std::ceil(span / kLargestSegment));
  if (count == 0) return;
  const auto x = static_cast<double>(center.x.value());
  const auto y = static_cast<double>(center.y.value());
  const auto r = static_cast<double>(radius.value());
  const double step = span / count;
  const double control = r * ArcControl(0, Radians(step));
  for (int i = 0; i < count; ++i) {
    const double a = Radians(from + i * step);
    const double b = Radians(from + (i + 1) * step);
    path.segments.push_back(
        {x + r * std::cos(a) - control * std::sin(a), y + r * std::sin(a) + control * std::cos(a),
         x + r * std::cos(b) + control * std::sin(b), y + r * std::sin(b) - control * std::cos(b),
         x + r * std::cos(b), y + r * std::sin(b)});
  }
}

}  // namespace

float ArcControl(double from, double to) {
  const double half = (to - from) / 2;
  return static_cast<float>(4 * (1 - std::cos(half)) / std::sin(half) / 3);
}

int RoundedPoints(float value) { return layout::RoundHalfEven(value); }

ArcPath BuildArc(document::PagePoint center, layout::Points radius, float th1, float th2) {
  const float difference = th2 - th1;
  if (!std::isfinite(difference)) throw RunTimeError(RunTimeError::Overflow);
  double span = difference < 0 ? difference + kFullTurn : difference;
  if (span > 2 * kFullTurn) span = kFullTurn + std::fmod(span, kFullTurn);

  ArcPath path;
  const double start = Radians(th1);
  const auto r = static_cast<double>(radius.value());
  path.start_x = center.x.value() + r * std::cos(start);
  path.start_y = center.y.value() + r * std::sin(start);
  const double first = std::min(span, kLargestPart);
  AppendPart(path, center, radius, th1, first);
  AppendPart(path, center, radius, th1 + first, span - first);
  return path;
}

}  // namespace vellumark::pdf
