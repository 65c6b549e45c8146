// SPDX-License-Identifier: MIT
#include <vellumark/windows_platform.h>

#include "api/document_parts.h"

namespace vellumark {

std::shared_ptr<Platform> NativePlatform() { return std::make_shared<WindowsPlatform>(); }

}  // namespace vellumark
