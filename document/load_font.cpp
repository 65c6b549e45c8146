// SPDX-License-Identifier: MIT
//
// LoadFont and AddFallbackFont: the fonts that a host brings along.
#include <new>
#include <utility>
#include <vector>

#include "document/document_model.h"

namespace vellumark::document {

FileNote DocumentModel::LoadFont(const FontSource& source, MakeEngine make_engine,
                                 FontNumberConstants& number) noexcept {
  number = {};
  try {
    return TryLoadFont(source, make_engine, number);
  } catch (const std::exception& error) {
    number = {};
    return FaultNote(error);
  }
}

FileNote DocumentModel::TryLoadFont(const FontSource& source, MakeEngine make_engine,
                                    FontNumberConstants& number) {
  const auto refused = [&](const std::string& reason) {
    return FileNote(RefusalReason::FontNotLoaded, layout::NameOf(source.file) + ": " + reason);
  };
  std::string reason;
  if (state_.fonts.Engine() == nullptr) state_.fonts.UseEngine(make_engine(reason));
  if (state_.fonts.Engine() == nullptr) {
    return reason.empty() ? FileNote(RefusalNote{RefusalReason::NoFontsInBuild}) : refused(reason);
  }
  if (state_.fonts.Full()) {
    return refused("the document has " + std::to_string(layout::FontCollection::kMostFonts) +
                   " fonts, the most that it can have");
  }
  std::vector<std::uint8_t> bytes;
  if (const auto* const name = std::get_if<std::string_view>(&source.file)) {
    if (!platform_.ReadPicture(*name, bytes, reason)) return refused(reason);
  } else {
    const auto& given = std::get<std::span<const std::uint8_t>>(source.file);
    bytes.assign(given.begin(), given.end());
  }
  auto face = state_.fonts.Engine()->Load(std::move(bytes), source.index, reason);
  if (face == nullptr) return refused(reason);
  number = static_cast<FontNumberConstants>(state_.fonts.Add(std::move(face)));
  // The setter of a document without loaded fonts knows none.
  if (shaping_ == nullptr) setter_.reset();
  return {};
}

RefusalNote DocumentModel::AddFallbackFont(FontNumberConstants number) noexcept {
  const auto value = static_cast<std::int32_t>(number);
  if (state_.fonts.Face(value) == nullptr) return {RefusalReason::FontUnknown, value};
  try {
    state_.fonts.AddFallback(value);
  } catch (const std::exception& error) {
    return FaultNote(error);
  }
  return {};
}

}  // namespace vellumark::document
