// SPDX-License-Identifier: MIT
#include "automation/member_table.h"

#include "automation/member_call.h"

namespace vellumark::automation {
namespace {

using std::string;
using enum AlignmentConstants;
using enum BulletConstants;
using enum EncodingConstants;

constexpr bool (PDF::*kLinkedText)(std::string_view, bool, Byte, AlignmentConstants,
                                   std::string_view) noexcept = &PDF::WriteText;
constexpr bool (PDF::*kLinkedTitle)(std::string_view, AlignmentConstants, BulletConstants,
                                    std::string_view) noexcept = &PDF::WriteTitle;

string RefusalSentence(const Document& document) { return document.LastRefusal().sentence; }

constexpr Caption kWriteText = {
    "WriteText", 20, "Writes a text on the current position, in the current color and font.",
    "The current position is its top left corner. The text must fit: without alignment between the "
    "current x and the right margin, else within the usable width, and above the bottom margin. "
    "Then the position moves behind it, or with carriagereturn to the x of the last SetPosition "
    "and down by the font height and dy points. PDF escapes parentheses in it, PS nothing; a "
    "backslash is passed on by both. PDF lays a link to the address hyperlink over it; the address "
    "is written unescaped, so it must be percent-encoded."};

constexpr Caption kWriteTitle = {
    "WriteTitle", 21, "Writes a title behind a bullet, in the current color and font.",
    "The bullet takes the font height less 1. A title always ends with a carriage return. "
    "hyperlink as for WriteText."};

constexpr Caption kDrawPicture = {
    "DrawPicture",
    23,
    "Draws a picture (BMP, GIF, JPG) on the current position.",
    "The position is its top left corner, a pixel one point; with a picture box, see "
    "SetPictureDimensions, a larger picture is made to fit into it. It must fit between the "
    "current position and the right and bottom margins, also if it is then aligned. Afterwards the "
    "position is below it, at the x of the last SetPosition. encoding is the filter of its "
    "samples: Flate makes the smallest files, ASCII85 and ASCIIHex plain text, and RunLength is "
    "not taken by every reader. hyperlink as for WriteText.",
    {.takes_long = true}};

constexpr Member kMembers[] = {
    Property<Document, string, &Document::Author, &Document::Author>(
        {"Author", 1, "Returns or sets the author of the document.",
         "Written into the file by Create, exactly as set: nothing is escaped. The same holds for "
         "the other texts of the document."}),
    Property<Document, string, &Document::Creator, &Document::Creator>(
        {"Creator", 2, "Returns or sets the program that the document comes from.", ""}),
    Property<PDF, string, &PDF::Keywords, &PDF::Keywords>(
        {"Keywords", 3, "Returns or sets the keywords of the document.", ""}),
    Property<Document, OrientationConstants, &Document::Orientation, &Document::Orientation>(
        {"Orientation", 4, "Returns or sets the orientation of the paper.",
         "Portrait at first. Read by Create, which refuses a value that is no member."}),
    Property<Document, PaperSizeConstants, &Document::PaperSize, &Document::PaperSize>(
        {"PaperSize", 5, "Returns or sets the size of the paper.",
         "A4 at first. Read by Create, which refuses a value that is no member."}),
    Property<PDF, string, &PDF::Producer, &PDF::Producer>(
        {"Producer", 6, "Returns or sets the program that makes the file.", ""}),
    Property<Document, bool, &Document::Rotated, &Document::Rotated>(
        {"Rotated", 7, "Returns or sets whether the pages are rotated.",
         "False at first. PDF marks each page that ends while it is set, and readers show the page "
         "upright all the same. PS turns the whole document; set it before Create."}),
    Property<PDF, string, &PDF::Subject, &PDF::Subject>(
        {"Subject", 8, "Returns or sets the subject of the document.", ""}),
    Property<Document, string, &Document::Title, &Document::Title>(
        {"Title", 9, "Returns or sets the title of the document.", ""}),
    ReadOnlyProperty<Document, string, &Document::Version>(
        {"Version", 10, "Returns the version of the file format.",
         R"("1.2" for PDF, "3.0" for PS.)"}),

    Method<&Document::Create>(
        {"Create",
         11,
         "Creates the file and starts the document.",
         "The file is created anew, and nobody else can open it until Flush. Pen, font, margins, "
         "colors and picture box go back to their defaults: black, solid, 1 point, unfilled, "
         "Courier 8, no margins, white page, no box. False for an orientation or paper size that "
         "is none, or when the file cannot be created.",
         {.creates_file = true}},
        {{FileName("file")}}),
    Method<&Document::NewPage>(
        {"NewPage", 12, "Ends the open page and starts the next one.",
         "Margins in points, page color 0 to 255; the position becomes the top left corner inside "
         "the margins. Margins that are negative or leave 20 points or less of the page either way "
         "are not taken; the previous ones stay."},
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
                              "Nothing reaches the file before. A document without pages gets "
                              "one. Whether the file was written in full, LastRefusal tells.",
                              {.takes_long = true, .completes_file = true}}),

