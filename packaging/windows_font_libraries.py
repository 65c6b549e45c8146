# SPDX-License-Identifier: MIT
"""The libraries behind LoadFont, built for Windows as static libraries with files for pkg-config.

    build_font_libraries(FontSources(Sources(folder)), "x86", prefix)    # include, lib

They are Debian 12's: HarfBuzz and FriBidi with its patches, libthai and libdatrie as their authors
released them. Of libunibreak it has version 1.1, of 2013, but not every place that has its packages
has that one's source: here it is version 6.1, of Debian 13, as its authors released it.
"""
import concurrent.futures
import pathlib
import re
import shutil

from debian_sources import Sources
from release import ROOT, run

COMPILERS = {"x64": "x86_64-w64-mingw32", "x86": "i686-w64-mingw32"}
# As cmake/Compiler.cmake: floats in the processor's own precision.
OPTIONS = {"x64": ["-ffp-contract=off"], "x86": ["-ffp-contract=off", "-msse2", "-mfpmath=sse"]}
DICTIONARY = ROOT / "packaging" / "thai_dictionary"
UNIBREAK = ["linebreak", "linebreakdata", "linebreakdef", "unibreakbase", "unibreakdef",
            "eastasianwidthdata", "eastasianwidthdef", "emojidata", "emojidef"]
# The license of each, by the package that has it on this machine if its source does not.
LICENSES = {"harfbuzz": None, "fribidi": None, "libunibreak": "libunibreak-dev",
            "libthai": "libthai-dev", "libdatrie": "libdatrie-dev"}


class FontSources:
    """The sources of all five, unpacked in a folder."""

    def __init__(self, sources):
        other = sources.folder / "trixie"
        other.mkdir()
        self.harfbuzz = sources.fetch("harfbuzz")
        self.fribidi = sources.fetch("fribidi")
        self.libdatrie = sources.fetch_authors_part("libdatrie")
        self.libthai = sources.fetch_authors_part("libthai")
        self.libunibreak = Sources(other, "trixie").fetch_authors_part("libunibreak")

    def copy_licenses(self, folder):
        for name, package in LICENSES.items():
            own = getattr(self, name) / "debian" / "copyright"
            path = pathlib.Path("/usr/share/doc", package, "copyright") if package else own
            shutil.copy(path, folder / f"{name}.txt")
        # Debian's files name this one, which every Debian has in its own place.
        shutil.copy("/usr/share/common-licenses/LGPL-2.1", folder / "LGPL-2.1.txt")


class Library:
    """A static library of C or C++ sources below `source`, one compiler run each."""

    def __init__(self, system, source, prefix):
        self.compiler = COMPILERS[system]
        self.options = ["-O2", *OPTIONS[system],
                        f"-ffile-prefix-map={source}=/{source.name}"]
        self.source = source
        self.prefix = prefix
        self.objects = prefix / "objects" / source.name

    def build(self, name, files, *options):
        self.objects.mkdir(parents=True)

        def compile_one(number, file):
            program = "g++" if file.endswith(".cc") else "gcc"
            built = self.objects / f"{number}.o"
            run(f"{self.compiler}-{program}-posix", "-c", *self.options, *options, file, "-o", built,
                cwd=self.source)
            return built

        with concurrent.futures.ThreadPoolExecutor() as pool:
            built = list(pool.map(compile_one, range(len(files)), files))
        run(f"{self.compiler}-ar", "rcsD", self.prefix / "lib" / f"lib{name}.a", *built)

    def headers(self, folder, pattern):
        target = self.prefix / "include" / folder
        target.mkdir(parents=True, exist_ok=True)
        for path in self.source.glob(pattern):
            shutil.copy(path, target)


def write_package_file(prefix, name, version, libraries, folder=""):
    path = prefix / "lib" / "pkgconfig" / f"{name}.pc"
    path.parent.mkdir(exist_ok=True)
    path.write_text(f"Name: {name}\nDescription: {name} for Windows\nVersion: {version}\n"
                    f"Cflags: -I${{pcfiledir}}/../../include/{folder}\n"
                    f"Libs: -L${{pcfiledir}}/.. {libraries}\n", encoding="utf-8")


