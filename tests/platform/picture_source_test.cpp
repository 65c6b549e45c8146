// SPDX-License-Identifier: MIT
//
// Where a platform takes pictures from: files of the system, files in memory, bytes of the host's.
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include <vellumark/memory_platform.h>
#include <vellumark/posix_platform.h>

#include "tests/bmp_file.h"

namespace vellumark::tests {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr char kLandscape[] = VELLUMARK_PICTURES "/landscape.gif";

Bytes BytesOf(const std::string& text) { return {text.begin(), text.end()}; }

TEST(PictureSource, AFileIsReadAsItIsAndDecodedFromItsBytes) {
  PosixPlatform platform;
  Bytes bytes;
  std::string reason;
  ASSERT_TRUE(platform.ReadPicture(kLandscape, bytes, reason)) << reason;
  std::ifstream file(kLandscape, std::ios::binary);
  EXPECT_EQ(bytes, Bytes(std::istreambuf_iterator<char>(file), {}));
  Bitmap from_file, from_bytes;
  ASSERT_TRUE(platform.DecodePicture(kLandscape, from_file, reason)) << reason;
  ASSERT_TRUE(platform.DecodePictureBytes(bytes, from_bytes, reason)) << reason;
  EXPECT_EQ(from_bytes.pixels, from_file.pixels);

  EXPECT_FALSE(platform.ReadPicture(std::string(kLandscape) + ".no", bytes, reason));
  EXPECT_EQ(reason, "No such file or directory");
  EXPECT_TRUE(bytes.empty());
  EXPECT_FALSE(platform.DecodePictureBytes(bytes, from_bytes, reason));
  EXPECT_EQ(reason, "not a BMP, GIF, JPG or PNG file");
  EXPECT_TRUE(from_bytes.pixels.empty());
}

TEST(PictureSource, FilesInMemoryComeFirst) {
  MemoryPlatform memory;
  memory.PutFile(kLandscape, PlainBmp(3, 2));
  Bytes bytes;
  std::string reason;
  ASSERT_TRUE(memory.ReadPicture(kLandscape, bytes, reason));
  EXPECT_EQ(bytes, BytesOf(PlainBmp(3, 2)));
  Bitmap bitmap;
  ASSERT_TRUE(memory.DecodePicture(kLandscape, bitmap, reason));
  EXPECT_EQ(bitmap.width, 3);
  (void)memory.TakeFile(kLandscape);
  ASSERT_TRUE(memory.ReadPicture(kLandscape, bytes, reason));
  EXPECT_EQ(bytes.front(), 'G');
}

TEST(PictureSource, AFileInMemoryThatIsOpenIsLeftAlone) {
  MemoryPlatform memory;
  std::error_code error;
  const FileHandle file = memory.CreateOutput("a", error);
  ASSERT_FALSE(error);
  EXPECT_FALSE(memory.WriteOutput(file, "one"));
  memory.CreateOutput("a", error);
  EXPECT_EQ(error, std::errc::device_or_resource_busy);
  memory.PutFile("a", "two");
  EXPECT_EQ(memory.TakeFile("a"), "");
  EXPECT_FALSE(memory.CloseOutput(file));
  EXPECT_EQ(memory.CloseOutput(file), std::errc::bad_file_descriptor);
  EXPECT_EQ(memory.WriteOutput(file, "three"), std::errc::bad_file_descriptor);
  EXPECT_EQ(memory.WriteOutput(FileHandle::Invalid, "four"), std::errc::bad_file_descriptor);
  EXPECT_EQ(memory.WriteOutput(static_cast<FileHandle>(99), "five"),
            std::errc::bad_file_descriptor);
  EXPECT_EQ(memory.TakeFile("a"), "one");
  EXPECT_EQ(memory.TakeFile("a"), "");
}

TEST(PictureSource, TheGreatestPictureHoldsForFilesAndForBytes) {
  PosixPlatform platform;
  platform.SetGreatestPicture(94 * 62);
  Bytes bytes;
  Bitmap bitmap;
  std::string reason;
  ASSERT_TRUE(platform.ReadPicture(kLandscape, bytes, reason));
  for (const bool from_bytes : {false, true}) {
    EXPECT_FALSE(from_bytes ? platform.DecodePictureBytes(bytes, bitmap, reason)
                            : platform.DecodePicture(kLandscape, bitmap, reason));
    EXPECT_EQ(reason, "decoding its 94 x 62 pixels takes 5,952 bytes, but the limit is 5,828 bytes")
        << "a row takes 96 bytes";
  }
  platform.SetGreatestPicture(96 * 62);
  EXPECT_TRUE(platform.DecodePictureBytes(bytes, bitmap, reason)) << reason;
}

/// Finds one picture, in an archive of its own.
class ArchivePlatform final : public PosixPlatform {
 public:
  bool ReadPicture(std::string_view file, Bytes& bytes, std::string& reason) override {
    bytes = file == "logo" ? BytesOf(PlainBmp(5, 1)) : Bytes();
    reason = bytes.empty() ? "not in the archive" : "";
    return reason.empty();
  }
};

TEST(PictureSource, APlatformThatReadsElsewhereDecodesFromThere) {
  ArchivePlatform platform;
  Bitmap bitmap;
  std::string reason;
  EXPECT_TRUE(platform.DecodePicture("logo", bitmap, reason));
  EXPECT_EQ(bitmap.width, 5);
  EXPECT_FALSE(platform.DecodePicture(kLandscape, bitmap, reason));
  EXPECT_EQ(reason, "not in the archive");
  EXPECT_EQ(bitmap.width, 0);
}

/// A platform of a host that knows DecodePicture only.
class OlderPlatform final : public MemoryPlatform {
 public:
  bool ReadPicture(std::string_view file, Bytes& bytes, std::string& reason) override {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return Platform::ReadPicture(file, bytes, reason);
  }
  bool DecodePictureBytes(std::span<const std::uint8_t> bytes, Bitmap& bitmap,
                          std::string& reason) override {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return Platform::DecodePictureBytes(bytes, bitmap, reason);
  }
};

TEST(PictureSource, APlatformThatKnowsNeitherSaysSo) {
  OlderPlatform platform;
  Bytes bytes(3);
  Bitmap bitmap;
  bitmap.width = 7;
  std::string reason;
  EXPECT_FALSE(platform.DecodePictureBytes(bytes, bitmap, reason));
  EXPECT_EQ(reason, "this platform does not decode pictures from memory");
  EXPECT_EQ(bitmap.width, 0);
  EXPECT_FALSE(platform.ReadPicture(kLandscape, bytes, reason));
  EXPECT_EQ(reason, "this platform does not read picture files");
  EXPECT_TRUE(bytes.empty());
}

}  // namespace
}  // namespace vellumark::tests
