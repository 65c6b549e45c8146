// SPDX-License-Identifier: MIT
//
// LineBuffer: the lines of a document, in memory until Flush.
//
// One call appends one line, put together from its parts in place:
//
//     lines.Append(x, ' ', y, " m");            // "100 692 m"
//     lines.Append("/Size ", count);
//
// A part is text, a character, Points or an integer, or a syntax type of a page language that
// offers MaxSize() and Write(char*). Each line is stored with its line end, CR LF or LF, so that it
// can be written as it lies. Lines fill chunks of 64 KiB one after the other and are never moved:
// in the steady state a line costs no allocation. A line that exists already is taken over without
// a copy; the samples of a picture become text only when the lines are written.
#pragma once

#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <vellumark/enumerations.h>

#include "encoding/encoded_output.h"
#include "layout/points.h"

namespace vellumark::document {

template <class Part>
concept SyntaxPart = requires(const Part& part, char* to) {
  { part.MaxSize() } -> std::convertible_to<std::size_t>;
  { part.Write(to) } -> std::same_as<char*>;
};

/// The end of every line.
enum class LineEnd : std::uint8_t { CrLf, Lf };

class LineBuffer {
 public:
  explicit LineBuffer(LineEnd line_end = LineEnd::CrLf) : line_end_(line_end) {}

  /// Appends one line made of `parts` and returns its index. A call that throws appends nothing.
  template <class... Parts>
  std::size_t Append(const Parts&... parts) {
    char* const start = Room((MaxSize(parts) + ... + kLongestLineEnd));
    char* end = start;
    ((end = Write(end, parts)), ...);
    end = WriteLineEnd(end);
    return Commit(static_cast<std::size_t>(end - start));
  }

  /// Appends one line and takes it over. If it has room for two more bytes it is not copied.
  std::size_t AppendOwned(std::string&& line);

  /// Appends one line, the text of `samples` under ASCII85 or ASCIIHex, its end marker included.
  std::size_t AppendEncoded(std::vector<std::uint8_t>&& samples, EncodingConstants encoding);

  /// Gives the line `index` another text, without line end, when the lines are written.
  void Replace(std::size_t index, std::string text);

  /// Forgets all lines; from here on they end with `line_end`.
  void Clear(LineEnd line_end);

  /// Forgets all lines, but keeps the first chunk for those to come.
  void Reuse() noexcept;

  /// All lines one behind the other, as they lie, or put together in `storage`. Not for a buffer
  /// with replaced or encoded lines.
  [[nodiscard]] std::string_view Text(std::string& storage) const;

  [[nodiscard]] std::size_t LineCount() const noexcept { return sizes_.size(); }

  /// Bytes of all lines with their line ends, before replacements.
  [[nodiscard]] std::int64_t ByteCount() const noexcept { return byte_count_; }

  /// Calls `use` with every line and its line end, in order; with an encoded one in pieces.
  template <class Use>
  void ForEachLine(const Use& use) const {
    std::size_t index = 0;
    auto replaced = replacements_.begin();
    for (const Chunk& chunk : chunks_) {
      if (!chunk.samples.empty()) {
        WriteEncoded(chunk, use);
        ++index;
        continue;
      }
      const char* line = chunk.Data();
      for (const char* const end = line + chunk.used; line != end; line += sizes_[index++]) {
        if (replaced != replacements_.end() && replaced->first == index) {
          use(std::string_view(replaced++->second));
        } else {
          use(std::string_view(line, sizes_[index]));
        }
      }
    }
  }

  /// A place to go back to.
  struct Mark {
    std::size_t lines = 0;
    std::size_t chunks = 0;
    std::size_t used = 0;
    std::int64_t byte_count = 0;
  };

  void Here(Mark& mark) const noexcept {
    mark.lines = sizes_.size();
    mark.chunks = chunks_.size();
    mark.used = chunks_.empty() ? 0 : chunks_.back().used;
    mark.byte_count = byte_count_;
  }

