// SPDX-License-Identifier: MIT
//
// FailingAllocations: the n-th allocation of this thread fails, once.
//
//     FailAllocation(3);                 // the third `new` from here on throws std::bad_alloc
//     doc.WriteText("x");
//     const bool reached = !FailAllocation(0);
#pragma once

namespace vellumark::tests {

/// Lets the `number`-th allocation from here on fail; none for 0. Returns whether an allocation was
/// still to fail, which was then not reached.
bool FailAllocation(int number) noexcept;

}  // namespace vellumark::tests
