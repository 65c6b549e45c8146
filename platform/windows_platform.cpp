// SPDX-License-Identifier: MIT
#include <windows.h>

#include <vellumark/windows_platform.h>

#include "platform/library_identity.h"
#include "platform/picture_file.h"
#include "platform/windows_code_page.h"
#include "platform/windows_output_file.h"
#include "platform/windows_picture.h"
#include "platform/windows_resource.h"

namespace vellumark {
namespace {

std::error_code NoSuchHandle() { return {ERROR_INVALID_HANDLE, std::system_category()}; }

}  // namespace

WindowsPlatform::WindowsPlatform() = default;
WindowsPlatform::~WindowsPlatform() = default;

platform::WindowsOutputFile* WindowsPlatform::Find(FileHandle file) noexcept {
  const auto index = static_cast<std::uint64_t>(file);
  return index < files_.size() ? files_[static_cast<std::size_t>(index)].get() : nullptr;
}

FileHandle WindowsPlatform::CreateOutput(std::string_view name, std::error_code& error) {
  files_.emplace_back();  // before the file exists, so that it cannot be left without an owner
  files_.back() = platform::WindowsOutputFile::Create(name, error);
  if (files_.back() != nullptr) return static_cast<FileHandle>(files_.size() - 1);
  files_.pop_back();
  return FileHandle::Invalid;
}

std::error_code WindowsPlatform::WriteOutput(FileHandle file, std::string_view bytes) {
  platform::WindowsOutputFile* const output = Find(file);
  return output != nullptr ? output->Write(bytes) : NoSuchHandle();
}

std::error_code WindowsPlatform::CloseOutput(FileHandle file) {
  platform::WindowsOutputFile* const output = Find(file);
  if (output == nullptr) return NoSuchHandle();
  const std::error_code error = output->Close();
  files_[static_cast<std::size_t>(file)].reset();
  while (!files_.empty() && files_.back() == nullptr) files_.pop_back();
  return error;
}

bool WindowsPlatform::DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) {
  bitmap = {};
  platform::PictureFile picture;
  if (!picture.Read(file, reason)) return false;
  reason = platform::LoadWindowsPicture(picture.Bytes(), bitmap);
  return reason.empty();
}

void WindowsPlatform::ShowNotice(std::string_view text, std::string_view caption) {
  MessageBoxA(nullptr, platform::ToSystemText(text).c_str(),
              platform::ToSystemText(caption).c_str(), MB_OK | MB_ICONINFORMATION);
}

LocalTime WindowsPlatform::Now() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wDayOfWeek};
}

std::string_view WindowsPlatform::ToCodePage(std::string_view utf8, std::string& storage) {
  return platform::ToAnsiCodePage(utf8, storage);
}

std::span<const std::uint8_t> WindowsPlatform::WidthResource(int number) {
  constexpr int kFirst = 101;
  constexpr int kLast = 110;
  constexpr std::size_t kSize = 512;
  if (number < kFirst || number > kLast) return {};
  const auto bytes = platform::WindowsResource(number);
  return bytes.size() == kSize ? bytes : std::span<const std::uint8_t>();
}

std::string_view WindowsPlatform::Title() { return kTitle; }

std::string_view WindowsPlatform::LegalNotice() { return kLegalNotice; }

}  // namespace vellumark
