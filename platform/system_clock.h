// SPDX-License-Identifier: MIT
#pragma once

#include <vellumark/platform.h>

namespace vellumark::platform {

/// The system's local date and time. Where the environment variable SOURCE_DATE_EPOCH holds a
/// number of seconds since 1970 (in years 0 to 9999), that moment in UTC instead, so that builds
/// that make documents can be reproduced.
[[nodiscard]] LocalTime SystemLocalTime();

}  // namespace vellumark::platform
