#!/usr/bin/env python3
"""The start of the window face: its command line, the choice of a script, displays that aren't there."""

import os
import shutil
import subprocess
import time

from display import PATIENCE, SHOW_RESULT, WindowCase, main, wait_for

SAY_HELLO = ("タイトルは 「できた」", "「こんにちは」を表示")
FILE_DIALOG = "Velmrunプログラムを指定して実行"


class CommandLine(WindowCase):
    def assert_runs(self, program):
        program.window("できた")
        program.key("Return")
        self.assert_quiet_end(program)

    def test_a_path(self):
        self.assert_runs(self.start(self.write("a.vlm", *SAY_HELLO)))

    def test_a_path_from_the_current_folder(self):
        self.write("a.vlm", *SAY_HELLO)
        self.assert_runs(self.start("a.vlm"))

    def test_the_whole_line_is_the_path(self):
        self.write("a b  c.vlm", *SAY_HELLO)
        self.assert_runs(self.start("a b  c.vlm"))
        self.assert_runs(self.start("a", "b ", "c.vlm"))

    def test_a_further_word_is_part_of_the_path(self):
        self.write("a.vlm", *SAY_HELLO)
        self.assert_quiet_end(self.start("a.vlm", "b"))

    def test_a_quoted_path(self):
        self.assert_runs(self.start(f'"{self.write("a b.vlm", *SAY_HELLO)}"'))

    def test_a_japanese_path(self):
        self.assert_runs(self.start(self.write("例.vlm", *SAY_HELLO)))

    def test_a_path_that_is_no_text(self):
        name = os.fsencode(self.folder) + b"/\x83\xff.vlm"
        with open(name, "wb") as script:
            script.write("\r\n".join(SAY_HELLO).encode("cp932"))
        self.assert_runs(self.start(os.fsdecode(name)))

    def test_the_run_form(self):
        path = self.write("Big.vlm", *SAY_HELLO)
        self.assert_runs(self.start("/run", path))
        self.assert_runs(self.start("/RUN", path))
        self.assert_runs(self.start(f"/run {path}"))

    def test_the_run_form_alone_is_a_path(self):
        self.assert_quiet_end(self.start("/run"))

    def test_options_of_the_toolkit_are_part_of_the_path(self):
        self.write("a.vlm -platform offscreen", *SAY_HELLO)
        self.assert_runs(self.start("a.vlm", "-platform", "offscreen"))

    def test_a_missing_file_ends_without_a_word(self):
        self.assert_quiet_end(self.start(self.folder / "missing.vlm"))

    def test_a_folder_ends_without_a_word(self):
        self.assert_quiet_end(self.start(self.folder))

    def test_an_empty_script_ends_without_a_word(self):
        self.assert_quiet_end(self.start(self.write("a.vlm")))

    def test_the_folder_of_the_script_becomes_the_current_one(self):
        (self.folder / "inner").mkdir()
        self.write("inner/library.vlm", "手順は　答える", "答え＝「隣から」", "終わり")
        self.write("inner/a.vlm", "「library.vlm」を参照", "答える", *SHOW_RESULT)
        self.assert_result(self.start("inner/a.vlm"), "隣から")

    def test_help_and_version(self):
        for word, form in (("--help", "velmscript .スクリプト"), ("--version", "^velmscript [0-9.]+\n$")):
            status, out, err = self.start(word).end()
            self.assertEqual((status, err), (0, ""))
            self.assertRegex(out, form)

    def test_help_with_another_word_is_a_path(self):
        self.assert_quiet_end(self.start("--help", "x"))


class Names(WindowCase):
    def copy(self, name):
        return shutil.copy(self.runtime, self.folder / name)

    def test_the_name_in_capitals_is_the_runtime(self):
        program = self.start(self.write("a.vlm", *SAY_HELLO), runtime=self.copy("VelmScript"))
        program.window("できた")
        program.key("Return")
        self.assert_quiet_end(program)

    def test_a_copy_runs_nothing_of_its_command_line(self):
        copy = self.copy("game")
        self.assert_quiet_end(self.start(self.write("a.vlm", *SAY_HELLO), runtime=copy))
        self.assert_quiet_end(self.start("--help", runtime=copy))
        self.assert_quiet_end(self.start(runtime=copy))

    def test_a_copy_knows_the_run_form(self):
        path = self.write("a.vlm", *SAY_HELLO)
        program = self.start("/run", path, runtime=self.copy("game"))
        program.window("できた")
        program.key("Return")
        self.assert_quiet_end(program)


class WithoutArgument(WindowCase):
    def test_a_typed_path_is_run(self):
        path = self.write("my 1.vlm", *SAY_HELLO)
        program = self.start()
        program.window(FILE_DIALOG)
        program.type(str(path))
        program.key("Return")
        program.window("できた")
        program.key("Return")
        self.assert_quiet_end(program)

    def test_a_name_in_the_current_folder_is_run(self):
        self.write("only.vlm", *SAY_HELLO)
        program = self.start()
        program.window(FILE_DIALOG)
        program.type("only.vlm")
        program.key("Return")
        program.window("できた")
        program.key("Return")
        self.assert_quiet_end(program)

    def test_cancelling_ends(self):
        for key in ("Escape", "alt+F4"):
            with self.subTest(key=key):
                program = self.start()
                program.window(FILE_DIALOG)
                program.key(key)
                self.assert_quiet_end(program)


class Displays(WindowCase):
    def assert_told(self, environment):
        path = self.write("a.vlm", *SAY_HELLO)
        inherited = {
            name: value for name, value in self.display.environment.items() if name != "DISPLAY"
        }
        done = subprocess.run(
            [self.runtime, path], env=dict(inherited, **environment), capture_output=True,
            text=True, check=False, timeout=PATIENCE,
        )
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertEqual(done.stderr.count("\n"), 1, done.stderr)
        self.assertIn("画面（ディスプレイ）に接続できません", done.stderr)

    def test_no_display(self):
        self.assert_told({})

    def test_a_display_that_refuses(self):
        self.assert_told({"DISPLAY": ":9999"})

    def test_help_needs_no_display(self):
        environment = dict(self.display.environment)
        del environment["DISPLAY"]
        done = subprocess.run(
            [self.runtime, "--help"], env=environment, capture_output=True, text=True, check=False
        )
        self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_the_first_window_comes_soon(self):
        path = self.write("a.vlm", *SAY_HELLO)
        times = []
        for _ in range(3):
            begin = time.monotonic()
            program = self.start(path)
            wait_for(program.windows, "the first window")
            times.append(time.monotonic() - begin)
            program.window("できた")
            program.key("Return")
            self.assert_quiet_end(program)
        # Far above what it takes, since other tests run beside this one.
        self.assertLess(min(times), 2, times)


if __name__ == "__main__":
    main()
