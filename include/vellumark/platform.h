// SPDX-License-Identifier: MIT
//
// Platform: everything a document asks of the system it runs on.
//
// A document reaches files, the clock, the code page and the message box through this interface
// only. Three implementations ship: that of the system, which documents use by default,
// PosixPlatform (<vellumark/posix_platform.h>) or, in a build for Windows, WindowsPlatform
// (<vellumark/windows_platform.h>); and, besides the POSIX one, MemoryPlatform
// (<vellumark/memory_platform.h>), whose files are byte buffers. A host may bring its own:
//
//     auto platform = std::make_shared<MyPlatform>();   // derives from Platform
//     vellumark::PDF doc(platform);
//
// Threads: documents on different threads may share a platform only if it says so; none of
// those that ship does. A document constructed without a platform has one of its own.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <vellumark/bitmap.h>
#include <vellumark/export.h>

namespace vellumark {

/// An open output file of a platform. A failed CreateOutput returns Invalid.
enum class FileHandle : std::int64_t { Invalid = -1 };

/// A moment as a clock on the wall shows it.
struct LocalTime {
  int year = 1970;  ///< four digits
  int month = 1;    ///< 1 to 12
  int day = 1;      ///< 1 to 31
  int hour = 0;     ///< 0 to 23
  int minute = 0;   ///< 0 to 59
  int second = 0;   ///< 0 to 60
  int weekday = 4;  ///< 0 (Sunday) to 6 (Saturday)
};

class VELLUMARK_API Platform {
 public:
  Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  Platform(Platform&&) = delete;
  Platform& operator=(Platform&&) = delete;

  /// Closes every file that is still open, keeping what was written to it so far.
  virtual ~Platform() = default;

  /// Creates the file `name` (UTF-8) for writing, always anew: an existing file loses its content.
  /// No sharing: while it is open, creating it again fails and leaves it as it is. On failure the
  /// result is FileHandle::Invalid and `error` says why; memory shortage, here and in the next two,
  /// is std::errc::not_enough_memory.
  virtual FileHandle CreateOutput(std::string_view name, std::error_code& error) = 0;

  /// Writes all of `bytes`: in a classic document one whole line with its line end, in a conforming
  /// one as many as lie together in memory. The text of a picture comes in several pieces. The
  /// platform may hold the bytes back until CloseOutput. An error may be returned by this call or a
  /// later one; a file that once failed keeps failing. Writing to FileHandle::Invalid returns an
  /// error and does nothing else.
  virtual std::error_code WriteOutput(FileHandle file, std::string_view bytes) = 0;

  /// Writes what was held back and closes the file. The handle is gone after an error too.
  virtual std::error_code CloseOutput(FileHandle file) = 0;

  /// Decodes the picture file `file` (UTF-8), a BMP, GIF, JPG or PNG by its content, into `bitmap`.
  /// On failure the result is false, `bitmap` is empty and `reason` says why in a few words, such
  /// as "No such file or directory" or "the pixel data is cut off". Must not wait for anything but
  /// a disk. Memory shortage is std::bad_alloc, here and in the next two.
  virtual bool DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) = 0;

  /// Reads the bytes of the picture file `file` as they are, for a format that takes the file
  /// itself, and those of a font file. Finds the file that DecodePicture finds; what it holds is
  /// not looked at. On failure the result is false, `bytes` is empty and `reason` says why. A
  /// platform without an implementation of its own refuses every file.
  virtual bool ReadPicture(std::string_view /*file*/, std::vector<std::uint8_t>& bytes,
                           std::string& reason) {
    bytes.clear();
    reason = "this platform does not read picture files";
    return false;
  }

  /// Decodes a picture file that lies in memory, with the results of DecodePicture. A platform
  /// without an implementation of its own refuses every picture.
  virtual bool DecodePictureBytes(std::span<const std::uint8_t> /*bytes*/, Bitmap& bitmap,
                                  std::string& reason) {
    bitmap = {};
    reason = "this platform does not decode pictures from memory";
    return false;
  }

  /// Shows the notice that a document gives of its construction. A platform without a message box
  /// must not block a host that has no one to look at it; the Windows one shows a box and waits,
  /// deliberately, until the user closes it.
  virtual void ShowNotice(std::string_view text, std::string_view caption) = 0;

  /// The present local date and time.
  virtual LocalTime Now() = 0;

  /// Converts UTF-8 to the system's single-byte code page, one byte per character; a character that
  /// the code page lacks, also one beyond U+FFFF, becomes one "?". The result lies in `utf8` itself
  /// or in `storage`, and is valid as long as both stay as they are.
  virtual std::string_view ToCodePage(std::string_view utf8, std::string& storage) = 0;

  /// Glyph-width resource 101 to 110: 256 unsigned 16-bit little-endian advance widths in 1/1000
  /// em, by character code. Empty for any other number.
  virtual std::span<const std::uint8_t> WidthResource(int number) = 0;

  /// The library's title, UTF-8: the caption of the notice.
  virtual std::string_view Title() = 0;

  /// The library's legal notice, UTF-8: the footer of every page, with "©" written as "(c)".
  virtual std::string_view LegalNotice() = 0;
};

}  // namespace vellumark
