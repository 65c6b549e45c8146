// SPDX-License-Identifier: MIT
//
// Vellumark: printable documents without a printer driver.
//
// The one header a C++ host includes. It declares PDF, which writes PDF files, PS, which writes
// PostScript programs, and Enumerations and the eight enumerations whose members the calls take:
//
//     #include <vellumark/vellumark.h>
//     using namespace vellumark;
//
//     PDF doc;
//     doc.Title("First page");
//     if (!doc.Create("first.pdf")) return Fail(doc.LastRefusal().sentence);
//     doc.NewPage(50, 50, 50, 50, 255, 255, 255);
//     doc.SetFont(FontNumberConstants::Times, 12, FontStyleConstants::Regular,
//                 FontEffectConstants::NoFontEffect);
//     doc.WriteMultiText("Wrapped and justified ...", 2, AlignmentConstants::NoAlignment, true);
//     doc.Flush();
//
// Order of calls. Properties; Create; NewPage before anything is drawn; drawing, text and further
// NewPage calls; Flush once. Nothing reaches the file before Flush, and a document that is
// destroyed without it leaves an empty file behind. The same calls at the same moment give the same
// bytes.
//
// Memory and streams. A document needs no file: Create takes a std::ostream too, such as the
// std::ostringstream of a web answer, and DrawPicture a picture's bytes. docs/web_answers.md has
// both in a program.
//
//     std::ostringstream answer;
//     doc.Create(answer);  ...  doc.Flush();
//     Send(std::move(answer).str());
//
// Units and coordinates. Positions and sizes are whole points (1/72 inch), 16 bits signed. (0, 0)
// is the top left corner of the area inside the page margins, y grows downwards. The usable width
// and height are the page's size less its margins. The paper's size is turned by Landscape.
//
// Output. A document is conforming or classic (Conforming). Conforming files are what every reader
// accepts; a classic file never changes by a byte, and has the oddities of docs/output.md. A
// comment that does not name the output holds for both.
//
// Text is UTF-8. A property gives back exactly what was set. In a conforming file a text is literal
// and shows every character that the font has; a line feed or tab is a blank. In a classic file it
// is converted to the platform's single-byte code page, where a character that it lacks becomes
// "?".
//
// Results and errors. A drawing or writing call returns true if it wrote something, and false,
// without throwing, if it refused an argument or met a run-time error; LastRefusal then says why.
// NewPage and Flush return nothing and go on past a failing step; LastRefusal says what failed. The
// other members are accessors: an argument out of range is ignored or replaced as they say, and the
// few that can fail throw RunTimeError.
//
// Each document belongs to one thread at a time; nothing is shared between documents. A document
// that was moved from may only be destroyed or assigned to.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include <vellumark/enumerations.h>
#include <vellumark/export.h>
#include <vellumark/number.h>
#include <vellumark/platform.h>
#include <vellumark/refusal.h>
#include <vellumark/run_time_error.h>
#include <vellumark/version.h>
#if !defined(_WIN32)  // a build for Windows has no MemoryPlatform
#include <vellumark/memory_platform.h>
#endif

namespace vellumark {

/// What every document can do, whatever its language. Not created itself: see PDF and PS. A
/// function that takes a Document& draws the same pages into either.
class VELLUMARK_API Document {
 public:
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  // --- Properties. They keep their values from one Create to the next. ---

  /// Written into the file by Create: in conforming output any text, in classic output exactly as
  /// set, with nothing escaped.
  [[nodiscard]] std::string Author() const;
  void Author(std::string_view author);
  [[nodiscard]] std::string Creator() const;
  void Creator(std::string_view creator);
  [[nodiscard]] std::string Title() const;
  void Title(std::string_view title);

  /// Read by Create, which refuses a value that is not a member. Default Portrait and A4.
  [[nodiscard]] OrientationConstants Orientation() const;
  void Orientation(OrientationConstants orientation);
  [[nodiscard]] PaperSizeConstants PaperSize() const;
  void PaperSize(PaperSizeConstants papersize);

