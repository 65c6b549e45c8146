// SPDX-License-Identifier: MIT
#include <new>
#include <utility>

#include <vellumark/memory_platform.h>

namespace vellumark {

const std::string* MemoryPlatform::File(std::string_view name) const {
  const auto found = files_.find(name);
  return found == files_.end() ? nullptr : &found->second.bytes;
}

std::string MemoryPlatform::TakeFile(std::string_view name) {
  const auto found = files_.find(name);
  if (found == files_.end() || found->second.open) return {};
  std::string bytes = std::move(found->second.bytes);
  files_.erase(found);
  return bytes;
}

void MemoryPlatform::PutFile(std::string_view name, std::string bytes) {
  MemoryFile& file = files_[std::string(name)];
  if (!file.open) file.bytes = std::move(bytes);
}

FileHandle MemoryPlatform::CreateOutput(std::string_view name, std::error_code& error) {
  error.clear();
  try {
    MemoryFile& file = files_[std::string(name)];
    if (file.open) {
      error = std::make_error_code(std::errc::device_or_resource_busy);
      return FileHandle::Invalid;
    }
    handles_.push_back(&file);  // before the file changes: a handle may lack the memory
    file.bytes.clear();
    file.open = true;
    return static_cast<FileHandle>(handles_.size() - 1);
  } catch (const std::bad_alloc&) {
    error = std::make_error_code(std::errc::not_enough_memory);
    return FileHandle::Invalid;
  }
}

std::error_code MemoryPlatform::WriteOutput(FileHandle file, std::string_view bytes) {
  MemoryFile* const open = FindOpen(file);
  if (open == nullptr) return std::make_error_code(std::errc::bad_file_descriptor);
  try {
    if (!open->error) open->bytes.append(bytes);
  } catch (const std::exception&) {  // no memory, or more bytes than a string may have
    open->error = std::make_error_code(std::errc::not_enough_memory);
  }
  return open->error;
}

std::error_code MemoryPlatform::CloseOutput(FileHandle file) {
  MemoryFile* const open = FindOpen(file);
  if (open == nullptr) return std::make_error_code(std::errc::bad_file_descriptor);
  open->open = false;
  const std::error_code error = std::exchange(open->error, {});
  handles_[static_cast<std::size_t>(file)] = nullptr;
  while (!handles_.empty() && handles_.back() == nullptr) handles_.pop_back();
  return error;
}

bool MemoryPlatform::ReadPicture(std::string_view file, std::vector<std::uint8_t>& bytes,
                                 std::string& reason) {
  const std::string* const found = File(file);
  if (found == nullptr) return PortablePlatform::ReadPicture(file, bytes, reason);
  bytes.assign(found->begin(), found->end());
  return true;
}

/// Decodes a file in memory without copying it.
bool MemoryPlatform::DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) {
  const std::string* const bytes = File(file);
  if (bytes == nullptr) return PortablePlatform::DecodePicture(file, bitmap, reason);
  const auto* const data = reinterpret_cast<const std::uint8_t*>(bytes->data());
  return DecodePictureBytes({data, bytes->size()}, bitmap, reason);
}

void MemoryPlatform::ShowNotice(std::string_view text, std::string_view caption) {
  notices_.push_back(std::string(caption).append(": ").append(text));
}

LocalTime MemoryPlatform::Now() { return time_ ? *time_ : PortablePlatform::Now(); }

MemoryPlatform::MemoryFile* MemoryPlatform::FindOpen(FileHandle file) noexcept {
  const auto index = static_cast<std::size_t>(file);
  return index < handles_.size() ? handles_[index] : nullptr;
}

}  // namespace vellumark
