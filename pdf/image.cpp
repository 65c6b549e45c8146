// SPDX-License-Identifier: MIT
//
// A picture (PDF Reference 1.2, chapter 8): a content stream that paints it, the image, and for up
// to 8 bits per pixel its palette.
//
//     100 0 0 -50 50 792 cm          n 0 obj                          n+2 0 obj
//     /I0 Do                         << /Type /XObject                << /Length n+3 0 R
//                                    /Subtype /Image /Name /I0        /Filter /ASCII85Decode >>
//                                    /Width 100 /Height 50            stream
//                                    /BitsPerComponent 8              <palette>
//                                    /ColorSpace [ /Indexed           endstream
//                                      /DeviceRGB 255 n+2 0 R ]       endobj
//                                    /Filter /ASCII85Decode
//                                    /Length n+1 0 R >>               n+1 and n+3 are the lengths
//                                    stream <samples> endstream
//                                    endobj
//
// Samples begin with the bottom row. The unit square of the image is mapped downwards from its
// place (the negative fourth number of "cm"), so that this row comes to lie at the bottom.
#include "encoding/encode_stream.h"
#include "pdf/content_stream.h"
#include "pdf/syntax.h"

namespace vellumark::pdf {
namespace {

std::string_view FilterName(EncodingConstants encoding) {
  switch (encoding) {
    case EncodingConstants::ASCII85: return "/ASCII85Decode";
    case EncodingConstants::ASCIIHex: return "/ASCIIHexDecode";
    case EncodingConstants::RunLength: return "/RunLengthDecode";
    case EncodingConstants::Flate: return "/FlateDecode";
  }
  return {};
}

}  // namespace

void PdfWriter::DrawImage(const layout::Picture& picture, const document::PicturePlace& place) {
  const std::size_t index = objects_.images.size();
  WriteMark(MarkKind::Image, [&] {
    Content().Append(place.width, " 0 0 -", place.height, ' ', place.top_left.x, ' ',
                     place.top_left.y, " cm");
    Content().Append("/I", index, " Do");
  });
  const int image = BeginObject();
  WriteImageDictionary(image, picture, place.encoding);
  objects_.images.push_back(image);
  WriteEncodedStream(picture.samples, place.encoding);
  if (picture.HasPalette()) {
    BeginStreamObject(place.encoding);
    WriteEncodedStream(picture.palette, place.encoding);
  }
}

void PdfWriter::WriteImageDictionary(int image, const layout::Picture& picture,
                                     EncodingConstants encoding) {
  lines_.Append("<<");
  lines_.Append("/Type /XObject");
  lines_.Append("/Subtype /Image");
  lines_.Append("/Name /I", objects_.images.size());
  lines_.Append("/Width ", picture.width);
  lines_.Append("/Height ", picture.height);
  if (picture.HasPalette()) {
    const int last_index = (1 << picture.bits_per_pixel) - 1;
    lines_.Append("/BitsPerComponent ", picture.bits_per_pixel);
    lines_.Append("/ColorSpace [ /Indexed /DeviceRGB ", last_index, ' ', Reference{image + 2},
                  " ]");
  } else if (picture.bits_per_pixel == 24) {
    lines_.Append("/BitsPerComponent 8");
    lines_.Append("/ColorSpace /DeviceRGB");
  }
  lines_.Append("/Filter ", FilterName(encoding));
  lines_.Append("/Length ", Reference{image + 1});
  lines_.Append(">>");
}

int PdfWriter::BeginStreamObject(EncodingConstants encoding) {
  const int number = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Length ", Reference{number + 1});
  lines_.Append("/Filter ", FilterName(encoding));
  lines_.Append(">>");
  return number;
}

/// The stream of an object whose dictionary is written, and its length.
void PdfWriter::WriteEncodedStream(std::span<const std::uint8_t> data, EncodingConstants encoding) {
  lines_.Append("stream");
  const std::int64_t start = Position();
  lines_.AppendOwned(encoding::EncodeStream(data, encoding));
  const std::int64_t end = Position();
  lines_.Append("endstream");
  lines_.Append("endobj");
  WriteLengthObject(end - start);
}

}  // namespace vellumark::pdf
