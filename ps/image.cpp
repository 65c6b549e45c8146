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
// Samples begin with the bottom row. The image matrix fills the unit square downwards from its
// place, so that this row comes to lie at the bottom.
#include <string>

#include "encoding/encode_stream.h"
#include "ps/oddities.h"
#include "ps/ps_writer.h"

namespace vellumark::ps {
namespace {

std::string_view Filter(EncodingConstants encoding) {
  switch (encoding) {
    case EncodingConstants::ASCII85: return "  /ASCII85Decode filter";
    case EncodingConstants::ASCIIHex: return "  /ASCIIHexDecode filter";
    case EncodingConstants::RunLength: return "  /RunLengthDecode filter";
    case EncodingConstants::Flate: return "  /FlateDecode filter";
    case EncodingConstants::Original: return "  /DCTDecode filter";
  }
  return {};
}

}  // namespace

void PsWriter::DrawImage(const layout::Picture& picture, const document::PicturePlace& place) {
  lines_.Append("gsave");
  lines_.Append(place.top_left.x, ' ', place.top_left.y, " translate");
  lines_.Append(place.width, ' ', place.height, " scale");
  WriteColorSpace(picture);
  WriteImageDictionary(picture, place.encoding);
  lines_.Append("image");
  lines_.AppendOwned(encoding::EncodeStream(picture.samples, place.encoding));
  lines_.Append("grestore");
}

/// A palette is a hexadecimal string: the encoder's end marker closes it.
void PsWriter::WriteColorSpace(const layout::Picture& picture) {
  if (!picture.HasPalette()) {
    lines_.Append("/DeviceRGB setcolorspace");
    return;
  }
  const int last_index = (1 << picture.bits_per_pixel) - 1;
  lines_.Append("[ /Indexed /DeviceRGB ", last_index, " <",
                encoding::EncodeStream(picture.palette, EncodingConstants::ASCIIHex),
                " ] setcolorspace");
}

void PsWriter::WriteImageDictionary(const layout::Picture& picture, EncodingConstants encoding) {
  const int width = picture.width;
  const int height = picture.height;
  lines_.Append("<<");
  lines_.Append("  /ImageType 1");
  lines_.Append("  /BitsPerComponent ", oddities::BitsPerComponent(picture.bits_per_pixel));
  lines_.Append("  /Width ", width);
  lines_.Append("  /Height ", height);
  lines_.Append("  /ImageMatrix [", width, " 0 0 ", height, " 0 ", height, ']');
  if (picture.HasPalette()) {
    lines_.Append("  /Decode [0 ", (1 << picture.bits_per_pixel) - 1, ']');
  } else {
    lines_.Append("  /Decode [0 1 0 1 0 1]");
  }
  lines_.Append("  /DataSource currentfile");
  lines_.Append(Filter(encoding));
  lines_.Append(">>");
}

}  // namespace vellumark::ps
