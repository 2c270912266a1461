#!/usr/bin/env python3
"""Hostile scripts and surroundings for the console runtime: each must end in order, in time, and
within a limit of memory.

  robustness.py RUNTIME [unittest options]

The figures of the large scripts (seconds, peak memory) are printed with -v.
"""

import os
import pathlib
import random
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

MILLION = 1_000_000
BRACKETS = 100_000
BLOCKS = 100_000
TOO_DEEP = "呼び出しが深すぎて、スタックが足りません。"
GIGABYTE = 1 << 30


def find_sanitizer(runtime):
    """Whether the runtime is built with AddressSanitizer, which can't live with a limit of memory."""
    return b"__asan_init" in pathlib.Path(runtime).read_bytes()


class Case(unittest.TestCase):
    runtime = ""
    sanitized = False

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="velm-robust-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.script = self.folder / "test.vlm"
        self.env = dict(os.environ, HOME=str(self.folder), TMPDIR=str(self.folder), TZ="Asia/Tokyo",
                        XDG_CONFIG_HOME=f"{self.folder}/.config", XDG_DATA_HOME=f"{self.folder}/.data",
                        XDG_CACHE_HOME=f"{self.folder}/.cache")

    def write(self, source):
        data = source if isinstance(source, bytes) else source.encode("utf-8")
        self.script.write_bytes(data)

    def limits(self, memory, stack=None):
        """What the child does before it becomes the runtime."""
        def apply():
            if not self.sanitized:
                resource.setrlimit(resource.RLIMIT_AS, (memory, memory))
            if stack is not None:
                resource.setrlimit(resource.RLIMIT_STACK, (stack, stack))
        return apply

    def start(self, words=None, memory=4 * GIGABYTE, stack=None, **options):
        settings = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE,
                    "stderr": subprocess.PIPE, "cwd": self.folder, "env": self.env}
        settings.update(options)
        words = [str(self.script)] if words is None else words
        return subprocess.Popen([self.runtime, *words], preexec_fn=self.limits(memory, stack),
                                **settings)

    def finish(self, process, seconds=30):
        """Output, report and status; a hang is a failure that leaves nothing running."""
        seconds *= 8 if self.sanitized else 1
        try:
            out, err = process.communicate(timeout=seconds)
        except subprocess.TimeoutExpired:
            process.kill()
            process.communicate()
            self.fail(f"no end within {seconds} seconds")
        texts = [(data or b"").decode("utf-8", "backslashreplace") for data in (out, err)]
        return texts[0], texts[1], process.returncode

    def run_script(self, source, seconds=30, **options):
        self.write(source)
        begin = time.monotonic()
        result = self.finish(self.start(**options), seconds)
        self.seconds = time.monotonic() - begin
        return result

    def expect(self, source, wanted, seconds=30, **options):
        """A run that prints exactly this and reports nothing."""
        out, err, status = self.run_script(source, seconds, **options)
        self.assertEqual((out[-200:], err[:200], status), (wanted, "", 0))

    def expect_too_deep(self, source, seconds=30, **options):
        """The one report of a recursion, an orderly stop: nothing behind it runs."""
        out, err, status = self.run_script(source, seconds, **options)
        self.assertIn(TOO_DEEP, err)
        self.assertIn("エラー番号999］", err)
        self.assertEqual(err.count(TOO_DEEP), 1)
        self.assertNotIn("次", out)
        self.assertEqual(status, 0)