def build_harfbuzz(system, source, prefix):
    version = re.search(r"project\('harfbuzz'.*?version: '([\d.]+)'",
                        (source / "meson.build").read_text(encoding="utf-8"), re.DOTALL)[1]
    library = Library(system, source, prefix)
    # This file has all of the library and its subsetter. HAVE_ATEXIT: what it keeps goes with the DLL.
    library.build("harfbuzz", ["src/harfbuzz-subset.cc"], "-std=c++11", "-fno-exceptions", "-fno-rtti",
                  "-DNDEBUG", "-DHAVE_ATEXIT")
    library.headers("harfbuzz", "src/hb*.h")
    for name in ("harfbuzz", "harfbuzz-subset"):
        write_package_file(prefix, name, version, "-lharfbuzz", "harfbuzz")


def build_fribidi(system, source, prefix):
    version = re.search(r"version: '([\d.]+)'",
                        (source / "meson.build").read_text(encoding="utf-8"))[1]
    major, minor, micro = version.split(".")
    facts = {"PACKAGE": "fribidi", "PACKAGE_NAME": "GNU FriBidi", "FRIBIDI_VERSION": version,
             "FRIBIDI_MAJOR_VERSION": major, "FRIBIDI_MINOR_VERSION": minor,
             "FRIBIDI_MICRO_VERSION": micro, "FRIBIDI_INTERFACE_VERSION": "4", "SIZEOF_INT": "4"}
    config = (source / "lib" / "fribidi-config.h.in").read_text(encoding="utf-8")
    config = re.sub(r"@(\w+)@", lambda match: facts.get(match[1], ""), config)
    (source / "lib" / "fribidi-config.h").write_text(config, encoding="utf-8")
    library = Library(system, source, prefix)
    files = sorted(f"lib/{path.name}" for path in source.glob("lib/*.c"))
    library.build("fribidi", files, "-I", "lib", "-DHAVE_STRINGIZE=1", "-DHAVE_STDLIB_H=1",
                  "-DHAVE_STRING_H=1", "-DSTDC_HEADERS=1")
    library.headers("fribidi", "lib/fribidi*.h")
    write_package_file(prefix, "fribidi", version, "-lfribidi", "fribidi")


def build_libunibreak(system, source, prefix):
    library = Library(system, source, prefix)
    library.build("unibreak", [f"src/{name}.c" for name in UNIBREAK])
    for name in ("linebreak.h", "unibreakbase.h"):
        library.headers(".", f"src/{name}")
    write_package_file(prefix, "libunibreak", "6.1", "-lunibreak")


def build_libdatrie(system, source, prefix, dictionary):
    library = Library(system, source, prefix)
    memory_file = DICTIONARY / "memory_file.h"
    files = ["alpha-map", "darray", "dstring", "fileutils", "tail", "trie", "trie-string"]
    library.build("datrie", [f"datrie/{name}.c" for name in files], "-I", ".", "-DNDEBUG",
                  "-include", memory_file)
    words = library.objects / "words.o"
    run(f"{library.compiler}-gcc-posix", "-c", f'-DTHAI_WORDS="{dictionary}"', DICTIONARY / "words.S",
        "-o", words)
    run(f"{library.compiler}-ar", "rcsD", prefix / "lib" / "libdatrie.a", words)


def build_libthai(system, source, prefix, libdatrie):
    library = Library(system, source, prefix)
    files = sorted(str(path.relative_to(source)) for path in source.glob("src/*/*.c"))
    library.build("thai", files, "-I", "include", "-I", "src", "-I", libdatrie, "-DNDEBUG",
                  '-DDICT_DIR="the module"')
    library.headers("thai", "include/thai/*.h")
    write_package_file(prefix, "libthai", "0.1.29", "-lthai -ldatrie")


def build_font_libraries(sources, system, prefix):
    (prefix / "lib").mkdir(parents=True, exist_ok=True)
    build_harfbuzz(system, sources.harfbuzz, prefix)
    build_fribidi(system, sources.fribidi, prefix)
    build_libunibreak(system, sources.libunibreak, prefix)
    build_libdatrie(system, sources.libdatrie, prefix, "/usr/share/libthai/thbrk.tri")
    build_libthai(system, sources.libthai, prefix, sources.libdatrie)
    shutil.rmtree(prefix / "objects")
