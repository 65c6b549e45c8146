// SPDX-License-Identifier: MIT
//
// RandomCalls: calls of any members of a document, with arguments out of bytes, and pictures from
// memory.
//
//     FuzzedBytes bytes({data, size});
//     RandomCalls calls(document, Class::PDF, bytes);
//     calls.Make();
//     if (calls.whole()) ...                          // the file "doc" is complete
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <memory>
#include <span>
#include <string>

#include <vellumark/vellumark.h>

#include "automation/member_table.h"
#include "fuzz/fuzzed_bytes.h"

namespace vellumark::fuzz {

/// Three whole pictures, and what the input says.
inline automation::Bytes AnyPicture(FuzzedBytes& bytes) {
  static constexpr std::uint8_t kGif[] = {'G', 'I', 'F', '8', '9', 'a', 2, 0,    2, 0, 0x80, 0,
                                          0,   1,   2,   3,   4,   5,   6, ',',  0, 0, 0,    0,
                                          2,   0,   2,   0,   0,   2,   3, 0x44, 2, 5, 0,    ';'};
  static constexpr std::uint8_t kBmp[] = {
      'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, 40, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 24,
      0,   0,   0, 0, 0, 0, 0, 0, 0, 0, 0,  0, 0, 0, 0,  0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 9, 8, 7, 0};
  static constexpr std::uint8_t kPng[] = {
      0x89, 'P',  'N',  'G',  '\r', '\n', 0x1A, '\n', 0,    0,    0,    13,   'I',  'H',
      'D',  'R',  0,    0,    0,    1,    0,    0,    0,    1,    8,    4,    0,    0,
      0,    0xB5, 0x1C, 0x0C, 0x02, 0,    0,    0,    0x0B, 'I',  'D',  'A',  'T',  0x78,
      0xDA, 0x63, 0x64, 0x60, 0,    0,    0,    0x06, 0,    0x02, 0x30, 0x81, 0xD0, 0x2F,
      0,    0,    0,    0,    'I',  'E',  'N',  'D',  0xAE, 0x42, 0x60, 0x82};
  switch (bytes.Byte() % 4) {
    case 0: return {std::begin(kGif), std::end(kGif)};
    case 1: return {std::begin(kBmp), std::end(kBmp)};
    case 2: return {std::begin(kPng), std::end(kPng)};
    default: break;
  }
  const auto taken = bytes.Take(bytes.Byte() * std::size_t{4});
  return {taken.begin(), taken.end()};
}

class RandomCalls {
 public:
  static constexpr std::int32_t kGreatestPicture = 1 << 16;

  RandomCalls(Document& document, automation::Class document_class, FuzzedBytes& bytes)
      : document_(document), members_(document_class), bytes_(bytes) {}

  /// Creates the file and starts a page, which few inputs do.
  void Start() {
    open_ = document_.Create("doc");
    document_.NewPage(20, 20, 20, 20, 255, 255, 255);
  }

  /// Makes the calls that the input says, and leaves a document that is flushed.
  void Make() {
    for (int i = 0; i < kMostCalls && !bytes_.Empty(); ++i) Call(bytes_.Byte());
    if (open_) Flush();
  }

  /// Whether a file was completed, and nothing was told to be missing in it.
  [[nodiscard]] bool whole() const { return whole_; }

 private:
  static constexpr int kMostCalls = 400;
  using Member = automation::Member;
  using Parameter = automation::Parameter;
  using Type = automation::Type;
  using Value = automation::Value;

  void Flush() {
    document_.Flush();
    const RefusalReason reason = document_.LastRefusal().reason;
    whole_ = reason == RefusalReason::None || reason == RefusalReason::AnchorMissing;
    whole_ = whole_ && open_;
    open_ = false;
  }

  void Call(std::uint8_t number) {
    // Fonts have a fuzz target of their own.
    const auto members = std::span(members_.begin(), members_.end());
    const auto count = static_cast<std::size_t>(
        std::count_if(members.begin(), members.end(),
                      [](const Member* each) { return each->id < kFirstOfFonts; }));
    const Member& member = **(members_.begin() + static_cast<std::ptrdiff_t>(number % count));
    if (member.facts.completes_file) {
      if (bytes_.Byte() % 16 == 0) Flush();  // seldom, so that documents grow
      return;
    }
    const bool assigned = member.let != nullptr && (bytes_.Byte() & 1U) != 0;
    std::array<Value, Member::kMostParameters> arguments;
    if (assigned) {
      arguments[0] = Argument(member.result.type);
      // The output is chosen by the kind, so that the file is known to be of it.
      if (member.name != "Conforming") member.let(document_, {arguments.data(), 1});
      return;
    }
    for (std::size_t i = 0; i < member.parameter_count; ++i) arguments[i] = Argument(member, i);
    if (member.facts.creates_file) {
      if (open_) Flush();
      arguments[0] = std::string("doc");
      whole_ = false;
    }
    try {
      const Value result = member.call(document_, {arguments.data(), member.parameter_count});
      if (member.facts.creates_file) open_ = std::get<bool>(result);
    } catch (const RunTimeError&) {
      return;  // an accessor without a value
    }
  }

  Value Argument(const Member& member, std::size_t place) {
    const Parameter& parameter = member.parameters()[place];
    if (parameter.in_out) return automation::ZeroOf(parameter.type.type);
    if (parameter.bytes) return AnyPicture(bytes_);
    if (parameter.optional() && bytes_.Byte() < 128) return automation::DefaultOf(parameter);
    return Argument(parameter.type.type);
  }

  Value Argument(Type type) {
    switch (type) {
      case Type::None: return {};
      case Type::Integer: return bytes_.Number();
      case Type::Byte: return bytes_.Byte();
      case Type::Boolean: return (bytes_.Byte() & 1U) != 0;
      case Type::Single: return static_cast<float>(bytes_.Number()) * 1.7F;
      case Type::String: return Text();
      case Type::Enumeration: {
        const std::int32_t number = bytes_.Byte() % 24;
        return bytes_.Byte() < 8 ? number - 200 : number;
      }
    }
    return {};
  }

  /// Without line ends where they would go into the file as they are.
  std::string Text() {
    std::string text = bytes_.Text();
    if (document_.Conforming()) return text;
    for (char& c : text) {
      if (c == '\r' || c == '\n') c = ' ';
    }
    return text;
  }

  Document& document_;
  static constexpr std::int32_t kFirstOfFonts = 55;  // LoadFont, and what comes behind it

  automation::ClassMembers members_;
  FuzzedBytes& bytes_;
  bool open_ = false;
  bool whole_ = false;
};

}  // namespace vellumark::fuzz
