// SPDX-License-Identifier: MIT
//
// A picture: an image dictionary (PostScript Language Reference, level 2) with its samples behind
// it in the file.
//
//     gsave
//     20 822 translate
//     100 50 scale
//     [ /Indexed /DeviceRGB 255 <...> ] setcolorspace      or "/DeviceRGB setcolorspace"
//     << ... /DataSource currentfile /ASCII85Decode filter >>
//     image
//     <samples>
//     grestore
//
// In a conforming document the dictionary ends with ">>{...}/ASCII85Decode I", which filters the
// data, reads them to their end and restores the graphics state (prolog.h), and the data are lines
// of text: what is binary is base-85 text.
//
// Samples begin with the bottom row. The image matrix fills the unit square downwards from its
// place, so that this row comes to lie at the bottom. A JPG's own bytes begin with the top row.
#include <algorithm>
#include <span>
#include <string>

#include "document/picture_data.h"
#include "encoding/encode_stream.h"
#include "encoding/text_lines.h"
#include "ps/ps_writer.h"

namespace vellumark::ps {
namespace {

std::string_view Filter(EncodingConstants encoding) {
  switch (encoding) {
    case EncodingConstants::ASCII85: return "/ASCII85Decode filter";
    case EncodingConstants::ASCIIHex: return "/ASCIIHexDecode filter";
    case EncodingConstants::RunLength: return "/RunLengthDecode filter";
    case EncodingConstants::Flate: return "/FlateDecode filter";
    case EncodingConstants::Original: return "/DCTDecode filter";
  }
  return {};
}

std::span<const std::uint8_t> AsBytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace

void PsWriter::DrawImage(layout::Picture& picture, const document::PicturePlace& place) {
  const bool original = !picture.original.empty();
  const document::PagePoint top_left = place.top_left;
  const layout::Points y = original ? top_left.y - place.height : top_left.y;
  lines_.Append("gsave");
  lines_.Append(top_left.x, ' ', y, " translate");
  lines_.Append(place.width, ' ', place.height, " scale");
  WriteColorSpace(picture);
  WriteImageDictionary(picture);
  if (!state_.oddities.PictureDataIsOneLine()) {
    WriteTextData(picture, place.encoding);
    return;
  }
  lines_.Append("  /DataSource currentfile");
  lines_.Append("  ", Filter(place.encoding));
  lines_.Append(">>");
  lines_.Append("image");
  document::EncodePicture(picture, place.encoding, state_.oddities).AppendTo(lines_);
  lines_.Append("grestore");
}

/// A palette is a hexadecimal string: the encoder's end marker closes it.
void PsWriter::WriteColorSpace(const layout::Picture& picture) {
  if (!picture.HasPalette()) {
    const int components = picture.original.empty() ? 3 : picture.jpeg.components;
    lines_.Append(components == 1   ? "/DeviceGray"
                  : components == 4 ? "/DeviceCMYK"
                                    : "/DeviceRGB",
                  " setcolorspace");
    return;
  }
  const int last_index = (1 << picture.bits_per_pixel) - 1;
  const std::string palette =
      state_.oddities.PictureDataIsOneLine()
          ? encoding::EncodeStream(picture.palette, EncodingConstants::ASCIIHex)
          : '\n' + encoding::EncodeAsciiHexLines(picture.palette, "\n");
  lines_.Append("[ /Indexed /DeviceRGB ", last_index, " <", palette, " ] setcolorspace");
}

/// All of it but its source and its end. Samples without a palette have eight bits for each
/// component; so say the deep ones of a classic document, which do not (document/oddities.h).
void PsWriter::WriteImageDictionary(const layout::Picture& picture) {
  const bool original = !picture.original.empty();
  const int width = picture.width;
  const int height = picture.height;
  lines_.Append("<<");
  lines_.Append("  /ImageType 1");
  lines_.Append("  /BitsPerComponent ", original ? 8 : std::min<int>(picture.bits_per_pixel, 8));
  lines_.Append("  /Width ", width);
  lines_.Append("  /Height ", height);
  lines_.Append("  /ImageMatrix [", width, " 0 0 ", original ? -height : height, " 0 ", height,
                ']');
  if (picture.HasPalette()) {
    lines_.Append("  /Decode [0 ", (1 << picture.bits_per_pixel) - 1, ']');
  } else if (original && picture.jpeg.components == 1) {
    lines_.Append("  /Decode [0 1]");
  } else if (original && picture.jpeg.components == 4) {
    lines_.Append("  /Decode ", picture.jpeg.inverted ? "[1 0 1 0 1 0 1 0]" : "[0 1 0 1 0 1 0 1]");
  } else {
    lines_.Append("  /Decode [0 1 0 1 0 1]");
  }
}

/// The end of the dictionary, and the data as lines of text. Flate and the newer kind of JPG are
/// known to interpreters of level 3.
void PsWriter::WriteTextData(layout::Picture& picture, EncodingConstants encoding) {
  using encoding::EncodeAscii85Lines;
  if (encoding == EncodingConstants::ASCIIHex) {
    lines_.Append(">>{}/ASCIIHexDecode I");
    lines_.AppendOwned(encoding::EncodeAsciiHexLines(picture.samples, "\n"));
    return;
  }
  if (encoding == EncodingConstants::ASCII85) {
    lines_.Append(">>{}/ASCII85Decode I");
    lines_.AppendOwned(EncodeAscii85Lines(picture.samples, "\n"));
    return;
  }
  const document::PictureData data = document::EncodePicture(picture, encoding, state_.oddities);
  if (data.filter == EncodingConstants::Flate || picture.jpeg.progressive) language_level_ = 3;
  if (data.predicted) {
    const bool colors = picture.bits_per_pixel > 8;
    lines_.Append(">>{<</Predictor 15/Colors ", colors ? 3 : 1, "/BitsPerComponent ",
                  colors ? 8 : picture.bits_per_pixel, "/Columns ", picture.width, ">>",
                  Filter(data.filter), "}/ASCII85Decode I");
  } else {
    lines_.Append(">>{", Filter(data.filter), "}/ASCII85Decode I");
  }
  lines_.AppendOwned(EncodeAscii85Lines(AsBytes(data.bytes), "\n"));
}

}  // namespace vellumark::ps
