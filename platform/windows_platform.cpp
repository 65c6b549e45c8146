// SPDX-License-Identifier: MIT
#include <windows.h>

#include <vellumark/windows_platform.h>

#include "platform/library_identity.h"
#include "platform/output_file.h"
#include "platform/windows_code_page.h"
#include "platform/windows_file.h"
#include "platform/windows_picture.h"

namespace vellumark {
namespace {

constexpr char kInThisModule = 0;

HMODULE ThisModule() {
  HMODULE module = nullptr;
  const DWORD flags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  return GetModuleHandleExA(flags, &kInThisModule, &module) != 0 ? module : nullptr;
}

/// The data resource `number` of the module that this code is linked into, which is the DLL even if
/// the program has resources of its own. Empty if there is none.
std::span<const std::uint8_t> Resource(int number) noexcept {
  const HMODULE module = ThisModule();
  if (module == nullptr) return {};
  const HRSRC found = FindResourceA(module, MAKEINTRESOURCEA(number), RT_RCDATA);
  if (found == nullptr) return {};
  const HGLOBAL loaded = LoadResource(module, found);
  const void* const bytes = loaded != nullptr ? LockResource(loaded) : nullptr;
  if (bytes == nullptr) return {};
  return {static_cast<const std::uint8_t*>(bytes), SizeofResource(module, found)};
}

}  // namespace

WindowsPlatform::WindowsPlatform() : files_(std::make_unique<platform::OutputFiles>()) {}
WindowsPlatform::~WindowsPlatform() = default;

FileHandle WindowsPlatform::CreateOutput(std::string_view name, std::error_code& error) {
  return files_->Create(platform::OpenWindowsFile, name, error);
}

std::error_code WindowsPlatform::WriteOutput(FileHandle file, std::string_view bytes) {
  return files_->Write(file, bytes);
}

std::error_code WindowsPlatform::CloseOutput(FileHandle file) { return files_->Close(file); }

bool WindowsPlatform::DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) {
  bitmap = {};
  std::vector<std::uint8_t> bytes;
  return ReadPicture(file, bytes, reason) && DecodePictureBytes(bytes, bitmap, reason);
}

bool WindowsPlatform::ReadPicture(std::string_view file, std::vector<std::uint8_t>& bytes,
                                  std::string& reason) {
  return platform::ReadWindowsFile(file, bytes, reason);
}

bool WindowsPlatform::DecodePictureBytes(std::span<const std::uint8_t> bytes, Bitmap& bitmap,
                                         std::string& reason) {
  reason = platform::LoadWindowsPicture(bytes, greatest_picture_, bitmap);
  return reason.empty();
}

void WindowsPlatform::ShowNotice(std::string_view text, std::string_view caption) {
  char wish[4];
  const bool known = GetEnvironmentVariableA("VELLUMARK_NOTICE", wish, sizeof wish) == 3;
  if (known && lstrcmpiA(wish, "off") == 0) return;
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
  const auto bytes = Resource(number);
  return bytes.size() == kSize ? bytes : std::span<const std::uint8_t>();
}

std::string_view WindowsPlatform::Title() { return kTitle; }

std::string_view WindowsPlatform::LegalNotice() { return kLegalNotice; }

}  // namespace vellumark
