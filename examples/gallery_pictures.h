// SPDX-License-Identifier: MIT
//
// The gallery's pages with pictures: formats and depths, filters, sizes, alignments, a link.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "examples/gallery_pages.h"

namespace vellumark::examples {

/// A sample picture and the way it is drawn.
struct Sample {
  std::string_view file;
  std::string_view label;
  EncodingConstants encoding = EncodingConstants::Flate;
};

/// Draws the picture, with a link if the document has links. If it is refused, writes the reason.
template <class AnyDocument>
void Picture(AnyDocument& doc, const std::string& file,
             AlignmentConstants alignment = AlignmentConstants::NoAlignment,
             EncodingConstants encoding = EncodingConstants::Flate, std::string_view link = "") {
  bool drawn = false;
  if constexpr (requires { doc.DrawPicture(file, alignment, link, encoding); }) {
    drawn = doc.DrawPicture(file, alignment, link, encoding);
  } else {
    drawn = doc.DrawPicture(file, alignment, encoding);
  }
  if (!drawn) doc.WriteText(doc.LastRefusal().sentence);
}

/// Labeled pictures in rows of three, from `y` down.
template <class AnyDocument, class Samples>
void PictureTable(AnyDocument& doc, const std::string& folder, std::int16_t y,
                  const Samples& samples) {
  int place = 0;
  for (const Sample& sample : samples) {
    const auto x = static_cast<std::int16_t>(place % 3 * 165);
    const auto top = static_cast<std::int16_t>(y + place / 3 * 100);
    Label(doc, x, top, sample.label);
    doc.SetPosition(x, static_cast<std::int16_t>(top + 14));
    Picture(doc, folder + std::string(sample.file), AlignmentConstants::NoAlignment,
            sample.encoding);
    ++place;
  }
}

template <class AnyDocument>
void FormatsPage(AnyDocument& doc, const std::string& folder) {
  StartPage(doc, "Pictures: formats and depths");
  constexpr Sample kSamples[] = {{"landscape_1.bmp", "BMP, 1 bit"},
                                 {"landscape_4.bmp", "BMP, 4 bits"},
                                 {"landscape_8.bmp", "BMP, 8 bits"},
                                 {"landscape_24.bmp", "BMP, 24 bits"},
                                 {"landscape.gif", "GIF"},
                                 {"landscape_interlaced.gif", "GIF, interlaced"},
                                 {"landscape.jpg", "JPG"},
                                 {"landscape_progressive.jpg", "JPG, progressive"},
                                 {"landscape_gray.jpg", "JPG, grey"},
                                 {"landscape_cmyk.jpg", "JPG, four inks"}};
  PictureTable(doc, folder, 60, kSamples);
}

template <class AnyDocument>
void FiltersPage(AnyDocument& doc, const std::string& folder) {
  using enum EncodingConstants;
  StartPage(doc, "Pictures: filters, boxes, alignments");
  constexpr Sample kSamples[] = {{"landscape_24.bmp", "ASCII85, 24 bits", ASCII85},
                                 {"landscape_24.bmp", "ASCIIHex, 24 bits", ASCIIHex},
                                 {"landscape_24.bmp", "Flate, 24 bits", Flate},
                                 {"landscape_4.bmp", "ASCII85, 4 bits", ASCII85},
                                 {"landscape_4.bmp", "ASCIIHex, 4 bits", ASCIIHex},
                                 {"landscape_4.bmp", "Flate, 4 bits", Flate}};
  PictureTable(doc, folder, 60, kSamples);

  const std::string picture = folder + "landscape_24.bmp";
  Label(doc, 0, 270, "in a box of 47 x 47");
  doc.SetPosition(0, 284);
  doc.SetPictureDimensions(47, 47);
  Picture(doc, picture);
  Label(doc, 165, 270, "a box of 200 x 200 enlarges nothing");
  doc.SetPosition(165, 284);
  doc.SetPictureDimensions(200, 200);
  Picture(doc, picture);

  Label(doc, 0, 370, "left, centre and right");
  doc.SetPosition(0, 384);
  for (const auto alignment : {AlignmentConstants::LeftAlign, AlignmentConstants::Center,
                               AlignmentConstants::RightAlign}) {
    Picture(doc, picture, alignment);
  }
  Label(doc, 0, 590, "a link, in documents that have links");
  doc.SetPosition(0, 604);
  Picture(doc, picture, AlignmentConstants::NoAlignment, Flate, "https://example.org/picture");
}

/// What only conforming documents hold so that every reader shows it.
template <class AnyDocument>
void ConformingPicturesPage(AnyDocument& doc, const std::string& folder) {
  using enum EncodingConstants;
  StartPage(doc, "Pictures: 16 and 32 bits, run lengths, original files");
  doc.SetPictureDimensions(94, 62);
  constexpr Sample kSamples[] = {{"landscape_16.bmp", "BMP, 16 bits"},
                                 {"landscape_32.bmp", "BMP, 32 bits"},
                                 {"landscape_24.bmp", "RunLength, 24 bits", RunLength},
                                 {"landscape_8.bmp", "RunLength, 8 bits", RunLength},
                                 {"landscape.jpg", "JPG, its own bytes", Original},
                                 {"landscape_progressive.jpg", "JPG, progressive", Original},
                                 {"landscape_gray.jpg", "JPG, gray", Original},
                                 {"landscape_cmyk.jpg", "JPG, four inks", Original}};
  PictureTable(doc, folder, 60, kSamples);
}

/// The pictures that docs/pictures.md warns of, without those that would end a PostScript program.
template <class AnyDocument>
void DeepPicturesPage(AnyDocument& doc, const std::string& folder) {
  using enum EncodingConstants;
  StartPage(doc, "Pictures that readers show in different ways");
  doc.SetPictureDimensions(94, 62);
  constexpr Sample kDeep[] = {{"landscape_16.bmp", "BMP, 16 bits"}};
  PictureTable(doc, folder, 60, kDeep);
  if constexpr (requires { doc.Keywords(); }) {
    constexpr Sample kMore[] = {{"landscape_32.bmp", "BMP, 32 bits"},
                                {"landscape_24.bmp", "RunLength, 24 bits", RunLength},
                                {"landscape_8.bmp", "RunLength, 8 bits", RunLength}};
    PictureTable(doc, folder, 160, kMore);
  }
}

/// `folder` contains the sample pictures, and ends with "/".
template <class AnyDocument>
void DrawPicturePages(AnyDocument& doc, const std::string& folder) {
  FormatsPage(doc, folder);
  FiltersPage(doc, folder);
  if (doc.Conforming()) {
    ConformingPicturesPage(doc, folder);
  } else {
    DeepPicturesPage(doc, folder);
  }
}

}  // namespace vellumark::examples
