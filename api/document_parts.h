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
#include "document/lost_bytes.h"
#include "document/state.h"
#include "document/writer.h"
#include "fonts/font_engine.h"
#include "layout/shown_characters.h"

namespace vellumark {

/// A text of the host as the document model takes it, for the length of one call: in the platform's
/// code page, or UTF-8 as it is.
class ModelText {
 public:
  ModelText(Platform& platform, const document::State& state, std::string_view utf8)
      : bytes_(state.oddities.TextIsCodePageBytes() ? platform.ToCodePage(utf8, storage_) : utf8) {}
  ModelText(const ModelText&) = delete;
  ModelText& operator=(const ModelText&) = delete;
  ModelText(ModelText&&) = delete;
  ModelText& operator=(ModelText&&) = delete;
  ~ModelText() = default;

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
    std::string storage;
    return {std::string(utf8), std::string(platform->ToCodePage(utf8, storage))};
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

  bool WriteMultiText(std::string_view text, Byte dy, AlignmentConstants alignment, bool justified,
                      Int16 width) noexcept {
    return Run([&] {
      return Written(text, [&](std::string_view as_written) {
        return model.WriteMultiText({as_written, dy.value(), alignment, justified, width.value()});
      });
    });
  }

  std::int16_t TextWidth(std::string_view text) noexcept {
    layout::Points width;
    Run([&] { return model.MeasureText(ModelText(*platform, state, text), width); });
    return width.value();
  }

  std::int32_t TextHeight(std::string_view text, Byte dy, Int16 width) noexcept {
    std::int32_t height = 0;
    Run([&] {
      const ModelText model_text(*platform, state, text);
      return model.MeasureParagraph(
          {model_text, dy.value(), AlignmentConstants::NoAlignment, false, width.value()}, height);
    });
    return height;
  }

  [[nodiscard]] Refusal LastRefusal() const {
    return {refusal_.note.reason, document::Sentence(refusal_.note, refusal_.detail)};
  }

  bool WriteText(std::string_view text, bool carriagereturn, Byte dy, AlignmentConstants alignment,
                 std::string_view hyperlink) noexcept {
    return Run([&] {
      const ModelText link(*platform, state, hyperlink);
      return Written(text, [&](std::string_view as_written) {
        return model.WriteText({as_written, carriagereturn, dy.value(), alignment, link});
      });
    });
  }

  bool WriteTitle(std::string_view text, AlignmentConstants alignment, BulletConstants bullet,
                  std::string_view hyperlink) noexcept {
    return Run([&] {
      const ModelText link(*platform, state, hyperlink);
      return Written(text, [&](std::string_view as_written) {
        return model.WriteTitle({as_written, alignment, bullet, link});
      });
    });
  }

  /// The file's name stays as it is, UTF-8.
  bool DrawPicture(const layout::PictureSource& source, AlignmentConstants alignment,
                   std::string_view hyperlink, EncodingConstants encoding) noexcept {
    return Run([&] {
      const ModelText link(*platform, state, hyperlink);
      return model.DrawPicture({source, alignment, link, encoding});
    });
  }

  /// The file's name stays as it is, UTF-8. 0 if the font is refused.
  FontNumberConstants LoadFont(const layout::PictureSource& file, Int16 index) noexcept {
    FontNumberConstants number{};
    Run([&] { return model.LoadFont({file, index.value()}, &fonts::MakeFontEngine, number); });
    return number;
  }

  std::shared_ptr<Platform> platform;
  std::string_view version;
  document::State state;
  document::LineBuffer lines;
  std::unique_ptr<document::Writer> writer;
  document::DocumentModel model;

 private:
  /// Calls `write`, which returns a note, with a text as the model takes it. The characters that
  /// the code page or its display loses are noted if it was written; the model notes those of a
  /// conforming document.
  template <class Write>
  document::RefusalNote Written(std::string_view text, const Write& write) {
    const ModelText model_text(*platform, state, text);
    if (!state.oddities.TextIsCodePageBytes() || layout::CountPlain(text) == text.size()) {
      return write(model_text);
    }
    // What allocates comes before what writes.
    layout::LostCharacters lost = model.Lost();
    document::AddLostBytes(*platform, text, state.font, lost);
    const document::RefusalNote note = write(model_text);
    if (!note) model.Lost() = std::move(lost);
    return note;
  }

  document::FileNote refusal_;
};

/// The platform of a document that was given none.
[[nodiscard]] std::shared_ptr<Platform> NativePlatform();

}  // namespace vellumark
