// SPDX-License-Identifier: MIT
#include "document/line_buffer.h"

#include <algorithm>

#include "encoding/encode_stream.h"

namespace vellumark::document {

std::size_t LineBuffer::AppendOwned(std::string&& line) {
  if (line.size() > kLongestLine - kLongestLineEnd) throw RunTimeError(RunTimeError::Overflow);
  line.append(LineEndText());
  Chunk chunk;
  chunk.owned = std::move(line);
  const std::size_t size = chunk.owned.size();
  return AppendSingle(std::move(chunk), size);
}

std::size_t LineBuffer::AppendEncoded(std::vector<std::uint8_t>&& samples,
                                      EncodingConstants encoding, std::uint64_t text_size) {
  if (text_size > kLongestLine - kLongestLineEnd) throw RunTimeError(RunTimeError::Overflow);
  Chunk chunk;
  chunk.encoded = true;
  chunk.encoding = encoding;
  chunk.samples = std::move(samples);
  return AppendSingle(std::move(chunk), static_cast<std::size_t>(text_size) + LineEndText().size());
}

/// Appends a chunk that is one line of `size` bytes.
std::size_t LineBuffer::AppendSingle(Chunk&& chunk, std::size_t size) {
  chunk.used = size;
  AddChunk(std::move(chunk));
  return Count(size);
}

/// From here on lines go behind `chunk`, into what is free of it.
void LineBuffer::AddChunk(Chunk&& chunk) {
  const std::size_t used = chunks_.empty() ? 0 : Used(chunks_.back());
  chunks_.push_back(std::move(chunk));
  if (chunks_.size() > 1) chunks_[chunks_.size() - 2].used = used;
  OpenLast();
}

/// All of the last chunk is free, if it is an arena.
void LineBuffer::OpenLast() noexcept {
  char* const arena = chunks_.back().arena.get();
  open_ = arena != nullptr ? Open(arena, arena + chunks_.back().capacity) : Open();
}

void LineBuffer::UseSingle(const Chunk& chunk, const std::string* replacement,
                           const encoding::PieceSink& use) const {
  if (replacement != nullptr) {
    use(*replacement);
  } else if (!chunk.encoded) {
    use(chunk.owned);
  } else {
    encoding::EncodeTo(use, chunk.samples, chunk.encoding);
    use(LineEndText());
  }
}

void LineBuffer::Replace(std::size_t index, std::string text) {
  text.append(LineEndText());
  const auto place = std::lower_bound(
      replacements_.begin(), replacements_.end(), index,
      [](const auto& replacement, std::size_t i) { return replacement.first < i; });
  if (place != replacements_.end() && place->first == index) {
    place->second = std::move(text);
  } else {
    replacements_.emplace(place, index, std::move(text));
  }
}

void LineBuffer::Clear(LineEnd line_end) { *this = LineBuffer(line_end); }

void LineBuffer::Reuse() noexcept {
  if (chunks_.size() > 1) chunks_.erase(chunks_.begin() + 1, chunks_.end());
  if (!chunks_.empty() && chunks_.front().arena == nullptr) chunks_.clear();
  open_ = Open();
  if (!chunks_.empty()) OpenLast();
  line_count_ = 0;
  replacements_.clear();
  byte_count_ = 0;
}

std::string_view LineBuffer::Text(std::string& storage) const {
  if (chunks_.empty()) return {};
  if (chunks_.size() == 1) return {chunks_.front().Data(), Used(chunks_.front())};
  storage.clear();
  storage.reserve(static_cast<std::size_t>(byte_count_));
  for (const Chunk& chunk : chunks_) storage.append(chunk.Data(), Used(chunk));
  return storage;
}

std::string LineBuffer::TextSince(const Mark& mark) const {
  std::string text;
  for (std::size_t i = mark.chunks == 0 ? 0 : mark.chunks - 1; i < chunks_.size(); ++i) {
    if (chunks_[i].encoded) continue;
    const char* const begin = i + 1 == mark.chunks ? mark.to : chunks_[i].Data();
    if (begin != nullptr) text.append(begin, chunks_[i].Data() + Used(chunks_[i]));
  }
  return text;
}

void LineBuffer::RollBack(const Mark& mark) noexcept {
  chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(mark.chunks), chunks_.end());
  open_ = Open(mark.to, mark.entries);
  line_count_ = mark.lines;
  while (!replacements_.empty() && replacements_.back().first >= mark.lines) {
    replacements_.pop_back();
  }
  byte_count_ = mark.byte_count;
}

/// Raises run-time error 6 for a line of 2 GiB.
void LineBuffer::AddArena(std::size_t size) {
  if (size > kLongestLine) throw RunTimeError(RunTimeError::Overflow);
  Chunk chunk;
  chunk.capacity = std::max(size + kEntry, kChunkSize);
  chunk.arena = std::unique_ptr<char[]>(new char[chunk.capacity]);
  AddChunk(std::move(chunk));
}

}  // namespace vellumark::document
