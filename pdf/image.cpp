// SPDX-License-Identifier: MIT
//
// A picture (PDF Reference, chapter 4): the operators that paint it, the image, and for up to 8
// bits per pixel its palette.
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
// In a conforming document the length and the palette stand in the image's dictionary, and a
// picture that was drawn before is the same image again. One with transparency has a soft mask, a
// gray image of its own, and makes the document one of version 1.4.
//
// Samples begin with the bottom row. The unit square of the image is mapped downwards from its
// place (the negative fourth number of "cm"), so that this row comes to lie at the bottom. A JPG's
// own bytes begin with the top row.
#include "document/picture_data.h"
#include "encoding/content_hash.h"
#include "encoding/encode_stream.h"
#include "pdf/content_stream.h"
#include "pdf/syntax.h"
#include "pdf/text_string.h"

namespace vellumark::pdf {
namespace {

std::string_view FilterName(EncodingConstants encoding) {
  switch (encoding) {
    case EncodingConstants::ASCII85: return "/ASCII85Decode";
    case EncodingConstants::ASCIIHex: return "/ASCIIHexDecode";
    case EncodingConstants::RunLength: return "/RunLengthDecode";
    case EncodingConstants::Flate: return "/FlateDecode";
    case EncodingConstants::Original: return "/DCTDecode";
  }
  return {};
}

std::string_view AsText(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// What two pictures share if they are the same one under the same encoding.
std::array<std::uint8_t, 16> KeyOf(const layout::Picture& picture, EncodingConstants encoding) {
  encoding::ContentHash hash;
  const std::string kind =
      std::to_string(picture.width) + ' ' + std::to_string(picture.height) + ' ' +
      std::to_string(picture.bits_per_pixel) + ' ' + std::to_string(static_cast<int>(encoding)) +
      ' ' + std::to_string(picture.original.size()) + ' ' + std::to_string(picture.alpha.size());
  hash.Add(kind);
  hash.Add(AsText(picture.palette));
  hash.Add(AsText(picture.samples));
  hash.Add(AsText(picture.original));
  hash.Add(AsText(picture.alpha));
  return hash.Value();
}

}  // namespace

void PdfWriter::DrawImage(layout::Picture& picture, const document::PicturePlace& place) {
  const bool classic = state_.oddities.EachMarkIsAStream();
  std::size_t index = objects_.images.size();
  const bool upwards = picture.original.empty();
  if (!classic) index = ImageOf(picture, place.encoding);
  WriteMark(MarkKind::Image, [&] {
    if (upwards) {
      Content().Append(place.width, " 0 0 -", place.height, ' ', place.top_left.x, ' ',
                       place.top_left.y, " cm");
    } else {
      Content().Append(place.width, " 0 0 ", place.height, ' ', place.top_left.x, ' ',
                       place.top_left.y - place.height, " cm");
    }
    Content().Append("/I", index, " Do");
  });
  if (!classic) return;
  const int image = BeginObject();
  document::PictureData data = document::EncodePicture(picture, place.encoding, state_.oddities);
  WriteImageDictionary(image, picture, data);
  objects_.images.push_back(image);
  WriteEncodedStream(std::move(data));
  if (picture.HasPalette()) {
    BeginStreamObject(place.encoding);
    WriteEncodedStream(
        {place.encoding, false, encoding::EncodeStream(picture.palette, place.encoding), {}});
  }
}

/// The index of a picture's image, which is written the first time.
std::size_t PdfWriter::ImageOf(layout::Picture& picture, EncodingConstants encoding) {
  const ImageKey key = KeyOf(picture, encoding);
  const auto known = image_indices_.find(key);
  // A call that was taken back leaves its keys behind.
  if (known != image_indices_.end() && known->second < objects_.images.size() &&
      objects_.image_keys[known->second] == key) {
    return known->second;
  }
  const std::size_t index = objects_.images.size();
  document::PictureData data = document::EncodePicture(picture, encoding, state_.oddities);
  const int soft_mask = picture.alpha.empty() ? 0 : WriteSoftMask(picture);
  const int image = BeginObject();
  WriteImageDictionary(image, picture, data, soft_mask);
  lines_.Append("stream");
  std::move(data).AppendTo(lines_);
  lines_.Append("endstream");
  lines_.Append("endobj");
  image_indices_[key] = index;
  objects_.image_keys.resize(index);
  objects_.image_keys.push_back(key);
  objects_.images.push_back(image);
  if (picture.jpeg.progressive) least_version_ = std::max(least_version_, 3);
  if (soft_mask != 0) least_version_ = std::max(least_version_, 4);
  return index;
}

/// How opaque each pixel is, as a gray picture of the same size. Returns its object.
int PdfWriter::WriteSoftMask(const layout::Picture& picture) {
  document::PictureData data = document::EncodeAlpha(picture);
  const int number = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Type /XObject");
  lines_.Append("/Subtype /Image");
  lines_.Append("/Width ", picture.width);
  lines_.Append("/Height ", picture.height);
  lines_.Append("/BitsPerComponent 8");
  lines_.Append("/ColorSpace /DeviceGray");
  WriteFilter(data, {1, 8, picture.width});
  lines_.Append("/Length ", data.Size());
  lines_.Append(">>");
  lines_.Append("stream");
  std::move(data).AppendTo(lines_);
  lines_.Append("endstream");
  lines_.Append("endobj");
  return number;
}

void PdfWriter::WriteImageDictionary(int image, const layout::Picture& picture,
                                     const document::PictureData& data, int soft_mask) {
  const bool classic = state_.oddities.EachMarkIsAStream();
  lines_.Append("<<");
  lines_.Append("/Type /XObject");
  lines_.Append("/Subtype /Image");
  if (classic) lines_.Append("/Name /I", objects_.images.size());
  lines_.Append("/Width ", picture.width);
  lines_.Append("/Height ", picture.height);
  if (picture.HasPalette()) {
    const int last_index = (1 << picture.bits_per_pixel) - 1;
    lines_.Append("/BitsPerComponent ", picture.bits_per_pixel);
    if (classic) {
      lines_.Append("/ColorSpace [ /Indexed /DeviceRGB ", last_index, ' ', Reference{image + 2},
                    " ]");
    } else {
      lines_.Append("/ColorSpace [ /Indexed /DeviceRGB ", last_index, ' ',
                    EscapedString{AsText(picture.palette)}, " ]");
    }
  } else if (!picture.original.empty()) {
    WriteJpegColors(picture.jpeg);
  } else if (picture.bits_per_pixel == 24) {
    lines_.Append("/BitsPerComponent 8");
    lines_.Append("/ColorSpace /DeviceRGB");
  }
  if (soft_mask != 0) lines_.Append("/SMask ", Reference{soft_mask});
  const bool colors = picture.bits_per_pixel == 24;
  WriteFilter(data, {colors ? 3 : 1, colors ? 8 : picture.bits_per_pixel, picture.width});
  if (classic) {
    lines_.Append("/Length ", Reference{image + 1});
  } else {
    lines_.Append("/Length ", data.Size());
  }
  lines_.Append(">>");
}

/// The filter of a picture's data, and the rows that it predicted.
void PdfWriter::WriteFilter(const document::PictureData& data, const RowOfSamples& row) {
  lines_.Append("/Filter ", FilterName(data.filter));
  if (!data.predicted) return;
  lines_.Append("/DecodeParms << /Predictor 15 /Colors ", row.colors, " /BitsPerComponent ",
                row.bits, " /Columns ", row.columns, " >>");
}

void PdfWriter::WriteJpegColors(const layout::JpegHeader& jpeg) {
  lines_.Append("/BitsPerComponent 8");
  switch (jpeg.components) {
    case 1: lines_.Append("/ColorSpace /DeviceGray"); break;
    case 3: lines_.Append("/ColorSpace /DeviceRGB"); break;
    default: lines_.Append("/ColorSpace /DeviceCMYK"); break;
  }
  if (jpeg.inverted) lines_.Append("/Decode [1 0 1 0 1 0 1 0]");
}

int PdfWriter::BeginStreamObject(EncodingConstants encoding) {
  const int number = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Length ", Reference{number + 1});
  lines_.Append("/Filter ", FilterName(encoding));
  lines_.Append(">>");
  return number;
}

/// The stream of a classic object whose dictionary is written, and its length.
void PdfWriter::WriteEncodedStream(document::PictureData&& data) {
  lines_.Append("stream");
  const std::int64_t start = Position();
  std::move(data).AppendTo(lines_);
  const std::int64_t end = Position();
  lines_.Append("endstream");
  lines_.Append("endobj");
  WriteLengthObject(end - start);
}

}  // namespace vellumark::pdf
