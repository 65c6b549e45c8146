#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The command-line host against enscript, which sets plain text as PostScript, and against cmark-gfm,
which writes the same Markdown as HTML. Prints one table of ratios and goals.

    host_bench.py VELLUMARK_EXECUTABLE [ROUNDS]

The programs take turns, and a ratio is the median of those within each round, so that a busy machine
does not change it. The plain text is the GNU General Public License over and over, and the Markdown is
the documentation of this tree over and over, 5 MB of each, but for the pages that show characters of
other scripts: for those the host would load fonts. Time is that of the processor.
"""
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile

TREE = pathlib.Path(__file__).resolve().parent.parent
LICENSE = pathlib.Path("/usr/share/common-licenses/GPL-3")
SIZE = 5_000_000
OTHER_SCRIPTS = ("fonts", "gallery", "output", "python")
EXTENSIONS = [word for name in ("table", "strikethrough", "tasklist", "autolink") for word in ("-e", name)]


def repeated(text):
    """About SIZE bytes of whole copies."""
    return (text + b"\n\n") * max(SIZE // len(text), 1)


class Run:
    """Seconds of the processor and KiB of memory that a command took."""

    def __init__(self, command, here, output=None):
        # A child of this program would count this program's own memory, which is that before exec.
        told = pathlib.Path(here) / "time"
        with open(os.path.join(here, output or os.devnull), "wb") as out:
            done = subprocess.run(["/usr/bin/time", "-q", "-o", told, "-f", "%U %S %M", *command], cwd=here,
                                  stdout=out, stderr=subprocess.DEVNULL, check=False)
        # 1: a picture of the documentation is not beside the text.
        if done.returncode not in (0, 1):
            sys.exit(f"host_bench: {' '.join(command)} ended with status {done.returncode}")
        user, system, memory = told.read_text(encoding="ascii").split()
        self.seconds = float(user) + float(system)
        self.memory = int(memory)


def row(measure, ours, peer, ratio, goal):
    verdict = "" if goal is None else f"<= {goal:<4} {'met' if ratio <= goal else 'MISSED'}"
    print(f"{measure:44}{ours:>16}{peer:>28}{ratio:9.2f}  {verdict}")


def megabytes(size):
    return f"{size / 1e6:.1f} MB"


def compare(here, commands, rounds):
    """The runs of each command, by its name, after one that is not counted."""
    runs = {name: [] for name in commands}
    for number in range(rounds + 1):
        names = list(commands) if number % 2 else list(reversed(commands))
        for name in names:
            run = Run(*commands[name][:1], here, *commands[name][1:])
            if number:
                runs[name].append(run)
    return runs


def time_row(measure, runs, ours, peer, goal):
    ratio = statistics.median(one.seconds / max(other.seconds, 1e-4)
                              for one, other in zip(runs[ours], runs[peer]))
    shown = [f"{1000 * statistics.median(run.seconds for run in runs[name]):.0f} ms" for name in (ours, peer)]
    row(measure, shown[0], f"{peer} {shown[1]}", ratio, goal)


def main():
    host = os.path.abspath(sys.argv[1])
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 9
    with tempfile.TemporaryDirectory() as here:
        folder = pathlib.Path(here)
        plain = repeated(LICENSE.read_bytes())
        markdown = repeated(b"\n\n".join(file.read_bytes() for file in sorted(TREE.glob("docs/*.md"))
                                           if file.stem not in OTHER_SCRIPTS))
        (folder / "plain.txt").write_bytes(plain)
        (folder / "text.md").write_bytes(markdown)
        size = {name: (lambda file=name: (folder / file).stat().st_size) for name in
                ("host.ps", "enscript.ps", "text.ps", "text.pdf")}

        print(f"{'measure':44}{'vellumark':>16}{'peer':>28}{'ratio':>9}  goal")
        runs = compare(here, {"host": ([host, "plain.txt", "-o", "host.ps"],),
                              "enscript": (["enscript", "-q", "-B", "-p", "enscript.ps", "plain.txt"],)}, rounds)
        time_row("plain text to PostScript, time", runs, "host", "enscript", 1.2)
        row("plain text to PostScript, file", megabytes(size["host.ps"]()),
            f"enscript {megabytes(size['enscript.ps']())}", size["host.ps"]() / size["enscript.ps"](), 1.0)

        runs = compare(here, {"ps": ([host, "text.md", "-o", "text.ps"],),
                              "pdf": ([host, "text.md", "-o", "text.pdf"],),
                              "cmark-gfm": (["cmark-gfm", *EXTENSIONS, "text.md"], "text.html")}, rounds)
        for name, format_name, goal in (("ps", "PostScript", 8.0), ("pdf", "PDF", 16.0)):
            time_row(f"Markdown to {format_name}, time", runs, name, "cmark-gfm", goal)
        for name, file in (("ps", "text.ps"), ("pdf", "text.pdf")):
            memory = statistics.median(run.memory for run in runs[name]) * 1024
            both = len(markdown) + size[file]()
            row(f"Markdown to {name}, memory to text and file", megabytes(memory), megabytes(both),
                memory / both, 2.0)
            parser = statistics.median(run.memory for run in runs["cmark-gfm"]) * 1024
            row(f"Markdown to {name}, memory to cmark-gfm's", megabytes(memory), f"cmark-gfm {megabytes(parser)}",
                memory / parser, None)


if __name__ == "__main__":
    main()
