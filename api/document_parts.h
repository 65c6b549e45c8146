// SPDX-License-Identifier: MIT
//
// Document::Parts: what stands behind a public document: the platform, the shared document model,
// and the writer of its language. Here, and only here, the host's UTF-8 becomes bytes.
#pragma once

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

  bool WriteText(std::string_view text, bool carriagereturn, std::uint8_t dy,
                 AlignmentConstants alignment, std::string_view hyperlink) noexcept {
    return Converted(text, hyperlink, [&](std::string_view bytes, std::string_view link) {
      return model.WriteText({bytes, carriagereturn, dy, alignment, link});
    });
  }

  bool WriteTitle(std::string_view text, AlignmentConstants alignment, BulletConstants bullet,
                  std::string_view hyperlink) noexcept {
    return Converted(text, hyperlink, [&](std::string_view bytes, std::string_view link) {
      return model.WriteTitle({bytes, alignment, bullet, link});
    });
  }

  bool WriteMultiText(std::string_view text, std::uint8_t dy, AlignmentConstants alignment,
                      bool justified, std::int16_t width) noexcept {
    return Converted(text, {}, [&](std::string_view bytes, std::string_view) {
      return model.WriteMultiText({bytes, dy, alignment, justified, width});
    });
  }

  /// The file's name stays as it is, UTF-8.
  bool DrawPicture(std::string_view file, AlignmentConstants alignment, std::string_view hyperlink,
                   EncodingConstants encoding) noexcept {
    return Converted({}, hyperlink, [&](std::string_view, std::string_view link) {
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
  /// Calls `write` with both texts in the code page; false where memory is too short to convert.
  template <class Write>
  bool Converted(std::string_view text, std::string_view hyperlink, const Write& write) noexcept {
    try {
      const CodePageText bytes(*platform, text);
      const CodePageText link(*platform, hyperlink);
      return write(bytes, link);
    } catch (const std::exception&) {
      return model.Refuse({RefusalReason::RunTimeFault, RunTimeError::OutOfMemory, 0});
    }
  }
};

/// The platform of a document that was given none.
[[nodiscard]] std::shared_ptr<Platform> NativePlatform();

}  // namespace vellumark