  /// PDF: turns each page that ends while it is set by 90 degrees; in classic output only marks it,
  /// and readers show it upright all the same.
  /// PS: turns the whole document, set before Create; see docs/postscript.md.
  [[nodiscard]] bool Rotated() const;
  void Rotated(bool rotated);

  /// Whether the next document is one that every reader accepts: read by Create and fixed for the
  /// document. Default false, the classic output, whose bytes never change; docs/output.md compares
  /// the two.
  [[nodiscard]] bool Conforming() const;
  void Conforming(bool conforming);

  /// Whether a picture that is smaller than the box of SetPictureDimensions is enlarged until it
  /// fills the box's width or height. Read by DrawPicture. Default false.
  [[nodiscard]] bool PicturesEnlarged() const;
  void PicturesEnlarged(bool picturesenlarged);

  /// The texts above and below every page, centered in Times 10: the header in the 12 points above
  /// the top margin, if the margin has them, the footer in the last 12 points above the bottom
  /// margin. {page} in them is the page's number, {pages} the number of pages, {{ a brace; ""
  /// leaves the text out. Read at the end of each page. The footer is the legal notice at first,
  /// the header "". A text that was set and is wider than the room between the margins is left out,
  /// and LastRefusal says so after Flush.
  [[nodiscard]] std::string Footer() const;
  void Footer(std::string_view footer);
  [[nodiscard]] std::string Header() const;
  void Header(std::string_view header);

  /// The number of the open page, from 1; 0 before the first.
  [[nodiscard]] std::int32_t PageNumber() const;

  /// Version of the file format.
  [[nodiscard]] std::string Version() const;

  /// Each character, once, of what was written since Create that a reader will not see as itself,
  /// in the order of their first appearance. Empty when all is well. In a classic document that
  /// includes letters beyond ASCII, of which readers show another glyph or none.
  [[nodiscard]] std::string LostCharacters() const;

  // --- The document and its pages. ---

  /// Creates the file (always anew, for nobody else as long as it is open) and starts the document.
  /// Pen, font, margins, colors and picture box go back to their defaults: black, solid, 1 point,
  /// unfilled, Courier 8, no margins, white page, no box. Returns false if the orientation or
  /// the paper size is not a member of its enumeration, or if the file cannot be created.
  ///
  /// A file that is open already, because Flush was not called, stays open and empty; a PDF whose
  /// Create is refused goes on with it, a PS forgets it.
  bool Create(std::string_view file) noexcept;

  /// The same without a file: Flush writes the document to `stream`, which must exist until then,
  /// and flushes it. A document in memory is one in a std::ostringstream; a std::ofstream is opened
  /// with std::ios::binary. Returns false if the stream has failed before. The document does not
  /// close it.
  bool Create(std::ostream& stream) noexcept;

  /// Ends the open page, if any, with its header and footer, and starts the next one: margins
  /// in points, page color 0 to 255, position at the top left. Margins that are negative or leave
  /// 20 points or less of the page either way are not taken; the previous ones stay.
  void NewPage(Int16 marginleft, Int16 margintop, Int16 marginright, Int16 marginbottom, Byte red,
               Byte green, Byte blue) noexcept;

  /// Ends the last page, writes the document and closes the file. A document without pages gets
  /// one. Whether the file was written in full, LastRefusal tells.
  void Flush() noexcept;

  // --- Shapes, in the current color, dash, fill color, fill style and thickness. ---
  // Every point must lie in the usable area, edges included; a circle, ellipse or
  // slice as a whole.

  bool DrawLine(Int16 x1, Int16 y1, Int16 x2, Int16 y2) noexcept;

  /// By its top left corner. An unfilled closed shape is open; in a classic PDF it is white inside
  /// and covers what is below.
  bool DrawRectangle(Int16 x, Int16 y, Int16 width, Int16 height) noexcept;

  /// From the first point to the third, pulled by the second, and closed by a straight line.
  bool DrawCurve(Int16 x1, Int16 y1, Int16 x2, Int16 y2, Int16 x3, Int16 y3) noexcept;

