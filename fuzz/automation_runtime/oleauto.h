// SPDX-License-Identifier: MIT
//
// See windows.h beside it.
#pragma once

#include "windows.h"
