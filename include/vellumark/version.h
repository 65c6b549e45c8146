// SPDX-License-Identifier: MIT
//
// The version of these headers, for hosts that compile against more than one:
//
//     #if VELLUMARK_VERSION_MAJOR > 1 ...
//
// The three numbers below are the one place of the version number: the build, the packages, the
// Python module and the command-line host take it from here.
#pragma once

#define VELLUMARK_VERSION_MAJOR 1
#define VELLUMARK_VERSION_MINOR 0
#define VELLUMARK_VERSION_PATCH 0

#define VELLUMARK_VERSION_TEXT_OF(number) #number
#define VELLUMARK_VERSION_JOIN(major, minor, patch) \
  VELLUMARK_VERSION_TEXT_OF(major)                  \
  "." VELLUMARK_VERSION_TEXT_OF(minor) "." VELLUMARK_VERSION_TEXT_OF(patch)

/// "1.0.0"
#define VELLUMARK_VERSION_STRING \
  VELLUMARK_VERSION_JOIN(VELLUMARK_VERSION_MAJOR, VELLUMARK_VERSION_MINOR, VELLUMARK_VERSION_PATCH)
