#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The command-line host under failing system calls and a sudden end: the output is absent, old or
whole, its mode is kept, and nothing is left beside it that could be removed.

    host_faults_test.py VELLUMARK_EXECUTABLE

The calls need strace, the full disk a user namespace; each is skipped without it. Limits on files
and memory, signals while writing and /dev/full are in cli_test.py.
"""
import os
import re
import shutil
import signal
import subprocess
import unittest

from command_line import TOOL, HostTest

# What the host does to files, from the reading of its input on. Every error that fits.
FAULTS = {
    "read": ("EIO", "EISDIR"),
    "openat": ("EMFILE", "EACCES"),
    "getrandom": ("ENOSYS",),
    "write": ("ENOSPC", "EIO", "EDQUOT"),
    "fsync": ("EIO", "ENOSPC"),
    "close": ("EIO", "ENOSPC"),
    "rename": ("EXDEV", "EACCES", "ENOSPC"),
}
HARMLESS = {  # the output appears all the same
    "write": ("EINTR",), "fsync": ("EINTR", "EINVAL", "ENOSYS"), "close": ("EINTR",),
    "fchown": ("EPERM",), "fchmod": ("EPERM",),
}
MODE = 0o640


@unittest.skipUnless(shutil.which("strace"), "strace is not installed")
class HostFaults(HostTest):
    def setUp(self):
        super().setUp()
        self.put("in.md", "# Title\n\nSome words.\n")
        os.environ["SOURCE_DATE_EPOCH"] = "1700000000"
        self.addCleanup(os.environ.pop, "SOURCE_DATE_EPOCH")
        self.assertEqual(self.run_tool("in.md", "-o", "whole.pdf").returncode, 0)
        with open(self.path("whole.pdf"), "rb") as file:
            self.whole = file.read()
        os.remove(self.path("whole.pdf"))
        if self.traced("--quiet=all", "-e", "trace=none").returncode != 0:
            self.skipTest("strace may not trace here")
        self.calls = self.count()

    def traced(self, *options):
        if os.path.exists(self.path("out.pdf")):
            os.remove(self.path("out.pdf"))
        self.put("out.pdf", "old")
        os.chmod(self.path("out.pdf"), MODE)
        return subprocess.run(
            ["strace", "-o", "../trace." + os.path.basename(self.here), *options, TOOL, "in.md", "-o", "out.pdf"],
            cwd=self.here, capture_output=True, check=False,
            env={**os.environ, "ASAN_OPTIONS": "detect_leaks=0"})

    def count(self):
        """The calls by which the host writes, with how many went before each, of the same name."""
        trace = os.path.join(self.here, "..", "trace." + os.path.basename(self.here))
        self.addCleanup(os.remove, trace)
        self.traced()
        numbers, found, ours = {}, [], False
        with open(trace, encoding="utf-8", errors="replace") as lines:
            for line in lines:
                name = line.split("(")[0]
                numbers[name] = numbers.get(name, 0) + 1
                ours = ours or '"in.md"' in line and not line.startswith("execve")
                if ours and re.fullmatch(r"[a-z_]\w*", name):
                    found.append((name, numbers[name]))
        self.assertGreater(len(found), 20)
        return found

    def check(self, what, ended, removable=True):
        with open(self.path("out.pdf"), "rb") as file:
            content = file.read()
        self.assertIn(content, (b"old", self.whole), what)
        if ended == 0:
            self.assertEqual(content, self.whole, what)
        self.assertEqual(os.stat(self.path("out.pdf")).st_mode & 0o7777, MODE, what)
        left = set(os.listdir(self.here)) - {"in.md", "out.pdf"}
        if removable:
            self.assertEqual(left, set(), what)
        for name in left:
            self.assertRegex(name, r"\A\.vellumark-\w{16}\.part\Z")
            os.remove(self.path(name))
        return content

    def inject(self, call, number, fault):
        return self.traced("--quiet=all", "-e", f"inject={call}:{fault}:when={number}")

    def test_a_failing_call_leaves_the_old_output_or_the_whole_new_one(self):
        failed = 0
        for call, number in self.calls:
            for error in FAULTS.get(call, ()):
                what = f"{call} {number}: {error}"
                done = self.inject(call, number, f"error={error}")
                self.check(what, done.returncode)
                self.assertIn(done.returncode, (0, 2), (what, done.stderr))
                if done.returncode == 2:
                    self.assertRegex(done.stderr.decode(), r"\Avellumark: [^\n]+\n\Z", what)
                    failed += 1
        self.assertGreater(failed, 8)

    def test_a_call_that_may_fail_does_not_matter(self):
        for call, number in self.calls:
            for error in HARMLESS.get(call, ()):
                done = self.inject(call, number, f"error={error}")
                self.assertEqual(done.returncode, 0, (call, error, done.stderr))
                if call not in ("fchmod", "fchown"):
                    self.check(f"{call} {number}: {error}", 0)

    def test_a_sudden_end_at_any_call_leaves_the_old_output_or_the_whole_new_one(self):
        old = 0
        for call, number in self.calls:
            if call in ("exit_group", "mmap", "munmap", "brk", "futex"):
                continue
            for name in ("KILL", "TERM"):
                what = f"SIG{name} at {call} {number}"
                done = self.inject(call, number, f"signal={name}")
                self.assertEqual(done.returncode, -getattr(signal, "SIG" + name), what)
                old += self.check(what, None, removable=name == "TERM") == b"old"
        self.assertGreater(old, 20)


FULL_DISK = """
set -e
mount -t tmpfs -o size=$1,mode=755 none disk
printf old > disk/out.pdf
chmod 640 disk/out.pdf
status=0
"$2" in.md -o disk/out.pdf || status=$?
stat -c %a disk/out.pdf
ls -A disk
cmp disk/out.pdf whole.pdf >/dev/null && echo whole || { cmp disk/out.pdf old; echo old; }
exit $status
"""


class FullDisk(HostTest):
    def test_a_disk_that_is_full_keeps_the_old_output(self):
        self.put("in.md", "# Title\n\n" + "".join(f"Line {i * 7919 % 1009} of {i}.\n\n" for i in range(3000)))
        self.put("old", "old")
        os.mkdir(self.path("disk"))
        os.environ["SOURCE_DATE_EPOCH"] = "1700000000"
        self.addCleanup(os.environ.pop, "SOURCE_DATE_EPOCH")
        self.assertEqual(self.run_tool("in.md", "-o", "whole.pdf").returncode, 0)
        inside = ["unshare", "--user", "--map-root-user", "--mount"]
        if subprocess.run([*inside, "mount", "-t", "tmpfs", "none", self.path("disk")], check=False,
                          capture_output=True).returncode != 0:
            self.skipTest("file systems may not be mounted here")
        seen = set()
        for pages in (1, 2, 3, 5, 9, 17, 33, 65, 500):
            done = subprocess.run([*inside, "sh", "-c", FULL_DISK, "sh", str(pages * 4096), TOOL], cwd=self.here,
                                  capture_output=True, check=False, text=True)
            outcome = "whole" if done.returncode == 0 else "old"
            self.assertEqual(done.stdout.split(), ["640", "out.pdf", outcome], (pages, done.stderr))
            if outcome == "old":
                self.assertRegex(done.stderr, r"\Avellumark: [^\n]*No space left[^\n]*\n\Z")
            seen.add(outcome)
        self.assertEqual(seen, {"old", "whole"})


if __name__ == "__main__":
    unittest.main()
