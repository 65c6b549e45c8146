// SPDX-License-Identifier: MIT
//
// What the leak checker of sanitized builds leaves out: fontconfig does not free all that it makes
// of its own configuration.

// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming): the checker's names
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }

extern "C" const char* __lsan_default_options();
extern "C" const char* __lsan_default_options() { return "print_suppressions=0"; }
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)
