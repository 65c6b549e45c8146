// SPDX-License-Identifier: MIT
//
// ArcPath: a circular arc as Bézier segments of at most 90 degrees, counter-clockwise.
#pragma once

#include <vector>

#include "document/writer.h"

namespace vellumark::pdf {

/// Distance of a Bézier segment's control points from its ends, for a radius of 1 and a segment
/// from angle `from` to `to` (radians): 4/3 (1 - cos(span/2)) / sin(span/2), in double precision
/// and kept in single. `from` and `to` differ.
[[nodiscard]] float ArcControl(double from, double to);

/// A whole number of points from a value in single precision, ties to even.
[[nodiscard]] int RoundedPoints(float value);

/// One "c" operator: two control points and the end.
struct ArcSegment {
  double control1_x = 0;
  double control1_y = 0;
  double control2_x = 0;
  double control2_y = 0;
  double end_x = 0;
  double end_y = 0;
};

struct ArcPath {
  double start_x = 0;
  double start_y = 0;
  std::vector<ArcSegment> segments;
};

/// The arc of a slice whose angles (degrees) are normalized. Where th2 lies below th1 the arc runs
/// through 0 degrees. A span above 180 degrees is built in two parts, split at th1 + 180; each part
/// has the fewest equal segments. Full turns beyond the second, which negative angles can ask for,
/// would only repeat the path and are left out. Raises run-time error 6 for angles that are no
/// numbers.
[[nodiscard]] ArcPath BuildArc(document::PagePoint center, layout::Points radius, float th1,
                               float th2);

}  // namespace vellumark::pdf
