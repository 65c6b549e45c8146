# SPDX-License-Identifier: MIT
"""Libraries of the command-line host, built for Windows from the sources of Debian's packages.

    prefix = windows_libraries(pathlib.Path("build/windows-libraries"))    # include, lib, licenses

Each source package comes from where this machine's own packages come from, and apt checks its
signature. What was built is kept: a second call returns at once.
"""
import glob
import os
import pathlib
import re
import shutil

from release import ROOT, run

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


class Sources:
    """Source packages in a folder, by an apt of its own: the machine's lists may lack them."""

    def __init__(self, folder):
        self.folder = folder
        lists = folder / "apt"
        (lists / "state/lists/partial").mkdir(parents=True, exist_ok=True)
        (lists / "cache/archives/partial").mkdir(parents=True, exist_ok=True)
        sources = lists / "sources.list"
        sources.write_text("".join(self.entries()), encoding="utf-8")
        self.options = [word for option in (
            f"Dir::Etc::sourcelist={sources}", "Dir::Etc::sourceparts=-",
            f"Dir::State={lists}/state", "Dir::State::status=/var/lib/dpkg/status",
            f"Dir::Cache={lists}/cache", "APT::Sandbox::User=")
            for word in ("-o", option)]
        run("apt-get", *self.options, "update")

    @staticmethod
    def entries():
        """The machine's lists of packages as lists of source packages."""
        for name in ["/etc/apt/sources.list", *sorted(glob.glob("/etc/apt/sources.list.d/*"))]:
            path = pathlib.Path(name)
            if path.suffix not in (".list", ".sources") or not path.is_file():
                continue
            text = path.read_text(encoding="utf-8")
            for line in re.findall(r"^deb (.* (?:bookworm\S*) .*)$", text, re.MULTILINE):
                yield f"deb-src {line}\n"
            for part in text.split("\n\n"):
                fields = dict(re.findall(r"^([\w-]+): *(.*)$", part, re.MULTILINE))
                signed = fields.get("Signed-By")
                for suite in fields.get("Suites", "").split():
                    if suite.startswith("bookworm"):
                        options = f"[signed-by={signed}] " if signed else ""
                        yield f"deb-src {options}{fields['URIs']} {suite} main\n"

    def fetch(self, package):
        """The newest version; the one of the release if the place has it not yet."""
        try:
            run("apt-get", *self.options, "source", package, cwd=self.folder)
        except SystemExit:
            print(f"{package}: the newest version cannot be had; taking that of the release")
            run("apt-get", *self.options, "source", f"{package}/bookworm", cwd=self.folder)
        return next(path for path in self.folder.glob(f"{package}-*") if path.is_dir())


def build_project(source, prefix, options):
    build = source / "build-windows"
    run("cmake", "-G", "Ninja", "-S", source, "-B", build, f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}",
        "-DCMAKE_BUILD_TYPE=Release", f"-DCMAKE_INSTALL_PREFIX={prefix}",
        f"-DVELLUMARK_WINDOWS_LIBRARIES={prefix}", *options)
    run("cmake", "--build", build)
    run("cmake", "--install", build)


def build_giflib(source, prefix):
    compiler = "x86_64-w64-mingw32-gcc-posix"
    run(compiler, "-c", "-O2", *(f"{name}.c" for name in GIFLIB), cwd=source)
    run("x86_64-w64-mingw32-ar", "rcsD", prefix / "lib/libgif.a", *(f"{name}.o" for name in GIFLIB),
        cwd=source)
    shutil.copy(source / "gif_lib.h", prefix / "include")


def windows_libraries(folder):
    folder = folder.resolve()
    prefix = folder / "prefix"
    if prefix.exists():
        return prefix
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    sources = Sources(folder)
    part = folder / "part"
    (part / "licenses").mkdir(parents=True)
    (part / "include").mkdir()
    for package, options in PROJECTS.items():
        source = sources.fetch(package)
        build_project(source, part, options)
        shutil.copy(source / "debian" / "copyright", part / "licenses" / f"{package}.txt")
    # A header that an installed one asks for.
    built, = folder.glob("cmark-gfm-*/build-windows/src/config.h")
    shutil.copy(built, part / "include" / "cmark-gfm")
    source = sources.fetch("giflib")
    build_giflib(source, part)
    shutil.copy(source / "debian" / "copyright", part / "licenses" / "giflib.txt")
    shutil.copy("/usr/share/doc/libz-mingw-w64-dev/copyright", part / "licenses" / "zlib.txt")
    shutil.copytree(HEADERS_ONLY, part / "include" / "CLI")
    shutil.copy("/usr/share/doc/libcli11-dev/copyright", part / "licenses" / "cli11.txt")
    os.rename(part, prefix)
    return prefix


if __name__ == "__main__":
    print(windows_libraries(ROOT / "build" / "windows-libraries"))
