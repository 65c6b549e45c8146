// SPDX-License-Identifier: MIT
//
// Document::Parts: what stands behind a public document: the platform, the shared document model,
// and the writer of its language. Here, and only here, the host's UTF-8 becomes bytes.
#pragma once

#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <vellumark/vellumark.h>

#include "document/document_model.h"
#include "document/line_buffer.h"
#include "document/state.h"
#include "document/writer.h"

namespace vellumark {

/// A text of the host in the platform's code page, for the length of one call.
class CodePageText {
 public:
  CodePageText(Platform& platform, std::string_view utf8)
      : bytes_(platform.ToCodePage(utf8, storage_)) {}
  CodePageText(const CodePageText&) = delete;
  CodePageText& operator=(const CodePageText&) = delete;
  CodePageText(CodePageText&&) = delete;
  CodePageText& operator=(CodePageText&&) = delete;
  ~CodePageText() = default;

  operator std::string_view() const noexcept { return bytes_; }

 private:
  std::string storage_;
  std::string_view bytes_;
};

class Document::Parts {
 public:
  using MakeWriter = std::unique_ptr<document::Writer> (*)(const document::State& state,
                                                           document::LineBuffer& lines);

  Parts(std::shared_ptr<Platform> used_platform, std::string_view format_version,
        MakeWriter make_writer)
      : platform(std::move(used_platform)),
        version(format_version),
        writer(make_writer(state, lines)),
        model(*platform, state, lines, *writer) {}

  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;
  Parts(Parts&&) = delete;
  Parts& operator=(Parts&&) = delete;
  ~Parts() = default;

  [[nodiscard]] document::HostText Keep(std::string_view utf8) const {
    const CodePageText bytes(*platform, utf8);
    return {std::string(utf8), std::string(bytes)};
  }

  /// The public boundary: runs `call`, which returns the note of what it refused, keeps that note
  /// for LastRefusal, and returns whether there was nothing to refuse.
  template <class Call>
  bool Run(const Call& call) noexcept {
    try {
      refusal_ = call();
    } catch (const NumberOutOfRange& error) {
      refusal_ =
          document::RefusalNote{RefusalReason::NumberOutOfRange, error.given(), error.greatest()};
    } catch (const std::exception& error) {
      refusal_ = document::FaultNote(error);
    }
    return !refusal_.note;
  }

  [[nodiscard]] Refusal LastRefusal() const {
    return {refusal_.note.reason, document::Sentence(refusal_.note, refusal_.detail)};
  }

  bool WriteText(std::string_view text, bool carriagereturn, Byte dy, AlignmentConstants alignment,
                 std::string_view hyperlink) noexcept {
    return Run([&] {
      const CodePageText bytes(*platform, text);
      const CodePageText link(*platform, hyperlink);
      return model.WriteText({bytes, carriagereturn, dy.value(), alignment, link});
    });
  }

  bool WriteTitle(std::string_view text, AlignmentConstants alignment, BulletConstants bullet,
                  std::string_view hyperlink) noexcept {
    return Run([&] {
      const CodePageText bytes(*platform, text);
      const CodePageText link(*platform, hyperlink);
      return model.WriteTitle({bytes, alignment, bullet, link});
    });
  }

  /// The file's name stays as it is, UTF-8.
  bool DrawPicture(std::string_view file, AlignmentConstants alignment, std::string_view hyperlink,
                   EncodingConstants encoding) noexcept {
    return Run([&] {
      const CodePageText link(*platform, hyperlink);
      return model.DrawPicture({file, alignment, link, encoding});
    });
  }

  std::shared_ptr<Platform> platform;
  std::string_view version;
  document::State state;
  document::LineBuffer lines;
  std::unique_ptr<document::Writer> writer;
  document::DocumentModel model;

 private:
  document::FileNote refusal_;
};

/// The platform of a document that was given none.
[[nodiscard]] std::shared_ptr<Platform> NativePlatform();

}  // namespace vellumark
