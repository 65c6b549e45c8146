// SPDX-License-Identifier: MIT
//
// PsOutput: a conforming PostScript document behind the interface of the typesetter. It ignores
// links and the properties producer, subject and keywords, which PostScript does not have.
#pragma once

#include <memory>
#include <utility>

#include "tools/output_format.h"

namespace vellumark::tools {

class PsOutput final : public OutputFormat {
 public:
  explicit PsOutput(std::shared_ptr<Platform> platform) : ps_(std::move(platform)) {
    ps_.Conforming(true);
  }

  [[nodiscard]] Document& document() override { return ps_; }
  void SetProperties(const Properties& properties) override;
  [[nodiscard]] bool WriteText(std::string_view text, std::string_view link) override;
  [[nodiscard]] bool WriteTitle(std::string_view text, BulletConstants bullet,
                                std::string_view link) override;
  [[nodiscard]] bool DrawPicture(std::string_view file, EncodingConstants encoding,
                                 std::string_view link) override;

 private:
  PS ps_;
};

}  // namespace vellumark::tools
