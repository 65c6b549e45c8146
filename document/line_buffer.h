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

#include "document/decimal_digits.h"
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
    const std::size_t most = (MaxSize(parts) + ... + kLongestLineEnd);
    if (most + kEntry > open_.Room()) [[unlikely]]
      AddArena(most);
    char* end = open_.to;
    ((end = Write(end, parts)), ...);
    end = WriteLineEnd(end);
    const auto size = static_cast<std::size_t>(end - open_.to);
    open_.to = end;
    open_.entries -= kEntry;
    StoreEntry(open_.entries, size);
    return Count(size);
  }

  /// Appends one line and takes it over. If it has room for two more bytes it is not copied.
  std::size_t AppendOwned(std::string&& line);

  /// Appends one line, the text of `samples` under ASCII85 or ASCIIHex, its end marker included:
  /// `text_size` bytes, as encoding::TextSize counts them.
  std::size_t AppendEncoded(std::vector<std::uint8_t>&& samples, EncodingConstants encoding,
                            std::uint64_t text_size);

  /// Gives the line `index` another text, without line end, when the lines are written.
  void Replace(std::size_t index, std::string text);

  /// Forgets all lines; from here on they end with `line_end`.
  void Clear(LineEnd line_end);

  /// Forgets all lines, but keeps the first chunk for those to come.
  void Reuse() noexcept;

  /// All lines one behind the other, as they lie, or put together in `storage`. Not for a buffer
  /// with replaced or encoded lines.
  [[nodiscard]] std::string_view Text(std::string& storage) const;

  [[nodiscard]] std::size_t LineCount() const noexcept { return line_count_; }

  /// Bytes of all lines with their line ends, before replacements.
  [[nodiscard]] std::int64_t ByteCount() const noexcept { return byte_count_; }

  /// Calls `use` with every line and its line end, in order; with an encoded one in pieces.
  template <class Use>
  void ForEachLine(const Use& use) const {
    Walk(use, [&](const char* line, const char* end, const char* entry) {
      while (line != end) {
        entry -= kEntry;
        use(std::string_view(line, Entry(entry)));
        line += Entry(entry);
      }
    });
  }

  /// The same in pieces as large as they lie: a chunk of lines is one.
  template <class Use>
  void ForEachPiece(const Use& use) const {
    Walk(use, [&](const char* line, const char* end, const char* /*entry*/) {
      if (line != end) use(std::string_view(line, static_cast<std::size_t>(end - line)));
    });
  }

  /// A place to go back to.
  struct Mark {
    std::size_t lines = 0;
    std::size_t chunks = 0;
    char* to = nullptr;  // in the last chunk
    char* entries = nullptr;
    std::int64_t byte_count = 0;
  };

  void Here(Mark& mark) const noexcept {
    mark.lines = line_count_;
    mark.chunks = chunks_.size();
    mark.to = open_.to;
    mark.entries = open_.entries;
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

  static constexpr std::size_t kEntry = sizeof(std::uint32_t);

  /// An arena with many lines, one behind the other from its start, and the size of each, with its
  /// line end, one before the other from its end. Or a single line that was taken over, or is to be
  /// encoded.
  struct Chunk {
    [[nodiscard]] const char* Data() const noexcept { return arena ? arena.get() : owned.data(); }

    std::unique_ptr<char[]> arena;
    std::string owned;
    bool encoded = false;
    std::vector<std::uint8_t> samples;
    EncodingConstants encoding = EncodingConstants::ASCII85;
    std::size_t capacity = 0;
    std::size_t used = 0;  // by lines; of an arena once another chunk follows
  };

  /// What is free of the last chunk: from `to` up to `entries`; nothing of a single line. A buffer
  /// that was moved from keeps nothing open.
  struct Open {
    Open() = default;
    Open(char* from, char* end) : to(from), entries(end) {}
    Open(const Open&) = delete;
    Open& operator=(const Open&) = delete;
    Open(Open&& other) noexcept
        : to(std::exchange(other.to, nullptr)), entries(std::exchange(other.entries, nullptr)) {}
    Open& operator=(Open&& other) noexcept {
      to = std::exchange(other.to, nullptr);
      entries = std::exchange(other.entries, nullptr);
      return *this;
    }
    ~Open() = default;

    [[nodiscard]] std::size_t Room() const noexcept {
      return static_cast<std::size_t>(entries - to);
    }

    char* to = nullptr;
    char* entries = nullptr;
  };

  static void StoreEntry(char* at, std::size_t size) noexcept {
    const auto entry = static_cast<std::uint32_t>(size);
    std::memcpy(at, &entry, kEntry);
  }
  static std::size_t Entry(const char* at) noexcept {
    std::uint32_t entry = 0;
    std::memcpy(&entry, at, kEntry);
    return entry;
  }

  static constexpr std::size_t MaxSize(std::string_view text) noexcept { return text.size(); }
  static constexpr std::size_t MaxSize(char) noexcept { return 1; }
  static constexpr std::size_t MaxSize(layout::Points) noexcept { return 6; }
  template <std::integral Integer>
  static constexpr std::size_t MaxSize(Integer) noexcept {
    return kMostDigits;
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
    return WriteInteger(value, to);
  }
  template <SyntaxPart Part>
  static char* Write(char* to, const Part& part) noexcept {
    return part.Write(to);
  }

  /// Counts a line of `size` bytes that was appended, and returns its index.
  std::size_t Count(std::size_t size) noexcept {
    byte_count_ += static_cast<std::int64_t>(size);
    return line_count_++;
  }

  /// How many bytes of `chunk` are lines.
  [[nodiscard]] std::size_t Used(const Chunk& chunk) const noexcept {
    const bool open = &chunk == &chunks_.back() && open_.to != nullptr;
    return open ? static_cast<std::size_t>(open_.to - chunk.arena.get()) : chunk.used;
  }

  using Replacements = std::vector<std::pair<std::size_t, std::string>>;

  /// Calls `use` with what stands by itself, in order: the texts of replaced, encoded and owned
  /// lines. Between them it calls `use_stretch` with lines that follow each other in memory: where
  /// they begin and end, and the end of the first one's entry.
  template <class Use, class UseStretch>
  void Walk(const Use& use, const UseStretch& use_stretch) const {
    std::size_t index = 0;
    auto replaced = replacements_.begin();
    for (const Chunk& chunk : chunks_) {
      const auto is_replaced = [&] {
        return replaced != replacements_.end() && replaced->first == index;
      };
      if (chunk.arena == nullptr) {
        UseSingle(chunk, is_replaced() ? &replaced++->second : nullptr, use);
        ++index;
        continue;
      }
      const char* begin = chunk.arena.get();  // of a stretch
      const char* const end = begin + Used(chunk);
      const char* begin_entry = chunk.arena.get() + chunk.capacity;
      const char* line = begin;
      for (const char* entry = begin_entry; line != end && replaced != replacements_.end();
           ++index) {
        const char* const next = line + Entry(entry - kEntry);
        entry -= kEntry;
        if (is_replaced()) {
          use_stretch(begin, line, begin_entry);
          use(std::string_view(replaced++->second));
          begin = next;
          begin_entry = entry;
        }
        line = next;
      }
      use_stretch(begin, end, begin_entry);
    }
  }
  void UseSingle(const Chunk& chunk, const std::string* replacement,
                 const encoding::PieceSink& use) const;
  void AddArena(std::size_t size);
  void AddChunk(Chunk&& chunk);
  void OpenLast() noexcept;
  std::size_t AppendSingle(Chunk&& chunk, std::size_t size);

  [[nodiscard]] std::string_view LineEndText() const noexcept {
    return line_end_ == LineEnd::CrLf ? "\r\n" : "\n";
  }

  LineEnd line_end_;
  std::vector<Chunk> chunks_;
  Open open_;
  std::size_t line_count_ = 0;
  Replacements replacements_;  // by rising line index
  std::int64_t byte_count_ = 0;
};

}  // namespace vellumark::document
