// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace vellumark::platform {

/// The data resource (RT_RCDATA) `number` of the module that this code is linked into, which is the
/// DLL where the program has resources of its own. Empty where there is none. The bytes live as
/// long as the module is loaded.
[[nodiscard]] std::span<const std::uint8_t> WindowsResource(int number) noexcept;

}  // namespace vellumark::platform
