// SPDX-License-Identifier: MIT
#include "encoding/packed_runs.h"

#include <algorithm>
#include <bit>
#include <cstddef>

#include "encoding/byte_access.h"
#include "encoding/encoded_output.h"

namespace vellumark::encoding {
namespace {

constexpr std::size_t kLongest = 128;
constexpr char kEndOfData = '\x80';

// Where three equal bytes begin, at `from` or behind it; the size if nowhere.
std::size_t FindRun(std::span<const std::uint8_t> data, std::size_t from) {
  constexpr std::uint64_t kEachByte = 0x0101010101010101;
  for (; from + 10 <= data.size(); from += 8) {
    const std::uint8_t* const at = data.data() + from;
    const auto first = LoadLittleEndian<std::uint64_t>(at);
    const auto second = LoadLittleEndian<std::uint64_t>(at + 1);
    const auto third = LoadLittleEndian<std::uint64_t>(at + 2);
    // A zero byte for each of the eight that the next two equal; the lowest is found exactly.
    const std::uint64_t differs = (first ^ second) | (second ^ third);
    const std::uint64_t zeros = (differs - kEachByte) & ~differs & (0x80 * kEachByte);
    if (zeros != 0) return from + static_cast<std::size_t>(std::countr_zero(zeros)) / 8;
  }
  for (; from + 3 <= data.size(); ++from) {
    if (data[from] == data[from + 1] && data[from] == data[from + 2]) return from;
  }
  return data.size();
}

bool IsPairs(std::span<const std::uint8_t> data) {
  if (data.size() % 2 != 0) return false;
  for (std::size_t i = 0; i < data.size(); i += 2) {
    if (data[i] != data[i + 1]) return false;
  }
  return true;
}

class PackedOutput {
 public:
  explicit PackedOutput(std::string& output) : output_(output) {}

  void AddRun(std::size_t length, std::uint8_t byte) {
    const char run[] = {static_cast<char>(257 - length), static_cast<char>(byte)};
    output_.append(run, sizeof run);
  }

  // What stands between two runs.
  void AddLiterals(std::span<const std::uint8_t> bytes) {
    if (IsPairs(bytes)) {
      for (std::size_t i = 0; i < bytes.size(); i += 2) AddRun(2, bytes[i]);
      return;
    }
    while (!bytes.empty()) {
      const std::size_t length = std::min(kLongest, bytes.size());
      output_ += static_cast<char>(length - 1);
      output_.append(reinterpret_cast<const char*>(bytes.data()), length);
      bytes = bytes.subspan(length);
    }
  }

 private:
  std::string& output_;
};

}  // namespace

std::string EncodePackedRuns(std::span<const std::uint8_t> data) {
  std::string output;
  output.reserve(data.size() + data.size() / kLongest + 2 + kLineEndRoom);
  PackedOutput out(output);
  for (std::size_t start = 0; start < data.size();) {
    const std::size_t run = FindRun(data, start);
    out.AddLiterals(data.subspan(start, run - start));
    start = run;
    if (run < data.size()) {
      const std::size_t length = RunAt(data, run, kLongest);
      out.AddRun(length, data[run]);
      start += length;
    }
  }
  output += kEndOfData;
  if (output.size() < output.capacity() / 2) CutToSize(output);
  return output;
}

}  // namespace vellumark::encoding
