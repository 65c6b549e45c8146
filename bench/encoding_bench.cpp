// SPDX-License-Identifier: MIT
//
// Compares the encoders with other libraries, in one run: own deflate with zlib and libdeflate at
// levels 1, 6 and 9, Adler-32 with zlib's, hexadecimal text with OpenSSL's, base-85 with a memcpy.
//
// The contestants of a line take turns, and each is given its best time, so that a busy machine
// disturbs all of them alike. Prints one table; "goal" is the least ratio to the peer that this
// house holds itself to.
//
//     encoding_bench [ROUNDS]      7 rounds by default
#include <libdeflate.h>
#include <openssl/crypto.h>
#include <zlib.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "bench/data_sets.h"
#include "encoding/adler32.h"
#include "encoding/ascii85.h"
#include "encoding/ascii_hex.h"
#include "encoding/deflate.h"

namespace vellumark::bench {
namespace {

constexpr std::size_t kSetSize = 8'000'000;
constexpr std::size_t kLargeSize = std::size_t{64} << 20;

using Bytes = std::vector<std::uint8_t>;
using Task = std::function<std::size_t()>;  // returns the size of what it made

struct Measured {
  double best_seconds = std::numeric_limits<double>::max();
  std::size_t size = 0;
};

// Runs the tasks in turns and gives each its best time.
std::vector<Measured> TakeTurns(const std::vector<Task>& tasks, int rounds) {
  std::vector<Measured> results(tasks.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < tasks.size(); ++i) {
      const auto start = std::chrono::steady_clock::now();
      results[i].size = tasks[i]();
      const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
      results[i].best_seconds = std::min(results[i].best_seconds, took.count());
    }
  }
  return results;
}

std::string Verdict(double ratio, double goal) {
  if (goal == 0) return "";
  char text[32];
  std::snprintf(text, sizeof text, "%.2f %s", goal, ratio >= goal ? "met" : "missed");
  return text;
}

void PrintHead() {
  std::printf("%-22s %-12s %10s %10s %7s %7s  %s\n", "task", "peer", "own MB/s", "peer MB/s",
              "ratio", "size", "goal");
}

// One line of the table; returns the ratio of the speeds.
double PrintLine(const std::string& task, const std::string& peer, std::size_t input_size,
                 const Measured& own, const Measured& other, double goal) {
  const auto speed = [input_size](const Measured& measured) {
    return static_cast<double>(input_size) / measured.best_seconds / 1e6;
  };
  const double ratio = other.best_seconds / own.best_seconds;
  const double size_ratio = static_cast<double>(own.size) / static_cast<double>(other.size);
  std::printf("%-22s %-12s %10.1f %10.1f %7.3f %7.4f  %s\n", task.c_str(), peer.c_str(),
              speed(own), speed(other), ratio, size_ratio, Verdict(ratio, goal).c_str());
  return ratio;
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
  const std::size_t size = stream.total_out;
  deflateEnd(&stream);
  return size;
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
    const double goal = level == 6 ? 1.4 : 1.1;
    double product = 1;
    for (const DataSet& set : sets) {
      const Bytes& input = set.bytes;
      std::string own;
      Bytes other(input.size() + input.size() / 8 + 1000);
      const std::vector<Measured> results =
          TakeTurns({[&] { return OwnDeflate(input, level, own); },
                     [&] { return ZlibDeflate(input, level, other); },
                     [&] { return LibdeflateDeflate(input, level, other); }},
                    rounds);
      const std::string task = "deflate " + std::to_string(level) + " " + set.name;
      product *= PrintLine(task, "zlib", input.size(), results[0], results[1], goal);
      PrintLine(task, "libdeflate", input.size(), results[0], results[2], 0);
    }
    const double mean = std::cbrt(product);
    std::printf("%-22s %-12s %10s %10s %7.3f %7s  %s\n",
                ("deflate " + std::to_string(level) + " mean").c_str(), "zlib", "", "", mean, "",
                level == 6 ? Verdict(mean, 1.5).c_str() : "");
  }
}

void CompareAdler32(int rounds) {
  const Bytes input = Photo(kSetSize).bytes;
  std::uint32_t checksum = 0;
  const auto results = TakeTurns(
      {[&] { checksum += encoding::Adler32::Calculate(input); return std::size_t{4}; },
       [&] { checksum += encoding::Adler32::CalculatePortable(input); return std::size_t{4}; },
       [&] {
         checksum += static_cast<std::uint32_t>(adler32(1, input.data(), static_cast<uInt>(input.size())));
         return std::size_t{4};
       },
       [&] { checksum += libdeflate_adler32(1, input.data(), input.size()); return std::size_t{4}; }},
      rounds * 5);
  PrintLine("adler32", "zlib", input.size(), results[0], results[2], 2.5);
  PrintLine("adler32 portable", "zlib", input.size(), results[1], results[2], 0);
  PrintLine("adler32", "libdeflate", input.size(), results[0], results[3], 0);
  if (checksum == 1) std::printf("\n");  // keeps the sums from being dropped
}

void CompareTextEncoders(int rounds) {
  Bytes input(kLargeSize);
  std::uint32_t state = 7;
  for (std::uint8_t& byte : input) {
    state = state * 1664525 + 1013904223;
    byte = static_cast<std::uint8_t>(state >> 24);
  }
  std::string own;
  std::vector<char> other(2 * input.size() + 1);
  const auto size = static_cast<std::int32_t>(input.size());
  std::int32_t encoded_size = 0;
  const auto results = TakeTurns(
      {[&] {
         encoding::AsciiHex::Encode(size, input, encoded_size, own);
         return static_cast<std::size_t>(encoded_size);
       },
       [&] {
         std::size_t written = 0;
         OPENSSL_buf2hexstr_ex(other.data(), other.size(), &written, input.data(), input.size(), '\0');
         return written;
       },
       [&] {
         encoding::Ascii85::Encode(size, input, encoded_size, own);
         return static_cast<std::size_t>(encoded_size);
       },
       [&] {
         std::memcpy(other.data(), input.data(), input.size());
         return input.size();
       }},
      rounds);
  PrintLine("hexadecimal", "openssl", input.size(), results[0], results[1], 2.8);
  PrintLine("hexadecimal", "memcpy", input.size(), results[0], results[3], 0);
  PrintLine("base-85", "memcpy", input.size(), results[2], results[3], 0.12);
}

}  // namespace
}  // namespace vellumark::bench

int main(int argc, char** argv) {
  const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 7;
  vellumark::bench::PrintHead();
  vellumark::bench::CompareDeflate(rounds);
  vellumark::bench::CompareAdler32(rounds);
  vellumark::bench::CompareTextEncoders(rounds);
  return 0;
}
