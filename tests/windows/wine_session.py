# SPDX-License-Identifier: MIT
"""A fresh Wine on a screen of its own, for one run of tests.

    with WineSession(folder) as wine:
        text = wine.run("cscript", "//nologo", "first.vbs", boxes=2)

Everything lies in `folder` and nothing outlives the block. A command that takes too long ends the
session, so that the tests behind it fail at once instead of waiting too.
"""
import contextlib
import os
import shutil
import subprocess

from message_boxes import MessageBoxes


def loader():
    """Returns the command that starts Windows programs, 64-bit ones if their name alone is given:
    "wine" would choose 32-bit ones on a machine that has both."""
    debian = "/usr/lib/wine/wine64"
    return debian if os.access(debian, os.X_OK) else shutil.which("wine64") or "wine"


class WineSession:
    TIMEOUT = 90    # seconds; the slowest command takes a few

    def __init__(self, folder):
        self.folder = folder
        self.prefix = folder / "prefix"
        self.home = folder / "home"
        self.screen = self.idle = self.boxes = self.environment = None

    def __enter__(self):
        try:
            self.start()
        except BaseException:
            self.stop()
            raise
        return self

    def __exit__(self, *unused):
        self.stop()

    def start(self):
        for path in (self.prefix, self.home):
            shutil.rmtree(path, ignore_errors=True)
        self.home.mkdir(parents=True)
        self.environment = dict(
            os.environ, DISPLAY=self.open_screen(), WINEPREFIX=str(self.prefix), WINEARCH="win64",
            WINEDEBUG="-all", HOME=str(self.home), LC_ALL="C.UTF-8",
            # No questions about packages to download, and no entries in the desktop's menus.
            WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d")
        self.execute("wineboot", "--init")
        # Nobody manages windows on this screen, and Wine would wait for it with each that closes.
        self.execute(loader(), "reg", "add", r"HKCU\Software\Wine\X11 Driver", "/v", "Managed",
                     "/d", "N")
        # One program that stays saves each command the start of Wine's services.
        self.idle = subprocess.Popen([loader(), "cmd"], env=self.environment, cwd=self.folder,
                                     stdin=subprocess.PIPE, stdout=subprocess.DEVNULL,
                                     stderr=subprocess.DEVNULL)
        self.boxes = MessageBoxes(self.environment, self.folder / "message_box.png")
        self.boxes.start()

    def open_screen(self):
        """Starts an X server and returns the name of its display once that can be used."""
        reading, writing = os.pipe()
        with open(self.folder / "screen.log", "wb") as log:
            self.screen = subprocess.Popen(
                ["Xvfb", "-displayfd", str(writing), "-screen", "0", "800x600x24",
                 "-nolisten", "tcp"], pass_fds=[writing], stdout=log, stderr=log)
        os.close(writing)
        with open(reading, encoding="ascii") as answer:
            number = answer.readline().strip()
        assert number, f"no X server: {(self.folder / 'screen.log').read_text()}"
        return f":{number}"

    def stop(self):
        if self.boxes:
            self.boxes.stop()
            self.boxes = None
        if self.environment and self.prefix.exists():
            for option in ("--kill", "--wait"):
                subprocess.run(["wineserver", option], env=self.environment, check=False,
                               timeout=30)
        for process in (self.idle, self.screen):
            if process:
                process.kill()
                process.communicate()
        self.idle = self.screen = None
        for path in (self.prefix, self.home):   # 700 MB
            shutil.rmtree(path, ignore_errors=True)

    def execute(self, *command, cwd=None):
        """Runs a program and returns its exit code and what it printed."""
        log = self.folder / "last_output.txt"   # not a pipe: Wine's services would hold it open
        with open(log, "wb") as out:
            done = subprocess.run(command, env=self.environment, cwd=cwd or self.folder,
                                  stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT,
                                  timeout=self.TIMEOUT, check=False)
        return done.returncode, log.read_text(encoding="latin-1").replace("\r\n", "\n")

    def run(self, *command, cwd=None, boxes=0):
        """Runs a Windows program that must succeed and show exactly so many message boxes; with
        None it closes its own."""
        assert self.boxes, "an earlier command took too long and ended Wine"
        before = self.boxes.count()
        try:
            with self.boxes.closing if boxes is None else contextlib.nullcontext():
                code, text = self.execute(loader(), *map(str, command), cwd=cwd)
        except subprocess.TimeoutExpired as late:
            text = (self.folder / "last_output.txt").read_text(encoding="latin-1")
            self.stop()
            raise AssertionError(f"{command} did not end; so far:\n{text}") from late
        seen = self.boxes.count() - before
        assert code == 0, f"{command} ended with {code}:\n{text}"
        assert boxes in (None, seen), f"{command}: expected {boxes} message boxes, seen {seen}:\n{text}"
        assert not self.boxes.open(), f"{command} left a message box behind"
        return text


def windows_path(path):
    """The name that Windows programs know a file of this machine by."""
    return "Z:" + str(path).replace("/", "\\")