    Method<&Document::DrawLine>(
        {"DrawLine", 14,
         "Draws a line in the current color, dash, fill color, fill style and thickness.",
         "From one point to the other. Every point of a shape must lie in the usable area, edges "
         "included, or the shape is refused."},
        {{{"x1"}, {"y1"}, {"x2"}, {"y2"}}}),
    Method<&Document::DrawRectangle>(
        {"DrawRectangle", 15,
         "Draws a rectangle in the current color, dash, fill color, fill style and thickness.",
         "By its top left corner. In a PDF an unfilled closed shape is white inside and covers "
         "what is below; PS leaves it open."},
        {{{"x"}, {"y"}, {"width"}, {"height"}}}),
    Method<&Document::DrawCurve>(
        {"DrawCurve", 16,
         "Draws a curve in the current color, dash, fill color, fill style and thickness.",
         "From the first point to the third, pulled by the second, and closed by a straight line."},
        {{{"x1"}, {"y1"}, {"x2"}, {"y2"}, {"x3"}, {"y3"}}}),
    Method<&Document::DrawCircle>(
        {"DrawCircle", 17,
         "Draws a circle in the current color, dash, fill color, fill style and thickness.",
         "By its centre and radius."},
        {{{"x"}, {"y"}, {"r"}}}),
    Method<&Document::DrawEllipse>(
        {"DrawEllipse", 18,
         "Draws an ellipse in the current color, dash, fill color, fill style and thickness.",
         "By its centre and both radii. In a PDF it bulges towards the corners of its box."},
        {{{"x"}, {"y"}, {"rx"}, {"ry"}}}),
    Method<&Document::DrawArc>(
        {"DrawArc", 19,
         "Draws an arc in the current color, dash, fill color, fill style and thickness.",
         "A slice of a circle, counter-clockwise between two angles in degrees from the positive x "
         "axis. PDF takes the smaller angle first and brings both below 360; where the second then "
         "lies below the first the slice runs through 0 degrees. PS takes the angles as they are."},
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
         "The lines are width points wide, or with 0 all that is left of the right margin, broken "
         "at blanks, with dy points between them. New pages start where they must, with the "
         "margins and color of the present one. justified stretches every line but the last to its "
         "full width. False, and nothing written, where a word is wider than a line."},
        {{{"text"}, {"dy", 0}, {"alignment", NoAlignment}, {"justified", false}, {"width", 0}}}),
    Method<&PDF::DrawPicture>(
        kDrawPicture,
        {{FileName("file"), {"alignment", NoAlignment}, {"hyperlink", ""}, {"encoding", ASCII85}}}),
    Method<&Document::DrawPicture, PS>(
        kDrawPicture, {{FileName("file"), {"alignment", NoAlignment}, {"encoding", ASCII85}}}),

