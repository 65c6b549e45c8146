// SPDX-License-Identifier: MIT
#include "tools/document_fonts.h"

#include <charconv>
#include <string_view>
#include <system_error>

#include "tools/failure.h"
#include "tools/file_descriptor.h"

namespace vellumark::tools {
namespace {

constexpr std::array<std::string_view, 4> kStyles = {"regular", "bold", "italic", "bold-italic"};

std::vector<std::uint8_t> ReadFile(const std::string& option, const std::string& name) {
  constexpr std::size_t kLargest = std::size_t{256} << 20U;  // of a font
  try {
    const std::string bytes = ReadUpTo(FileDescriptor::OpenToRead(name).number(), kLargest);
    if (bytes.size() <= kLargest) return {bytes.begin(), bytes.end()};
  } catch (const std::system_error& error) {
    throw Failure(option + ": " + name + ": " + error.code().message());
  }
  throw Failure(option + ": " + name + ": it is longer than 256 MiB");
}

}  // namespace

/// Reads a file, and returns its number.
std::size_t DocumentFonts::Add(const std::string& option, std::string_view typed, bool fallback) {
  File file;
  file.option = option;
  file.fallback = fallback;
  const std::size_t mark = typed.rfind('#');
  if (mark != std::string_view::npos) {
    const std::string_view digits = typed.substr(mark + 1);
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), file.index);
    const bool number = error == std::errc() && end == digits.data() + digits.size();
    if (number && file.index >= 0 && file.index <= 32767) typed = typed.substr(0, mark);
  }
  file.name = typed;
  file.bytes = ReadFile(option, file.name);
  files_.push_back(std::move(file));
  return files_.size() - 1;
}

void DocumentFonts::SetFile(const std::string& typed) {
  std::string_view name = typed;
  std::size_t style = 0;
  for (std::size_t i = 0; i < kStyles.size(); ++i) {
    if (name.starts_with(kStyles.at(i)) && name.substr(kStyles.at(i).size()).starts_with('=')) {
      style = i;
      name.remove_prefix(kStyles.at(i).size() + 1);
      break;
    }
  }
  if (styles_.at(style)) {
    throw Failure("--font-file: " + std::string(kStyles.at(style)) + " has two files");
  }
  styles_.at(style) = Add("--font-file", name, false);
}

void DocumentFonts::AddFallback(const std::string& typed) {
  Add("--fallback-font", typed, true);
  has_fallbacks_ = true;
}

void DocumentFonts::Check() const {
  for (const auto& style : styles_) {
    if (style && !styles_.front()) {
      throw Failure("--font-file: no file for regular; add --font-file FILE");
    }
  }
}

void DocumentFonts::LoadInto(Document& document) const {
  for (const File& file : files_) {
    const FontNumberConstants number =
        document.LoadFont(file.bytes, static_cast<std::int16_t>(file.index));
    if (number == FontNumberConstants{}) {
      std::string reason = document.LastRefusal().sentence;
      const std::size_t place = reason.find("in memory: ");
      if (place != std::string::npos) reason = reason.substr(place + 11);
      throw Failure(file.option + ": " + file.name + ": " + reason);
    }
    if (file.fallback) document.AddFallbackFont(number);
  }
}

FontNumberConstants DocumentFonts::NumberOf(const Face& face) const {
  constexpr int kFirstNumber = 101;
  if (!styles_.front() || face.family == FontNumberConstants::Courier) return face.family;
  const auto style = static_cast<std::size_t>(face.style) - 1;
  const std::size_t file = styles_.at(style).value_or(*styles_.front());
  return static_cast<FontNumberConstants>(kFirstNumber + static_cast<int>(file));
}

}  // namespace vellumark::tools
