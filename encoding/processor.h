// SPDX-License-Identifier: MIT
//
// Instructions that only some processors have. A function with them is compiled for those
// processors, whatever the build is for, and is called where the processor says that it has them:
//
//     #if defined(VELLUMARK_ASKS_PROCESSOR)
//     __attribute__((target("avx2"))) void AddWide(...) { ... _mm256_add_epi32(a, b) ... }
//     #endif
//     ...
//     if (HasVectorsOf32()) return AddWide(...);
//     return AddPortable(...);
//
// Not on Windows: gcc lays wide vectors on the stack there as if it were aligned for them.
#pragma once

#if defined(__GNUC__) && defined(__x86_64__) && !defined(_WIN32)
#define VELLUMARK_ASKS_PROCESSOR 1
#include <immintrin.h>

namespace vellumark::encoding {

/// AVX2.
inline bool HasVectorsOf32() noexcept { return __builtin_cpu_supports("avx2") != 0; }

/// The parts of AVX-512 that look up 64 bytes at once in a table of 128: the target
/// "avx512bw,avx512vbmi".
inline bool HasByteTables() noexcept { return __builtin_cpu_supports("avx512vbmi") != 0; }

}  // namespace vellumark::encoding

#endif