  /// By its center.
  bool DrawCircle(Int16 x, Int16 y, Int16 r) noexcept;

  /// Classic PDF: bulges toward the corners of its box, visibly less round than a circle.
  bool DrawEllipse(Int16 x, Int16 y, Int16 rx, Int16 ry) noexcept;

  /// A slice of a circle from the center, counter-clockwise between two angles in degrees from the
  /// positive x axis. PDF takes the smaller angle first and brings both below 360; if the second
  /// is then below the first, the slice runs through 0 degrees. PS takes the angles as they are, in
  /// conforming output less whole turns.
  bool DrawArc(Int16 x, Int16 y, Int16 r, float th1, float th2) noexcept;

  // --- Text, in the current color and font. ---

  /// One run of text; the current position is its top left corner. It must fit: without alignment
  /// between the current x and the right margin, else within the usable width, and above the bottom
  /// margin. Conforming text is literal; in classic output PDF escapes parentheses in it, PS
  /// nothing, and both pass a backslash on. Then the
  /// position moves behind it, or with `carriagereturn` to the x of the last SetPosition and down
  /// by the font height and `dy`.
  bool WriteText(std::string_view text, bool carriagereturn = false, Byte dy = 0,
                 AlignmentConstants alignment = AlignmentConstants::NoAlignment) noexcept;

  /// One line behind a bullet that takes the font height less 1; always ends with a carriage
  /// return.
  bool WriteTitle(std::string_view text,
                  AlignmentConstants alignment = AlignmentConstants::NoAlignment,
                  BulletConstants bullet = BulletConstants::Disc) noexcept;

  /// A paragraph in lines of `width` points, 0 for all that is left of the right margin, broken at
  /// blanks; `dy` points between the lines. Starts new pages if it must, with the margins and
  /// color of the present one. `justified` stretches every line but the last to its full width.
  /// Returns false, and writes nothing, if a word is wider than a line.
  bool WriteMultiText(std::string_view text, Byte dy = 0,
                      AlignmentConstants alignment = AlignmentConstants::NoAlignment,
                      bool justified = false, Int16 width = 0) noexcept;

  // --- Pictures. ---

  /// The picture of a BMP, GIF, JPG or PNG file, told by its content, with its top left corner at
  /// the current position. `file` is a name for the platform, UTF-8. A pixel is drawn as one point,
  /// unless SetPictureDimensions has set a box: then a larger picture is made to fit into it. It
  /// must fit between the current position and the right and bottom margins, also if it is then
  /// aligned. Afterwards the position is below it, at the x of the last SetPosition.
  ///
  /// `encoding` is the filter of its samples. Flate makes the smallest files, ASCII85 and ASCIIHex
  /// plain text. Original, in conforming output only, is a JPG file's own bytes, and Flate for
  /// other kinds. In classic output
  /// RunLength ends with a marker of its own instead of the filter's, which not every
  /// reader takes; docs/pictures.md says which do, and what becomes of pictures of 16 and 32 bits
  /// per pixel.
  ///
  /// Where a PNG is transparent, the page's color shows through, in a conforming PDF whatever was
  /// drawn before.
  ///
  /// Returns false if the file cannot be read as a picture, has more than 32,767 pixels a side or
  /// 2^31 - 1 bytes, or, without a palette, more than 32,767 bytes a row (10,922 pixels of 24
  /// bits).
  bool DrawPicture(std::string_view file,
                   AlignmentConstants alignment = AlignmentConstants::NoAlignment,
                   EncodingConstants encoding = EncodingConstants::ASCII85) noexcept;

  /// The same out of memory: `bytes` is the content of such a file, from a database or the network,
  /// and may go when the call returns. A std::string of bytes is passed as
  /// std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()), since a text is a
  /// file's name.
  bool DrawPicture(std::span<const std::uint8_t> bytes,
                   AlignmentConstants alignment = AlignmentConstants::NoAlignment,
                   EncodingConstants encoding = EncodingConstants::ASCII85) noexcept;

  // --- Pen, font, page and position. ---

