// SPDX-License-Identifier: MIT
//
// The members that all documents share: each converts what the host passes and hands it on.
#include "api/document_parts.h"

namespace vellumark {
namespace {

void Take(const layout::Rgb& rgb, std::uint8_t& red, std::uint8_t& green, std::uint8_t& blue) {
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
std::string Document::Version() const { return std::string(parts_->version); }

bool Document::Create(std::string_view file) noexcept { return parts_->model.Create(file); }

void Document::NewPage(std::int16_t marginleft, std::int16_t margintop, std::int16_t marginright,
                       std::int16_t marginbottom, std::uint8_t red, std::uint8_t green,
                       std::uint8_t blue) noexcept {
  parts_->model.NewPage({marginleft, margintop, marginright, marginbottom}, {red, green, blue});
}

void Document::Flush() noexcept { parts_->model.Flush(); }

bool Document::DrawLine(std::int16_t x1, std::int16_t y1, std::int16_t x2,
                        std::int16_t y2) noexcept {
  return parts_->model.DrawLine(x1, y1, x2, y2);
}

bool Document::DrawRectangle(std::int16_t x, std::int16_t y, std::int16_t width,
                             std::int16_t height) noexcept {
  return parts_->model.DrawRectangle(x, y, width, height);
}

bool Document::DrawCurve(std::int16_t x1, std::int16_t y1, std::int16_t x2, std::int16_t y2,
                         std::int16_t x3, std::int16_t y3) noexcept {
  return parts_->model.DrawCurve(x1, y1, x2, y2, x3, y3);
}

bool Document::DrawCircle(std::int16_t x, std::int16_t y, std::int16_t r) noexcept {
  return parts_->model.DrawCircle(x, y, r);
}

bool Document::DrawEllipse(std::int16_t x, std::int16_t y, std::int16_t rx,
                           std::int16_t ry) noexcept {
  return parts_->model.DrawEllipse(x, y, rx, ry);
}

bool Document::DrawArc(std::int16_t x, std::int16_t y, std::int16_t r, float th1,
                       float th2) noexcept {
  return parts_->model.DrawArc(x, y, r, th1, th2);
}

bool Document::WriteText(std::string_view text, bool carriagereturn, std::uint8_t dy,
                         AlignmentConstants alignment) noexcept {
  return parts_->WriteText(text, carriagereturn, dy, alignment, {});
}

bool Document::WriteTitle(std::string_view text, AlignmentConstants alignment,
                          BulletConstants bullet) noexcept {
  return parts_->WriteTitle(text, alignment, bullet, {});
}

bool Document::WriteMultiText(std::string_view text, std::uint8_t dy, AlignmentConstants alignment,
                              bool justified, std::int16_t width) noexcept {
  return parts_->WriteMultiText(text, dy, alignment, justified, width);
}

bool Document::DrawPicture(std::string_view file, AlignmentConstants alignment,
                           EncodingConstants encoding) noexcept {
  return parts_->DrawPicture(file, alignment, {}, encoding);
}

void Document::GetColor(std::uint8_t& red, std::uint8_t& green, std::uint8_t& blue) const {
  Take(document::DocumentModel::Parse(parts_->state.color), red, green, blue);
}

void Document::SetColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
  parts_->state.color = layout::FormatColor(red, green, blue);
}

void Document::GetFillColor(std::uint8_t& red, std::uint8_t& green, std::uint8_t& blue) const {
  Take(document::DocumentModel::Parse(parts_->state.fill_color), red, green, blue);
}

void Document::SetFillColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
  parts_->state.fill_color = layout::FormatColor(red, green, blue);
}

void Document::GetPageColor(std::uint8_t& red, std::uint8_t& green, std::uint8_t& blue) const {
  Take(document::DocumentModel::Parse(parts_->state.page_color), red, green, blue);
}

std::string Document::GetDash() const { return parts_->state.dash.utf8; }
void Document::SetDash(std::string_view dash) { parts_->state.dash = parts_->Keep(dash); }
bool Document::GetFillStyle() const { return parts_->state.fill_style; }
void Document::SetFillStyle(bool fillstyle) { parts_->state.fill_style = fillstyle; }
std::uint8_t Document::GetThickness() const { return parts_->state.thickness; }
void Document::SetThickness(std::uint8_t thickness) { parts_->model.SetThickness(thickness); }

void Document::GetFont(FontNumberConstants& fontnumber, std::uint8_t& fontheight,
                       FontStyleConstants& fontstyle, FontEffectConstants& fonteffect) const {
  const layout::Font& font = parts_->state.font;
  fontnumber = font.number;
  fontheight = font.height;
  fontstyle = font.style;
  fonteffect = font.effect;
}

void Document::SetFont(FontNumberConstants fontnumber, std::uint8_t fontheight,
                       FontStyleConstants fontstyle, FontEffectConstants fonteffect) {
  parts_->model.SetFont(fontnumber, fontheight, fontstyle, fonteffect);
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

void Document::SetPictureDimensions(std::int16_t width, std::int16_t height) {
  parts_->model.SetPictureDimensions(width, height);
}

void Document::GetPosition(std::int16_t& x, std::int16_t& y) const {
  x = parts_->state.position_x.value();
  y = parts_->state.Y().value();
}

void Document::SetPosition(std::int16_t x, std::int16_t y) { parts_->model.SetPosition(x, y); }

Refusal Document::LastRefusal() const {
  return {parts_->model.LastRefusal().reason, parts_->model.LastRefusalSentence()};
}

}  // namespace vellumark
