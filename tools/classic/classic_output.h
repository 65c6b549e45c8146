// SPDX-License-Identifier: MIT
//
// ClassicPdf, ClassicPs: classic documents behind the interface of the typesetter.
//
// A classic document takes text as bytes that readers show in the fonts' standard encoding, and
// writes some of it into the file exactly as it is. So each text becomes codes of that encoding,
// with accents as texts of their own (run_strokes.h), and is escaped (pdf_escapes.h, ps_escapes.h).
//
//     CodeMeasure measure;
//     ClassicPdf output(platform, measure);
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "tools/classic/code_measure.h"
#include "tools/classic/ps_escapes.h"
#include "tools/classic/run_strokes.h"
#include "tools/output_format.h"

namespace vellumark::tools {

/// What both have in common: from texts to codes.
class ClassicOutput : public OutputFormat {
 public:
  explicit ClassicOutput(CodeMeasure& measure) : measure_(measure) {}

  [[nodiscard]] bool WriteText(std::string_view text, std::string_view link) override;
  [[nodiscard]] bool WriteTitle(std::string_view text, BulletConstants bullet,
                                std::string_view link) override;
  [[nodiscard]] std::string LostCharacters() override { return lost_; }

 private:
  [[nodiscard]] virtual bool WriteCodes(std::string_view codes, std::string_view link) = 0;
  [[nodiscard]] virtual bool WriteTitleCodes(std::string_view codes, BulletConstants bullet,
                                             std::string_view link) = 0;

  /// How often the library counts a code when it measures a text: twice if it is escaped.
  [[nodiscard]] virtual int MeasuredAs(char code) const = 0;

  [[nodiscard]] GlyphRun Glyphs(std::string_view text);
  [[nodiscard]] std::vector<Stroke> Split(std::string_view text, int indent);
  [[nodiscard]] bool WriteStroke(const Stroke& stroke, std::string_view link);

  CodeMeasure& measure_;
  std::string lost_;
};

class ClassicPdf final : public ClassicOutput {
 public:
  ClassicPdf(std::shared_ptr<Platform> platform, CodeMeasure& measure)
      : ClassicOutput(measure), pdf_(std::move(platform)) {}

  [[nodiscard]] Document& document() override { return pdf_; }
  void SetProperties(const Properties& properties) override;
  [[nodiscard]] bool DrawPicture(std::string_view file, EncodingConstants encoding,
                                 std::string_view link) override;

 private:
  bool WriteCodes(std::string_view codes, std::string_view link) override;
  bool WriteTitleCodes(std::string_view codes, BulletConstants bullet,
                       std::string_view link) override;
  [[nodiscard]] int MeasuredAs(char code) const override { return code == '\\' ? 2 : 1; }

  PDF pdf_;
};

class ClassicPs final : public ClassicOutput {
 public:
  ClassicPs(std::shared_ptr<Platform> platform, CodeMeasure& measure)
      : ClassicOutput(measure), ps_(std::move(platform)) {}

  [[nodiscard]] Document& document() override { return ps_; }
  void SetProperties(const Properties& properties) override;
  [[nodiscard]] bool DrawPicture(std::string_view file, EncodingConstants encoding,
                                 std::string_view link) override;

 private:
  bool WriteCodes(std::string_view codes, std::string_view link) override;
  bool WriteTitleCodes(std::string_view codes, BulletConstants bullet,
                       std::string_view link) override;
  [[nodiscard]] int MeasuredAs(char code) const override { return IsEscapedInPs(code) ? 2 : 1; }

  PS ps_;
};

}  // namespace vellumark::tools
