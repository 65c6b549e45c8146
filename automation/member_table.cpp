// SPDX-License-Identifier: MIT
#include "automation/member_table.h"

#include "automation/member_call.h"

namespace vellumark::automation {
namespace {

using std::string;
using enum AlignmentConstants;
using enum BulletConstants;
using enum EncodingConstants;

constexpr bool (Document::*kCreateFile)(std::string_view) noexcept = &Document::Create;
constexpr bool (PDF::*kLinkedText)(std::string_view, bool, Byte, AlignmentConstants,
                                   std::string_view) noexcept = &PDF::WriteText;
constexpr bool (PDF::*kLinkedTitle)(std::string_view, AlignmentConstants, BulletConstants,
                                    std::string_view) noexcept = &PDF::WriteTitle;

string RefusalSentence(const Document& document) { return document.LastRefusal().sentence; }

constexpr Caption kWriteText = {
    "WriteText", 20, "Writes a text on the current position, in the current color and font.",
    "The current position is the top left corner of the text. The text must fit above the bottom "
    "margin and, without alignment, between the current x and the right margin; with alignment, "
    "within the usable width. Afterwards the position is at the end of the text; with "
    "carriagereturn it is at the x of the last SetPosition, lower by the font height plus dy "
    "points. In conforming output the text is literal, and a line feed or tab in it is a blank. In "
    "classic output PDF escapes parentheses, PS escapes nothing, and both pass a backslash on. PDF "
    "puts a link to the address hyperlink over the text; in classic output the address is written "
    "without escaping, so it must be percent-encoded."};

bool DrawLinkedPicture(PDF& document, FileOrBytes file, AlignmentConstants alignment,
                       std::string_view hyperlink, EncodingConstants encoding) {
  return std::visit(
      [&](auto source) { return document.DrawPicture(source, alignment, hyperlink, encoding); },
      file);
}

bool DrawPlainPicture(Document& document, FileOrBytes file, AlignmentConstants alignment,
                      EncodingConstants encoding) {
  return std::visit([&](auto source) { return document.DrawPicture(source, alignment, encoding); },
                    file);
}

FontNumberConstants LoadAnyFont(Document& document, FileOrBytes file, std::int16_t index) {
  return std::visit([&](auto source) { return document.LoadFont(source, index); }, file);
}

constexpr Caption kWriteTitle = {
    "WriteTitle", 21, "Writes a title behind a bullet, in the current color and font.",
    "The bullet takes a width of the font height less 1 point. A title always ends with a carriage "
    "return. hyperlink works as in WriteText."};

constexpr Caption kDrawPicture = {
    "DrawPicture",
    23,
    "Draws a picture (BMP, GIF, JPG, PNG) on the current position.",
    "file is a name, or the content of such a file as an array of bytes. The position is the top "
    "left corner of the picture, and a pixel is one point. A picture that "
    "is larger than the box of SetPictureDimensions is made smaller until it fits into the box. It "
    "must fit between the current position and the right and bottom margins, even if it is then "
    "aligned. Afterwards the position is below the picture, at the x of the last SetPosition. "
    "encoding is the filter of the samples: Flate makes the smallest files, ASCII85 and ASCIIHex "
    "are plain text, and in classic output not every reader supports RunLength. Original, in "
    "conforming output only, takes the bytes of a JPG file as they are, and Flate for other files. "
    "hyperlink works as in WriteText.",
    {.takes_long = true}};

constexpr Member kMembers[] = {
    Property<Document, string, &Document::Author, &Document::Author>(
        {"Author", 1, "Returns or sets the author of the document.",
         "Create writes it into the file: in conforming output any text, in classic output exactly "
         "as set, with nothing escaped. The same applies to the other properties that are texts."}),
    Property<Document, string, &Document::Creator, &Document::Creator>(
        {"Creator", 2, "Returns or sets the program that the document comes from.", ""}),
    Property<PDF, string, &PDF::Keywords, &PDF::Keywords>(
        {"Keywords", 3, "Returns or sets the keywords of the document.", ""}),
    Property<Document, OrientationConstants, &Document::Orientation, &Document::Orientation>(
        {"Orientation", 4, "Returns or sets the orientation of the paper.",
         "Initially Portrait. Create reads it, and refuses a value that is not a member of the "
         "enumeration."}),
    Property<Document, PaperSizeConstants, &Document::PaperSize, &Document::PaperSize>(
        {"PaperSize", 5, "Returns or sets the size of the paper.",
         "Initially A4. Create reads it, and refuses a value that is not a member of the "
         "enumeration."}),
    Property<PDF, string, &PDF::Producer, &PDF::Producer>(
        {"Producer", 6, "Returns or sets the program that makes the file.", ""}),
    Property<Document, bool, &Document::Rotated, &Document::Rotated>(
        {"Rotated", 7, "Returns or sets whether the pages are rotated.",
         "Initially False. A conforming PDF turns each page that ends while it is True by 90 "
         "degrees; a classic one marks it, but readers show it upright all the same. PS rotates "
         "the "
         "document; set it before Create."}),
    Property<PDF, string, &PDF::Subject, &PDF::Subject>(
        {"Subject", 8, "Returns or sets the subject of the document.", ""}),
    Property<Document, string, &Document::Title, &Document::Title>(
        {"Title", 9, "Returns or sets the title of the document.", ""}),
    ReadOnlyProperty<Document, string, &Document::Version>(
        {"Version", 10, "Returns the version of the file format.",
         R"("1.2" for PDF, "3.0" for PS.)"}),

    Method<kCreateFile>(
        {"Create",
         11,
         "Creates the file and starts the document.",
         "An existing file loses its content, and until Flush no other document can create the "
         "same file. Color, dash, thickness, fill style, font, margins, page color and picture box "
         "are reset: black, solid, 1 point, unfilled, Courier 8, no margins, white, no box. "
         "Returns "
         "False if the orientation or paper size is not a member of its enumeration, or if the "
         "file cannot be created.",
         {.creates_file = true}},
        {{FileName("file")}}),
    Method<&Document::NewPage>(
        {"NewPage", 12, "Ends the open page and starts the next one.",
         "Margins are in points, and red, green and blue of the page color are 0 to 255. The "
         "position becomes the top left corner inside the margins. If a margin is negative, or the "
         "margins leave 20 points or less of the width or height of the page, the previous margins "
         "stay."},
        {{{"marginleft"},
          {"margintop"},
          {"marginright"},
          {"marginbottom"},
          {"red"},
          {"green"},
          {"blue"}}}),
    Method<&Document::Flush>({"Flush",
                              13,
                              "Ends the last page, writes the file and closes it.",
                              "Nothing is written to the file before. A document without pages "
                              "gets one. LastRefusal tells whether the file was written in full.",
                              {.takes_long = true, .completes_file = true}}),

    Method<&Document::DrawLine>(
        {"DrawLine", 14,
         "Draws a line in the current color, dash, fill color, fill style and thickness.",
         "The line goes from the first point to the second. Every point of a shape must lie in the "
         "usable area, edges included; otherwise the shape is refused."},
        {{{"x1"}, {"y1"}, {"x2"}, {"y2"}}}),
    Method<&Document::DrawRectangle>(
        {"DrawRectangle", 15,
         "Draws a rectangle in the current color, dash, fill color, fill style and thickness.",
         "x and y are the top left corner. An unfilled closed shape is transparent; in a classic "
         "PDF "
         "it is white inside and covers what is below it."},
        {{{"x"}, {"y"}, {"width"}, {"height"}}}),
    Method<&Document::DrawCurve>(
        {"DrawCurve", 16,
         "Draws a curve in the current color, dash, fill color, fill style and thickness.",
         "The curve goes from the first point to the third and bends toward the second. A straight "
         "line closes it."},
        {{{"x1"}, {"y1"}, {"x2"}, {"y2"}, {"x3"}, {"y3"}}}),
    Method<&Document::DrawCircle>(
        {"DrawCircle", 17,
         "Draws a circle in the current color, dash, fill color, fill style and thickness.",
         "x and y are the center, r is the radius."},
        {{{"x"}, {"y"}, {"r"}}}),
    Method<&Document::DrawEllipse>(
        {"DrawEllipse", 18,
         "Draws an ellipse in the current color, dash, fill color, fill style and thickness.",
         "x and y are the center, rx and ry the horizontal and vertical radius. In a "
         "classic PDF the ellipse bulges toward the corners of its box."},
        {{{"x"}, {"y"}, {"rx"}, {"ry"}}}),
    Method<&Document::DrawArc>(
        {"DrawArc", 19,
         "Draws an arc in the current color, dash, fill color, fill style and thickness.",
         "The arc is a slice of a circle, counterclockwise from the angle th1 to th2 in degrees "
         "from the positive x axis. PDF starts at the smaller angle and reduces both to less than "
         "360; if the second is then less than the first, the slice passes through 0 degrees. PS "
         "takes the angles as they are, in conforming output less whole turns."},
        {{{"x"}, {"y"}, {"r"}, {"th1"}, {"th2"}}}),

    Method<kLinkedText>(kWriteText, {{{"text"},
                                      {"carriagereturn", false},
                                      {"dy", 0},
                                      {"alignment", NoAlignment},
                                      {"hyperlink", ""}}}),
    Method<&Document::WriteText, PS>(
        kWriteText, {{{"text"}, {"carriagereturn", false}, {"dy", 0}, {"alignment", NoAlignment}}}),
    Method<kLinkedTitle>(
        kWriteTitle, {{{"text"}, {"alignment", NoAlignment}, {"bullet", Disc}, {"hyperlink", ""}}}),
    Method<&Document::WriteTitle, PS>(kWriteTitle,
                                      {{{"text"}, {"alignment", NoAlignment}, {"bullet", Disc}}}),
    Method<&Document::WriteMultiText>(
        {"WriteMultiText", 22, "Writes a paragraph in lines, in the current color and font.",
         "The lines are width points wide; with 0 they reach from the current x to the right "
         "margin. They are broken at blanks and have dy points between them. If the page is full, "
         "the paragraph goes on on a new one with the same margins and color. justified stretches "
         "every line but the last to the full width. Returns False and writes nothing if a word is "
         "wider than a line."},
        {{{"text"}, {"dy", 0}, {"alignment", NoAlignment}, {"justified", false}, {"width", 0}}}),
    Method<&DrawLinkedPicture>(
        kDrawPicture,
        {{FileName("file"), {"alignment", NoAlignment}, {"hyperlink", ""}, {"encoding", ASCII85}}}),
    Method<&DrawPlainPicture, PS>(
        kDrawPicture, {{FileName("file"), {"alignment", NoAlignment}, {"encoding", ASCII85}}}),

    Method<&Document::GetColor>(
        {"GetColor", 24, "Returns the color of lines and texts.",
         "Each component is 0 to 255. Before Create there is no color, and the call is run-time "
         "error 9 (subscript out of range). The same applies to the other colors."},
        {{{"red"}, {"green"}, {"blue"}}}),
    Method<&Document::SetColor>(
        {"SetColor", 25, "Sets the color of lines and texts.", "Each component is 0 to 255."},
        {{{"red"}, {"green"}, {"blue"}}}),
    Method<&Document::GetFillColor>(
        {"GetFillColor", 26, "Returns the color that closed shapes are filled with.", ""},
        {{{"red"}, {"green"}, {"blue"}}}),
    Method<&Document::SetFillColor>(
        {"SetFillColor", 27, "Sets the color that closed shapes are filled with.", ""},
        {{{"red"}, {"green"}, {"blue"}}}),
    Method<&Document::GetPageColor>(
        {"GetPageColor", 28, "Returns the color of the page.", "NewPage sets it."},
        {{{"red"}, {"green"}, {"blue"}}}),
    Method<&Document::GetDash>({"GetDash", 29, "Returns the dash pattern of lines.", ""}),
    Method<&Document::SetDash>({"SetDash", 30, "Sets the dash pattern of lines.",
                                "The lengths of dashes and gaps in points, separated by blanks, "
                                "such as \"3 2\"; \"\" is a "
                                "solid line. In conforming output any other text is a solid "
                                "line too; in classic output the text is not checked."},
                               {{{"dash"}}}),
    Method<&Document::GetFillStyle>(
        {"GetFillStyle", 31, "Returns whether closed shapes are filled.", ""}),
    Method<&Document::SetFillStyle>(
        {"SetFillStyle", 32, "Sets whether closed shapes are filled.", ""}, {{{"fillstyle"}}}),
    Method<&Document::GetThickness>(
        {"GetThickness", 33, "Returns the thickness of lines in points.", ""}),
    Method<&Document::SetThickness>(
        {"SetThickness", 34, "Sets the thickness of lines in points.", "0 is ignored."},
        {{{"thickness"}}}),
    Method<&Document::GetFont>(
        {"GetFont", 35, "Returns the font.", "All results are 0 before Create."},
        {{{"fontnumber"}, {"fontheight"}, {"fontstyle"}, {"fonteffect"}}}),
    Method<&Document::SetFont>(
        {"SetFont", 36, "Sets the font.",
         "fontnumber is a member of the enumeration or, in conforming documents, a number that "
         "LoadFont returned. An unknown font becomes Courier, a height outside 8 to 72 points "
         "becomes 8, an unknown "
         "style Regular and an unknown effect NoFontEffect. If fontnumber is Symbol or greater, "
         "the "
         "style is always Regular."},
        {{{"fontnumber"}, {"fontheight"}, {"fontstyle"}, {"fonteffect"}}}),
    Method<&Document::GetPageDimensions>(
        {"GetPageDimensions", 37, "Returns the width and height of the page in points.",
         "They are known after Create."},
        {{{"width"}, {"height"}}}),
    Method<&Document::GetPageMargins>(
        {"GetPageMargins", 38, "Returns the margins of the page in points.", "NewPage sets them."},
        {{{"marginleft"}, {"margintop"}, {"marginright"}, {"marginbottom"}}}),
    Method<&Document::GetPictureDimensions>(
        {"GetPictureDimensions", 39, "Returns the box that pictures are made to fit into.", ""},
        {{{"width"}, {"height"}}}),
    Method<&Document::SetPictureDimensions>(
        {"SetPictureDimensions", 40, "Sets the box that pictures are made to fit into.",
         "In points. If one is less than 1, the previous box stays."},
        {{{"width"}, {"height"}}}),
    Method<&Document::GetPosition>({"GetPosition", 41, "Returns the current position.",
                                    "In points from the top left corner inside the margins."},
                                   {{{"x"}, {"y"}}}),
    Method<&Document::SetPosition>(
        {"SetPosition", 42, "Sets the current position.",
         "If a coordinate is omitted or outside the usable area, the previous one stays. Carriage "
         "returns go back to the last x that was set here."},
        {{{"x", -1}, {"y", -1}}}),

    ReadOnlyProperty<Document, string, &RefusalSentence>(
        {"LastRefusal", 43, "Returns why the last call did not do what was asked.",
         "One sentence about the last call of Create, NewPage, Flush or a drawing or writing "
         "method; \"\" if it did what was asked. Reading this property changes nothing."}),

    Property<Document, bool, &Document::Conforming, &Document::Conforming>(
        {"Conforming", 44, "Returns or sets whether the next document is one for every reader.",
         "False at first, which gives the classic output, whose bytes never change. Create reads "
         "it "
         "and fixes it for the document. docs/output.md compares the two outputs."}),
    Property<PDF, bool, &PDF::Compressed, &PDF::Compressed>(
        {"Compressed", 45, "Returns or sets whether pages are compressed.",
         "True at first. It counts in conforming documents only, and is read when a page ends."}),
    ReadOnlyProperty<Document, string, &Document::LostCharacters>(
        {"LostCharacters", 46, "Returns the characters that readers will not see as themselves.",
         "Each character once, of what was written since Create; \"\" when all is well. In classic "
         "output these are mainly letters beyond ASCII, of which readers show another glyph or "
         "none."}),
    Property<Document, string, &Document::Footer, &Document::Footer>(
        {"Footer", 47, "Returns or sets the text at the foot of every page.",
         "Centered in Times 10 in the last 12 points above the bottom margin; the legal notice at "
         "first. {page} is the page's number, {pages} the number of pages, {{ a brace; \"\" leaves "
         "the text out. Read at the end of each page. A text that is wider than the room between "
         "the "
         "margins is left out; LastRefusal says so after Flush."}),
    Property<Document, string, &Document::Header, &Document::Header>(
        {"Header", 48, "Returns or sets the text at the head of every page.",
         "\"\" at first. In the 12 points above the top margin, if the margin has them; otherwise "
         "as Footer."}),
    ReadOnlyProperty<Document, std::int32_t, &Document::PageNumber>(
        {"PageNumber", 49, "Returns the number of the open page.", "0 before the first page."}),
    Method<&Document::TextWidth>(
        {"TextWidth", 50, "Returns the width of a text in points, in the current font.",
         "The whole number that WriteText compares with what is free. Nothing is written. 0 for a "
         "text of more than 32,767 points; LastRefusal then says so."},
        {{{"text"}}}),
    Method<&Document::TextHeight>(
        {"TextHeight", 51, "Returns the height that WriteMultiText would take, in points.",
         "Its lines, each as high as the font and dy, from the current position, however many "
         "pages "
         "they fill. Nothing is written. 0 if WriteMultiText would refuse the text; LastRefusal "
         "then says why."},
        {{{"text"}, {"dy", 0}, {"width", 0}}}),
    Method<&PDF::WriteBookmark>(
        {"WriteBookmark", 52, "Writes an entry of the outline that leads to the current position.",
         "level 1 is the highest; each entry may be at most one level below the one before."},
        {{{"text"}, {"level", 1}}}),
    Method<&PDF::SetAnchor>(
        {"SetAnchor", 53, "Names the current position for hyperlinks.",
         "In a conforming document a hyperlink \"#name\" leads there, also if the anchor is set "
         "later. A link whose anchor never comes leads nowhere; LastRefusal says so after Flush."},
        {{{"name"}}}),

    Property<Document, bool, &Document::PicturesEnlarged, &Document::PicturesEnlarged>(
        {"PicturesEnlarged", 54, "Returns or sets whether small pictures are enlarged.",
         "False at first. A picture that is smaller than the box of SetPictureDimensions is then "
         "enlarged until it fills the width or the height of the box. DrawPicture reads it."}),

    Method<&LoadAnyFont>(
        {"LoadFont",
         55,
         "Loads a font file, and returns a number of it for SetFont.",
         "file is the name of a TrueType or OpenType file, or the content of such a file as an "
         "array of bytes; index is the face of a collection, counted from 0. The number is 101 or "
         "more, and conforming documents take it. The font belongs to the object and stays over "
         "Create. Returns 0 if the file is not a font or is damaged, lacks the face, or if its "
         "license bits forbid embedding; LastRefusal then says why.",
         {.takes_long = true}},
        {{FileName("file"), {"index", 0}}}),
    Method<&Document::AddFallbackFont>(
        {"AddFallbackFont", 56, "Lets a loaded font show characters that the current font lacks.",
         "fontnumber is one that LoadFont returned. Fallbacks are asked in the order in which they "
         "were added, whatever the current font is, for headers and footers too. Returns False for "
         "another number."},
        {{{"fontnumber"}}}),
};

/// Ids ascend; two rows that share one share the name, and no class has both. A parameter has a
/// name, and only a text names a file, whose bytes may be taken too. A member that creates a file
/// is told its name and returns whether it did.
consteval bool RowsAreSound() {
  const Member* previous = nullptr;
  for (const Member& member : kMembers) {
    if (previous != nullptr && previous->id == member.id) {
      const bool both = (previous->of_pdf && member.of_pdf) || (previous->of_ps && member.of_ps);
      if (both || previous->name != member.name) return false;
    } else if (previous != nullptr && previous->id > member.id) {
      return false;
    }
    bool names_file = false;
    for (const Parameter& parameter : member.parameters()) {
      if (parameter.name.empty()) return false;
      if (parameter.file_name && parameter.type.type != Type::String) return false;
      if (parameter.bytes && !parameter.file_name) return false;
      names_file |= parameter.file_name;
    }
    const bool tells_success = member.result.type == Type::Boolean;
    if (member.facts.creates_file && !(names_file && tells_success)) return false;
    previous = &member;
  }
  return true;
}
static_assert(RowsAreSound());

}  // namespace

std::span<const Member> MemberTable() noexcept { return kMembers; }

}  // namespace vellumark::automation
