#!/usr/bin/env python3
"""The start of the window face: every form of its command line, and the start without one."""

import shutil

from display import SHOW_RESULT, WindowCase, main

CHOOSE = "Velmrunプログラムを指定して実行"
SCRIPT = ("答え＝「動いた」", *SHOW_RESULT)


class CommandLines(WindowCase):
    def test_a_path(self):
        self.assert_result(self.start(self.write("a.vlm", *SCRIPT)), "動いた")

    def test_a_path_from_the_current_folder(self):
        self.write("a.vlm", *SCRIPT)
        self.assert_result(self.start("a.vlm"), "動いた")

    def test_a_quoted_path(self):
        self.write("a.vlm", *SCRIPT)
        self.assert_result(self.start('"a.vlm"'), "動いた")

    def test_a_path_with_blanks(self):
        self.write("my first script.vlm", *SCRIPT)
        self.assert_result(self.start("my first script.vlm"), "動いた")

    def test_the_words_are_one_text(self):
        self.write("my first script.vlm", *SCRIPT)
        self.assert_result(self.start("my", "first", "script.vlm"), "動いた")

    def test_the_run_form(self):
        self.write("a.vlm", *SCRIPT)
        for word in ("/run", "/RUN"):
            with self.subTest(word=word):
                self.assert_result(self.start(word, "a.vlm"), "動いた")

    def test_the_word_run_alone_is_a_path(self):
        self.assert_quiet_end(self.start("/run"))

    def test_a_missing_script_ends_without_a_word(self):
        self.assert_quiet_end(self.start("nowhere.vlm"))

    def test_an_empty_script(self):
        self.assert_quiet_end(self.start(self.write("empty.vlm")))

    def test_a_name_in_japanese(self):
        self.write("日本語.vlm", *SCRIPT)
        self.assert_result(self.start("日本語.vlm"), "動いた")

    def test_the_folder_of_the_script_becomes_the_current_one(self):
        (self.folder / "inner").mkdir()
        self.write("inner/lib.vlm", "手順は　答える", "答え＝「隣から」", "終わり")
        self.write("inner/a.vlm", "「lib.vlm」を参照", "答える", *SHOW_RESULT)
        self.assert_result(self.start("inner/a.vlm"), "隣から")


class Options(WindowCase):
    def test_help(self):
        status, out, err = self.start("--help").end()
        self.assertEqual((status, err), (0, ""))
        self.assertIn("velmscript", out)

    def test_version(self):
        status, out, err = self.start("--version").end()
        self.assertEqual((status, err), (0, ""))
        self.assertRegex(out, r"^velmscript [0-9.]+\n$")

    def test_no_display(self):
        for display in ("", ":987654"):
            with self.subTest(display=display):
                script = self.write("a.vlm", *SCRIPT)
                program = self.start(script, environment={"DISPLAY": display})
                status, out, err = program.end()
                self.assertEqual((status, out, err.count("\n")), (2, "", 1))
                self.assertIn("DISPLAY", err)


class WithoutCommandLine(WindowCase):
    def test_choosing_a_script(self):
        path = self.write("a.vlm", *SCRIPT)
        program = self.start()
        program.window(CHOOSE)
        program.type(str(path))
        program.key("Return")
        self.assert_result(program, "動いた")

    def test_cancel_ends_the_process(self):
        program = self.start()
        program.window(CHOOSE)
        program.key("Escape")
        self.assert_quiet_end(program)


class OtherNames(WindowCase):
    def test_a_copy_under_another_name_runs_nothing(self):
        copy = self.folder / "other"
        shutil.copy(self.runtime, copy)
        self.assert_quiet_end(self.start(self.write("a.vlm", *SCRIPT), runtime=copy))

    def test_the_name_in_any_letter_case(self):
        copy = self.folder / "VelmScript"
        shutil.copy(self.runtime, copy)
        self.assert_result(self.start(self.write("a.vlm", *SCRIPT), runtime=copy), "動いた")


if __name__ == "__main__":
    main()
