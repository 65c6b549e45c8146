// SPDX-License-Identifier: MIT
//
// pictures_bench: how fast pictures are written into a document, in comparison with other
// libraries, and how much more time than its compression a large one takes.
//
//     pictures_bench [--quick]
//
// prints one table of ratios (report.h). A task is a whole document with one picture, written to a
// file in memory; the contestants take turns (contest.h). "raw" is a BMP file for Vellumark and
// plain samples for the others. For "JPG" the host decodes the file to samples for the others.
// "fresh process" is seven documents in a process of their own, where every piece of memory is
// touched for the first time. The picture is photo-like.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <vellumark/memory_platform.h>
#include <vellumark/vellumark.h>

#include "bench/child_process.h"
#include "bench/contest.h"
#include "bench/data_sets.h"
#include "bench/fail.h"
#include "bench/jpeg_raster.h"
#include "bench/picture_writers.h"
#include "bench/report.h"
#include "bench/scratch_directory.h"
#include "encoding/encode_stream.h"
#include "layout/picture.h"

namespace vellumark::bench {
namespace {

using Samples = std::vector<std::uint8_t>;

/// Samples of a photo-like picture, repeated to the right if it is wider than the photo.
Samples PhotoSamples(int width, int height) {
  constexpr std::size_t kPhotoRow = std::size_t{1600} * 3;
  const Samples photo = Photo(kPhotoRow * static_cast<std::size_t>(height)).bytes;
  Samples samples;
  const std::size_t row_size = std::size_t{3} * static_cast<std::size_t>(width);
  samples.reserve(row_size * static_cast<std::size_t>(height));
  for (std::size_t row = 0; row < photo.size(); row += kPhotoRow) {
    for (std::size_t at = 0; at < row_size; ++at) samples.push_back(photo[row + at % kPhotoRow]);
  }
  return samples;
}

void PutFile(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file) Fail(path.c_str(), "cannot be written");
}

/// A BMP file with rows from the bottom; rows must be a multiple of 4 bytes.
std::string BmpFile(const Raster& picture) {
  std::string file = "BM";
  const auto add = [&file](std::uint32_t number, int size) {
    for (int i = 0; i < size; ++i) file += static_cast<char>(number >> (8 * i));
  };
  add(0, 4);
  add(0, 4);
  add(54, 4);
  add(40, 4);
  add(static_cast<std::uint32_t>(picture.width), 4);
  add(static_cast<std::uint32_t>(picture.height), 4);
  add(1, 2);
  add(24, 2);
  file.append(24, '\0');
  const std::size_t row_size = std::size_t{3} * static_cast<std::size_t>(picture.width);
  for (std::size_t row = picture.samples.size(); row != 0;) {
    row -= row_size;
    for (std::size_t at = row; at < row + row_size; at += 3) {
      for (const std::size_t part : {2, 1, 0}) {
        file += static_cast<char>(picture.samples[at + part]);
      }
    }
  }
  return file;
}

enum class Output { Classic, Conforming };

void WriteOurs(const std::string& picture, EncodingConstants encoding, const std::string& path,
               Output output = Output::Classic) {
  PDF document;
  document.Conforming(output == Output::Conforming);
  if (!document.Create(path)) Fail("vellumark", "no document");
  document.NewPage(50, 50, 50, 50, 255, 255, 255);
  document.SetPictureDimensions(495, 700);
  if (!document.DrawPicture(picture, {}, "", encoding)) Fail("vellumark", "picture refused");
  document.Flush();
  if (document.LastRefusal().reason != RefusalReason::None) Fail("vellumark", "not written");
}

class Bench {
 public:
  explicit Bench(int rounds) : rounds_(rounds) { report_.ReportContext({}); }

  /// The middle-sized picture, in comparison with each peer.
  void CompareWriters() {
    const Samples samples = PhotoSamples(1024, 768);
    const Raster raster = {1024, 768, samples};
    PutFile(scratch_.File("raw.bmp"), BmpFile(raster));
    const std::string jpeg = EncodeJpeg(raster);
    PutFile(scratch_.File("picture.jpg"), jpeg);
    const auto direct = [&](const auto& write) { write(raster); };
    const auto decoded = [&](const auto& write) {
      const Samples own = DecodeJpeg(jpeg);
      write(Raster{1024, 768, own});
    };
    CompareSource("raw", "raw.bmp", direct);
    CompareSource("JPG", "picture.jpg", decoded);
  }