class LargeScripts(Case):
    def test_script_of_50_megabytes(self):
        line = "ア＝ア＋1\n"
        count = 50_000_000 // len(line.encode("utf-8"))
        self.write(line * count + "アを表示\n")
        begin = time.monotonic()
        process = self.start(memory=8 * GIGABYTE, stdout=subprocess.PIPE)
        out, err, status = self.finish(process, 60)
        peak = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss // 1024
        print(f"50 MB, {count} lines: {time.monotonic() - begin:.1f} s, at most {peak} MB",
              file=sys.stderr)
        self.assertEqual((out, err, status), (f"{count}\n", "", 0))

    def test_very_many_procedures(self):
        source = "".join(f"手順は　手{i}\n「{i}」を表示\n終わり\n" for i in range(BLOCKS))
        self.expect(source + f"手{BLOCKS - 1}\n", f"{BLOCKS - 1}\n")

    def test_one_procedure_very_often(self):
        self.expect("手順は　手\n「1」を表示\n終わり\n" * BLOCKS + "手\n", "1\n")

    def test_very_many_variables(self):
        source = "".join(f"変{i}＝{i}\n" for i in range(MILLION))
        self.expect(source + f"変{MILLION - 1}を表示\n", f"{MILLION - 1}\n")

    def test_very_many_labels(self):
        source = "".join(f"札{i}：\n" for i in range(BLOCKS))
        self.expect(f"札{BLOCKS - 1}へ飛べ\n" + source + "「着」を表示\n", "着\n")


