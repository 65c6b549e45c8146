// SPDX-License-Identifier: MIT
//
// Compares the encoders with other libraries, in one run: deflate with zlib and libdeflate at
// levels 1, 6 and 9, Adler-32 with theirs, hexadecimal text with OpenSSL's, base-85 with a memcpy.
// The other libraries come from their packages, and are linked here and nowhere else.
//
//     encoding_bench [ROUNDS]      5 rounds by default, about a minute
//
// Speeds are medians of input bytes per second. "ratio" is the median over the rounds of our speed
// divided by that of the peer, "size" is the size of our output divided by that of the peer, and
// "goal" is the least ratio that we accept.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <libdeflate.h>
#include <openssl/crypto.h>
#include <string>
#include <utility>
#include <vector>
#include <zlib.h>

#include "bench/contest.h"
#include "bench/data_sets.h"
#include "encoding/adler32.h"
#include "encoding/ascii85.h"
#include "encoding/ascii_hex.h"
#include "encoding/deflate.h"
#include "encoding/hex_digits.h"

namespace vellumark::bench {
namespace {

constexpr std::size_t kSetSize = 8'000'000;
constexpr std::size_t kPictureSize = 1'000'000;
constexpr std::size_t kLargeSize = std::size_t{64} << 20;  // beyond most caches
constexpr double kMostSize = 1.001;                        // of zlib's, at the same level

using Bytes = std::vector<std::uint8_t>;

/// One side of a comparison: its name, and work that returns how many bytes it made.
struct Side {
  std::string name;
  std::function<std::size_t()> work;
};

/// The least ratio of speeds; 0 for no goal.
struct Goal {
  double ratio = 0;
  double size = 0;
};

std::string Verdict(const Goal& goal, double ratio, double size) {
  if (goal.ratio == 0) return "-";
  const bool met = ratio >= goal.ratio && (goal.size == 0 || size <= goal.size);
  std::string text(16, '\0');
  text.resize(
      static_cast<std::size_t>(std::snprintf(text.data(), text.size(), ">= %.2f", goal.ratio)));
  return text + (met ? "  met" : "  MISSED");
}

void PrintHead() {
  std::printf("%-20s %10s  %-11s %10s %7s %8s  %s\n", "task", "MB/s", "peer", "MB/s", "ratio",
              "size", "goal");
}

/// Lets the first side and its peers take turns, prints a line for each peer, and returns the ratio
/// to the first of them.
double Compare(const std::string& task, std::size_t input_size, const std::vector<Side>& sides,
               const std::vector<Goal>& goals, int rounds) {
  std::vector<std::size_t> sizes(sides.size());
  std::vector<Contest::Contestant> contestants;
  for (std::size_t i = 0; i < sides.size(); ++i) {
    contestants.emplace_back([&, i] { return Seconds([&, i] { sizes[i] = sides[i].work(); }); });
  }
  Contest contest(std::move(contestants));
  for (int round = 0; round < rounds; ++round) contest.Round();

  const auto speed = [&](std::size_t side) {
    return static_cast<double>(input_size) / contest.Value(side) / 1e6;
  };
  for (std::size_t peer = 1; peer < sides.size(); ++peer) {
    const double ratio = contest.Ratio(peer, 0);
    const double size = static_cast<double>(sizes[0]) / static_cast<double>(sizes[peer]);
    std::printf("%-20s %10.1f  %-11s %10.1f %7.2f %8.4f  %s\n", task.c_str(), speed(0),
                sides[peer].name.c_str(), speed(peer), ratio, size,
                Verdict(goals[peer - 1], ratio, size).c_str());
  }
  (void)std::fflush(stdout);
  return contest.Ratio(1, 0);
}

std::size_t OwnDeflate(const Bytes& input, int level, std::string& output) {
  std::int32_t size = 0;
  encoding::Deflate::Encode(static_cast<std::int32_t>(input.size()), input, size, output,
                            static_cast<std::uint8_t>(level));
  return static_cast<std::size_t>(size);
}

std::size_t ZlibDeflate(const Bytes& input, int level, Bytes& output) {
  z_stream stream{};
  deflateInit2(&stream, level, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY);
  stream.next_in = const_cast<Bytef*>(input.data());
  stream.avail_in = static_cast<uInt>(input.size());
  stream.next_out = output.data();
  stream.avail_out = static_cast<uInt>(output.size());
  deflate(&stream, Z_FINISH);
  deflateEnd(&stream);
  return stream.total_out;
}

std::size_t LibdeflateDeflate(const Bytes& input, int level, Bytes& output) {
  libdeflate_compressor* const compressor = libdeflate_alloc_compressor(level);
  const std::size_t size = libdeflate_deflate_compress(compressor, input.data(), input.size(),
                                                       output.data(), output.size());
  libdeflate_free_compressor(compressor);
  return size;
}

void CompareDeflate(int rounds) {
  const std::vector<DataSet> sets = {Prose(kSetSize), Photo(kSetSize), Screens(kSetSize)};
  for (const int level : {1, 6, 9}) {
    const Goal goal = {level == 6 ? 1.4 : 1.1, kMostSize};
    double product = 1;
    for (const DataSet& set : sets) {
      const Bytes& input = set.bytes;
      std::string own;
      Bytes other(input.size() + input.size() / 8 + 1000);
      product *= Compare("deflate " + std::to_string(level) + " " + set.name, input.size(),
                         {{"own", [&] { return OwnDeflate(input, level, own); }},
                          {"zlib", [&] { return ZlibDeflate(input, level, other); }},
                          {"libdeflate", [&] { return LibdeflateDeflate(input, level, other); }}},
                         {goal, {}}, rounds);
    }
    const double mean = std::cbrt(product);
    std::printf("%-20s %10s  %-11s %10s %7.2f %8s  %s\n",
                ("deflate " + std::to_string(level) + " mean").c_str(), "", "zlib", "", mean, "",
                Verdict({level == 6 ? 1.5 : 0, 0}, mean, 0).c_str());
  }
}

void CompareAdler32(int rounds) {
  const Bytes input = Photo(kSetSize).bytes;
  std::size_t sum = 0;  // of the checksums, so that the compiler must compute each
  const auto keep = [&sum](std::size_t checksum) {
    sum += checksum;
    return std::size_t{4};
  };
  const Side zlib = {
      "zlib", [&] { return keep(adler32(1, input.data(), static_cast<uInt>(input.size()))); }};
  const Side libdeflate = {"libdeflate",
                           [&] { return keep(libdeflate_adler32(1, input.data(), input.size())); }};
  Compare("adler-32", input.size(),
          {{"own", [&] { return keep(encoding::Adler32::Calculate(input)); }}, zlib, libdeflate},
          {{2.5, 0}, {}}, rounds * 8);
  Compare("adler-32, portable", input.size(),
          {{"own", [&] { return keep(encoding::Adler32::CalculatePortable(input)); }}, zlib}, {{}},
          rounds * 8);
  if (sum == 0) std::printf("\n");
}

template <typename Encoder>
Side OwnText(const Bytes& input, std::string& output) {
  return {"own", [&] {
            std::int32_t size = 0;
            Encoder::Encode(static_cast<std::int32_t>(input.size()), input, size, output);
            return static_cast<std::size_t>(size);
          }};
}

void CompareTextEncoders(int rounds) {
  std::string own;
  std::vector<char> other(kLargeSize);
  const Bytes photo = Photo(kSetSize).bytes;
  const Bytes picture(photo.begin(), photo.begin() + kPictureSize);
  const Side openssl = {"openssl", [&] {
                          std::size_t size = 0;
                          OPENSSL_buf2hexstr_ex(other.data(), other.size(), &size, picture.data(),
                                                picture.size(), '\0');
                          return size;
                        }};
  const Side portable = {"own", [&] {
                           encoding::WriteHexDigitsPortable(
                               picture, reinterpret_cast<std::uint8_t*>(other.data()));
                           return 2 * picture.size();
                         }};
  Compare("hexadecimal, 1 MB", picture.size(), {OwnText<encoding::AsciiHex>(picture, own), openssl},
          {{2.8, 0}}, rounds * 20);
  Compare("hex digits, portable", picture.size(), {portable, openssl}, {{}}, rounds * 20);

  Bytes large = photo;
  while (large.size() < kLargeSize) large.insert(large.end(), photo.begin(), photo.end());
  large.resize(kLargeSize);
  const Side copy = {"memcpy", [&] {
                       std::memcpy(other.data(), large.data(), large.size());
                       return large.size();
                     }};
  Compare("hexadecimal, 64 MiB", large.size(), {OwnText<encoding::AsciiHex>(large, own), copy},
          {{}}, rounds);
  Compare("base-85, 64 MiB", large.size(), {OwnText<encoding::Ascii85>(large, own), copy},
          {{0.12, 0}}, rounds);
}

}  // namespace
}  // namespace vellumark::bench

int main(int argc, char** argv) {
  const int rounds =
      argc > 1 ? std::max(1, static_cast<int>(std::strtol(argv[1], nullptr, 10))) : 5;
  vellumark::bench::PrintHead();
  vellumark::bench::CompareDeflate(rounds);
  vellumark::bench::CompareAdler32(rounds);
  vellumark::bench::CompareTextEncoders(rounds);
  return 0;
}
