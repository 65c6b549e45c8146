// SPDX-License-Identifier: MIT
//
// vellumark INPUT... -o OUTPUT.pdf: typesets text files in Markdown or as they stand.
//
// It reads, converts and then writes, so the output does not appear until the document is finished.
// The exit status is 0, 1 or 2; see docs/command-line.md.
#include <exception>
#include <iostream>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "tools/commit.h"
#include "tools/conversion.h"
#include "tools/failure.h"
#include "tools/options.h"
#include "tools/output_file.h"
#include "tools/program_begin.h"
#include "tools/source.h"

namespace {

constexpr int kIncomplete = 1;
constexpr int kFailed = 2;

int Run(const std::vector<const char*>& arguments) {
  using namespace vellumark::tools;
  const std::optional<Options> options =
      ParseOptions(static_cast<int>(arguments.size()), arguments.data(), VELLUMARK_COMMIT);
  if (!options) return 0;
  OutputFile output(options->output, options->inputs);
  std::vector<Source> sources;
  for (const std::string& input : options->inputs) {
    sources.push_back(ReadSource(input, options->kind));
  }
  const bool complete = Convert(sources, *options, output, std::cerr);
  output.Finish();
  return complete ? 0 : kIncomplete;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::vector<std::string> words = vellumark::tools::BeginProgram(argc, argv);
    std::vector<const char*> arguments;
    arguments.reserve(words.size());
    for (const std::string& word : words) arguments.push_back(word.c_str());
    return Run(arguments);
  } catch (const std::bad_alloc&) {
    std::cerr << "vellumark: out of memory\n";
  } catch (const std::exception& error) {
    std::cerr << "vellumark: " << error.what() << '\n';
  }
  return kFailed;
}
