#!/usr/bin/env python3
"""A virtual display with a window manager, and the window face on it, driven like by a person.

Used by the *_test.py files beside it; with --self-test it proves that its own checks can fail.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAMS = ("Xvfb", "openbox", "xdotool", "import", "xprop", "xev")
PATIENCE = int(os.environ.get("VELM_PATIENCE", "60"))  # seconds that anything may take on a busy machine
SIZE = (1280, 1024)


class Display:
    """Xvfb on a number of its own choice, and openbox on it. Ends with stop()."""

    def __init__(self):
        missing = [name for name in PROGRAMS if shutil.which(name) is None]
        if missing:
            raise RuntimeError(
                f"the tests of the window face need these programs: {' '.join(missing)} "
                "(tools/packages.txt names their packages)"
            )
        # No reset when the last program leaves, and no repeating keys: on a busy machine a key that is
        # let go late would answer the next box as well.
        reader, writer = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{SIZE[0]}x{SIZE[1]}x24", "-nolisten", "tcp", "-noreset", "-r"],
            pass_fds=[writer], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        )
        os.close(writer)
        with os.fdopen(reader) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        self.environment = dict(os.environ, DISPLAY=f":{number}", LC_ALL="C.UTF-8")
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR", "QT_QPA_PLATFORMTHEME"):
            self.environment.pop(name, None)
        self.manager = subprocess.Popen(
            ["openbox"], env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL
        )
        wait_for(self.has_manager, "the window manager")
        self.warm_keyboard()

    def has_manager(self):
        return "0x" in self.read("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")

    def warm_keyboard(self):
        """Presses alt+F4 on a window of no matter until it closes.

        A window that comes while the window manager is still starting may never be shown, so another
        one is tried then. And with the first key of xdotool the server takes another keyboard for the
        current one, and the manager binds its keys anew: until then it would miss them.
        """
        wait_for(self.has_closed_a_window, "the window manager to show a window and to close it")

    def has_closed_a_window(self):
        window = subprocess.Popen(
            ["xev"], env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL
        )
        try:
            end = time.monotonic() + 1
            while time.monotonic() < end:
                if self.read("xdotool", "search", "--onlyvisible", "--name", "Event Tester"):
                    return wait_for(lambda: self.closes(window), "the end of that window by alt+F4")
                time.sleep(0.01)
            return False
        finally:
            window.kill()
            window.wait()

    def closes(self, window):
        self.read("xdotool", "key", "alt+F4")
        try:
            window.wait(timeout=0.5)
        except subprocess.TimeoutExpired:
            return False
        return True

    def read(self, *command):
        """Standard output of a program on this display; empty when it fails."""
        done = subprocess.run(
            command, env=self.environment, capture_output=True, text=True, check=False
        )
        return done.stdout if done.returncode == 0 else ""

    def stop(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


def wait_for(condition, what):
    """The first true value of condition(), asked again and again."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.01)
    raise AssertionError(f"waited in vain for {what}")


