#!/usr/bin/env python3
"""Long runs and hard use of windows: what is opened and closed leaves nothing behind, and what a script
does to its windows from within their own events, or while a message waits, ends in order.
"""

import re
import time

from display import WindowCase, main, wait_for

ROUNDS = 1000
MOST_GROWTH = 2000  # kilobytes

# The memory of the program, from one of its children.
NOTE_MEMORY = "「sh -c \"grep VmRSS /proc/$PPID/status >> memory\"」を起動して待て"


def procedure(name, *lines):
    return ("手順は　" + name, *lines, "終わり")


class Endurance(WindowCase):
    def test_a_thousand_windows_leave_no_memory_behind(self):
        program = self.run_script(
            "ウィンドウ2を作る", f"Iに1から{ROUNDS}まで繰り返す", "ウィンドウ1を作る", "ボタン1を作る", "テキスト1を作る",
            "ピクチャー1を作る", "タイマー1を作る", "タイマー1の間隔は 5", "タイマー1の有効は 1", "メニュー「あ」を作る",
            "サブメニュー「い」を作る", "ウィンドウ1を閉じる", f"もし I＝200 なら {NOTE_MEMORY}",
            f"もし I＝{ROUNDS} なら {NOTE_MEMORY}", "繰り返し終わり")
        self.assert_quiet_end(program)
        early, late = map(int, re.findall(r"\d+", (self.folder / "memory").read_text()))
        self.assertLess(late - early, MOST_GROWTH)

    def test_a_storm_of_timers(self):
        timers = [line for number in range(1, 21) for line in (
            f"タイマー{number}を作る", f"タイマー{number}の間隔は 1", f"タイマー{number}の有効は 1")]
        handlers = [line for number in range(1, 21) for line in procedure(
            f"ウィンドウ1のタイマー{number}が時間になった", "回数＝回数＋1", "休憩")]
        program = self.run_script(
            "回数＝0", "ウィンドウ1を作る", *timers, "2を待て", "もし 回数＞100 なら 「十分」を「out.txt」へ保存", "終了",
            *handlers)
        self.assert_quiet_end(program)
        self.assertTrue((self.folder / "out.txt").is_file())

    def test_an_event_that_raises_itself_ends_with_one_report(self):
        """Timers go on behind the report, and find no room either."""
        program = self.run_script(
            "ウィンドウ1を作る", "ウィンドウ1の名前は 「窓」", "テキスト1を作る", "タイマー1を作る", "タイマー1の間隔は 20",
            "タイマー1の有効は 1", "タイマー2を作る", "タイマー2の間隔は 20", "タイマー2の有効は 1", "深さ＝0",
            "テキスト1の内容は 「あ」",
            *procedure("ウィンドウ1のテキスト1が変化", "深さ＝深さ＋1", "テキスト1の内容は 深さ"),
            *procedure("ウィンドウ1のタイマー1が時間になった", "テキスト1の内容は 「あ」"),
            *procedure("ウィンドウ1のタイマー2が時間になった", "テキスト1の内容は 「い」"))
        program.window("Velmrun")
        time.sleep(0.5)
        self.assertEqual(list(program.windows().values()).count("Velmrun"), 1)
        program.key("Return")
        self.assert_quiet_end(program)

    def test_a_window_ends_under_a_message(self):
        program = self.run_script(
            "ウィンドウ1を作る", "ウィンドウ2を作る", "ウィンドウ2の名前は 「下」", "タイマー1を作る", "タイマー1の間隔は 300",
            "タイマー1の有効は 1", "タイトルは 「知らせ」", "「読む」を表示", "「済み」を「out.txt」へ保存", "終了",
            *procedure("ウィンドウ2のタイマー1が時間になった", "ウィンドウ2を閉じる"))
        program.window("知らせ")
        program.gone("下")
        self.assertFalse((self.folder / "out.txt").exists())
        program.window("知らせ")
        program.key("Return")
        self.assert_quiet_end(program)
        self.assertTrue((self.folder / "out.txt").is_file())

    def test_a_window_ends_while_another_event_of_it_runs(self):
        """The procedure of its size waits, and a timer closes the window meanwhile."""
        program = self.run_script(
            "ウィンドウ2を作る", "ウィンドウ1を作る", "ボタン1を作る", "タイマー1を作る", "タイマー1の間隔は 100",
            "タイマー1の有効は 1", "ウィンドウ1の中の大きさは 250,150", "「済み」を「out.txt」へ保存", "終了",
            *procedure("ウィンドウ1の大きさが変わる", "0.4を待て", "0.1を待て"),
            *procedure("ウィンドウ1のタイマー1が時間になった", "ウィンドウ1を閉じる"))
        self.assert_quiet_end(program)
        self.assertTrue((self.folder / "out.txt").is_file())