  /// The lines since `mark`, as they are. Encoded ones are left out.
  [[nodiscard]] std::string TextSince(const Mark& mark) const;

  /// Forgets every line that was appended, and every text that was replaced behind `mark`.
  void RollBack(const Mark& mark) noexcept;

 private:
  static constexpr std::size_t kChunkSize = 65536;
  static constexpr std::size_t kLongestLineEnd = 2;
  static constexpr std::size_t kLongestLine = std::numeric_limits<std::int32_t>::max();

  /// Lines one behind the other: many in an arena, or a single one that was taken over, or is to
  /// be encoded.
  struct Chunk {
    [[nodiscard]] const char* Data() const noexcept { return arena ? arena.get() : owned.data(); }

    std::unique_ptr<char[]> arena;
    std::string owned;
    std::vector<std::uint8_t> samples;
    EncodingConstants encoding = EncodingConstants::ASCII85;
    std::size_t capacity = 0;
    std::size_t used = 0;
  };

  static constexpr std::size_t MaxSize(std::string_view text) noexcept { return text.size(); }
  static constexpr std::size_t MaxSize(char) noexcept { return 1; }
  static constexpr std::size_t MaxSize(layout::Points) noexcept { return 6; }
  template <std::integral Integer>
  static constexpr std::size_t MaxSize(Integer) noexcept {
    return 20;
  }
  template <SyntaxPart Part>
  static constexpr std::size_t MaxSize(const Part& part) noexcept {
    return part.MaxSize();
  }

  char* WriteLineEnd(char* to) const noexcept {
    if (line_end_ == LineEnd::CrLf) *to++ = '\r';
    *to++ = '\n';
    return to;
  }

  static char* Write(char* to, std::string_view text) noexcept {
    if (!text.empty()) std::memcpy(to, text.data(), text.size());
    return to + text.size();
  }
  static char* Write(char* to, char character) noexcept {
    *to = character;
    return to + 1;
  }
  static char* Write(char* to, layout::Points points) noexcept { return Write(to, points.value()); }
  template <std::integral Integer>
  static char* Write(char* to, Integer value) noexcept {
    return std::to_chars(to, to + 20, value).ptr;
  }
  template <SyntaxPart Part>
  static char* Write(char* to, const Part& part) noexcept {
    return part.Write(to);
  }

  /// Room for a line of at most `size` bytes. Raises run-time error 6 for one of 2 GiB.
  char* Room(std::size_t size) {
    if (size > kLongestLine) throw RunTimeError(RunTimeError::Overflow);
    ReserveSize();
    if (chunks_.empty() || chunks_.back().capacity - chunks_.back().used < size) AddArena(size);
    return chunks_.back().arena.get() + chunks_.back().used;
  }

  /// Makes room for one more entry of sizes_, so that Commit cannot fail.
  void ReserveSize() {
    if (sizes_.size() == sizes_.capacity()) GrowSizes();
  }

  std::size_t Commit(std::size_t size) noexcept {
    chunks_.back().used += size;
    byte_count_ += static_cast<std::int64_t>(size);
    sizes_.push_back(static_cast<std::uint32_t>(size));
    return sizes_.size() - 1;
  }

  void WriteEncoded(const Chunk& chunk, const encoding::PieceSink& use) const;
  void GrowSizes();
  void AddArena(std::size_t size);

  [[nodiscard]] std::string_view LineEndText() const noexcept {
    return line_end_ == LineEnd::CrLf ? "\r\n" : "\n";
  }

  LineEnd line_end_;
  std::vector<Chunk> chunks_;
  std::vector<std::uint32_t> sizes_;  // of each line, with its line end
  std::vector<std::pair<std::size_t, std::string>> replacements_;  // by rising line index
  std::int64_t byte_count_ = 0;
};

}  // namespace vellumark::document
