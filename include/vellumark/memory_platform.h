// SPDX-License-Identifier: MIT
//
// MemoryPlatform: a platform whose files are byte buffers, for web servers and for tests.
//
//     auto memory = std::make_shared<vellumark::MemoryPlatform>();
//     vellumark::PDF doc(memory);
//     doc.Create("page.pdf"); ... doc.Flush();
//     Send(memory->TakeFile("page.pdf"));
//
// Names are any bytes. CreateOutput and PutFile make a file. As on any platform, it cannot be
// created again while it is open; a document destroyed without Flush leaves it open for good. A
// picture is looked for among these files first and then among the system's. Notices are kept and
// shown to nobody. The clock is the system's until SetTime stops it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <vellumark/portable_platform.h>

namespace vellumark {

class VELLUMARK_API MemoryPlatform : public PortablePlatform {
 public:
  /// The bytes of a file, which may still be open; null if there is none of that name.
  [[nodiscard]] const std::string* File(std::string_view name) const;

  /// Moves a file's bytes out and forgets it; empty if there is none or it is still open.
  [[nodiscard]] std::string TakeFile(std::string_view name);

  /// Makes a file, such as a picture, of bytes that the host has. A file that is open stays as it
  /// is.
  void PutFile(std::string_view name, std::string bytes);

  /// From now on Now() returns this moment.
  void SetTime(const LocalTime& time) { time_ = time; }

  /// Every notice shown so far, as "caption: text".
  [[nodiscard]] const std::vector<std::string>& Notices() const noexcept { return notices_; }

  FileHandle CreateOutput(std::string_view name, std::error_code& error) override;
  std::error_code WriteOutput(FileHandle file, std::string_view bytes) override;
  std::error_code CloseOutput(FileHandle file) override;
  bool DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) override;
  bool ReadPicture(std::string_view file, std::vector<std::uint8_t>& bytes,
                   std::string& reason) override;
  void ShowNotice(std::string_view text, std::string_view caption) override;
  LocalTime Now() override;

 private:
  struct MemoryFile {
    std::string bytes;
    std::error_code error;  // the first since it was opened
    bool open = false;
  };

  MemoryFile* FindOpen(FileHandle file) noexcept;

  std::map<std::string, MemoryFile, std::less<>> files_;
  std::vector<MemoryFile*> handles_;  // indexed by handle; null once closed
  std::optional<LocalTime> time_;
  std::vector<std::string> notices_;
};

}  // namespace vellumark
