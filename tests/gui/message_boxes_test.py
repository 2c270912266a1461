#!/usr/bin/env python3
"""Message boxes of scripts: every button by keyboard and mouse, icons, titles, error reports."""

from display import SHOW_RESULT, SIZE, WindowCase, main, wait_for

# Style and the answers of the buttons from the left, then the answer of Esc (None: nothing happens).
SETS = [
    ("0", [1], 1),
    ("ＯＫとキャンセル", [1, 2], 2),
    ("2", [3, 4, 5], None),
    ("はいといいえとキャンセル", [6, 7, 2], 2),
    ("はいといいえ", [6, 7], None),
    ("5", [4, 2], 2),
]

# The row of buttons: from the middle of one to that of the next, and from the box's lower edge.
PITCH = 94
LOWER = 27

# Where the icon's disc or triangle is filled and shows its own colour.
ICON_SPOT = (14 + 6, 20 + 10)
WARNING_SPOT = (14 + 9, 20 + 20)


def ask(style):
    return (f"答え＝質問（「どうしますか」、{style}、「問い」）", *SHOW_RESULT)


class Buttons(WindowCase):
    def test_each_button_by_the_mouse(self):
        for style, answers, _ in SETS:
            for index, answer in enumerate(answers):
                with self.subTest(style=style, answer=answer):
                    program = self.run_script(*ask(style))
                    window = program.window("問い")
                    _, _, width, height = program.geometry(window)
                    x = width / 2 + (index - (len(answers) - 1) / 2) * PITCH
                    program.click(window, int(x), height - LOWER)
                    self.assert_result(program, answer)

    def test_each_button_by_the_keyboard(self):
        for style, answers, _ in SETS:
            for index, answer in enumerate(answers):
                with self.subTest(style=style, answer=answer):
                    program = self.run_script(*ask(style))
                    program.window("問い")
                    program.key(*["Right"] * index, "Return")
                    self.assert_result(program, answer)

    def test_tab_and_space(self):
        program = self.run_script(*ask("はいといいえ"))
        program.window("問い")
        program.key("Tab", "space")
        self.assert_result(program, 7)

    def test_letters(self):
        for style, letter, answer in [("2", "a", 3), ("2", "r", 4), ("2", "alt+i", 5), ("4", "y", 6), ("4", "alt+n", 7)]:
            with self.subTest(letter=letter):
                program = self.run_script(*ask(style))
                program.window("問い")
                program.key(letter)
                self.assert_result(program, answer)

    def test_escape(self):
        for style, answers, closing in SETS:
            with self.subTest(style=style):
                program = self.run_script(*ask(style))
                program.window("問い")
                program.key("Escape")
                if closing is None:
                    program.key("Right", "Return")
                self.assert_result(program, answers[1] if closing is None else closing)

    def test_closing_by_the_window_manager(self):
        for style, answers, closing in SETS:
            with self.subTest(style=style):
                program = self.run_script(*ask(style))
                program.window("問い")
                program.key("alt+F4")
                if closing is None:
                    program.key("Right", "Return")
                self.assert_result(program, answers[1] if closing is None else closing)


class Looks(WindowCase):
    def icon(self, style, spot):
        program = self.run_script(f"「文」を {style} で 表示")
        window = program.window("Velmrun")
        colour = program.colour(window, *spot)
        program.key("Return")
        self.assert_quiet_end(program)
        return colour

    def test_icons(self):
        red, green, blue = self.icon("禁止", ICON_SPOT)
        self.assertTrue(red > 150 > green and blue < 100, (red, green, blue))
        for style in ("質問", "情報"):
            red, green, blue = self.icon(style, ICON_SPOT)
            self.assertTrue(blue > 150 > green and red < 100, (red, green, blue))
        red, green, blue = self.icon("警告", WARNING_SPOT)
        self.assertTrue(red > 200 and green > 150 and blue < 100, (red, green, blue))

    def test_no_icon(self):
        red, green, blue = self.icon("0", ICON_SPOT)
        self.assertLess(max(red, green, blue) - min(red, green, blue), 20)

    def test_titles(self):
        program = self.run_script("「一」を表示", "タイトルは 「新しい題」", "「二」を表示")
        program.window("Velmrun")
        program.key("Return")
        program.window("新しい題")
        program.key("Return")
        self.assert_quiet_end(program)

    def test_a_huge_text_stays_on_the_screen(self):
        program = self.run_script(
            "文＝「行」", "17回 繰り返す", "文＝文＆改行＆文", "繰り返し終わり", "文を表示"
        )
        window = program.window("Velmrun")
        x, y, width, height = program.geometry(window)
        self.assertTrue(x >= 0 and y >= 0 and x + width <= SIZE[0] and y + height <= SIZE[1])
        self.assertGreater(height, SIZE[1] // 2)
        program.key("Next", "Return")
        self.assert_quiet_end(program)

    def test_twice_the_size_on_a_fine_screen(self):
        sizes = []
        for scale in ("1", "2"):
            program = self.run_script("「文」を表示", environment={"QT_SCALE_FACTOR": scale})
            sizes.append(program.geometry(program.window("Velmrun"))[2:])
            program.key("Return")
            self.assert_quiet_end(program)
        for once, twice in zip(*sizes):
            self.assertAlmostEqual(twice, 2 * once, delta=0.1 * once)


class Reports(WindowCase):
    # Two unknown commands, each of which is an error of its own.
    LINES = ("「a」をほげほげ", "「b」をほげほげ", "答え＝「続き」", *SHOW_RESULT)

    def test_ok_goes_on(self):
        program = self.run_script(*self.LINES)
        for _ in range(2):
            window = program.window("Velmrun")
            program.key("Return")
            wait_for(lambda: window not in program.windows(), "the end of the box")
        self.assert_result(program, "続き")

    def test_cancel_stops(self):
        for keys in (["Escape"], ["Right", "Return"]):
            with self.subTest(keys=keys):
                program = self.run_script(*self.LINES)
                program.window("Velmrun")
                program.key(*keys)
                self.assert_quiet_end(program)

    def test_a_mode_without_cancel(self):
        program = self.run_script("エラーは 続ける", self.LINES[0], "答え＝1", *SHOW_RESULT)
        program.window("Velmrun")
        program.key("Escape")
        self.assert_result(program, 1)


if __name__ == "__main__":
    main()