    Method<&Document::GetColor>(
        {"GetColor", 24, "Returns the color of lines and texts.",
         "Each component 0 to 255. Before Create there is no color: run-time error 9 (subscript "
         "out of range). The same holds for the other colors."},
        {{{"red"}, {"green"}, {"blue"}}}),
    Method<&Document::SetColor>(
        {"SetColor", 25, "Sets the color of lines and texts.", "Each component 0 to 255."},
        {{{"red"}, {"green"}, {"blue"}}}),
    Method<&Document::GetFillColor>(
        {"GetFillColor", 26, "Returns the color that closed shapes are filled with.", ""},
        {{{"red"}, {"green"}, {"blue"}}}),
    Method<&Document::SetFillColor>(
        {"SetFillColor", 27, "Sets the color that closed shapes are filled with.", ""},
        {{{"red"}, {"green"}, {"blue"}}}),
    Method<&Document::GetPageColor>(
        {"GetPageColor", 28, "Returns the color of the page.", "It is set by NewPage."},
        {{{"red"}, {"green"}, {"blue"}}}),
    Method<&Document::GetDash>({"GetDash", 29, "Returns the dash pattern of lines.", ""}),
    Method<&Document::SetDash>(
        {"SetDash", 30, "Sets the dash pattern of lines.",
         "Lengths of dashes and gaps in points, separated by blanks, such as \"3 2\"; \"\" for a "
         "solid line. Nothing is checked."},
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
    Method<&Document::GetFont>({"GetFont", 35, "Returns the font.", "All are 0 before Create."},
                               {{{"fontnumber"}, {"fontheight"}, {"fontstyle"}, {"fonteffect"}}}),
    Method<&Document::SetFont>(
        {"SetFont", 36, "Sets the font.",
         "An unknown font becomes Courier, a height outside 8 to 72 becomes 8, an unknown effect "
         "none. A style other than Regular is taken for fonts below Symbol only, as passed."},
        {{{"fontnumber"}, {"fontheight"}, {"fontstyle"}, {"fonteffect"}}}),
    Method<&Document::GetPageDimensions>(
        {"GetPageDimensions", 37, "Returns the width and height of the page in points.",
         "Known after Create."},
        {{{"width"}, {"height"}}}),
    Method<&Document::GetPageMargins>(
        {"GetPageMargins", 38, "Returns the margins of the page in points.",
         "They are set by NewPage."},
        {{{"marginleft"}, {"margintop"}, {"marginright"}, {"marginbottom"}}}),
    Method<&Document::GetPictureDimensions>(
        {"GetPictureDimensions", 39, "Returns the box that pictures are made to fit into.", ""},
        {{{"width"}, {"height"}}}),
    Method<&Document::SetPictureDimensions>(
        {"SetPictureDimensions", 40, "Sets the box that pictures are made to fit into.",
         "In points; taken only if both are above 0."},
        {{{"width"}, {"height"}}}),
    Method<&Document::GetPosition>({"GetPosition", 41, "Returns the current position.",
                                    "In points from the top left corner inside the margins."},
                                   {{{"x"}, {"y"}}}),
    Method<&Document::SetPosition>(
        {"SetPosition", 42, "Sets the current position.",
         "A coordinate that is omitted or outside the usable area leaves the present one. An x "
         "that is taken is also where carriage returns go back to."},
        {{{"x", -1}, {"y", -1}}}),

    ReadOnlyProperty<Document, string, &RefusalSentence>(
        {"LastRefusal", 43, "Returns why the last call did not do what was asked.",
         "One sentence about the latest Create, NewPage, Flush, drawing or writing call; \"\" "
         "after one that did what was asked. Asking changes nothing."}),
};

/// Ids ascend; two rows that share one share the name, and no class has both. A parameter has a
/// name, and only a text names a file. A member that creates a file is told its name and returns
/// whether it did.
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
