// SPDX-License-Identifier: MIT
#include <vellumark/posix_platform.h>

#include "api/document_parts.h"

namespace vellumark {

std::shared_ptr<Platform> NativePlatform() { return std::make_shared<PosixPlatform>(); }

}  // namespace vellumark
