# SPDX-License-Identifier: MIT
"""Source packages of Debian, by an apt of its own: the machine's lists may lack them.

    sources = Sources(pathlib.Path("build/sources"))
    folder = sources.fetch("utf8proc")              # unpacked, with Debian's patches

They come from where this machine's own packages come from, and apt checks their signatures.
"""
import glob
import pathlib
import re

from release import run

RELEASE = "bookworm"


class Sources:
    """Of this machine's release with its updates, or of another release alone."""

    def __init__(self, folder, release=RELEASE):
        self.folder = folder
        self.release = release
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

    def entries(self):
        """The machine's lists of packages as lists of source packages."""
        for options, place, suite, parts in self.lists_of_packages():
            if self.release == RELEASE:
                yield f"deb-src {options}{place} {suite} {parts}\n"
            elif suite == RELEASE:
                yield f"deb-src {options}{place} {self.release} {parts}\n"

    @staticmethod
    def lists_of_packages():
        for name in ["/etc/apt/sources.list", *sorted(glob.glob("/etc/apt/sources.list.d/*"))]:
            path = pathlib.Path(name)
            if path.suffix not in (".list", ".sources") or not path.is_file():
                continue
            text = path.read_text(encoding="utf-8")
            yield from re.findall(rf"^deb +((?:\[.*\] +)?)(\S+) +({RELEASE}\S*) +(.*)$", text,
                                  re.MULTILINE)
            for part in text.split("\n\n"):
                fields = dict(re.findall(r"^([\w-]+): *(.*)$", part, re.MULTILINE))
                signed = fields.get("Signed-By")
                for suite in fields.get("Suites", "").split():
                    if suite.startswith(RELEASE):
                        options = f"[signed-by={signed}] " if signed else ""
                        yield options, fields["URIs"], suite, "main"

    def fetch(self, package):
        """The newest version; the one of the release if the place has it not yet."""
        try:
            run("apt-get", *self.options, "source", package, cwd=self.folder)
        except SystemExit:
            print(f"{package}: the newest version cannot be had; taking that of the release")
            run("apt-get", *self.options, "source", f"{package}/{self.release}", cwd=self.folder)
        return next(path for path in self.folder.glob(f"{package}-*") if path.is_dir())

    def fetch_authors_part(self, package):
        """What the package's authors released, without Debian's part."""
        run("apt-get", *self.options, "--tar-only", "source", package, cwd=self.folder)
        archive, = self.folder.glob(f"{package}_*.orig.tar.*")
        folder = self.folder / f"{package}-authors"
        folder.mkdir()
        run("tar", "-xf", archive, "-C", folder, "--strip-components=1")
        return folder
