#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Builds a wheel of the present commit that carries the libraries it needs, with their licenses.

usage: wheel.py WORK OUT

The module is linked against the libraries of this machine. Those that not every Linux system has are
copied into the wheel, under names of their own, so that they do not meet other copies in one process;
the C++ library is linked in. The wheel's tag names the oldest C library that it runs with.
"""
import base64
import hashlib
import pathlib
import re
import shutil
import subprocess
import sys
import sysconfig

from release import Release, run

# What every system with the C library has (the list of the manylinux platforms).
EVERYWHERE = re.compile(r"(libc|libm|libdl|libpthread|librt|ld-linux.*)\.so\..*|linux-vdso\.so\.1")

release = Release(pathlib.Path(sys.argv[1]))
out = pathlib.Path(sys.argv[2])


def needed(library):
    """The libraries that a library loads, by name, and where they are."""
    found = re.findall(r"^\s*(\S+) => (/\S+)", run("ldd", library), re.MULTILINE)
    return {name: pathlib.Path(path) for name, path in found if not EVERYWHERE.fullmatch(name)}


def newest_c_library(libraries):
    """The newest version of the C library whose symbols are used."""
    versions = set()
    for library in libraries:
        versions.update(re.findall(r"GLIBC_(\d+)\.(\d+)", run("readelf", "-V", library)))
    return max((int(major), int(minor)) for major, minor in versions)


def carry(module, libraries):
    """Copies what `module` needs into `libraries`, and has each found there."""
    wanted = needed(module)
    libraries.mkdir()
    names = {}
    for name, path in wanted.items():
        content = path.resolve().read_bytes()
        stem, dot_so, rest = name.partition(".so")
        names[name] = f"{stem}-{hashlib.sha256(content).hexdigest()[:8]}{dot_so}{rest}"
        (libraries / names[name]).write_bytes(content)
    for carried in (module, *(libraries / name for name in names.values())):
        direct = set(run("patchelf", "--print-needed", carried).split()) & set(names)
        for name in sorted(direct):
            run("patchelf", "--replace-needed", name, names[name], carried)
        where = "$ORIGIN" if carried.parent == libraries else f"$ORIGIN/../{libraries.name}"
        run("patchelf", "--force-rpath", "--set-rpath", where, carried)
        if carried != module:
            run("patchelf", "--set-soname", carried.name, carried)
            carried.chmod(0o755)
    return wanted


def copy_licenses(wanted, folder):
    folder.mkdir(exist_ok=True)
    for path in wanted.values():
        owner = None
        for place in (path, path.resolve(), pathlib.Path("/usr") / path.relative_to("/"),
                      pathlib.Path(str(path.resolve()).removeprefix("/usr"))):
            done = subprocess.run(["dpkg-query", "-S", place], capture_output=True, text=True,
                                  check=False)
            if done.returncode == 0:
                owner = done.stdout.split(":")[0]
                break
        if owner is None:
            raise SystemExit(f"{path} belongs to no package, so its license is not known")
        shutil.copy(f"/usr/share/doc/{owner}/copyright", folder / f"{owner}.txt")


tree = release.unpacked("wheel")
# The C++ library is linked in, and nothing of the wheel depends on the folder it was built in.
flags = f"-ffile-prefix-map={tree}=/vellumark"
# The picture and font libraries are linked, so that they can be found and carried.
environment = dict(release.environment, CXXFLAGS=flags, CMAKE_ARGS="-DVELLUMARK_LINK_LIBRARIES=ON",
                   LDFLAGS="-static-libstdc++ -static-libgcc -Wl,-s -Wl,--build-id=none")
run(sys.executable, "-m", "pip", "wheel", "--no-deps", "--no-index", "--no-build-isolation",
    "--wheel-dir", tree.parent, tree, env=environment)
built, = tree.parent.glob("*.whl")
folder = tree.parent / "unpacked"
shutil.unpack_archive(built, folder, "zip")

module, = folder.glob("vellumark/_vellumark*.so")
libraries = folder / "vellumark.libs"
wanted = carry(module, libraries)
major, minor = newest_c_library([module, *libraries.iterdir()])
machine = sysconfig.get_platform().removeprefix("linux-").replace("-", "_")
platform = f"manylinux_{major}_{minor}_{machine}"

facts, = folder.glob("*.dist-info")
copy_licenses(wanted, facts / "licenses")
shutil.copy(tree / "LICENSE", facts / "licenses" / "vellumark.txt")
(facts / "licenses" / "sources.txt").write_text(
    f"{release.name}-library-sources.tar, which stands beside this wheel, has the sources of the "
    "libraries under the GNU LGPL.\n", encoding="utf-8")
for leftover in ("LICENSE", "top_level.txt"):
    (facts / leftover).unlink(missing_ok=True)
wheel = (facts / "WHEEL").read_text(encoding="utf-8")
(facts / "WHEEL").write_text(re.sub(r"linux_\w+$", platform, wheel, flags=re.M), encoding="utf-8")
rows = []
for path in sorted(folder.rglob("*")):
    if path.is_file() and path.name != "RECORD":
        content = path.read_bytes()
        digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
        rows.append(f"{path.relative_to(folder).as_posix()},sha256={digest},{len(content)}\n")
rows.append(f"{facts.name}/RECORD,,\n")
(facts / "RECORD").write_text("".join(rows), encoding="utf-8")
release.zip(out / re.sub(r"linux_\w+\.whl$", f"{platform}.whl", built.name), folder)