class EndWithinEvents(WindowCase):
    """The window closes, and the run ends, in each kind of event."""

    CAUSES = {
        "ボタン1をクリック": ("mousemove", "--window", "{0}", "30", "25", "click", "1"),
        "でキーボードを押す": ("key", "F5"),
        "ボタン1でマウスのボタンを下げる": ("mousemove", "--window", "{0}", "30", "25", "click", "1"),
        "でマウスが動く": ("mousemove", "--window", "{0}", "150", "90", "mousemove", "--window", "{0}", "160", "95"),
        "の大きさが変わる": ("windowsize", "{0}", "222", "111"),
        "のファイルの開くをクリック": ("key", "alt+f", "sleep", "0.3", "key", "Down", "Return"),
        "を閉じる": ("key", "alt+F4"),
        "のタイマー1が時間になった": ("sleep", "0.1"),
    }

    def ends(self, what):
        for suffix, cause in self.CAUSES.items():
            name = "ウィンドウ1" + ("の" if suffix[0] in "ボタ" else "") + suffix
            with self.subTest(name=name):
                # A menu bar that comes changes the size as well.
                menu = ("メニュー「ファイル(&F)」を作る", "サブメニュー「開く」を作る") if "開く" in suffix else ()
                timer = ("タイマー1の有効は 1",) if "タイマー" in suffix else ()
                program = self.run_script(
                    "ウィンドウ1を作る", "ウィンドウ1の名前は 「窓」", "ボタン1を作る", "ボタン1の位置と大きさは 10,10,60,25",
                    *menu, "タイマー1を作る", "タイマー1の間隔は 500",
                    *timer, "待機", *procedure(name.replace("のファイルの", "のファイル(&F)の"), *what))
                window = program.window("窓")
                wait_for(lambda: self.acts(program, window, cause), f"the end in {name}")
                self.assert_quiet_end(program)

    def acts(self, program, window, cause):
        self.display.read("xdotool", *(word.format(window) for word in cause))
        time.sleep(0.2)
        return program.process.poll() is not None

    def test_the_window_closes(self):
        self.ends(("ウィンドウ1を閉じる",))

    def test_the_run_ends(self):
        self.ends(("終了",))

    def test_everything_goes_and_events_are_pumped(self):
        self.ends(("ボタン1を消す", "休憩", "0.05を待て", "ウィンドウ1を閉じる", "休憩", "0.05を待て", "終了"))


class Rubbish(WindowCase):
    def test_values_that_make_no_sense(self):
        kinds = ("ボタン", "テキスト", "文章テキスト", "拡張テキスト", "リスト", "選択リスト", "ラベル", "ピクチャー", "イメージ", "フレーム",
                 "横スクロールバー", "チェック", "オプション", "フォルダリスト", "ドライブリスト")
        values = {"大きさ": ("0,0", "-5,-5", "100000,100000"), "位置": ("-100000,1E30", "99999,99999"),
                  "フォントサイズ": ("0", "-3", "10000"), "フォント名": ("「無い」", "「」"), "絵": ("「broken.bmp」", "「無い.png」"),
                  "色": ("「変」", "1E20"), "内容": ("長い",), "番号": ("-7", "99999"), "最大値": ("1E10", "-1"),
                  "表示場所": ("「自分」", "ボタン1"), "選択スタート": ("-4", "1E9"), "タブインデックス": ("-1", "1E9")}
        (self.folder / "broken.bmp").write_bytes(b"BM" + bytes(range(40)))
        lines = [f"{kind}1の{name}は {value}" for kind in kinds
                 for name, choices in values.items() for value in choices]
        program = self.run_script(
            "ウィンドウ1を作る", "エラーは 報告", "長い＝「あ」", "15回、繰り返す", "長い＝長い＆長い", "繰り返し終わり",
            *(f"{kind}1を作る" for kind in kinds), *lines, "ピクチャー1の大きさは 60000,60000", "場所は ピクチャー1",
            "前へ　10", "0.1を待て", "「済み」を「out.txt」へ保存", "終了")
        self.assert_quiet_end(program)
        self.assertTrue((self.folder / "out.txt").is_file())


if __name__ == "__main__":
    main()