  /// The colors; each component 0 to 255. Before Create there is none, and reading throws
  /// RunTimeError 9 (subscript out of range).
  void GetColor(std::uint8_t& red, std::uint8_t& green, std::uint8_t& blue) const;
  void SetColor(Byte red, Byte green, Byte blue);
  void GetFillColor(std::uint8_t& red, std::uint8_t& green, std::uint8_t& blue) const;
  void SetFillColor(Byte red, Byte green, Byte blue);
  void GetPageColor(std::uint8_t& red, std::uint8_t& green, std::uint8_t& blue) const;

  /// Lengths of dashes and gaps in points, separated by blanks, such as "3 2"; "" for a solid line.
  /// Any other text is a solid line in conforming output, and unchecked in classic output.
  [[nodiscard]] std::string GetDash() const;
  void SetDash(std::string_view dash);

  [[nodiscard]] bool GetFillStyle() const;
  void SetFillStyle(bool fillstyle);

  /// Line width in points; 0 is ignored.
  [[nodiscard]] std::uint8_t GetThickness() const;
  void SetThickness(Byte thickness);

  /// Besides the members of FontNumberConstants, the number of a font that LoadFont returned; in a
  /// classic document that is an unknown one.
  /// An unknown font becomes Courier, a height outside 8 to 72 becomes 8, an unknown effect none.
  /// A style other than Regular is taken if the font number, as it was passed, is below Symbol.
  void GetFont(FontNumberConstants& fontnumber, std::uint8_t& fontheight,
               FontStyleConstants& fontstyle, FontEffectConstants& fonteffect) const;
  void SetFont(FontNumberConstants fontnumber, Byte fontheight, FontStyleConstants fontstyle,
               FontEffectConstants fonteffect);

  /// Loads a TrueType or OpenType font, so that a conforming document shows the characters that it
  /// has; the glyphs that are used go into the file. `file` is a name for the platform, UTF-8, and
  /// `index` the face of a collection, counted from 0. Returns a number for SetFont: 101, 102 and
  /// so on. Fonts belong to the object and stay over Create. Returns 0 if the file cannot be read,
  /// is not a font or is damaged, lacks the face, or if its license bits forbid embedding;
  /// LastRefusal says why. docs/fonts.md tells more.
  FontNumberConstants LoadFont(std::string_view file, Int16 index = 0) noexcept;

  /// The same out of memory: `bytes` is the content of such a file, and may go when the call
  /// returns.
  FontNumberConstants LoadFont(std::span<const std::uint8_t> bytes, Int16 index = 0) noexcept;

  /// From here on a loaded font shows the characters that the current font lacks, whichever that
  /// is, headers and footers included; fallbacks are asked in the order in which they were added.
  /// False for a number that LoadFont did not return.
  bool AddFallbackFont(FontNumberConstants fontnumber) noexcept;

  /// Size of the page in points, after Create.
  void GetPageDimensions(std::int16_t& width, std::int16_t& height) const;

  void GetPageMargins(std::int16_t& marginleft, std::int16_t& margintop, std::int16_t& marginright,
                      std::int16_t& marginbottom) const;

  /// The box into which pictures are fitted; taken only if both are above 0. A smaller picture
  /// stays as it is, unless PicturesEnlarged is set.
  void GetPictureDimensions(std::int16_t& width, std::int16_t& height) const;
  void SetPictureDimensions(Int16 width, Int16 height);

  /// The current position. A coordinate outside the usable area, such as the default, leaves the
  /// present one. An x that is taken is also where carriage returns go back to.
  void GetPosition(std::int16_t& x, std::int16_t& y) const;
  void SetPosition(Int16 x = -1, Int16 y = -1);

  // --- Measuring. Both write nothing; LastRefusal says why one returned 0. ---

  /// The width of a text in points, in the current font: the whole number that WriteText compares
  /// with what is free. 0 for a text of more than 32,767 points.
  std::int16_t TextWidth(std::string_view text) noexcept;

