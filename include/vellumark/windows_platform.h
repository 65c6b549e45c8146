// SPDX-License-Identifier: MIT
//
// WindowsPlatform: files, message box, clock, code page, resources and picture loader of Windows.
//
// Files: names are converted to the ANSI code page; a name with a character that is missing there
// is refused. While a file is open, no other program and no other document can open it. Lines are
// collected into writes of 64 KiB. Errors are the system's own (std::system_category), apart from
// std::errc::not_enough_memory and std::errc::bad_file_descriptor.
//
// Notice: a message box with an information sign and no owner. It deliberately waits until the user
// closes it. Left out if VELLUMARK_NOTICE in the environment is "off", for hosts without a screen.
//
// Pictures: the component runtime's picture loader decodes them, PNG files the imaging component.
//
// Code page: the system's ANSI code page if that has one byte per character, otherwise
// Windows-1252.
//
// Width resources: those of the program or DLL that this library is linked into, which has to link
// the target `vellumark_windows_resources` beside it.
//
// Clock: local time.
//
// Not for use from several threads at once; each document without a platform makes its own.
#pragma once

#include <limits>
#include <memory>

#include <vellumark/platform.h>

namespace vellumark {

namespace platform {
class OutputFiles;
}

class WindowsPlatform : public Platform {
 public:
  WindowsPlatform();
  ~WindowsPlatform() override;
  WindowsPlatform(const WindowsPlatform&) = delete;
  WindowsPlatform& operator=(const WindowsPlatform&) = delete;
  WindowsPlatform(WindowsPlatform&&) = delete;
  WindowsPlatform& operator=(WindowsPlatform&&) = delete;

  /// The most bytes that a decoded picture may have, from a file or from memory. 2^31 - 1 at first,
  /// and at most. A larger picture is refused once the system's loader has told its size, for which
  /// it may have decoded the picture.
  void SetGreatestPicture(std::int32_t bytes) noexcept { greatest_picture_ = bytes; }
  [[nodiscard]] std::int32_t GreatestPicture() const noexcept { return greatest_picture_; }

  FileHandle CreateOutput(std::string_view name, std::error_code& error) override;
  std::error_code WriteOutput(FileHandle file, std::string_view bytes) override;
  std::error_code CloseOutput(FileHandle file) override;
  bool DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) override;
  bool ReadPicture(std::string_view file, std::vector<std::uint8_t>& bytes,
                   std::string& reason) override;
  bool DecodePictureBytes(std::span<const std::uint8_t> bytes, Bitmap& bitmap,
                          std::string& reason) override;
  void ShowNotice(std::string_view text, std::string_view caption) override;
  LocalTime Now() override;
  std::string_view ToCodePage(std::string_view utf8, std::string& storage) override;
  std::span<const std::uint8_t> WidthResource(int number) override;
  std::string_view Title() override;
  std::string_view LegalNotice() override;

 private:
  std::unique_ptr<platform::OutputFiles> files_;
  std::int32_t greatest_picture_ = std::numeric_limits<std::int32_t>::max();
};

}  // namespace vellumark
