// SPDX-License-Identifier: MIT
//
// PdfOutput: a conforming PDF document behind the interface of the typesetter.
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
  explicit PdfOutput(std::shared_ptr<Platform> platform) : pdf_(std::move(platform)) {
    pdf_.Conforming(true);
  }

  [[nodiscard]] Document& document() override { return pdf_; }
  void SetProperties(const Properties& properties) override;
  [[nodiscard]] bool WriteText(std::string_view text, std::string_view link) override;
  [[nodiscard]] bool WriteTitle(std::string_view text, BulletConstants bullet,
                                std::string_view link) override;
  [[nodiscard]] bool DrawPicture(std::string_view file, EncodingConstants encoding,
                                 std::string_view link) override;
  [[nodiscard]] bool SetAnchor(std::string_view name) override { return pdf_.SetAnchor(name); }
  [[nodiscard]] bool WriteBookmark(std::string_view text, int level) override {
    return pdf_.WriteBookmark(text, level);
  }

 private:
  PDF pdf_;
};

}  // namespace vellumark::tools