  /// The height in points that WriteMultiText would take from the current position with the same
  /// arguments: its lines, each as high as the font and `dy`, however many pages they fill. 0 if it
  /// would refuse the text.
  std::int32_t TextHeight(std::string_view text, Byte dy = 0, Int16 width = 0) noexcept;

  // --- Why. ---

  /// The reason why the latest Create, NewPage, Flush, drawing or writing call did not do what was
  /// asked; None after one that did.
  [[nodiscard]] Refusal LastRefusal() const;

 protected:
  class Parts;

  explicit Document(std::unique_ptr<Parts> parts);
  Document(Document&& other) noexcept;
  Document& operator=(Document&& other) noexcept;
  ~Document();

  [[nodiscard]] Parts& parts() const noexcept { return *parts_; }

 private:
  std::unique_ptr<Parts> parts_;
};

/// Class to generate PDF documents. Constructing one shows the notice "Initialize()" of the
/// platform; on POSIX systems that is one line on standard error.
class VELLUMARK_API PDF : public Document {
 public:
  /// On a native platform of its own.
  PDF();

  /// On a platform of the host's, such as a MemoryPlatform.
  explicit PDF(std::shared_ptr<Platform> platform);

  PDF(const PDF&) = delete;
  PDF& operator=(const PDF&) = delete;
  PDF(PDF&& other) noexcept;
  PDF& operator=(PDF&& other) noexcept;
  ~PDF();

  /// Properties that only PDF has; see Author.
  [[nodiscard]] std::string Keywords() const;
  void Keywords(std::string_view keywords);
  [[nodiscard]] std::string Producer() const;
  void Producer(std::string_view producer);
  [[nodiscard]] std::string Subject() const;
  void Subject(std::string_view subject);

  /// Whether the pages of a conforming document are compressed, which makes it several times
  /// smaller. Read when a page ends. Default true; a classic document is never compressed.
  [[nodiscard]] bool Compressed() const;
  void Compressed(bool compressed);

  /// An entry of the outline that readers show beside the pages. It leads to the current position.
  /// `level` 1 is the highest; each entry may be at most one level below the one before. False for
  /// another level and before the first page.
  bool WriteBookmark(std::string_view text, Int16 level = 1) noexcept;

  /// Names the current position. In a conforming document a hyperlink "#name" leads there, also if
  /// the anchor is set later; a name that is set again leads to the last place. A link whose anchor
  /// never comes leads nowhere, and LastRefusal says so after Flush. False for an empty name and
  /// before the first page.
  bool SetAnchor(std::string_view name) noexcept;

  /// The same with a link over the text. In classic output the address is written unescaped, so it
  /// must be percent-encoded.
  using Document::WriteText;
  bool WriteText(std::string_view text, bool carriagereturn, Byte dy, AlignmentConstants alignment,
                 std::string_view hyperlink) noexcept;
  using Document::WriteTitle;
  bool WriteTitle(std::string_view text, AlignmentConstants alignment, BulletConstants bullet,
                  std::string_view hyperlink) noexcept;

  /// As in Document, with a link over the picture. It hides the member of Document: here the third
  /// argument is the address.
  bool DrawPicture(std::string_view file,
                   AlignmentConstants alignment = AlignmentConstants::NoAlignment,
                   std::string_view hyperlink = "",
                   EncodingConstants encoding = EncodingConstants::ASCII85) noexcept;
  bool DrawPicture(std::span<const std::uint8_t> bytes,
                   AlignmentConstants alignment = AlignmentConstants::NoAlignment,
                   std::string_view hyperlink = "",
                   EncodingConstants encoding = EncodingConstants::ASCII85) noexcept;
};

/// Class to generate PS documents: PostScript programs with structuring comments. It has everything
/// a Document has, no limit on the number of marks or pages, and no links.
class VELLUMARK_API PS : public Document {
 public:
  /// As for PDF.
  PS();
  explicit PS(std::shared_ptr<Platform> platform);

  PS(const PS&) = delete;
  PS& operator=(const PS&) = delete;
  PS(PS&& other) noexcept;
  PS& operator=(PS&& other) noexcept;
  ~PS();
};

}  // namespace vellumark
