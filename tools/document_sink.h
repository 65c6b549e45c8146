// SPDX-License-Identifier: MIT
//
// DocumentSink: where a conversion writes its document.
//
//     document.Create(sink.Begin());
//     ...
//     document.Flush();
//     sink.CheckWritten();
#pragma once

#include <ostream>

namespace vellumark::tools {

/// Where a document goes. It may have to be set again: then it begins anew.
class DocumentSink {
 public:
  DocumentSink() = default;
  DocumentSink(const DocumentSink&) = delete;
  DocumentSink& operator=(const DocumentSink&) = delete;
  DocumentSink(DocumentSink&&) = delete;
  DocumentSink& operator=(DocumentSink&&) = delete;
  virtual ~DocumentSink() = default;

  /// A stream for all bytes of a document; those that an earlier stream was given are forgotten.
  [[nodiscard]] virtual std::ostream& Begin() = 0;

  /// Throws Failure, with the reason, if the stream has failed.
  virtual void CheckWritten() const = 0;
};

}  // namespace vellumark::tools
