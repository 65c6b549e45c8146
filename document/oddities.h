// SPDX-License-Identifier: MIT
//
// Oddities: what the classic output does otherwise than a reader of the format's reference expects,
// and what the conforming output does instead.
//
// Each is a decision of this house: classic files written over the years look like this, hosts
// compare them byte for byte, and readers cope. A document asks one Oddities object, chosen by
// Create from the property Conforming; nobody else asks which output it is:
//
//     if (state.oddities.UnfilledShapesAreWhite()) ...
//
// docs/output.md has the same list for users, with what the readers make of each. Every classic
// oddity has a test of its name, Oddity...; so has every conforming counterpart, Conforming...
#pragma once

namespace vellumark::document {

class Oddities {
 public:
  constexpr explicit Oddities(bool classic = true) noexcept : classic_(classic) {}

  // --- Of the document, whatever its language (document/). ---

  /// Classic: text becomes bytes of the platform's single-byte code page before anything else; a
  /// character that it lacks becomes "?", a line feed or tab stays as it is and shows nothing.
  /// Readers show the bytes in the fonts' own encoding, so that "é" is seen as "Ø" and "ü" not at
  /// all. It stays because text is measured with the glyphs that readers show.
  /// Conforming: text stays Unicode up to the font's encoding (layout/encoded_text.h).
  [[nodiscard]] constexpr bool TextIsCodePageBytes() const noexcept { return classic_; }

  /// Classic: a mark before the first NewPage is accepted. It belongs to the page that ends next,
  /// and to none if NewPage is called. Readers do not see it; hosts that reuse an object rely on
  /// its result.
  /// Conforming: it is refused.
  [[nodiscard]] constexpr bool MarksNeedNoPage() const noexcept { return classic_; }

  /// Classic: a paragraph uses the whole height, and the footer of a full page is written over its
  /// last line. Readers show both texts. It stays because page breaks stay where they are.
  /// Conforming: a paragraph keeps clear of the footer.
  [[nodiscard]] constexpr bool ParagraphsReachIntoTheFooter() const noexcept { return classic_; }

  /// Classic: the last line of a paragraph has a blank behind it, and an empty paragraph is a line
  /// with a blank. Readers do not see it; it counts in widths and in archives.
  /// Conforming: neither is written.
  [[nodiscard]] constexpr bool LastLinesEndWithABlank() const noexcept { return classic_; }

  /// Classic: each word of a justified line is a text of its own. Readers see the same page; the
  /// file is several times larger.
  /// Conforming: a line is one text, its words moved to the same places.
  [[nodiscard]] constexpr bool JustifiedWordsStandAlone() const noexcept { return classic_; }

  /// Classic: the width of each word of a justified line is rounded to whole points before they are
  /// added up. Many short words can add up to more than the line has; the last one then reaches
  /// over its edge, or is left out at the page's margin.
  /// Conforming: they are added up first and fit.
  [[nodiscard]] constexpr bool JustifiedWordsAreRoundedEach() const noexcept { return classic_; }

  /// Classic: samples of 16 and 32 bits are written as the picture file has them. At 16 bits the
  /// exchange of a pixel's first and third byte, made for three bytes a pixel, moves the first byte
  /// of every pixel to the pixel before (layout/picture.h). PDF names no color space for them, and
  /// readers show no picture; PostScript calls them three bytes a pixel, and interpreters show a
  /// torn one. Archives and comparisons know the bytes.
  /// Conforming: they become 24 bits.
  [[nodiscard]] constexpr bool DeepSamplesStayAsTheyAre() const noexcept { return classic_; }

  /// Classic: the last run of run-length data is two bytes longer than the picture, and the data
  /// ends with 0xC7 instead of the filter's end code (encoding/oddities.h). Readers have all
  /// samples by then; PostScript interpreters execute what is left. Conforming: the filter's own
  /// end code, and literal runs.
  [[nodiscard]] constexpr bool RunLengthDataEndOtherwise() const noexcept { return classic_; }

