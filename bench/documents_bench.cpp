// SPDX-License-Identifier: MIT
//
// documents_bench: how fast documents are written, in comparison with other libraries.
//
//     documents_bench [--quick] [--filter=REGEX]
//
// prints one table of ratios (report.h).
// Every ratio comes from contestants that took turns in this run (contest.h); do not compare
// numbers of different runs or machines. --quick takes a few seconds and shows little more than
// that everything works. The options of Google Benchmark work as well. A missed goal is shown in
// the table and does not change the exit status.
//
// All libraries write to a file in memory (/dev/shm), so that no disk is measured. Only Flush is
// also measured with a file in the directory for temporary files (TMPDIR, otherwise /tmp).
#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "bench/child_process.h"
#include "bench/contest.h"
#include "bench/document_writer.h"
#include "bench/flush.h"
#include "bench/report.h"
#include "bench/scratch_directory.h"

namespace vellumark::bench {
namespace {

constexpr int kTextPages = 40;
constexpr int kShapesOfEachKind = 700;
constexpr int kWrappedParagraphs = 100;
constexpr int kMeasuredLines = 20000;
constexpr int kPsTextPages = 50;
constexpr int kPsShapesOfEachKind = 1000;
constexpr int kJustifiedParagraphs = 50;  // a document has too few object numbers for 100

std::string Named(const char* name, const std::string& value) {
  return std::string(name).append(" ").append(value);
}

constexpr Goal AtLeast(double bound) { return {Goal::Kind::AtLeast, bound}; }
constexpr Goal AtMost(double bound) { return {Goal::Kind::AtMost, bound}; }

std::filesystem::path InMemory() {
  const std::filesystem::path shared_memory = "/dev/shm";
  return std::filesystem::is_directory(shared_memory) ? shared_memory
                                                      : std::filesystem::temp_directory_path();
}

/// The scratch directories, the report and the mode, which every benchmark needs.
struct Bench {
  SampleText text;
  ScratchDirectory scratch{InMemory()};
  ScratchDirectory disk{std::filesystem::temp_directory_path()};
  Report report;
  std::deque<std::string> titles;  // of the rows; they stay where they are
};

void Play(benchmark::State& state, Contest& contest) {
  for ([[maybe_unused]] const auto _ : state) contest.Round();
}

using WriteDocument = std::function<void(const DocumentWriter& writer, const char* path)>;

struct SpeedMeasure {
  const char* name;
  const char* title;
  int calls;
  WriteDocument write;
  Goal goal;  // against libharu
};

/// Calls per second over whole documents, in comparison with a peer.
void CompareSpeed(benchmark::State& state, Bench& bench, const SpeedMeasure& measure,
                  const DocumentWriter& ours, const DocumentWriter& peer, Goal goal) {
  const auto contestant = [&](const DocumentWriter& writer) -> Contest::Contestant {
    return [&, path = bench.scratch.File(writer.name)] {
      return Seconds([&] { measure.write(writer, path.c_str()); });
    };
  };
  Contest contest({contestant(ours), contestant(peer)});
  Play(state, contest);
  const std::string peer_rate = CallsPerSecond(measure.calls, contest.Value(1));
  bench.report.Keep({measure.title, CallsPerSecond(measure.calls, contest.Value(0)),
                     Named(peer.name, peer_rate), contest.Ratio(1, 0), goal});
}

/// Whether a call costs more in a long document than in one of ten pages.
void CompareLengths(benchmark::State& state, Bench& bench, const DocumentWriter& writer,
                    const char* title, int long_pages) {
  const std::string path = bench.scratch.File("text");
  const auto seconds_per_call = [&](int pages) {
    const double whole = Seconds([&] { writer.write_text(bench.text, pages, path.c_str()); });
    return whole / (pages * kLinesPerPage);
  };
  Contest contest(
      {[&] { return seconds_per_call(long_pages); }, [&] { return seconds_per_call(10); }});
  Play(state, contest);
  bench.report.Keep({title, Duration(contest.Value(0)),
                     Named("at 10 pages", Duration(contest.Value(1))), contest.Ratio(0, 1),
                     AtMost(1.2)});
}

/// Bytes of the same document, in comparison with a peer.
void CompareSizes(benchmark::State& state, Bench& bench, const SpeedMeasure& measure,
                  const DocumentWriter& ours, const DocumentWriter& peer, Goal goal) {
  const auto size = [&](const DocumentWriter& writer) {
    const std::string path = bench.scratch.File(writer.name);
    measure.write(writer, path.c_str());
    return static_cast<double>(std::filesystem::file_size(path));
  };
  double our_size = 0;
  double peer_size = 0;
  for ([[maybe_unused]] const auto _ : state) {
    our_size = size(ours);
    peer_size = size(peer);
  }
  const auto kilobytes = [](double bytes) {
    return std::to_string(static_cast<int>(bytes / 1000)) + " kB";
  };
  bench.report.Keep({std::string(measure.title).append(", bytes"), kilobytes(our_size),
                     Named(peer.name, kilobytes(peer_size)), our_size / peer_size, goal});
}

struct FlushMeasure {
  const char* name;
  const char* where;
  ScratchDirectory Bench::*directory;
  Goal goal;
};

void CompareFlush(benchmark::State& state, Bench& bench, const FlushMeasure& measure) {
  const std::string ours = (bench.*measure.directory).File("flushed");
  const std::string theirs = (bench.*measure.directory).File("written");
  SecondsToFlush(bench.text, ours);
  const FileLines lines(ours);
  Contest contest({[&] { return SecondsToFlush(bench.text, ours); },
                   [&] { return lines.SecondsToWrite(theirs); }});
  Play(state, contest);
  const std::string count = std::to_string(lines.Count());
  bench.report.Keep({Named("Flush of", Named(count.c_str(), measure.where)),
                     Duration(contest.Value(0)), Named("buffered", Duration(contest.Value(1))),
                     contest.Ratio(0, 1), measure.goal});
}

struct ProcessMeasure {
  const char* name;
  const char* title;
  int pages;
  bool memory;  // or time
  Goal goal;
};

/// A contestant of CompareProcesses: runs `program` once (writer_alone.cpp).
Contest::Contestant Process(const Bench& bench, const ProcessMeasure& measure,
                            const char* program) {
  return [=, &bench] {
    std::string peak_memory;
    const double seconds = Seconds([&] {
      peak_memory = RunChild(program, {std::to_string(measure.pages), bench.scratch.File(program)});
    });
    return measure.memory ? std::strtod(peak_memory.c_str(), nullptr) : seconds;
  };
}

/// Two of the programs that bench/CMakeLists.txt builds from writer_alone.cpp.
struct ProcessPair {
  const char* ours;
  const char* peer;
  const char* peer_name;
  const char* note;
  bool has_goal;
};

constexpr std::array<ProcessPair, 4> kProcessPairs = {{
    {"vellumark_alone", "haru_alone", "libharu", "", true},
    {"vellumark_alone", "haru_in_c_alone", "libharu from C", "", false},
    {"vellumark_static_alone", "haru_in_c_alone", "libharu from C", ", static", false},
    {"vellumark_alone", "cairo_alone", "cairo", "", false},
}};

/// Whole processes that load one library each and write one document.
void CompareProcesses(benchmark::State& state, Bench& bench, const ProcessMeasure& measure,
                      const ProcessPair& pair) {
  Contest contest({Process(bench, measure, pair.ours), Process(bench, measure, pair.peer)});
  Play(state, contest);
  const auto text = measure.memory ? Memory : Duration;
  bench.report.Keep({std::string(measure.title).append(pair.note), text(contest.Value(0)),
                     Named(pair.peer_name, text(contest.Value(1))), contest.Ratio(0, 1),
                     pair.has_goal ? measure.goal : Goal{}});
}

std::vector<SpeedMeasure> SpeedMeasures(const SampleText& text) {
  return {
      {"text", "text, 40 pages x 40 lines", kTextPages * kLinesPerPage,
       [&](const auto& writer, const char* path) { writer.write_text(text, kTextPages, path); },
       AtLeast(2.0)},
      {"shapes", "700 rectangles, 700 circles", 2 * kShapesOfEachKind,
       [](const auto& writer, const char* path) { writer.write_shapes(kShapesOfEachKind, path); },
       AtLeast(1.8)},
      {"wrapped", "100 paragraphs of 200 words, wrapped", kWrappedParagraphs,
       [&](const auto& writer, const char* path) {
         writer.write_wrapped(text, kWrappedParagraphs, path);
       },
       AtLeast(1.4)},
      {"justified",
       "50 paragraphs of 200 words, justified",
       kJustifiedParagraphs,
       [&](const auto& writer, const char* path) {
         writer.write_justified(text, kJustifiedParagraphs, path);
       },
       {}},
  };
}

/// What conforming output has to reach against libharu, without and with compression.
struct ConformingGoals {
  const char* name;  // of a SpeedMeasure
  Goal speed;
  Goal size;
  Goal compressed_speed;
  Goal compressed_size;
};

constexpr std::array<ConformingGoals, 4> kConformingGoals = {{
    {"text", AtLeast(8), AtMost(1), AtLeast(1.5), AtMost(1.02)},
    {"shapes", AtLeast(4.5), AtMost(1), AtLeast(1.5), AtMost(1.02)},
    {"wrapped", AtLeast(4), AtMost(1), AtLeast(1.5), AtMost(1.02)},
    {"justified", AtLeast(2), AtMost(3), AtLeast(1.5), {}},
}};

struct PostScriptMeasure {
  SpeedMeasure measure;
  const DocumentWriter* peer;
  Goal goal;
};

std::vector<PostScriptMeasure> PostScriptMeasures(const SampleText& text) {
  const SpeedMeasure written = {
      "text",
      "PostScript text, 50 pages x 40 lines",
      kPsTextPages * kLinesPerPage,
      [&](const auto& writer, const char* path) { writer.write_text(text, kPsTextPages, path); },
      {}};
  const SpeedMeasure drawn = {
      "shapes",
      "PostScript, 1000 rectangles and circles",
      2 * kPsShapesOfEachKind,
      [](const auto& writer, const char* path) { writer.write_shapes(kPsShapesOfEachKind, path); },
      {}};
  return {{written, &CairoPs(), AtLeast(25)},
          {written, &Haru(), AtLeast(1.5)},
          {drawn, &CairoPs(), AtLeast(35)}};
}

void Register(Bench& bench) {
  const auto add = [](const std::string& name, auto run) {
#ifndef __clang_analyzer__  // it reports memory that the benchmark library keeps as a leak
    benchmark::RegisterBenchmark(name.c_str(), std::move(run))->UseRealTime();
#endif
  };
  for (const SpeedMeasure& measure : SpeedMeasures(bench.text)) {
    const std::string name = measure.name;
    add(name + "/libharu", [&bench, measure](auto& state) {
      CompareSpeed(state, bench, measure, Vellumark(), Haru(), measure.goal);
    });
    if (name == "justified") continue;  // cairo cannot justify
    add(name + "/cairo", [&bench, measure](auto& state) {
      CompareSpeed(state, bench, measure, Vellumark(), Cairo(), {});
    });
  }
  for (const SpeedMeasure& classic : SpeedMeasures(bench.text)) {
    const auto goals = *std::find_if(
        kConformingGoals.begin(), kConformingGoals.end(),
        [&](const auto& goal) { return std::string_view(goal.name) == classic.name; });
    const auto named = [&](const char* kind) {
      SpeedMeasure measure = classic;
      measure.title = bench.titles.emplace_back(std::string(kind) + classic.title).c_str();
      return measure;
    };
    const std::string name = classic.name;
    add("conforming_" + name, [&bench, goals, measure = named("conforming ")](auto& state) {
      CompareSpeed(state, bench, measure, VellumarkUncompressed(), Haru(), goals.speed);
    });
    add("conforming_size_" + name, [&bench, goals, measure = named("conforming ")](auto& state) {
      CompareSizes(state, bench, measure, VellumarkUncompressed(), Haru(), goals.size);
    });
    add("compressed_" + name, [&bench, goals, measure = named("compressed ")](auto& state) {
      CompareSpeed(state, bench, measure, VellumarkCompressed(), HaruCompressed(),
                   goals.compressed_speed);
    });
    add("compressed_size_" + name, [&bench, goals, measure = named("compressed ")](auto& state) {
      CompareSizes(state, bench, measure, VellumarkCompressed(), HaruCompressed(),
                   goals.compressed_size);
    });
  }
  for (const auto& [name, title, writer] :
       {std::tuple{"measure", "TextWidth of 70 characters", &Vellumark},
        std::tuple{"conforming_measure", "conforming TextWidth of 70 characters",
                   &VellumarkUncompressed}}) {
    const SpeedMeasure measure = {name, title, kMeasuredLines,
                                  [&bench](const auto& library, const char* path) {
                                    library.measure_lines(bench.text, kMeasuredLines, path);
                                  },
                                  AtLeast(1.0)};
    add(name, [&bench, measure, writer = writer](auto& state) {
      CompareSpeed(state, bench, measure, writer(), Haru(), measure.goal);
    });
  }
  for (const auto& [measure, peer, goal] : PostScriptMeasures(bench.text)) {
    add(std::string("ps_").append(measure.name).append("/").append(peer->name),
        [&bench, measure = measure, peer = peer, goal = goal](auto& state) {
          CompareSpeed(state, bench, measure, VellumarkPs(), *peer, goal);
        });
  }
  const SpeedMeasure embedded = {"embedded",
                                 "embedded font, 40 pages x 40 lines",
                                 kTextPages * kLinesPerPage,
                                 [&bench](const auto& writer, const char* path) {
                                   writer.write_text(bench.text, kTextPages, path);
                                 },
                                 {}};
  add("embedded_text", [&bench, embedded](auto& state) {
    CompareSpeed(state, bench, embedded, VellumarkEmbedded(), CairoEmbedded(), AtLeast(4));
  });
  add("embedded_size", [&bench, embedded](auto& state) {
    CompareSizes(state, bench, embedded, VellumarkEmbedded(), CairoEmbedded(), AtMost(1));
  });
  add("ps_length", [&bench](auto& state) {
    CompareLengths(state, bench, VellumarkPs(), "PostScript, per call at 300 pages", 300);
  });
  add("length", [&bench](auto& state) {
    CompareLengths(state, bench, Vellumark(), "time per call at 40 pages, to 10", 40);
  });
  const std::vector<FlushMeasure> flush_measures = {
      {"flush", "lines to a file", &Bench::disk, AtMost(1.5)},
      {"flush_in_memory", "lines in memory", &Bench::scratch, {}}};
  for (const FlushMeasure& measure : flush_measures) {
    add(measure.name, [&bench, measure](auto& state) { CompareFlush(state, bench, measure); });
  }
  const std::vector<ProcessMeasure> process_measures = {
      {"memory", "peak memory, 40 pages x 40 lines", kTextPages, true, AtMost(1.1)},
      {"start", "process start to one finished page", 1, false, AtMost(1.0)}};
  for (const ProcessMeasure& measure : process_measures) {
    for (const ProcessPair& pair : kProcessPairs) {
      add(std::string(measure.name).append(pair.note).append("/").append(pair.peer_name),
          [&bench, measure, pair](auto& state) { CompareProcesses(state, bench, measure, pair); });
    }
  }
}

/// Our options as options of the benchmark library.
std::vector<std::string> TranslateOptions(int argc, char** argv) {
  std::vector<std::string> options = {argv[0], "--benchmark_min_time=1.5"};
  for (int i = 1; i < argc; ++i) {
    const std::string_view option = argv[i];
    if (option == "--quick") {
      options.emplace_back("--benchmark_min_time=0.1");
    } else if (option.starts_with("--filter=")) {
      options.push_back(std::string("--benchmark_").append(option.substr(2)));
    } else {
      options.emplace_back(option);
    }
  }
  return options;
}

int Run(int argc, char** argv) {
  std::vector<std::string> options = TranslateOptions(argc, argv);
  std::vector<char*> pointers;
  pointers.reserve(options.size());
  for (std::string& option : options) pointers.push_back(option.data());
  int count = static_cast<int>(pointers.size());
  benchmark::Initialize(&count, pointers.data());
  if (benchmark::ReportUnrecognizedArguments(count, pointers.data())) return 2;
  // Each document writes a notice to standard error.
  if (std::freopen("/dev/null", "w", stderr) == nullptr) return EXIT_FAILURE;

  Bench bench;
  Register(bench);
  benchmark::RunSpecifiedBenchmarks(&bench.report);
  benchmark::Shutdown();
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace vellumark::bench

int main(int argc, char** argv) { return vellumark::bench::Run(argc, argv); }
