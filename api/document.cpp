// SPDX-License-Identifier: MIT
//
// The members that all documents share: each converts what the host passes and hands it on.
#include "api/document_parts.h"

namespace vellumark {
namespace {

void Take(const layout::ColorText& color, std::uint8_t& red, std::uint8_t& green,
          std::uint8_t& blue) {
  layout::Rgb rgb;
  layout::ParseColor(color.view(), rgb);
  red = rgb.red;
  green = rgb.green;
  blue = rgb.blue;
}

}  // namespace

Document::Document(std::unique_ptr<Parts> parts) : parts_(std::move(parts)) {}
Document::Document(Document&& other) noexcept = default;
Document& Document::operator=(Document&& other) noexcept = default;
Document::~Document() = default;

std::string Document::Author() const { return parts_->state.author.utf8; }
void Document::Author(std::string_view author) { parts_->state.author = parts_->Keep(author); }
std::string Document::Creator() const { return parts_->state.creator.utf8; }
void Document::Creator(std::string_view creator) { parts_->state.creator = parts_->Keep(creator); }
std::string Document::Title() const { return parts_->state.title.utf8; }
void Document::Title(std::string_view title) { parts_->state.title = parts_->Keep(title); }

OrientationConstants Document::Orientation() const { return parts_->state.orientation; }
void Document::Orientation(OrientationConstants orientation) {
  parts_->state.orientation = orientation;
}
PaperSizeConstants Document::PaperSize() const { return parts_->state.paper_size; }
void Document::PaperSize(PaperSizeConstants papersize) { parts_->state.paper_size = papersize; }
bool Document::Rotated() const { return parts_->state.rotated; }
void Document::Rotated(bool rotated) { parts_->state.rotated = rotated; }
std::string Document::Footer() const { return parts_->state.footer; }
void Document::Footer(std::string_view footer) { parts_->state.footer = footer; }
std::string Document::Header() const { return parts_->state.header; }
void Document::Header(std::string_view header) { parts_->state.header = header; }
std::int32_t Document::PageNumber() const { return parts_->state.page_number; }
bool Document::Conforming() const { return parts_->state.conforming; }
void Document::Conforming(bool conforming) { parts_->state.conforming = conforming; }
bool Document::PicturesEnlarged() const { return parts_->state.pictures_enlarged; }
void Document::PicturesEnlarged(bool picturesenlarged) {
  parts_->state.pictures_enlarged = picturesenlarged;
}
std::string Document::LostCharacters() const { return parts_->model.Lost().Text(); }
std::string Document::Version() const { return std::string(parts_->version); }

bool Document::Create(std::string_view file) noexcept {
  return parts_->Run([&] { return parts_->model.Create(file); });
}

bool Document::Create(std::ostream& stream) noexcept {
  return parts_->Run([&] { return parts_->model.Create(&stream); });
}

void Document::NewPage(Int16 marginleft, Int16 margintop, Int16 marginright, Int16 marginbottom,
                       Byte red, Byte green, Byte blue) noexcept {
  parts_->Run([&] {
    return parts_->model.NewPage(
        {marginleft.value(), margintop.value(), marginright.value(), marginbottom.value()},
        {red.value(), green.value(), blue.value()});
  });
}

void Document::Flush() noexcept {
  parts_->Run([&] { return parts_->model.Flush(); });
}

bool Document::DrawLine(Int16 x1, Int16 y1, Int16 x2, Int16 y2) noexcept {
  return parts_->Run(
      [&] { return parts_->model.DrawLine(x1.value(), y1.value(), x2.value(), y2.value()); });
}

bool Document::DrawRectangle(Int16 x, Int16 y, Int16 width, Int16 height) noexcept {
  return parts_->Run([&] {
    return parts_->model.DrawRectangle(x.value(), y.value(), width.value(), height.value());
  });
}

bool Document::DrawCurve(Int16 x1, Int16 y1, Int16 x2, Int16 y2, Int16 x3, Int16 y3) noexcept {
  return parts_->Run([&] {
    return parts_->model.DrawCurve(x1.value(), y1.value(), x2.value(), y2.value(), x3.value(),
                                   y3.value());
  });
}

bool Document::DrawCircle(Int16 x, Int16 y, Int16 r) noexcept {
  return parts_->Run([&] { return parts_->model.DrawCircle(x.value(), y.value(), r.value()); });
}

bool Document::DrawEllipse(Int16 x, Int16 y, Int16 rx, Int16 ry) noexcept {
  return parts_->Run(
      [&] { return parts_->model.DrawEllipse(x.value(), y.value(), rx.value(), ry.value()); });
}

bool Document::DrawArc(Int16 x, Int16 y, Int16 r, float th1, float th2) noexcept {
  return parts_->Run(
      [&] { return parts_->model.DrawArc(x.value(), y.value(), r.value(), th1, th2); });
}

bool Document::WriteText(std::string_view text, bool carriagereturn, Byte dy,
                         AlignmentConstants alignment) noexcept {
  return parts_->WriteText(text, carriagereturn, dy, alignment, {});
}

bool Document::WriteTitle(std::string_view text, AlignmentConstants alignment,
                          BulletConstants bullet) noexcept {
  return parts_->WriteTitle(text, alignment, bullet, {});
}

bool Document::WriteMultiText(std::string_view text, Byte dy, AlignmentConstants alignment,
                              bool justified, Int16 width) noexcept {
  return parts_->WriteMultiText(text, dy, alignment, justified, width);
}

bool Document::DrawPicture(std::string_view file, AlignmentConstants alignment,
                           EncodingConstants encoding) noexcept {
  return parts_->DrawPicture(file, alignment, {}, encoding);
}

bool Document::DrawPicture(std::span<const std::uint8_t> bytes, AlignmentConstants alignment,
                           EncodingConstants encoding) noexcept {
  return parts_->DrawPicture(bytes, alignment, {}, encoding);
}

void Document::GetColor(std::uint8_t& red, std::uint8_t& green, std::uint8_t& blue) const {
  Take(parts_->state.color, red, green, blue);
}

void Document::SetColor(Byte red, Byte green, Byte blue) {
  parts_->state.color.Set(red.value(), green.value(), blue.value());
}

void Document::GetFillColor(std::uint8_t& red, std::uint8_t& green, std::uint8_t& blue) const {
  Take(parts_->state.fill_color, red, green, blue);
}

void Document::SetFillColor(Byte red, Byte green, Byte blue) {
  parts_->state.fill_color.Set(red.value(), green.value(), blue.value());
}

void Document::GetPageColor(std::uint8_t& red, std::uint8_t& green, std::uint8_t& blue) const {
  Take(parts_->state.page_color, red, green, blue);
}

std::string Document::GetDash() const { return parts_->state.dash.utf8; }
void Document::SetDash(std::string_view dash) { parts_->state.dash = parts_->Keep(dash); }
bool Document::GetFillStyle() const { return parts_->state.fill_style; }
void Document::SetFillStyle(bool fillstyle) { parts_->state.fill_style = fillstyle; }
std::uint8_t Document::GetThickness() const { return parts_->state.thickness; }
void Document::SetThickness(Byte thickness) { parts_->model.SetThickness(thickness.value()); }

void Document::GetFont(FontNumberConstants& fontnumber, std::uint8_t& fontheight,
                       FontStyleConstants& fontstyle, FontEffectConstants& fonteffect) const {
  const layout::Font& font = parts_->state.font;
  fontnumber = font.number;
  fontheight = font.height;
  fontstyle = font.style;
  fonteffect = font.effect;
}

void Document::SetFont(FontNumberConstants fontnumber, Byte fontheight,
                       FontStyleConstants fontstyle, FontEffectConstants fonteffect) {
  parts_->model.SetFont(fontnumber, fontheight.value(), fontstyle, fonteffect);
}

FontNumberConstants Document::LoadFont(std::string_view file, Int16 index) noexcept {
  return parts_->LoadFont(file, index);
}

FontNumberConstants Document::LoadFont(std::span<const std::uint8_t> bytes, Int16 index) noexcept {
  return parts_->LoadFont(bytes, index);
}

bool Document::AddFallbackFont(FontNumberConstants fontnumber) noexcept {
  return parts_->Run([&] { return parts_->model.AddFallbackFont(fontnumber); });
}

void Document::GetPageDimensions(std::int16_t& width, std::int16_t& height) const {
  width = parts_->state.page.width.value();
  height = parts_->state.page.height.value();
}

void Document::GetPageMargins(std::int16_t& marginleft, std::int16_t& margintop,
                              std::int16_t& marginright, std::int16_t& marginbottom) const {
  const document::Margins& margins = parts_->state.margins;
  marginleft = margins.left.value();
  margintop = margins.top.value();
  marginright = margins.right.value();
  marginbottom = margins.bottom.value();
}

void Document::GetPictureDimensions(std::int16_t& width, std::int16_t& height) const {
  width = parts_->state.picture_width.value();
  height = parts_->state.picture_height.value();
}

void Document::SetPictureDimensions(Int16 width, Int16 height) {
  parts_->model.SetPictureDimensions(width.value(), height.value());
}

void Document::GetPosition(std::int16_t& x, std::int16_t& y) const {
  x = parts_->state.position_x.value();
  y = parts_->state.Y().value();
}

void Document::SetPosition(Int16 x, Int16 y) { parts_->model.SetPosition(x.value(), y.value()); }

std::int16_t Document::TextWidth(std::string_view text) noexcept { return parts_->TextWidth(text); }

std::int32_t Document::TextHeight(std::string_view text, Byte dy, Int16 width) noexcept {
  return parts_->TextHeight(text, dy, width);
}

Refusal Document::LastRefusal() const { return parts_->LastRefusal(); }

}  // namespace vellumark
