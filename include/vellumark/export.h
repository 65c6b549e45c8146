// SPDX-License-Identifier: MIT
//
// VELLUMARK_API marks what a shared build of the library exports.
#pragma once

#if defined(_WIN32)
#define VELLUMARK_API
#else
#define VELLUMARK_API __attribute__((visibility("default")))
#endif
