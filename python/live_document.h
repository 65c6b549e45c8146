// SPDX-License-Identifier: MIT
//
// LiveDocument: a PDF or PS as Python holds it, with the state that only Python needs.
//
//     LiveDocument document(Class::PDF, LiveDocument::Output::Memory);
//     document.Call(create, arguments);
//     if (document.unflushed()) ...
//
// One thread at a time may use a document. Members that take long run without the interpreter lock,
// so another thread may call the document meanwhile: that call raises RuntimeError and does not
// touch the document.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <variant>

#include <vellumark/posix_platform.h>
#include <vellumark/vellumark.h>

#include "automation/member_table.h"

namespace vellumark::python {

class LiveDocument {
 public:
  enum class Output : std::uint8_t { Files, Memory };

  LiveDocument(automation::Class document_class, Output output);

  [[nodiscard]] automation::Class document_class() const noexcept {
    return std::holds_alternative<PDF>(document_) ? automation::Class::PDF : automation::Class::PS;
  }

  /// Calls `member` by its `call` or `let`. The document must be of a class that has it, and the
  /// interpreter lock must be held.
  automation::Value Call(const automation::Member& member, automation::Member::Call call,
                         std::span<automation::Value> arguments);

  /// Whether Create succeeded and Flush has not been called since.
  [[nodiscard]] bool unflushed() const noexcept { return unflushed_; }

  /// Abandons the document: it no longer counts as unflushed, and its file is closed empty, so that
  /// the file can be created again while the document still exists.
  void GiveUp() noexcept;

  /// The most bytes that decoding a picture may take. Both throw if another thread is using the
  /// document.
  [[nodiscard]] std::int32_t greatest_picture();
  void set_greatest_picture(std::int32_t bytes);

  /// Why the last Create was refused; empty if it was not.
  [[nodiscard]] const std::string& create_refusal() const noexcept { return create_refusal_; }

  /// The bytes of the file that was created last, which is then forgotten; nothing if there is no
  /// file in memory or Flush has not completed it.
  [[nodiscard]] std::optional<std::string> TakeFile();

 private:
  class Use;

  void NoteCreate(bool created, std::string& file);
  Document& document();
  PortablePlatform& platform() noexcept;

  std::shared_ptr<MemoryPlatform> memory_;  // exactly one of the two is set
  std::shared_ptr<PosixPlatform> files_;
  std::variant<PDF, PS> document_;
  std::optional<std::string> file_;
  std::string create_refusal_;
  bool unflushed_ = false;
  bool in_use_ = false;
};

}  // namespace vellumark::python