  /// The same in processes of their own, where the memory that is touched weighs most.
  void CompareFreshProcesses() {
    const Samples samples = PhotoSamples(1024, 768);
    const std::string picture = scratch_.File("fresh.bmp");
    PutFile(picture, BmpFile({1024, 768, samples}));
    const std::string raw = scratch_.File("fresh.rgb");
    PutFile(raw, {reinterpret_cast<const char*>(samples.data()), samples.size()});
    const auto compare = [&](const char* title, EncodingConstants encoding, Filter filter,
                             double goal) {
      const auto ours = [&, encoding] { return Alone(picture, encoding, kFreshDocuments).seconds; };
      const auto peer = [&, filter] {
        const std::string number = std::to_string(static_cast<int>(filter));
        return std::strtod(
            RunChild("podofo_alone", {raw, "1024", number, scratch_.File("fresh.pdf"),
                                      std::to_string(kFreshDocuments)})
                .c_str(),
            nullptr);
      };
      CompareValues(title, ours, "PoDoFo", peer, {Goal::Kind::AtLeast, goal}, Share::PeerToOurs);
    };
    compare("1024 x 768, fresh process, base-85", EncodingConstants::ASCII85, Filter::Ascii85, 3.0);
    compare("1024 x 768, fresh process, hexadecimal", EncodingConstants::ASCIIHex, Filter::AsciiHex,
            4.0);
  }

  /// What conforming documents do with pictures: predictors make Flate data small, and a JPG's own
  /// bytes go in as they are.
  void CompareConforming() {
    const Samples samples = PhotoSamples(1024, 768);
    const Raster raster = {1024, 768, samples};
    const std::string raw = scratch_.File("conforming.bmp");
    PutFile(raw, BmpFile(raster));
    const std::string jpg = scratch_.File("conforming.jpg");
    PutFile(jpg, EncodeJpeg(raster));
    const std::string ours = scratch_.File("conforming.pdf");
    const std::string theirs = scratch_.File("haru.pdf");
    WriteOurs(raw, EncodingConstants::Flate, ours, Output::Conforming);
    WriteWithHaru(raster, theirs.c_str());
    const auto size = [](const std::string& file) {
      return static_cast<double>(std::filesystem::file_size(file)) / 1024;
    };
    Print({"1024 x 768, conforming Flate, bytes",
           Memory(size(ours)),
           "libharu " + Memory(size(theirs)),
           size(ours) / size(theirs),
           {Goal::Kind::AtMost, 0.9}});
    const auto write = [&](EncodingConstants encoding) {
      return [&, encoding] { WriteOurs(jpg, encoding, ours, Output::Conforming); };
    };
    Compare("1024 x 768, JPG as it is", write(EncodingConstants::Original), "decoded, Flate",
            write(EncodingConstants::Flate), {Goal::Kind::AtLeast, 20}, Share::PeerToOurs);
  }

  /// The large picture: the time of the whole document in comparison with the compression of its
  /// samples, and its memory.
  void MeasureLarge() {
    const Samples samples = PhotoSamples(4000, 3000);
    const std::string picture = scratch_.File("large.bmp");
    PutFile(picture, BmpFile({4000, 3000, samples}));
    const std::string path = scratch_.File("large.pdf");
    layout::Picture loaded;
    LoadInto(loaded, picture);
    Compare(
        "4000 x 3000, Flate", [&] { WriteOurs(picture, EncodingConstants::Flate, path); },
        "samples alone",
        [&] {
          const auto encoded = encoding::EncodeStream(loaded.samples, EncodingConstants::Flate);
          if (encoded.empty()) Fail("vellumark", "nothing encoded");
        },
        {Goal::Kind::AtMost, 1.2}, Share::OursToPeer);
    loaded = {};
    using enum EncodingConstants;
    for (const auto& [encoding, name] :
         {std::pair(Flate, "Flate"), std::pair(ASCIIHex, "ASCIIHex")}) {
      CompareMemory(std::string("4000 x 3000, peak memory, ").append(name), picture, encoding,
                    static_cast<double>(samples.size()) / 1024);
    }
  }

 private:
  enum class Share { PeerToOurs, OursToPeer };

  static constexpr int kFreshDocuments = 7;

  /// What picture_alone tells.
  struct Used {
    double kib = 0;
    double seconds = 0;
  };

