// SPDX-License-Identifier: MIT
#include "python/live_document.h"

#include <algorithm>
#include <pybind11/pybind11.h>
#include <stdexcept>
#include <utility>

#include "python/unlocked_call.h"

namespace vellumark::python {
namespace {

using automation::Class;
using automation::Member;
using automation::Parameter;
using automation::Value;

std::variant<PDF, PS> Make(Class document_class, std::shared_ptr<Platform> platform) {
  if (document_class == Class::PDF) return PDF(std::move(platform));
  return PS(std::move(platform));
}

/// The argument that names the file which `member` creates.
std::string& CreatedFile(const Member& member, std::span<Value> arguments) {
  const auto parameters = member.parameters();
  const auto found = std::ranges::find_if(parameters, &Parameter::file_name);
  return std::get<std::string>(arguments[static_cast<std::size_t>(found - parameters.begin())]);
}

}  // namespace

/// Marks the document as in use, under the interpreter lock.
class LiveDocument::Use {
 public:
  explicit Use(LiveDocument& owner) : owner_(owner) {
    if (owner.in_use_) {
      throw std::runtime_error("the document is in use by another thread");
    }
    owner.in_use_ = true;
  }
  ~Use() { owner_.in_use_ = false; }
  Use(const Use&) = delete;
  Use& operator=(const Use&) = delete;
  Use(Use&&) = delete;
  Use& operator=(Use&&) = delete;

 private:
  LiveDocument& owner_;
};

LiveDocument::LiveDocument(Class document_class, Output output)
    : memory_(output == Output::Memory ? std::make_shared<MemoryPlatform>() : nullptr),
      files_(memory_ ? nullptr : std::make_shared<PosixPlatform>()),
      document_(memory_ ? Make(document_class, memory_) : Make(document_class, files_)) {}

Value LiveDocument::Call(const Member& member, Member::Call call, std::span<Value> arguments) {
  const Use use(*this);
  const auto work = [&] { return call(document(), arguments); };
  Value result = member.facts.takes_long ? UnlockedCall(work) : work();
  if (member.facts.creates_file) {
    NoteCreate(std::get<bool>(result), CreatedFile(member, arguments));
  }
  if (member.facts.completes_file) unflushed_ = false;
  return result;
}

void LiveDocument::NoteCreate(bool created, std::string& file) {
  if (created) {
    file_ = std::move(file);
    unflushed_ = true;
    create_refusal_.clear();
    return;
  }
  Refusal refusal = document().LastRefusal();
  create_refusal_ = std::move(refusal.sentence);
  // A PS then forgets the file that was open before, so nothing is left to flush.
  if (document_class() == Class::PS && refusal.reason == RefusalReason::FileNotCreated) {
    unflushed_ = false;
  }
}

void LiveDocument::GiveUp() noexcept {
  unflushed_ = false;
  // If a thread is still in Flush, the file closes with the document instead.
  if (files_ && !in_use_) files_->CloseAll();
}

std::optional<std::string> LiveDocument::TakeFile() {
  const Use use(*this);
  if (!memory_ || !file_ || unflushed_) return std::nullopt;
  return memory_->TakeFile(*std::exchange(file_, std::nullopt));
}

std::int32_t LiveDocument::greatest_picture() {
  const Use use(*this);
  return platform().GreatestPicture();
}

void LiveDocument::set_greatest_picture(std::int32_t bytes) {
  const Use use(*this);
  platform().SetGreatestPicture(bytes);
}

PortablePlatform& LiveDocument::platform() noexcept {
  return memory_ ? static_cast<PortablePlatform&>(*memory_) : *files_;
}

Document& LiveDocument::document() {
  return std::visit([](Document& document) -> Document& { return document; }, document_);
}

}  // namespace vellumark::python
