// SPDX-License-Identifier: MIT
#include "document/line_buffer.h"

#include <algorithm>

#include "encoding/encode_stream.h"

namespace vellumark::document {

std::size_t LineBuffer::AppendOwned(std::string&& line) {
  if (line.size() > kLongestLine - kLongestLineEnd) throw RunTimeError(RunTimeError::Overflow);
  line.append(LineEndText());
  ReserveSize();
  Chunk chunk;
  chunk.owned = std::move(line);
  const std::size_t size = chunk.owned.size();
  chunk.capacity = size;
  chunks_.push_back(std::move(chunk));
  return Commit(size);
}

std::size_t LineBuffer::AppendEncoded(std::vector<std::uint8_t>&& samples,
                                      EncodingConstants encoding) {
  const std::uint64_t text_size = encoding::TextSize(samples, encoding);
  if (text_size > kLongestLine - kLongestLineEnd) throw RunTimeError(RunTimeError::Overflow);
  const std::size_t size = static_cast<std::size_t>(text_size) + LineEndText().size();
  ReserveSize();
  Chunk chunk;
  chunk.capacity = size;
  chunk.encoding = encoding;
  chunk.samples = std::move(samples);
  chunks_.push_back(std::move(chunk));
  return Commit(size);
}

void LineBuffer::WriteEncoded(const Chunk& chunk, const encoding::PieceSink& use) const {
  encoding::EncodeTo(use, chunk.samples, chunk.encoding);
  use(LineEndText());
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
  if (!chunks_.empty()) chunks_.front().used = 0;
  sizes_.clear();
  replacements_.clear();
  byte_count_ = 0;
}

std::string_view LineBuffer::Text(std::string& storage) const {
  if (chunks_.empty()) return {};
  if (chunks_.size() == 1) return {chunks_.front().Data(), chunks_.front().used};
  storage.clear();
  storage.reserve(static_cast<std::size_t>(byte_count_));
  for (const Chunk& chunk : chunks_) storage.append(chunk.Data(), chunk.used);
  return storage;
}

std::string LineBuffer::TextSince(const Mark& mark) const {
  std::string text;
  for (std::size_t i = mark.chunks == 0 ? 0 : mark.chunks - 1; i < chunks_.size(); ++i) {
    const std::size_t begin = i + 1 == mark.chunks ? mark.used : 0;
    if (!chunks_[i].samples.empty()) continue;
    text.append(chunks_[i].Data() + begin, chunks_[i].used - begin);
  }
  return text;
}

void LineBuffer::RollBack(const Mark& mark) noexcept {
  chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(mark.chunks), chunks_.end());
  if (!chunks_.empty()) chunks_.back().used = mark.used;
  sizes_.resize(mark.lines);
  while (!replacements_.empty() && replacements_.back().first >= mark.lines) {
    replacements_.pop_back();
  }
  byte_count_ = mark.byte_count;
}

void LineBuffer::GrowSizes() { sizes_.reserve(std::max<std::size_t>(64, 2 * sizes_.size())); }

void LineBuffer::AddArena(std::size_t size) {
  Chunk chunk;
  chunk.capacity = std::max(size, kChunkSize);
  chunk.arena = std::unique_ptr<char[]>(new char[chunk.capacity]);
  chunks_.push_back(std::move(chunk));
}

}  // namespace vellumark::document