  /// Classic: the platform, or the stream, is handed each line in a call of its own; only the text
  /// of a picture comes in several. Readers see no difference; platforms of hosts count lines.
  /// Conforming: lines are handed over as they lie in memory, some 64 KiB at once.
  [[nodiscard]] constexpr bool LinesAreWrittenOneByOne() const noexcept { return classic_; }

  // --- Of PDF (pdf/). ---

  /// Classic: positions do not count line ends: every offset, stream length and the startxref value
  /// is two bytes short for each line before it. Readers find a damaged cross-reference table and
  /// rebuild it, and find a stream's end by its keyword.
  /// Conforming: true positions.
  [[nodiscard]] constexpr bool PositionsLeaveOutLineEnds() const noexcept { return classic_; }

  /// Classic: the page tree and the resources, numbered before they are written, have zero for an
  /// offset. Readers rebuild the table anyway.
  /// Conforming: they have their offsets.
  [[nodiscard]] constexpr bool ReservedObjectsHaveNoOffset() const noexcept { return classic_; }

  /// Classic: an entry of the cross-reference table has 21 bytes, a blank before its CR LF; the
  /// format has 20. Readers rebuild the table.
  /// Conforming: 20 bytes.
  [[nodiscard]] constexpr bool CrossReferencesHave21Bytes() const noexcept { return classic_; }

  /// Classic: object numbers have 16 bits: a document is full after about 16,000 marks.
  /// Conforming: as many as the format allows, 8,388,607 objects.
  [[nodiscard]] constexpr bool ObjectNumbersHave16Bits() const noexcept { return classic_; }

  /// Classic: every mark is a content stream of its own with its length in a second object, and
  /// sets its whole pen. A shape leaves the graphics state that it saved open, for the next stream
  /// of the page to restore; the last one of a page stays open if it is a shape. Readers put a
  /// page's streams together and close what is open.
  /// Conforming: one compressed stream a page, in which only what changes is set.
  [[nodiscard]] constexpr bool EachMarkIsAStream() const noexcept { return classic_; }

  /// Classic: the fonts name their encoding under /BaseEncoding in the font dictionary itself,
  /// where readers look for /Encoding: they do not see it and show the font's own encoding.
  /// Conforming: /Encoding.
  [[nodiscard]] constexpr bool FontsNameABaseEncoding() const noexcept { return classic_; }

  /// Classic: only parentheses are escaped in the text of a page. A host can write octal codes and
  /// other escapes of its own; one that must show a backslash doubles it.
  /// Conforming: a text is literal.
  [[nodiscard]] constexpr bool OnlyParenthesesAreEscaped() const noexcept { return classic_; }

  /// Classic: document properties and link addresses are pasted into their strings as the host gave
  /// them. A lone parenthesis makes the file unreadable.
  /// Conforming: escaped; properties in UTF-16 if they need it, addresses percent-encoded.
  [[nodiscard]] constexpr bool PropertiesAreUnescaped() const noexcept { return classic_; }

  /// Classic: /Rotate has 1 or 0, not degrees. Readers want multiples of 90 and show the page
  /// upright: a host that sets Rotated gets the mark in the file and not a turned page.
  /// Conforming: /Rotate 90.
  [[nodiscard]] constexpr bool RotateIsNotInDegrees() const noexcept { return classic_; }

  /// Classic: a closed shape that is not to be filled is painted white inside and covers what lies
  /// beneath it. Forms are built on it: boxes drawn over lines.
  /// Conforming: it is open, as in PostScript.
  [[nodiscard]] constexpr bool UnfilledShapesAreWhite() const noexcept { return classic_; }

  /// Classic: the control points of circles and arcs are rounded to whole points. Readers show
  /// small circles with corners.
  /// Conforming: decimals.
  [[nodiscard]] constexpr bool CurvesHaveWholePoints() const noexcept { return classic_; }

  /// Classic: the control points of an ellipse's quarter are its start and the corner of the
  /// bounding box, so that it bulges toward the corners and is less round than a circle.
  /// Conforming: as round as a circle.
  [[nodiscard]] constexpr bool EllipsesBulge() const noexcept { return classic_; }

  // --- Of both page languages (pdf/, ps/). ---

