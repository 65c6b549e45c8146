// SPDX-License-Identifier: MIT
#include "api/document_parts.h"
#include "ps/ps_writer.h"

namespace vellumark {
namespace {

std::unique_ptr<document::Writer> MakePsWriter(const document::State& state,
                                               document::LineBuffer& lines) {
  return std::make_unique<ps::PsWriter>(state, lines);
}

}  // namespace

PS::PS() : PS(NativePlatform()) {}

PS::PS(std::shared_ptr<Platform> platform)
    : Document(std::make_unique<Parts>(std::move(platform), "3.0", MakePsWriter)) {}

PS::PS(PS&& other) noexcept = default;
PS& PS::operator=(PS&& other) noexcept = default;
PS::~PS() = default;

}  // namespace vellumark
