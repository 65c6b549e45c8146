# SPDX-License-Identifier: MIT
"""A Debian with nothing but its essential packages, in a folder, to try things where nothing of this
machine can help them.

    with BareDebian(pathlib.Path("build/bare")) as debian:
        debian.copy(package, "/root")
        debian.install("git")
        print(debian.run("git --version"))

The folder needs the rights of root: without them, everything goes through sudo. The first copy is
made by debootstrap, from the place that this machine's own packages come from, and kept.
"""
import glob
import os
import pathlib
import re
import subprocess
import tempfile

AS_ROOT = [] if os.geteuid() == 0 else ["sudo"]
RELEASE = "bookworm"


def as_root(*command, **options):
    done = subprocess.run([*AS_ROOT, *map(str, command)], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, check=False, **options)
    if done.returncode != 0:
        raise AssertionError(f"{command} ended with {done.returncode}:\n{done.stdout[-8000:]}")
    return done.stdout


def package_source():
    """Where this machine takes the packages of the release from."""
    for name in ["/etc/apt/sources.list", *sorted(glob.glob("/etc/apt/sources.list.d/*"))]:
        path = pathlib.Path(name)
        if not path.is_file() or path.suffix not in (".list", ".sources"):
            continue
        text = path.read_text(encoding="utf-8")
        line = re.search(rf"^deb (?:\[.*\] )?(\S+) {RELEASE} ", text, re.MULTILINE)
        if line:
            return line[1]
        for part in text.split("\n\n"):
            suites = re.search(r"^Suites:(.*)", part, re.MULTILINE)
            address = re.search(r"^URIs: *(\S+)", part, re.MULTILINE)
            if suites and address and RELEASE in suites[1].split():
                return address[1]
    raise AssertionError(f"this machine's lists of packages do not name {RELEASE}")


class BareDebian:
    def __init__(self, folder):
        self.first = folder.resolve() / RELEASE
        self.root = None

    def __enter__(self):
        if not self.first.exists():
            self.first.parent.mkdir(parents=True, exist_ok=True)
            part = self.first.with_suffix(".part")
            as_root("rm", "-rf", part)
            as_root("debootstrap", "--variant=minbase", RELEASE, part, package_source())
            as_root("mv", part, self.first)
        self.root = pathlib.Path(tempfile.mkdtemp(dir=self.first.parent))
        as_root("cp", "-a", f"{self.first}/.", self.root)
        as_root("cp", "--dereference", "/etc/resolv.conf", self.root / "etc/resolv.conf")
        as_root("mount", "-t", "proc", "proc", self.root / "proc")
        self.run("apt-get update -qq")
        return self

    def __exit__(self, *_):
        as_root("umount", self.root / "proc")
        as_root("rm", "-rf", "--one-file-system", self.root)

    def copy(self, *paths, to="/root"):
        as_root("cp", "-r", *paths, f"{self.root}{to}")

    def run(self, script, **variables):
        """Runs lines of a shell in /root, and returns what they printed."""
        environment = {"HOME": "/root", "PATH": "/usr/sbin:/usr/bin:/sbin:/bin",
                       "DEBIAN_FRONTEND": "noninteractive", **variables}
        words = [f"{name}={value}" for name, value in environment.items()]
        return as_root("env", "-i", *words, "chroot", self.root, "/bin/bash", "-euc",
                       f"cd /root\n{script}")

    def install(self, *packages):
        self.run("apt-get install -y -qq --no-install-recommends " + " ".join(packages))
