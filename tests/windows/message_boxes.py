# SPDX-License-Identifier: MIT
"""Somebody in front of the screen who closes the library's message boxes.

Finds each window with the caption "Vellumark", keeps a picture of the first, presses Return in it
and waits until it is gone. `seen` counts them.
"""
import subprocess
import threading
import time


class MessageBoxes:
    LOOK_EVERY = 0.03   # seconds
    PRESS_EVERY = 3     # seconds, should a key get lost; twice in a row would close two boxes
    PATIENCE = 20       # seconds until a box must have gone

    def __init__(self, environment, picture):
        self.environment = environment
        self.picture = picture
        self.seen = 0
        self.closing = threading.Lock()     # held while looking and closing
        self.stopping = threading.Event()
        self.thread = threading.Thread(target=self.watch, daemon=True)

    def start(self):
        self.picture.unlink(missing_ok=True)
        self.thread.start()

    def stop(self):
        self.stopping.set()
        self.thread.join(self.PATIENCE + 5)

    def count(self):
        """How many have been closed; a box whose program has ended is among them."""
        with self.closing:
            return self.seen

    def open(self):
        return self.call("xdotool", "search", "--onlyvisible", "--name", "^Vellumark$").split()

    def call(self, *command):
        return subprocess.run(command, env=self.environment, check=False, timeout=self.PATIENCE,
                              capture_output=True, text=True).stdout

    def watch(self):
        while not self.stopping.wait(self.LOOK_EVERY):
            with self.closing:
                for window in self.open():
                    self.seen += self.close(window)

    def close(self, window):
        """Whether the box went after Return was pressed."""
        if not self.picture.exists():
            time.sleep(0.3)     # until it is painted
            self.call("maim", "--hidecursor", "--window", window, str(self.picture))
        patience = time.monotonic() + self.PATIENCE
        while time.monotonic() < patience and not self.stopping.is_set():
            self.call("xdotool", "windowfocus", window, "key", "Return")
            pressed = time.monotonic()
            while time.monotonic() < pressed + self.PRESS_EVERY:
                if window not in self.open():
                    return True
                time.sleep(self.LOOK_EVERY)
        return False
