#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks what compilers and formatters do not see.

- Includes run one way between the rooms of the house, and start from the root of the tree; public
  headers are included as <vellumark/...>, and include nothing else of the tree.
- Hosts (the command-line host and the examples) include public headers and their own room only.
- The core uses the C++ standard library only, and nothing of it that writes to standard output;
  Windows, Python and the picture libraries are known in their rooms only.
- Every header compiles alone; those that need Windows with the cross compiler, if there is one.
- Every source has an SPDX line first, and every file at most 500 lines.
- Words are spelled the American way, and some turns of phrase that stumble do not come back.
- Each oddity of document/oddities.h is told in docs/output.md and has a test of its name, Oddity...;
  the test behind it is that of the conforming output, Conforming....
- Each promise of docs/reliability.md has a test, which exists.
- Relative links of the documents, and the paths that ARCHITECTURE.md names, lead somewhere.
"""
import concurrent.futures
import functools
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# A room may include itself and every room of a lower floor; rooms of one floor do not know each
# other.
FLOORS = [
    ["include"],
    ["encoding", "platform"],
    ["layout"],
    ["fonts", "document"],
    ["pdf", "ps"],
    ["api"],
    ["automation"],
    ["python", "tools", "examples", "bench"],
    ["fuzz"],
    ["tests"],
]
HOSTS = ("tools", "examples")
CORE = ("encoding", "layout", "document", "pdf", "ps")
LONGEST_FILE = 500
WINDOWS_HEADER = re.compile(r"automation/server/|(platform|include/vellumark)/windows_(?!1252)|tests/windows/")
# Who may include the headers of other libraries.
KNOWN_IN = [
    (re.compile(r"(jpeglib|jerror|gif_lib|png)\.h"), ("platform/", "bench/")),
    (re.compile(r"(hb|hb-.*|fribidi|linebreak|thai/.*)\.h"), ("fonts/",)),
    (re.compile(r"(fontconfig/.*)\.h"), ("tools/",)),
    (re.compile(r"(pybind11/.*|Python\.h)"), ("python/",)),
    (re.compile(r"(windows|unknwn|objbase|ole.*|oa.*|wincodec)\.h"),
     ("platform/windows_", "tools/windows_", "automation/server/", "tests/windows/", "fuzz/invoke_fuzz.cpp",
      "fuzz/automation_runtime/")),
]
WINDOWS_COMPILER = "x86_64-w64-mingw32-g++-posix"

STANDARD = set("""algorithm any array bit bitset cerrno cfloat charconv chrono climits cmath compare
concepts cstddef cstdint cstdlib cstring ctime deque exception functional
initializer_list iomanip iosfwd iterator limits list locale map memory mutex new numbers numeric
optional ostream queue random set span sstream stdexcept string string_view system_error tuple
type_traits unordered_map unordered_set utility variant vector""".split())
# What codespell takes for a misspelling: names of the formats and interfaces, text of tests.
SPELLED_WELL = "atleast,countr,exced,flate,nd,nin,ot,paeth,te,titel,unknwn,wee"
# British forms that codespell does not list or does not see inside a longer name.
BRITISH = re.compile(
    r"colour|centre|grey|neighbour|behaviour|favour|licence|catalogue|labell|whilst|amongst|towards"
    r"|(cancell|travell|modell)(ed|ing)"
    r"|(optim|minim|maxim|normal|initial|final|recogn|organ|serial|visual)"
    r"is(e|ed|es|ing|ation)(?![a-z])",
    re.IGNORECASE)
# Functions return, and "is not a" reads more easily than "is no".
STUMBLES = re.compile(
    r"\banswers?:? (true|false|whether|nothing)\b"
    r"|(?<!there )\b(is|are) no (?!longer|more|less|larger|greater|smaller|wider|higher)[a-z]+",
    re.IGNORECASE)
NOT_TEXT = re.compile(r"\.(bmp|gif|jpg|png|otf|ttf)$|^fuzz/corpus/|^tests/expected/")
OWN_WORDS = "scripts/lint.py"  # which names what it looks for
# Their pages are compared byte for byte with those of earlier versions: the words in quotes stay.
PRINTED_AS_BEFORE = ("examples/gallery_pages.h", "examples/gallery_pictures.h")
GENERATED = ("docs/reference.md", "docs/gallery.md")  # may have more lines than a file that somebody writes

# Oddities of PostScript whose tests in tests/ps have names of their own.
TESTED_IN_PS = {
    "FilesAreWithoutSetup": "OddityTheFileHasNoSetupAndEachMarkSpellsOutItsPen",
    "MarksAreSpelledOut": "OddityTheFileHasNoSetupAndEachMarkSpellsOutItsPen",
    "PageCommentsBeginWithTheCount": "OddityThePageCommentCountsFirstAndFollowsTheBackground",
    "PageCommentsFollowTheBackground": "OddityThePageCommentCountsFirstAndFollowsTheBackground",
    "OnlyTheFirstPageTurns": "OddityTheRotationStandsOnceAndMovesHeightFirst",
    "TextIsPasted": "OddityTextAndPropertiesAreNotEscaped",
    "LinesAreClosed": "OddityALineIsClosedAndNeverFilled",
    "DashesStayInForce": "OddityASolidLineDoesNotResetTheDash",
    "ArcsTurnAsOftenAsTold": "OddityAnArcTurnsAsOftenAsTold",
    "PictureDataIsOneLine": "OddityRunLengthEndsWithAMarkerOfItsOwn",
    "FailedCreatesForgetTheFile": "OddityACreateThatFailsForgetsTheOpenFile",
}

INTRINSICS = {"immintrin.h", "emmintrin.h", "tmmintrin.h", "arm_neon.h"}


def tracked(*patterns):
    listed = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", *patterns],
        cwd=ROOT, check=True, capture_output=True, text=True).stdout.split()
    return [path for path in listed if (ROOT / path).exists()]


def check_spelling(paths):
    """Faults in the words of text files, at most one a line from each of the two lists."""
    paths = [path for path in paths if path != OWN_WORDS]
    done = subprocess.run(
        ["codespell", "--builtin", "en-GB_to_en-US,clear,rare", "--regex", "[A-Za-z']+",
         "--ignore-words-list", SPELLED_WELL,
         *(path for path in paths if path not in PRINTED_AS_BEFORE)],
        cwd=ROOT, capture_output=True, text=True, check=False)
    yield from done.stdout.splitlines()
    if done.returncode not in (0, 65):  # 65: it found misspellings
        yield f"codespell: {done.stderr.strip()}"
    told = {line.split(": ")[0] for line in done.stdout.splitlines()}
    for path in paths:
        for number, line in enumerate((ROOT / path).read_text(encoding="utf-8").splitlines(), 1):
            if path in PRINTED_AS_BEFORE:
                line = re.sub(r'"[^"]*"', '""', line)
            british, stumble = BRITISH.search(line), STUMBLES.search(line)
            if british and f"{path}:{number}" not in told:
                yield f"{path}:{number}: \"{british[0]}\" is British"
            if stumble:
                yield f"{path}:{number}: say \"{stumble[0]}\" in plainer words"


@functools.cache
def headings(path):
    """The names by which links find the headings of a document, those that stand once."""
    text = re.sub(r"^```.*?^```", "", path.read_text(encoding="utf-8"), flags=re.S | re.M)
    return {re.sub(r"[^\w -]", "", title).strip().lower().replace(" ", "-")
            for title in re.findall(r"^#+ (.*)", text, re.MULTILINE)}


def check_links(path):
    """Links of a document to files of the tree, and to headings of documents, code aside."""
    text = re.sub(r"^```.*?^```", lambda code: "\n" * code[0].count("\n"),
                  (ROOT / path).read_text(encoding="utf-8"), flags=re.S | re.M)
    for number, line in enumerate(text.splitlines(), 1):
        for target, place in re.findall(r"\]\(([^)#\s]*)#?([^)\s]*)\)", re.sub(r"`[^`]*`", "", line)):
            there = (ROOT / path).parent / target if target else ROOT / path
            if ":" in target:
                continue
            if not there.exists():
                yield f"{path}:{number}: {target} does not exist"
            elif place and there.suffix == ".md" and place not in headings(there):
                yield f"{path}:{number}: {target} has no heading {place}"


def check_architecture(path):
    """Paths that begin with a room, and the file names beside a room in the table of rooms."""
    rooms = [room for floor in FLOORS for room in floor] + ["cmake", "docs", "scripts"]
    a_path = re.compile(rf"(?<![\w/.])(?:{'|'.join(rooms)})/[\w./-]*\w")
    for number, line in enumerate((ROOT / path).read_text(encoding="utf-8").splitlines(), 1):
        named = a_path.findall(line)
        row = re.match(r"\| ((?:`[\w/]+/`(?:, )?)+) \|", line)
        if row:
            inside = re.findall(r"`([\w/]+)/`", row[1])
            named += re.findall(r"`(?:" + "|".join(inside) + r")/[\w/.]+`", line)
            for name in re.findall(r"`([a-z][a-z0-9_]*(?:\.(?:h|cpp|py))?)`", line):
                if not any(True for room in inside for _ in (ROOT / room).rglob(f"{name}*")):
                    yield f"{path}:{number}: {inside[0]}/ has no file {name}"
        for name in named:
            name = name.strip("`")
            if not (ROOT / name).exists() and not any(ROOT.glob(f"{name}.*")):
                yield f"{path}:{number}: {name} does not exist"


def check_oddities():
    names = re.findall(r"constexpr bool (\w+)\(\) const",
                       (ROOT / "document/oddities.h").read_text(encoding="utf-8"))
    told = (ROOT / "docs/output.md").read_text(encoding="utf-8")
    tests = {}  # each test's name, and that of the next one in its file
    for path in tracked("tests/*.cpp"):
        found = re.findall(r"^TEST\w*\(\w+,\s*(\w+)\)", (ROOT / path).read_text(encoding="utf-8"),
                           flags=re.M)
        tests.update(zip(found, [*found[1:], ""]))
    for name in names:
        if f"`{name}`" not in told:
            yield f"docs/output.md: nothing about {name} of document/oddities.h"
        if TESTED_IN_PS.get(name, f"Oddity{name}") not in tests:
            yield f"document/oddities.h: no test Oddity{name}"
        elif name not in TESTED_IN_PS and not tests[f"Oddity{name}"].startswith("Conforming"):
            yield f"document/oddities.h: no test Conforming... behind Oddity{name}"


def check_promises(path):
    """The tests that a document of promises names: `Suite.Test`, `some_test.py: test_name`, or the
    name of a test in tests/CMakeLists.txt or of a fuzz target."""
    suites = set()
    for each in tracked("tests/*.cpp"):
        suites.update(f"{suite}.{name}" for suite, name in re.findall(
            r"^(?:TYPED_)?TEST\w*\((\w+),\s*(\w+)\)", (ROOT / each).read_text(encoding="utf-8"), flags=re.M))
    made = (ROOT / "tests/CMakeLists.txt").read_text(encoding="utf-8")
    suites.update(re.findall(r"add_test\(NAME ([\w.]+)", made))
    made = (ROOT / "fuzz/CMakeLists.txt").read_text(encoding="utf-8")
    suites.update("Fuzz." + name for name in re.findall(r"^ *vellumark_fuzz_target\((\w+)", made, flags=re.M))
    scripts = {pathlib.PurePath(each).name: (ROOT / each).read_text(encoding="utf-8")
               for each in tracked("tests/*.py")}
    for number, line in enumerate((ROOT / path).read_text(encoding="utf-8").splitlines(), 1):
        if not line.startswith("| ") or line.startswith("| Promise"):
            continue
        named = re.findall(r"`([^`]+)`", line.rstrip(" |").split(" | ")[-1])
        if not named:
            yield f"{path}:{number}: a promise without a test"
        for name in named:
            script, _, test = name.partition(": ")
            if name not in suites and f"def {test or '-'}(" not in scripts.get(script, ""):
                yield f"{path}:{number}: there is no test {name}"


def floor_of(path):
    room = path.split("/")[0]
    for number, rooms in enumerate(FLOORS):
        if room in rooms:
            return number
    return None


def check_text(path):
    lines = (ROOT / path).read_text(encoding="utf-8").splitlines()
    if not lines or lines[0] != "// SPDX-License-Identifier: MIT":
        yield f"{path}:1: the first line is not the SPDX line"
    if path.endswith(".h") and "#pragma once" not in lines:
        yield f"{path}: no #pragma once"
    here, room = floor_of(path), path.split("/")[0]
    for number, line in enumerate(lines, 1):
        own = re.match(r'#include "([^"]+)"', line)
        system = re.match(r"#include <([^>]+)>", line)
        if system and system[1].startswith("vellumark/"):
            if not (ROOT / "include" / system[1]).exists():
                yield f"{path}:{number}: <{system[1]}> is not a public header"
            continue
        if own:
            there, other = floor_of(own[1]), own[1].split("/")[0]
            if there is None:
                yield f"{path}:{number}: {own[1]} is in no room"
            elif room == "include":
                yield f"{path}:{number}: a public header may not include {own[1]}"
            elif room in HOSTS and other != room:
                yield f"{path}:{number}: a host may not include {own[1]}"
            elif there > here or (there == here and other != room):
                yield f"{path}:{number}: {room} may not include {own[1]}"
        if system and room in CORE and system[1] not in STANDARD | INTRINSICS:
            yield f"{path}:{number}: the core may not include <{system[1]}>"
        for header, rooms in KNOWN_IN:
            if system and header.fullmatch(system[1]) and not path.startswith(rooms):
                yield f"{path}:{number}: only {', '.join(rooms)} may include <{system[1]}>"


def proven_by_the_build(sources):
    """Headers that a source of ./dev test includes before any other, so that it compiles only if they do."""
    for path in sources:
        if path.endswith(".cpp") and not path.startswith("bench/"):
            first = re.search(r'^#include [<"]([^>"]+)[>"]', (ROOT / path).read_text(), re.MULTILINE)
            if first:
                yield first[1]
                yield f"include/{first[1]}"


def check_compiles_alone(path):
    compiler = WINDOWS_COMPILER if WINDOWS_HEADER.match(path) else "g++"
    if compiler == WINDOWS_COMPILER and not shutil.which(compiler):
        return
    flags = ["-std=c++20", "-fsyntax-only", "-I", str(ROOT / "include"), "-Wall", "-Wextra", "-x", "c++"]
    if not path.startswith("include/"):
        flags += ["-I", str(ROOT)]
    if path.startswith("tests/"):
        flags += ['-DVELLUMARK_EXPECTED=""']
    if path.startswith("python/"):
        flags += ["-isystem", str(next(pathlib.Path("/usr/include").glob("python3.*")))]
    done = subprocess.run([compiler, *flags, "-include", str(ROOT / path), "/dev/null"],
                          capture_output=True, text=True, check=False)
    if done.returncode != 0:
        yield f"{path}: does not compile alone\n{done.stderr}"


def main():
    paths = tracked("*.h", "*.cpp")
    faults = [fault for path in paths for fault in check_text(path)]
    text = [path for path in tracked() if not NOT_TEXT.search(path)]
    for path in text:
        count = len((ROOT / path).read_text(encoding="utf-8").splitlines())
        if count > LONGEST_FILE and path not in GENERATED:
            faults.append(f"{path}: {count} lines; at most {LONGEST_FILE}")
    faults += check_spelling(text)
    faults += [fault for path in text if path.endswith(".md") for fault in check_links(path)]
    faults += check_architecture("ARCHITECTURE.md")
    faults += check_oddities()
    faults += check_promises("docs/reliability.md")
    proven = set(proven_by_the_build(paths))
    headers = [path for path in paths if path.endswith(".h") and path not in proven]
    with concurrent.futures.ThreadPoolExecutor() as pool:
        for found in pool.map(lambda path: list(check_compiles_alone(path)), headers):
            faults += found
    for fault in faults:
        print(fault, file=sys.stderr)
    print(f"lint: {len(paths)} sources, {len(text)} texts, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
