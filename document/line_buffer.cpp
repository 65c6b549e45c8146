// SPDX-License-Identifier: MIT
#include "document/line_buffer.h"

#include <algorithm>

namespace vellumark::document {

std::size_t LineBuffer::AppendOwned(std::string&& line) {
  if (line.size() > kLongestLine - kLineEnd.size()) throw RunTimeError(RunTimeError::Overflow);
  line.append(kLineEnd);
  ReserveSize();
  Chunk chunk;
  chunk.owned = std::move(line);
  const std::size_t size = chunk.owned.size();
  chunk.capacity = size;
  chunks_.push_back(std::move(chunk));
  return Commit(size);
}

void LineBuffer::Replace(std::size_t index, std::string text) {
  text.append(kLineEnd);
  const auto place = std::lower_bound(
      replacements_.begin(), replacements_.end(), index,
      [](const auto& replacement, std::size_t i) { return replacement.first < i; });
  if (place != replacements_.end() && place->first == index) {
    place->second = std::move(text);
  } else {
    replacements_.emplace(place, index, std::move(text));
  }
}

void LineBuffer::Clear() { *this = LineBuffer(); }

LineBuffer::Mark LineBuffer::Here() const noexcept {
  return {sizes_.size(), chunks_.size(), chunks_.empty() ? 0 : chunks_.back().used, byte_count_};
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
