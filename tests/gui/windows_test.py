#!/usr/bin/env python3
"""Windows of scripts on a display: what is clicked, typed, dragged and closed there reaches the script.

A script tells what it heard by the title of its window.
"""

import subprocess
import time

from display import WindowCase, main, wait_for

WHITE, RED, BLUE, BLACK = (255, 255, 255), (255, 0, 0), (0, 0, 255), (0, 0, 0)

# A window of 300 by 200 pixels in the corner of the screen.
WINDOW = ("ウィンドウ1を作る", "ウィンドウ1の位置は 40,40", "ウィンドウ1の中の大きさは 300,200",
          "ウィンドウ1の名前は 「用意」")


def procedure(name, *lines):
    return ("手順は　" + name, *lines, "終わり")


def heard(name, what):
    """A procedure that gives the window a title."""
    return procedure(name, f"ウィンドウ1の名前は {what}")


class ScriptWindows(WindowCase):
    def run_window(self, *lines, environment=None):
        """Runs a script behind WINDOW; the program and its window once it is up."""
        program = self.run_script(*WINDOW, *lines, environment=environment)
        return program, program.window("用意")

    def close(self, program, title):
        program.window(title)
        program.key("alt+F4")
        self.assert_quiet_end(program)


class Controls(ScriptWindows):
    def test_a_button_is_clicked(self):
        program, window = self.run_window(
            "ボタン1を作る", "ボタン1の位置は 20,30", "待機",
            *heard("ウィンドウ1のボタン1をクリック", "この名前＆「を押した」"))
        program.click(window, 40, 40)
        self.close(program, "ボタンを押した")

    def test_text_is_typed_and_the_default_button_pressed(self):
        program, window = self.run_window(
            "テキスト1を作る", "テキスト1の位置と大きさは 10,10,150,22", "ボタン1を作る",
            "ボタン1の位置は 10,50", "ボタン1のエンターは 1", "テキスト1に焦点", "待機",
            *heard("ウィンドウ1のボタン1をクリック", "「内容は」＆テキスト1の内容"))
        program.click(window, 40, 20)
        program.type("abc 12")
        program.key("Return")
        self.close(program, "内容はabc 12")

    def test_an_item_of_a_list_is_picked(self):
        program, window = self.run_window(
            "リスト1を作る", "リスト1の位置と大きさは 10,10,120,100",
            "リスト1の一覧は 「赤,青,緑」", "待機",
            *heard("ウィンドウ1のリスト1をクリック", "リスト1の番号＆リスト1の内容"))
        program.click(window, 40, 20)
        self.close(program, "0赤")

    def test_checks_and_options(self):
        program, window = self.run_window(
            "チェック1を作る", "チェック1の位置は 10,10", "オプション1を作る",
            "オプション1の位置は 10,40", "オプション2を作る", "オプション2の位置は 10,70", "待機",
            *heard("ウィンドウ1のチェック1をクリック", "「チ」＆チェック1のチェック"),
            *heard("ウィンドウ1のオプションをクリック",
                   "「オ」＆オプション1のチェック＆オプション2のチェック"))
        program.click(window, 16, 18)
        program.window("チ1")
        program.click(window, 16, 18)
        program.window("チ0")
        program.click(window, 16, 48)
        program.window("オ10")
        program.click(window, 16, 78)
        self.close(program, "オ01")

    def test_a_control_that_removes_itself(self):
        program, window = self.run_window(
            "ボタン1を作る", "ボタン1の位置は 20,30", "待機",
            *procedure("ウィンドウ1のボタン1をクリック", "ボタン1を消す", "ウィンドウ1の名前は 「消えた」"))
        program.click(window, 40, 40)
        self.close(program, "消えた")

    def test_the_mouse_over_a_picture(self):
        program, window = self.run_window(
            "ピクチャー1を作る", "ピクチャー1の位置と大きさは 50,40,100,80", "待機",
            *heard("ウィンドウ1のピクチャー1でマウスのボタンを下げる",
                   "「［押したボタン］:［マウスの横］,［マウスの縦］」"))
        self.display.read("xdotool", "mousemove", "--window", window, "60", "60", "click", "3")
        self.close(program, "2:9,19")

    def test_a_scroll_bar(self):
        program, window = self.run_window(
            "横スクロールバー1を作る", "横スクロールバー1の位置と大きさは 10,10,200,17",
            "横スクロールバー1の最大値は 100", "横スクロールバー1の最小幅は 5", "待機",
            *heard("ウィンドウ1の横スクロールバー1をクリック", "横スクロールバー1の数字"))
        program.click(window, 203, 18)
        self.close(program, "5")


class Keys(ScriptWindows):
    def test_keys_with_modifiers(self):
        program, _ = self.run_window(
            "待機", *heard("ウィンドウ1でコントロール＋シフト＋Aを押す", "押したキー"))
        self.display.read("xdotool", "key", "ctrl+shift+a")
        self.close(program, "コントロール＋シフト＋A")

    def test_typed_characters(self):
        program, window = self.run_window(
            "テキスト1を作る", "テキスト1の位置は 10,10", "待機",
            *heard("ウィンドウ1のテキスト1にxを入力", "「エックス」"))
        program.click(window, 20, 18)
        program.type("x")
        self.close(program, "エックス")


class Menus(ScriptWindows):
    def test_an_entry_is_chosen(self):
        program, window = self.run_window(
            "メニュー「ファイル」を作る", "サブメニュー「新規」を作る", "サブメニュー「開く」を作る", "待機",
            *heard("ウィンドウ1のファイルの開くをクリック", "「開いた」"))
        time.sleep(0.3)  # the menu bar comes with the next turn of the events
        program.click(window, 20, 8)
        time.sleep(0.3)
        self.display.read("xdotool", "key", "Down", "Down", "Return")
        self.close(program, "開いた")


