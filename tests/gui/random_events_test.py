#!/usr/bin/env python3
"""Random scripts under random clicks, keys, drags, closes, resizes and changes of focus: whatever
happens, the program neither crashes nor hangs, and in the end it leaves in order.

Longer by hand:  random_events_test.py VELMSCRIPT --seconds 60 --seed 7
"""

import argparse
import pathlib
import random
import re
import sys
import tempfile
import time

import display
from random_scripts import STOP, ScriptMaker

LONGEST_ROUND = 10  # seconds with one script
KEYS = ("Tab", "shift+Tab", "Return", "Escape", "space", "a", "x", "BackSpace", "Delete", "Up", "Down", "Left",
        "Right", "Home", "End", "Page_Down", "ctrl+a", "ctrl+c", "ctrl+v", "ctrl+z", "alt", "F10", "alt+m",
        "ctrl+shift+a", "F1", "shift+Right", "alt+Down", "Menu")


class Driver:
    """A person without a plan, in front of the windows of one program."""

    def __init__(self, program, chance):
        self.program = program
        self.screen = program.display
        self.chance = chance

    def is_running(self):
        return self.program.process.poll() is None

    def spot(self):
        return str(self.chance.randint(0, 300)), str(self.chance.randint(-25, 320))

    def move(self, window):
        x, y = self.spot()
        return ["mousemove", "--window", window, "--", x, y]

    def button(self):
        return self.chance.choices("12345", (12, 1, 3, 1, 1))[0]

    def click(self, window):
        return [*self.move(window), "click", self.button()]

    def double_click(self, window):
        return [*self.move(window), "click", "--repeat", "2", "--delay", "20", "1"]

    def drag(self, window):
        return [*self.move(window), "mousedown", "1", *self.move(window), "sleep", "0.01",
                *self.move(window), "mouseup", "1"]

    def key(self, _):
        return ["key", self.chance.choice(KEYS)]

    def type(self, _):
        return ["type", "--delay", "5", self.chance.choice(("abc", "12", "xyz -"))]

    def close(self, _):
        return ["key", "alt+F4"]

    def resize(self, window):
        size = (self.chance.choice((1, 50, 200, 280, 500)), self.chance.choice((1, 40, 300, 500)))
        return ["windowsize", window, *map(str, size)]

    def place(self, window):
        return ["windowmove", window, *map(str, (self.chance.randint(0, 900), self.chance.randint(0, 600)))]

    def focus(self, window):
        return [self.chance.choice(("windowactivate", "windowfocus", "windowraise")), window]

    DEEDS = ((click, 12), (double_click, 3), (drag, 3), (key, 8), (type, 1), (close, 1), (resize, 2),
             (place, 1), (focus, 3))

    def windows(self):
        """Those that the manager knows, minimised ones among them."""
        told = self.screen.read("xprop", "-root", "_NET_CLIENT_LIST")
        return [str(int(number, 16)) for number in re.findall("0x[0-9a-f]+", told)]

    def do_something(self):
        """A handful of deeds; a window that has gone meanwhile ends it early."""
        windows = self.windows()
        if not windows:
            time.sleep(0.02)
            return
        deeds = [deed for deed, _ in self.DEEDS]
        weights = [weight for _, weight in self.DEEDS]
        words = []
        for deed in self.chance.choices(deeds, weights, k=4):
            words += deed(self, self.chance.choice(windows))
        # A box that nobody answers would be all that is left.
        if self.chance.random() < 0.3:
            words += ["key", "Return"]
        self.screen.read("xdotool", *words)

    def leave(self):
        """Answers and closes what is in the way until the program has ended; whether it has."""
        # A button that is still held would grab all that follows.
        self.screen.read("xdotool", "mouseup", "1")
        end = time.monotonic() + display.PATIENCE
        while self.is_running() and time.monotonic() < end:
            for window in self.windows():
                key = self.chance.choice(("Return", "Escape", "alt+F4"))
                self.screen.read("xdotool", "windowactivate", window, "sleep", "0.02", "key", key)
            time.sleep(0.02)
        return not self.is_running()


def run_round(screen, runtime, seed, seconds):
    """One script for some seconds; what went wrong, or an empty text."""
    chance = random.Random(seed)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        lines = ScriptMaker(chance).lines()
        (folder / "test.vlm").write_bytes("\r\n".join(lines).encode("cp932"))
        program = display.Program(screen, [str(runtime), "test.vlm"], folder)
        try:
            driver = Driver(program, chance)
            end = time.monotonic() + seconds
            while driver.is_running() and time.monotonic() < end:
                driver.do_something()
            (folder / STOP).write_text("")
            if not driver.leave():
                return "it hangs"
            status, out, err = program.end()
        finally:
            program.stop()
    return "" if (status, out, err) == (0, "", "") else f"status {status}: {out}{err}"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("runtime", type=pathlib.Path)
    parser.add_argument("--seconds", type=float, default=10)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    runtime = options.runtime.resolve()
    screen = display.Display()
    rounds = 0
    try:
        end = time.monotonic() + options.seconds
        while time.monotonic() < end:
            seed = options.seed * 1000 + rounds
            seconds = min(LONGEST_ROUND, end - time.monotonic())
            fault = run_round(screen, runtime, seed, seconds)
            if fault:
                sys.exit(f"round {rounds} of seed {options.seed}: {fault}")
            rounds += 1
    finally:
        screen.stop()
    print(f"{rounds} scripts left in order")


if __name__ == "__main__":
    main()
