// SPDX-License-Identifier: MIT
#include "tests/failing_allocations.h"

#include <cstdlib>
#include <new>

namespace vellumark::tests {
namespace {

thread_local int until_failure = 0;

void* Allocate(std::size_t size) {
  if (until_failure > 0 && --until_failure == 0) throw std::bad_alloc();
  if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

bool FailAllocation(int number) noexcept {
  const bool pending = until_failure > 0;
  until_failure = number;
  return pending;
}

}  // namespace vellumark::tests

void* operator new(std::size_t size) { return vellumark::tests::Allocate(size); }
void* operator new[](std::size_t size) { return vellumark::tests::Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