class Program:
    """One run of the window face."""

    def __init__(self, display, command, folder, environment=None):
        self.display = display
        self.process = subprocess.Popen(
            command, cwd=folder, env=dict(display.environment, **(environment or {})),
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
        )

    def windows(self):
        """Id and title of each window that is up."""
        found = self.display.read(
            "xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid), ""
        )
        return {
            window: self.display.read("xdotool", "getwindowname", window).rstrip("\n")
            for window in found.split()
        }

    def window(self, title):
        """The window with exactly this title, once it is up and has the keyboard."""
        seen = {}

        def focused():
            seen.clear()
            seen.update(self.windows())
            ours = [window for window, name in seen.items() if name == title]
            active = self.display.read("xdotool", "getwindowfocus").strip()
            return ours[0] if ours and active in ours else None

        try:
            return wait_for(focused, f"the window {title}")
        except AssertionError as error:
            names = [name for name in seen.values() if name]
            ended = self.process.poll()
            raise AssertionError(f"{error}; there are {names}, exit status {ended}") from None

    def key(self, *keys):
        self.display.read("xdotool", "key", "--clearmodifiers", *keys)

    def type(self, text):
        self.display.read("xdotool", "type", "--clearmodifiers", "--delay", "50", text)

    def geometry(self, window):
        """x, y, width and height of a window on the screen, without its frame."""
        told = self.display.read("xdotool", "getwindowgeometry", "--shell", window)
        values = dict(line.split("=") for line in told.split())
        return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def click(self, window, x, y):
        """Clicks at a place of a window."""
        self.display.read("xdotool", "mousemove", "--window", window, str(x), str(y), "click", "1")

    def colour(self, window, x, y):
        """(red, green, blue) of one pixel of a window."""
        picture = subprocess.run(
            ["import", "-window", window, "-crop", f"1x1+{x}+{y}", "rgb:-"],
            env=self.display.environment, capture_output=True, check=True,
        ).stdout
        depth = len(picture) // 3
        return tuple(picture[i * depth] for i in range(3))

    def gone(self, title):
        wait_for(lambda: title not in self.windows().values(), f"the end of the window {title}")

    def end(self):
        """Waits for the end of the process: its exit status, output and error output."""
        out, err = self.process.communicate(timeout=PATIENCE)
        return self.process.returncode, out, err

    def stop(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.communicate()


class WindowCase(unittest.TestCase):
    """Runs scripts on one display for all cases of a class."""

    runtime = None

    @classmethod
    def setUpClass(cls):
        cls.display = Display()

    @classmethod
    def tearDownClass(cls):
        cls.display.stop()

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, name, *lines):
        path = self.folder / name
        path.write_bytes("\r\n".join(lines).encode("cp932"))
        return path

    def start(self, *words, runtime=None, environment=None):
        command = [str(runtime or self.runtime), *map(str, words)]
        program = Program(self.display, command, self.folder, environment)
        self.addCleanup(program.stop)
        return program

    def run_script(self, *lines, environment=None):
        return self.start(self.write("test.vlm", *lines), environment=environment)

    def assert_result(self, program, expected):
        """The script ends with a box whose title tells the result; Enter ends the run."""
        program.window(f"結果{expected}")
        program.key("Return")
        self.assert_quiet_end(program)

    def assert_quiet_end(self, program):
        self.assertEqual(program.end(), (0, "", ""))


# The end of a script that shows 答え for assert_result.
SHOW_RESULT = ("タイトルは 「結果［答え］」", "「終わり」を表示")


def main():
    """For the test files: the first word is the program to test."""
    if len(sys.argv) < 2:
        sys.exit(f"usage: {sys.argv[0]} VELMSCRIPT [TEST...]")
    WindowCase.runtime = pathlib.Path(sys.argv.pop(1)).resolve()
    if not WindowCase.runtime.is_file():
        sys.exit(f"no such program: {WindowCase.runtime}")
    unittest.main(module="__main__")


def self_test():
    global PATIENCE
    display = Display()
    PATIENCE = 0.5
    try:
        program = Program(display, ["sleep", "5"], "/")
        try:
            program.window("結果1")
        except AssertionError as error:
            assert "結果1" in str(error)
        else:
            raise SystemExit("a window that isn't there was found")
        program.stop()
        assert Program(display, ["false"], "/").end()[0] == 1
    finally:
        display.stop()
    usual = os.environ["PATH"]
    os.environ["PATH"] = "/nonexistent"
    try:
        Display()
    except RuntimeError as error:
        assert "Xvfb" in str(error) and "xdotool" in str(error)
    else:
        raise SystemExit("missing programs were not told")
    finally:
        os.environ["PATH"] = usual
    print("self-test: each fault is noticed")


if __name__ == "__main__":
    if sys.argv[1:] != ["--self-test"]:
        sys.exit(f"usage: {sys.argv[0]} --self-test")
    self_test()
