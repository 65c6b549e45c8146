// SPDX-License-Identifier: MIT
//
// PdfOutput: a PDF document behind the interface of the typesetter.
//
//     PdfOutput output(platform);
//     output.SetProperties(properties);
//     output.document().Create("document.pdf");
#pragma once

#include <memory>

#include "tools/output_format.h"

namespace vellumark::tools {

class PdfOutput final : public OutputFormat {
 public:
  explicit PdfOutput(std::shared_ptr<Platform> platform) : pdf_(std::move(platform)) {}

  [[nodiscard]] Document& document() override { return pdf_; }
  void SetProperties(const Properties& properties) override;
  [[nodiscard]] bool WriteText(std::string_view codes, std::string_view link) override;
  [[nodiscard]] bool WriteTitle(std::string_view codes, BulletConstants bullet,
                                std::string_view link) override;
  [[nodiscard]] bool DrawPicture(std::string_view file, EncodingConstants encoding,
                                 std::string_view link) override;
  [[nodiscard]] int MeasuredAs(char code) const override { return code == '\\' ? 2 : 1; }

 private:
  PDF pdf_;
};

}  // namespace vellumark::tools
