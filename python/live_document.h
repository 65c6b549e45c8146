// SPDX-License-Identifier: MIT
//
// LiveDocument: a PDF or PS as Python holds it, with what Python wants to know about it.
//
//     LiveDocument document(Class::PDF, LiveDocument::Output::Memory);
//     document.Call(create, arguments);
//     if (document.unflushed()) ...
//
// A document belongs to one thread at a time. Flush and DrawPicture run without the interpreter
// lock, so another thread may come along meanwhile: its call gets a RuntimeError, and the document
// is not touched.
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

  /// The host does not want it any more: from now on it does not count as unflushed, and its file
  /// is closed, empty, so that it can be created again while somebody keeps the document.
  void GiveUp() noexcept;

  /// Why the latest Create was refused; empty if it was not.
  [[nodiscard]] const std::string& create_refusal() const noexcept { return create_refusal_; }

  /// The bytes of the file that was created last, which is then forgotten; nothing where there is
  /// none in memory or Flush has not closed it.
  [[nodiscard]] std::optional<std::string> TakeFile();

 private:
  class Use;

  void NoteCreate(bool created, std::string& file);
  Document& document();

  std::shared_ptr<MemoryPlatform> memory_;  // one of the two
  std::shared_ptr<PosixPlatform> files_;
  std::variant<PDF, PS> document_;
  std::optional<std::string> file_;
  std::string create_refusal_;
  bool unflushed_ = false;
  bool in_use_ = false;
};

}  // namespace vellumark::python