  /// Classic: the page's background is painted on every page, and outlined: in PDF with the default
  /// black pen, of which half a point shows along the page's edge, in PostScript in its own color.
  /// Conforming: it is filled only, and white is not painted at all.
  [[nodiscard]] constexpr bool BackgroundsHaveAnOutline() const noexcept { return classic_; }

  // --- Of PostScript (ps/). ---

  /// Classic: a file has header comments and pages, and nothing between them: no prolog, no setup,
  /// no fonts or language level to be told, the paper's name instead of a request for it. Programs
  /// that print parts of a file find nothing to keep in front of each part.
  /// Conforming: prolog, setup and pages, each within its comments; the file is clean 7-bit text
  /// with lines of at most 255 bytes.
  [[nodiscard]] constexpr bool FilesAreWithoutSetup() const noexcept { return classic_; }

  /// Classic: a page comment has the number of pages first and the page's own number second, where
  /// the structuring conventions have the page's label and its number. Viewers show the count as
  /// every page's label.
  /// Conforming: the page's number twice.
  [[nodiscard]] constexpr bool PageCommentsBeginWithTheCount() const noexcept { return classic_; }

  /// Classic: the page comment follows the page's background instead of opening the page: a program
  /// that cuts the file at the comments gives each background to the page before it.
  /// Conforming: it opens the page, which is set up and put back between save and restore.
  [[nodiscard]] constexpr bool PageCommentsFollowTheBackground() const noexcept { return classic_; }

  /// Classic: the rotation for Landscape and Rotated stands once, in the header. `showpage` gives
  /// the next page a fresh coordinate system, so only the first page is turned and the later ones
  /// stand upright. Both together turn by 180 degrees and move by height first, then width, so that
  /// on paper that is not square the page is shifted by the difference of the two.
  /// Conforming: every page turns itself, on paper that fits.
  [[nodiscard]] constexpr bool OnlyTheFirstPageTurns() const noexcept { return classic_; }

  /// Classic: text is pasted between the parentheses as the host gave it, properties behind their
  /// comments, and the dash between its brackets. A host escapes "(", ")" and "\" itself, and may
  /// write octal codes.
  /// Conforming: a text is literal, a comment stays one, and a dash is a list of numbers.
  [[nodiscard]] constexpr bool TextIsPasted() const noexcept { return classic_; }

  /// Classic: every mark spells out its path and sets its whole pen, or finds its font anew, in the
  /// font's own encoding. Interpreters see the same page; the file is several times larger.
  /// Conforming: a mark is its numbers and a short procedure, and sets what has changed.
  [[nodiscard]] constexpr bool MarksAreSpelledOut() const noexcept { return classic_; }

  /// Classic: a line's path is closed: it is stroked there and back.
  /// Conforming: it is open.
  [[nodiscard]] constexpr bool LinesAreClosed() const noexcept { return classic_; }

  /// Classic: a solid line writes no dash: a dash set earlier on the page stays in force.
  /// Conforming: a solid line is solid.
  [[nodiscard]] constexpr bool DashesStayInForce() const noexcept { return classic_; }

  /// Classic: the angles of an arc are written as given, with all their turns: interpreters take
  /// minutes for the turns of a thousand million degrees.
  /// Conforming: the same arc with at most one turn more than it needs.
  [[nodiscard]] constexpr bool ArcsTurnAsOftenAsTold() const noexcept { return classic_; }

  /// Classic: a picture's data is one line, binary under RunLength and Flate, which transfer
  /// programs change; what the image does not use of it is executed, and stops the document.
  /// Conforming: lines of base-85 or hexadecimal text, read to their end.
  [[nodiscard]] constexpr bool PictureDataIsOneLine() const noexcept { return classic_; }

  /// Classic: a Create whose file cannot be created forgets the file that was open before, which
  /// stays empty. A PDF goes on with it, in both outputs.
  /// Conforming: so does a PS.
  [[nodiscard]] constexpr bool FailedCreatesForgetTheFile() const noexcept { return classic_; }

 private:
  bool classic_;
};

}  // namespace vellumark::document