class Closing(ScriptWindows):
    def test_the_user_closes_the_last_window(self):
        program, _ = self.run_window("待機")
        self.close(program, "用意")

    def test_a_procedure_keeps_it_open_once(self):
        program, _ = self.run_window(
            "回数＝0", "待機",
            *procedure("ウィンドウ1を閉じる", "回数＝回数＋1", "ウィンドウ1の名前は 「閉じる［回数］」",
                       "もし 回数＝1 なら 閉じない"))
        program.key("alt+F4")
        self.close(program, "閉じる1")

    def test_another_window_stays(self):
        program = self.run_script(*WINDOW, "ウィンドウ2を作る", "ウィンドウ2の名前は 「二つ目」", "待機")
        program.window("二つ目")
        program.key("alt+F4")
        program.gone("二つ目")
        self.close(program, "用意")

    def test_the_end_of_the_run_within_an_event(self):
        program, window = self.run_window(
            "ボタン1を作る", "ボタン1の位置は 20,30", "待機",
            *procedure("ウィンドウ1のボタン1をクリック", "終了"))
        program.click(window, 40, 40)
        self.assert_quiet_end(program)

    def test_a_window_closes_in_its_own_event(self):
        program, window = self.run_window(
            "ボタン1を作る", "ボタン1の位置は 20,30", "待機",
            *procedure("ウィンドウ1のボタン1をクリック", "ウィンドウ1を閉じる"))
        program.click(window, 40, 40)
        self.assert_quiet_end(program)

    def test_a_modal_window_holds_the_sentence(self):
        program = self.run_script(
            *WINDOW, "ウィンドウ2を モーダルで 表示", "ウィンドウ1の名前は 「続き」", "待機")
        program.window("Velmrun")
        program.key("alt+F4")
        self.close(program, "続き")


class Timers(ScriptWindows):
    def test_a_timer_counts(self):
        program = self.run_script(
            *WINDOW, "回数＝0", "タイマー1を作る", "タイマー1の間隔は 50", "タイマー1の有効は 1", "待機",
            *procedure("ウィンドウ1のタイマー1が時間になった", "回数＝回数＋1",
                       "もし 回数＝5 なら タイマー1の有効は 0", "ウィンドウ1の名前は 「回数［回数］」"))
        self.close(program, "回数5")


class Drawing(ScriptWindows):
    def shows(self, program, window, x, y, colour):
        wait_for(lambda: program.colour(window, x, y) == colour, f"{colour} at {x},{y}")

    def test_the_turtle_draws(self):
        program, window = self.run_window(
            "ウィンドウ1の背景は 白", "色は 青", "位置は 100,150", "向きは 0", "前へ　100", "右へ　90",
            "前へ　100", "待機")
        self.shows(program, window, 100, 100, BLUE)
        self.shows(program, window, 150, 50, BLUE)
        self.assertEqual(program.colour(window, 150, 100), WHITE)
        self.close(program, "用意")

    def test_a_drawing_survives_covering_and_resizing(self):
        program, window = self.run_window(
            "ウィンドウ1の背景は 白", "色は 赤", "50,50から60,60で塗りつぶして四角形", "待機")
        self.shows(program, window, 70, 70, RED)
        cover = subprocess.Popen(["xev", "-geometry", "400x300+20+20"],
                                 env=self.display.environment, stdout=subprocess.DEVNULL)
        try:
            wait_for(lambda: self.display.read("xdotool", "search", "--name", "Event Tester"), "xev")
            time.sleep(0.3)
        finally:
            cover.kill()
            cover.wait()
        self.shows(program, window, 70, 70, RED)
        self.display.read("xdotool", "windowsize", window, "60", "60")
        wait_for(lambda: program.geometry(window)[2] == 60, "the small window")
        self.display.read("xdotool", "windowsize", window, "300", "200")
        wait_for(lambda: program.geometry(window)[2] == 300, "the large window")
        self.shows(program, window, 70, 70, RED)
        self.assertEqual(program.colour(window, 30, 70), WHITE)
        self.close(program, "用意")

    def test_pixels_are_doubled_on_a_fine_display(self):
        program, window = self.run_window(
            "ウィンドウ1の背景は 白", "色は 赤", "10,10から21,21で塗りつぶして四角形", "待機",
            environment={"QT_SCALE_FACTOR": "2"})
        self.shows(program, window, 30, 30, RED)
        self.assertEqual(program.colour(window, 18, 18), WHITE)
        self.assertEqual(program.colour(window, 20, 20), RED)
        self.assertEqual(program.geometry(window)[2:], (600, 400))
        self.close(program, "用意")

    def test_a_long_walk_stays_visible_and_can_be_stopped(self):
        program, window = self.run_window(
            "ウィンドウ1の背景は 白", "永遠に繰り返す", "前へ　1", "右へ　1", "繰り返し終わり")
        time.sleep(0.5)
        picture = program.colour(window, 150, 100)
        self.assertIsNotNone(picture)
        program.key("alt+F4")
        self.assert_quiet_end(program)


class LostDisplay(ScriptWindows):
    """Its own class: the display is gone afterwards."""

    def test_the_run_ends_in_order(self):
        program, _ = self.run_window("ボタン1を作る", "リスト1を作る", "待機")
        self.display.server.terminate()
        self.assertEqual(program.end()[:2], (1, ""))


if __name__ == "__main__":
    main()
