// SPDX-License-Identifier: MIT
#include <windows.h>

#include "platform/windows_file.h"
#include "tests/windows/facts.h"

namespace vellumark::tests {
namespace {

void CheckSharing(Facts& facts) {
  const TemporaryFile file("sharing.pdf");
  file.Put("an old file with more bytes than the new one");
  QuietPlatform platform;
  std::error_code error;
  const FileHandle handle = platform.CreateOutput(file.Name(), error);
  facts.Check("a file is created anew", handle != FileHandle::Invalid && !error, error.message());
  platform.WriteOutput(handle, "first\r\n");

  QuietPlatform other;
  const bool refused = other.CreateOutput(file.Name(), error) == FileHandle::Invalid;
  facts.Check("a file that is open is refused",
              refused && error == std::error_code(ERROR_SHARING_VIOLATION, std::system_category()),
              error.message());
  facts.Check("a file that is open cannot be read", file.Bytes().empty(), file.Bytes());

  platform.WriteOutput(handle, "second\r\n");
  error = platform.CloseOutput(handle);
  facts.Check("it holds what was written, and nothing older",
              !error && file.Bytes() == "first\r\nsecond\r\n", file.Bytes());
  facts.Check("a closed file takes nothing more",
              platform.WriteOutput(handle, "x") && platform.CloseOutput(handle) &&
                  platform.WriteOutput(FileHandle::Invalid, "x"));
}

void CheckFailures(Facts& facts) {
  QuietPlatform platform;
  const TemporaryFile cut("cut");
  std::string name = cut.Name();
  name.append(1, '\0').append(".pdf");
  const TemporaryFile folder("no_folder");
  const std::string greek = cut.Name() + "\xCE\xA9\xF0\x9F\x98\x80";
  for (const auto& [what, refused] : {std::pair<const char*, std::string>{"a NUL", name},
                                      {"a missing folder", folder.Name() + "/a.pdf"},
                                      {"no characters", ""},
                                      {"a character the code page lacks", greek},
                                      {"too many characters", std::string(200000, 'a')}}) {
    std::error_code error;
    const FileHandle handle = platform.CreateOutput(refused, error);
    facts.Check(std::string("a name with ").append(what).append(" is refused"),
                handle == FileHandle::Invalid && error, error.message());
  }
  facts.Check("no other file was made", !std::filesystem::exists(cut.Name()));

  HANDLE reader = nullptr;
  HANDLE writer = nullptr;
  CreatePipe(&reader, &writer, nullptr, 0);
  platform::WindowsFile pipe(writer);
  CloseHandle(reader);
  const std::error_code error = pipe.Write(std::string(70000, 'x'));  // more than is held back
  facts.Check("a failed write is reported, and reported again by the close",
              error && pipe.Write("") == error && pipe.Close() == error, error.message());
}

void CheckAbandoned(Facts& facts) {
  const TemporaryFile file("abandoned.pdf");
  {
    QuietPlatform platform;
    std::error_code error;
    platform.WriteOutput(platform.CreateOutput(file.Name(), error), "so far\r\n");
  }
  facts.Check("the platform closes what is still open", file.Bytes() == "so far\r\n", file.Bytes());
}

}  // namespace

void CheckOutput(Facts& facts) {
  CheckSharing(facts);
  CheckFailures(facts);
  CheckAbandoned(facts);
}

}  // namespace vellumark::tests