  Used Alone(const std::string& picture, EncodingConstants encoding, int documents) {
    const std::string text =
        RunChild("picture_alone", {picture, std::to_string(static_cast<int>(encoding)),
                                   scratch_.File("alone.pdf"), std::to_string(documents)});
    char* rest = nullptr;
    const double kib = std::strtod(text.c_str(), &rest);
    return {kib, std::strtod(rest, nullptr)};
  }

  static void LoadInto(layout::Picture& picture, const std::string& file) {
    MemoryPlatform platform;
    std::string reason;
    if (!layout::LoadPicture(platform, file, layout::DeepSamples::AsTheyAre, picture, reason))
      Fail("vellumark", reason.c_str());
  }

  template <class WithRaster>
  void CompareSource(const std::string& source, const std::string& file,
                     const WithRaster& with_raster) {
    using enum EncodingConstants;
    const std::string ours = scratch_.File("ours.pdf");
    const std::string theirs = scratch_.File("theirs.pdf");
    const auto own = [&, this](EncodingConstants encoding) {
      return [=, picture = scratch_.File(file)] { WriteOurs(picture, encoding, ours); };
    };
    const auto podofo = [&](Filter filter) {
      return [&, filter] {
        with_raster([&](const Raster& raster) { WriteWithPodofo(raster, filter, theirs.c_str()); });
      };
    };
    const std::string title = "1024 x 768, " + source + ", ";
    Compare(
        title + "Flate", own(Flate), "libharu",
        [&] { with_raster([&](const Raster& raster) { WriteWithHaru(raster, theirs.c_str()); }); },
        {Goal::Kind::AtLeast, 1.3}, Share::PeerToOurs);
    Compare(title + "Flate", own(Flate), "PoDoFo", podofo(Filter::Flate),
            {Goal::Kind::AtLeast, 1.3}, Share::PeerToOurs);
    Compare(title + "base-85", own(ASCII85), "PoDoFo", podofo(Filter::Ascii85),
            {Goal::Kind::AtLeast, 2.5}, Share::PeerToOurs);
    Compare(title + "hexadecimal", own(ASCIIHex), "PoDoFo", podofo(Filter::AsciiHex),
            {Goal::Kind::AtLeast, 3.0}, Share::PeerToOurs);
  }

  void Compare(const std::string& title, const std::function<void()>& ours, const char* peer_name,
               const std::function<void()>& peer, const Goal& goal, Share share) {
    CompareValues(
        title, [&] { return Seconds(ours); }, peer_name, [&] { return Seconds(peer); }, goal,
        share);
  }

  void CompareValues(const std::string& title, const Contest::Contestant& ours,
                     const char* peer_name, const Contest::Contestant& peer, const Goal& goal,
                     Share share) {
    Contest contest({ours, peer});
    for (int i = 0; i < rounds_; ++i) contest.Round();
    const bool inverse = share == Share::PeerToOurs;
    Print({title, Duration(contest.Value(0)),
           std::string(peer_name).append(" ").append(Duration(contest.Value(1))),
           inverse ? contest.Ratio(1, 0) : contest.Ratio(0, 1), goal});
  }

  void CompareMemory(const std::string& title, const std::string& picture,
                     EncodingConstants encoding, double samples_in_kib) {
    const double used = Alone(picture, encoding, 1).kib - Alone("", encoding, 1).kib;
    Print({title,
           Memory(used),
           std::string("samples ").append(Memory(samples_in_kib)),
           used / samples_in_kib,
           {Goal::Kind::AtMost, 6}});
  }

  void Print(const Row& row) {
    report_.Keep(row);
    report_.ReportRuns({});
  }

  static std::filesystem::path InMemory() {
    const std::filesystem::path shared_memory = "/dev/shm";
    return std::filesystem::is_directory(shared_memory) ? shared_memory
                                                        : std::filesystem::temp_directory_path();
  }

  int rounds_;
  Report report_;
  ScratchDirectory scratch_{InMemory()};
};

}  // namespace
}  // namespace vellumark::bench

int main(int argc, char** argv) {
  const bool quick = argc > 1 && std::string_view(argv[1]) == "--quick";
  // Each document writes a notice to standard error.
  if (std::freopen("/dev/null", "w", stderr) == nullptr) return EXIT_FAILURE;
  vellumark::bench::Bench bench(quick ? 2 : 9);
  bench.CompareWriters();
  bench.CompareFreshProcesses();
  bench.CompareConforming();
  bench.MeasureLarge();
  return EXIT_SUCCESS;
}
