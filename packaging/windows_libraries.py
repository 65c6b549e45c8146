# SPDX-License-Identifier: MIT
"""Libraries built for Windows from the sources of Debian's packages.

    folder = windows_libraries(pathlib.Path("build/windows-libraries"))

    folder / "x64"          include and lib: the font libraries, and what the command-line host needs
    folder / "x86"          include and lib: the font libraries
    folder / "licenses"     of each a text

What was built is kept: a second call returns at once.
"""
import os
import pathlib
import shutil

from debian_sources import Sources
from release import ROOT, run
from windows_font_libraries import FontSources, build_font_libraries

TOOLCHAIN = ROOT / "cmake" / "toolchains" / "windows-x64.cmake"
# CMake projects, by source package, with their options; in the order in which they need each other.
PROJECTS = {
    "libjpeg-turbo": ["-DENABLE_SHARED=OFF", "-DWITH_TURBOJPEG=OFF", "-DREQUIRE_SIMD=OFF"],
    "libpng1.6": ["-DPNG_SHARED=OFF", "-DPNG_TESTS=OFF", "-DPNG_EXECUTABLES=OFF"],
    "utf8proc": ["-DBUILD_SHARED_LIBS=OFF"],
    "cmark-gfm": ["-DCMARK_SHARED=OFF", "-DCMARK_TESTS=OFF"],
}
GIFLIB = ["dgif_lib", "egif_lib", "gifalloc", "gif_err", "gif_hash", "openbsd-reallocarray"]
HEADERS_ONLY = "/usr/include/CLI"


def build_project(source, prefix, options):
    build = source / "build-windows"
    run("cmake", "-G", "Ninja", "-S", source, "-B", build, f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}",
        "-DCMAKE_BUILD_TYPE=Release", f"-DCMAKE_C_FLAGS=-ffile-prefix-map={source}=/{source.name}",
        f"-DCMAKE_INSTALL_PREFIX={prefix}", f"-DVELLUMARK_WINDOWS_LIBRARIES={prefix}", *options)
    run("cmake", "--build", build)
    run("cmake", "--install", build)


def build_giflib(source, prefix):
    compiler = "x86_64-w64-mingw32-gcc-posix"
    run(compiler, "-c", "-O2", *(f"{name}.c" for name in GIFLIB), cwd=source)
    run("x86_64-w64-mingw32-ar", "rcsD", prefix / "lib/libgif.a", *(f"{name}.o" for name in GIFLIB),
        cwd=source)
    shutil.copy(source / "gif_lib.h", prefix / "include")


def build_host_libraries(sources, prefix, licenses):
    (prefix / "include").mkdir(parents=True)
    for package, options in PROJECTS.items():
        source = sources.fetch(package)
        build_project(source, prefix, options)
        shutil.copy(source / "debian" / "copyright", licenses / f"{package}.txt")
    # A header that an installed one asks for.
    built, = sources.folder.glob("cmark-gfm-*/build-windows/src/config.h")
    shutil.copy(built, prefix / "include" / "cmark-gfm")
    source = sources.fetch("giflib")
    build_giflib(source, prefix)
    shutil.copy(source / "debian" / "copyright", licenses / "giflib.txt")
    shutil.copy("/usr/share/doc/libz-mingw-w64-dev/copyright", licenses / "zlib.txt")
    shutil.copytree(HEADERS_ONLY, prefix / "include" / "CLI")
    shutil.copy("/usr/share/doc/libcli11-dev/copyright", licenses / "cli11.txt")


def windows_libraries(folder):
    folder = folder.resolve()
    done = folder / "done"
    if done.exists():
        return done
    shutil.rmtree(folder, ignore_errors=True)
    part = folder / "part"
    (part / "licenses").mkdir(parents=True)
    sources = Sources(folder)
    build_host_libraries(sources, part / "x64", part / "licenses")
    font_sources = FontSources(sources)
    font_sources.copy_licenses(part / "licenses")
    for system in ("x64", "x86"):
        build_font_libraries(font_sources, system, part / system)
    os.rename(part, done)
    return done


if __name__ == "__main__":
    print(windows_libraries(ROOT / "build" / "windows-libraries"))