class LongLines(Case):
    def test_plain_word(self):
        out, err, status = self.run_script("あ" * MILLION + "を表示\n")
        self.assertEqual((len(out), err, status), (MILLION + 1, "", 0))

    def test_particles(self):
        for word in ("は", "は、", "、"):
            with self.subTest(word=word):
                out, err, status = self.run_script(word * (MILLION // len(word)) + "あ\n")
                self.assertEqual((out, status), ("", 0))
                self.assertLess(len(err), 2 * MILLION)

    def test_many_wo(self):
        out, err, status = self.run_script("を" * MILLION + "表示\n")
        self.assertEqual((out, err, status), ("を" * (MILLION - 1) + "\n", "", 0))

    def test_many_sentences(self):
        out, err, status = self.run_script("「あ」を表示。" * 100_000)
        self.assertEqual((out, err, status), ("あ\n" * 100_000, "", 0))

    def test_only_full_stops(self):
        out, err, status = self.run_script("。" * MILLION + "「あ」を表示\n")
        self.assertEqual((out, err, status), ("あ\n", "", 0))

    def test_sum(self):
        self.expect("1＋" * (MILLION // 2) + "1を表示\n", f"{MILLION // 2 + 1}\n")

    def test_sum_of_words(self):
        self.expect("ア＝2\n（" + "ア＋" * (MILLION // 2) + "ア）を表示\n", f"{MILLION + 2}\n")

    def test_joining(self):
        joined = "「1」＆" * (MILLION // 4)
        self.expect(f"ア＝{joined}「」\n文字数（ア）を表示\n", f"{MILLION // 4}\n")

    def test_holes(self):
        self.expect("ア＝1\nイ＝「" + "［ア］" * (MILLION // 3) + "」\n文字数（イ）を表示\n",
                    f"{MILLION // 3}\n")

    def test_list(self):
        self.expect("ア＝" + "1," * (MILLION // 2) + "7\nア（500001）を表示\n", "7\n")

    def test_conditions(self):
        self.expect("もし " + "［1＝1］" * (MILLION // 5) + " なら 「真」を表示\n", "真\n")

    def test_cases(self):
        self.expect("1について分岐\n" + "2," * (MILLION // 2) + "1の場合\n「着」を表示\n分岐終わり\n",
                    "着\n")


class Brackets(Case):
    PAIRS = ["（）", "()", "「」", "［］"]

    def test_row(self):
        for pair in self.PAIRS:
            with self.subTest(pair=pair):
                _, err, status = self.run_script(pair * BRACKETS + "を表示\n")
                self.assertEqual((err, status), ("", 0))

    def test_unbalanced(self):
        for opener, closer in self.PAIRS:
            for mark in (opener, closer):
                with self.subTest(mark=mark):
                    _, err, status = self.run_script(mark * BRACKETS + "1を表示\n")
                    self.assertEqual(status, 0)
                    if opener in "（(":
                        self.assertIn(f"が{BRACKETS}ヶ所不足しています", err)

    def test_nested_quotes(self):
        out, err, status = self.run_script("「" * BRACKETS + "1" + "」" * BRACKETS + "を表示\n")
        self.assertEqual((len(out), err, status), (2 * BRACKETS, "", 0))

    def test_few_nested_in_words(self):
        for opener, closer in ("（）", "()"):
            with self.subTest(opener=opener):
                self.expect(opener * 1000 + "「1」" + closer * 1000 + "を表示\n", "1\n")
                self.expect("ア＝" + f"絶対値{opener}" * 1000 + "-1" + closer * 1000 + "\nアを表示\n",
                            "1\n")

    def test_nested_in_words(self):
        for opener, closer in ("（）", "()"):
            with self.subTest(opener=opener):
                nested = opener * BRACKETS + "あ" + closer * BRACKETS
                self.expect_too_deep(f"ア＝{nested}\n「次」を表示\n")

    def test_nested_calls(self):
        for opener, closer in ("（）", "()"):
            with self.subTest(opener=opener):
                nested = f"絶対値{opener}" * BRACKETS + "1" + closer * BRACKETS
                self.expect_too_deep(f"ア＝{nested}\n「次」を表示\n")

    def test_nested_indexes(self):
        nested = "ア（" * BRACKETS + "1" + "）" * BRACKETS
        self.expect_too_deep(f"ア＝1,2\nイ＝{nested}\n「次」を表示\n")

    def test_nested_indexes_in_a_loop(self):
        nested = "ア（" * 3000 + "1" + "）" * 3000
        self.expect(f"ア＝1,2\n3回、繰り返す\nイ＝{nested}\n繰り返し終わり\nイを表示\n", "1\n",
                    memory=GIGABYTE)

    def test_nested_arithmetic(self):
        for opener, closer in ("（）", "()"):
            with self.subTest(opener=opener):
                nested = f"{opener}1＋" * BRACKETS + "1" + closer * BRACKETS
                self.expect(f"ア＝{nested}\nアを表示\n", f"{BRACKETS + 1}\n")

    def test_bracket_that_never_closes(self):
        out, err, status = self.run_script("あ（1+2を表示\nい（1＋2を表示\n")
        self.assertEqual(status, 0)
        self.assertIn("）が1ヶ所不足しています", err)
        self.assertNotIn(TOO_DEEP, err)
        self.assertEqual(out.splitlines()[0], "あ（1+2")


class Loops(Case):
    """Bodies that are long or deep, run often enough to be compiled."""

    def loop(self, lines):
        return "\n".join(["ア＝0", "3回、繰り返す", *lines, "繰り返し終わり", "アを表示"]) + "\n"

    def test_nested_blocks(self):
        lines = ["もし ア＞＝0 なら"] * 20000 + ["ア＝ア＋1"] + ["もし終わり"] * 20000
        self.expect(self.loop(lines), "3\n")

    def test_many_branches(self):
        lines = ["もし ア＝-1 なら", "ア＝1"]
        for number in range(5000):
            lines += [f"他でもし ア＝{number + 10} なら", "ア＝ア＋1"]
        self.expect(self.loop([*lines, "他なら", "ア＝ア＋1", "もし終わり"]), "3\n")

    def test_nested_loops(self):
        lines = ["1回、繰り返す"] * 3000 + ["ア＝ア＋1"] + ["繰り返し終わり"] * 3000
        self.expect(self.loop(lines), "3\n")

    def test_long_body(self):
        self.expect(self.loop(["ア＝ア＋1"] * 100000), "300000\n")

    def test_long_sum(self):
        self.expect(self.loop(["イ＝" + "＋".join(["1"] * 100000), "ア＝ア＋イ"]), "300000\n")


class Recursion(Case):
    FORMS = {
        "command": "手順は　甲\n甲\n終わり\n甲\n",
        "word": "手順は　甲\nア＝甲\n終わり\n甲\n",
        "argument": "手順は　甲（［ア］を）\n（ア＋1）を甲\n終わり\n1を甲\n",
        "word with argument": "手順は　甲（ア）\nア＝甲（ア＋1）\n終わり\nア＝甲（1）\n",
        "hole": "手順は　甲\nア＝「［甲］」\n終わり\n甲\n",
        "sum": "手順は　甲\nア＝甲＋1\n終わり\n甲\n",
        "joining": "手順は　甲\nア＝甲＆1\n終わり\n甲\n",
        "condition": "手順は　甲\nもし 甲＝1 なら\nもし終わり\n終わり\n甲\n",
        "if": "手順は　甲\nもし 1＝1 なら 甲\n終わり\n甲\n",
        "if block": "手順は　甲\nもし 1＝1 なら\n甲\nもし終わり\n終わり\n甲\n",
        "loop": "手順は　甲\n1回、繰り返し\n甲\n繰り返し終わり\n終わり\n甲\n",
        "loop in a line": "手順は　甲\n1回、「甲」を繰り返せ\n終わり\n甲\n",
        "branch": "手順は　甲\n1について分岐\n1の場合\n甲\n分岐終わり\n終わり\n甲\n",
        "sentences": "手順は　甲\n甲。甲\n終わり\n甲\n",
        "text": "手順は　甲\n「甲」を日本語処理\n終わり\n甲\n",
        "text of itself": "甲＝「甲を日本語処理」\n甲を日本語処理\n",
        "run of itself": "「test.vlm」を実行\n",
        "two runs of itself": "「test.vlm」を実行\n「test.vlm」を実行\n",
        "reference to itself": "手順は　甲\n「test.vlm」を参照\n甲\n終わり\n甲\n",
    }

    def test_forms(self):
        for name, source in self.FORMS.items():
            with self.subTest(form=name):
                self.expect_too_deep(source + "「次」を表示\n")

    def test_small_stack(self):
        self.expect_too_deep(self.FORMS["word"] + "「次」を表示\n", stack=1 << 20)
        self.expect("「次」を表示\n", "次\n", stack=1 << 20)
        self.expect("（" * 400 + "「1」" + "）" * 400 + "を表示\n", "1\n", stack=1 << 20)

    def test_unlimited_stack(self):
        for form in ("command", "word", "text"):
            self.expect_too_deep(self.FORMS[form] + "「次」を表示\n",
                                 stack=resource.RLIM_INFINITY)

    def test_reports_that_fail(self):
        source = "手順は　甲\nん\n終わり\nエラーは、甲\n甲\n「次」を表示\n"
        _, _, status = self.run_script(source)
        self.assertEqual(status, 0)

    def test_sentence_within_sentence(self):
        self.expect("もし 1＝1 なら " * 1000 + "「次」を表示\n", "次\n")
        self.expect_too_deep("もし 1＝1 なら " * BLOCKS + "「次」を表示\n")


class Blocks(Case):
    @property
    def levels(self):
        """How deep blocks stand in one another: a sanitizer's frames are ten times as large."""
        return BLOCKS // 20 if self.sanitized else BLOCKS

    def test_deep_if(self):
        self.expect("もし 1＝1 なら\n" * self.levels + "「中」を表示\n" + "もし終わり\n" * self.levels +
                    "「次」を表示\n", "中\n次\n")

    def test_if_without_ends(self):
        out, err, status = self.run_script("もし 1＝1 なら\n" * self.levels + "「中」を表示\n")
        self.assertIn("「もし終わり」がありません。", err)
        self.assertIn("中\n", out)
        self.assertEqual(status, 0)

    def test_deep_loops(self):
        for count, wanted in ((1, "中\n次\n"), (0, "次\n")):
            with self.subTest(count=count):
                self.expect(f"{count}回、繰り返し\n" * self.levels + "「中」を表示\n" +
                            "繰り返し終わり\n" * self.levels + "「次」を表示\n", wanted)

    def test_loops_without_ends(self):
        _, _, status = self.run_script("1回、繰り返し\n" * self.levels + "「中」を表示\n")
        self.assertEqual(status, 0)

    def test_deep_branches(self):
        self.expect("1について分岐\n1の場合\n" * self.levels + "「中」を表示\n" +
                    "分岐終わり\n" * self.levels + "「次」を表示\n", "中\n次\n")

    def test_many_else_ifs(self):
        self.expect("もし 1＝2 なら\n" + "他でもし、1＝2 なら\n" * 20_000 + "もし終わり\n「次」を表示\n",
                    "次\n")


class Amounts(Case):
    def test_huge_loop_count(self):
        out, _, status = self.run_script(
            "3000000000回、繰り返し\n「中」を表示\n繰り返し終わり\n「次」を表示\n")
        self.assertEqual((out[-2:], status), ("次\n", 0))

    def test_huge_index(self):
        for target in ("A（1000000000）", "A（1000000000，1）", "A（1，1000000000）"):
            with self.subTest(target=target):
                out, err, status = self.run_script(f"A＝1\n{target}＝1\nAを表示\n", memory=GIGABYTE)
                self.assertEqual((out, status), ("1\n", 0))
                self.assertIn("エラー番号11］", err)
        self.expect("A＝1\nA（1000000000）を表示\n「次」を表示\n", "\n次\n", memory=GIGABYTE)

    def test_text_that_doubles(self):
        # Without a limit of memory only as far as a text is sure to fit.
        passes = 24 if self.sanitized else 64
        out, err, status = self.run_script(
            f"A＝「あいう」\n{passes}回、繰り返し\nA＝A＆A\n繰り返し終わり\n文字数（A）を表示\n",
            60, memory=GIGABYTE // 2)
        self.assertEqual((err, status), ("", 0))
        self.assertEqual(int(out) % 3, 0)
        self.assertGreater(int(out), 3 * MILLION)

    def test_huge_repetition(self):
        if not self.sanitized:
            self.expect("A＝7\nA＝繰り返せ（2000000000，「あいう」）\n文字数（A）を表示\n", "0\n",
                        memory=GIGABYTE)
        self.expect("A＝繰り返せ（1000000，「あ」）\n文字数（A）を表示\n", f"{MILLION}\n")


class Sources(Case):
    def test_binary(self):
        for seed in range(5):
            with self.subTest(seed=seed):
                data = random.Random(seed).randbytes(300_000)
                _, _, status = self.run_script(data, 60)
                self.assertEqual(status, 0)

    def test_nothing(self):
        for source in (b"", b"\xef\xbb\xbf", b"\r\n", b"\0", b"#!", b"\x1a"):
            with self.subTest(source=source):
                out, _, status = self.run_script(source)
                self.assertEqual((out, status), ("", 0))

    def expect_unreadable(self, words, **options):
        out, err, status = self.finish(self.start(words, **options))
        self.assertEqual((out, status), ("", 2))
        self.assertEqual(len(err.splitlines()), 1, err)

    def test_missing(self):
        self.expect_unreadable(["missing.vlm"])

    def test_folder(self):
        self.expect_unreadable([str(self.folder)])

    def test_without_permission(self):
        """As an unprivileged user: nothing is unreadable for root."""
        self.write("「読めた」を表示\n")
        self.script.chmod(0)
        self.folder.chmod(0o755)
        if os.geteuid() != 0:
            self.expect_unreadable([str(self.script)])
            return
        setpriv = shutil.which("setpriv")
        self.assertIsNotNone(setpriv, "as root this test needs setpriv (package util-linux)")
        runtime = self.folder / "runtime"
        shutil.copy(self.runtime, runtime)
        process = subprocess.Popen(
            [setpriv, "--reuid=65534", "--regid=65534", "--clear-groups", runtime, self.script],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            cwd=self.folder, env=self.env)
        out, err, status = self.finish(process)
        self.assertEqual((out, status, len(err.splitlines())), ("", 2, 1), err)


class Surroundings(Case):
    HELLO = "「今日は」を表示\n"

    def test_full_disk(self):
        for count in (1, 100_000):
            with self.subTest(count=count), open("/dev/full", "wb") as full:
                self.write(f"{count}回、繰り返し\n「今日は」を表示\n繰り返し終わり\n")
                _, err, status = self.finish(self.start(stdout=full))
                self.assertEqual((len(err.splitlines()), status), (1, 1), err)

    def test_closed_pipe(self):
        self.write("永遠に繰り返し\n「今日は」を表示\n繰り返し終わり\n")
        process = self.start()
        self.assertTrue(process.stdout.readline())
        process.stdout.close()
        err = process.stderr.read().decode("utf-8")
        process.stderr.close()
        self.assertEqual((process.wait(30), len(err.splitlines())), (1, 1), err)

    def run_shell(self, redirection):
        command = f'exec "$0" "$1" {redirection}'
        process = subprocess.Popen(["/bin/sh", "-c", command, self.runtime, str(self.script)],
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, cwd=self.folder, env=self.env)
        return self.finish(process)

    def test_closed_input(self):
        self.write("ア＝入力（「名は」）\n「［ア］様」を表示\n")
        out, err, status = self.run_shell("<&-")
        self.assertEqual((out, err, status), ("名は\n様\n", "", 0))

    def test_closed_output(self):
        """What is meant for the terminal never lands in a file that took its place."""
        self.write(self.HELLO + "「中身」を「file.txt」へ保存\n" + self.HELLO)
        _, _, status = self.run_shell(">&-")
        self.assertEqual(status, 1)
        self.assertNotIn("今日は".encode(), (self.folder / "file.txt").read_bytes())

    def test_everything_closed(self):
        self.write(self.HELLO + "んを表示\nん\n")
        _, _, status = self.run_shell("<&- >&- 2>&-")
        self.assertEqual(status, 1)

    def test_no_home(self):
        for name in list(self.env):
            if name in ("HOME", "TMPDIR") or name.startswith("XDG_"):
                del self.env[name]
        self.expect(self.HELLO, "今日は\n")

    def test_home_that_is_missing(self):
        for name in ("HOME", "TMPDIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"):
            self.env[name] = "/nowhere/at/all"
        self.expect(self.HELLO, "今日は\n")

    def test_read_only_folder(self):
        place = self.folder / "readonly"
        place.mkdir()
        self.write(self.HELLO)
        place.chmod(0o555)
        self.addCleanup(place.chmod, 0o755)
        out, err, status = self.finish(self.start(cwd=place))
        self.assertEqual((out, err, status), ("今日は\n", "", 0))

    def test_folder_that_is_gone(self):
        place = self.folder / "gone"
        place.mkdir()
        self.write(self.HELLO)
        command = 'rmdir "$2"; exec "$0" "$1"'
        process = subprocess.Popen(
            ["/bin/sh", "-c", command, self.runtime, str(self.script), str(place)],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, cwd=place,
            env=self.env)
        out, err, status = self.finish(process)
        self.assertEqual((out, err, status), ("今日は\n", "", 0))


class Interruption(Case):
    FORMS = {
        "loop": "永遠に繰り返し\nア＝ア＋1\n繰り返し終わり\n",
        "loop in a line": "永遠に「ア＝ア＋1」を繰り返せ\n",
        "jump": "印：\n始：\nア＝ア＋1\n始へ飛べ\n",
        "stand by": "待機\n",
        "wait": "1000を待て\n",
        "input": "ア＝入力（「名は」）\n「次」を表示\n",
        "question": "ア＝質問（「名は」）\n「次」を表示\n",
        "nested run": "「inner.vlm」を実行\n「次」を表示\n永遠に繰り返し\n繰り返し終わり\n",
    }

    def interrupt(self, source):
        """Interrupts a run that has said that it is under way."""
        ready = "手順は　済\n終わり\n"
        self.write(ready + "「始」を表示\nア＝質問（「準備」）\n" + source)
        (self.folder / "inner.vlm").write_text("永遠に繰り返し\nア＝ア＋1\n繰り返し終わり\n",
                                               encoding="utf-8")
        process = self.start(stdin=subprocess.PIPE)
        self.assertEqual(process.stdout.readline().decode(), "始\n")
        self.assertEqual(process.stdout.readline().decode(), "準備\n")
        process.stdin.write(b"1\n")
        process.stdin.flush()
        time.sleep(0.5)
        self.assertIsNone(process.poll(), "ended by itself")
        process.send_signal(signal.SIGINT)
        # The input stays open: what waits for it must be interrupted, not see its end.
        try:
            status = process.wait(20)
        except subprocess.TimeoutExpired:
            process.kill()
            process.communicate()
            self.fail("no end after an interruption")
        out, err = process.communicate()
        self.assertNotIn("次", out.decode("utf-8"))
        self.assertEqual((status, err), (130, b""))

    def test_forms(self):
        for name, source in self.FORMS.items():
            with self.subTest(form=name):
                self.interrupt(source)


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    Case.runtime = str(pathlib.Path(sys.argv[1]).resolve())
    Case.sanitized = find_sanitizer(Case.runtime)
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])


if __name__ == "__main__":
    main()
