// SPDX-License-Identifier: MIT
#include "platform/output_file.h"

#include <new>
#include <utility>

namespace vellumark::platform {

std::error_code OutputFile::Close() noexcept {
  if (!std::exchange(open_, false)) return error_;
  Drain();
  const std::error_code closed = CloseFile();
  if (!error_) error_ = closed;
  return error_;
}

std::error_code OutputFile::WriteLarge(std::string_view bytes) noexcept {
  Drain();
  if (bytes.size() < kLong) return Write(bytes);
  WriteThrough(bytes);
  return error_;
}

void OutputFile::Drain() noexcept {
  WriteThrough({buffer_.get(), used_});
  used_ = 0;
}

/// A system that takes fewer bytes than it was given is given the rest, but not for ever: one that
/// takes none and reports no error would never take them.
void OutputFile::WriteThrough(std::string_view bytes) noexcept {
  while (!bytes.empty() && !error_) {
    const std::size_t written = WriteSome(bytes, error_);
    if (written == 0 && !error_) error_ = std::make_error_code(std::errc::io_error);
    bytes.remove_prefix(written);
  }
}

FileHandle OutputFiles::Create(Open open, std::string_view name, std::error_code& error) noexcept {
  error.clear();
  try {
    files_.emplace_back();  // before the file exists: nothing may fail behind its creation
    files_.back() = open(name, error);
  } catch (const std::bad_alloc&) {
    error = std::make_error_code(std::errc::not_enough_memory);
  }
  const std::size_t count = files_.size();
  DropClosed();
  return error || files_.size() != count ? FileHandle::Invalid : static_cast<FileHandle>(count - 1);
}

std::error_code OutputFiles::Close(FileHandle file) noexcept {
  const auto index = static_cast<std::uint64_t>(file);
  if (index >= files_.size() || files_[static_cast<std::size_t>(index)] == nullptr) {
    return NotOpen();
  }
  auto& closing = files_[static_cast<std::size_t>(index)];
  const std::error_code error = closing->Close();
  closing.reset();
  DropClosed();
  return error;
}

std::error_code OutputFiles::NotOpen() noexcept {
  return std::make_error_code(std::errc::bad_file_descriptor);
}

/// Handles at the end are given out again.
void OutputFiles::DropClosed() noexcept {
  while (!files_.empty() && files_.back() == nullptr) files_.pop_back();
}

}  // namespace vellumark::platform
