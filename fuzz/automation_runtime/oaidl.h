// SPDX-License-Identifier: MIT
//
// See windows.h beside it.
#pragma once

#include "fuzz/automation_runtime/windows.h"
