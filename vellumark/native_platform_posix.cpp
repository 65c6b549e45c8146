// SPDX-License-Identifier: MIT
#include "platform/posix_platform.h"
#include "vellumark/document_parts.h"

namespace vellumark {

std::shared_ptr<Platform> NativePlatform() { return std::make_shared<PosixPlatform>(); }

}  // namespace vellumark
