#!/usr/bin/env python3
"""Input boxes of scripts: typing, presets, cancelling."""

from display import SHOW_RESULT, WindowCase, main, wait_for

# The middles of the buttons, from the box's right and lower edge.
CANCEL = (54, 27)
OK = (148, 27)


class InputBoxes(WindowCase):
    def ask(self, *words):
        program = self.run_script(f"答え＝入力（{'、'.join(words)}）", *SHOW_RESULT)
        title = words[2].strip("「」") if len(words) > 2 else "Velmrun"
        return program, program.window(title)

    def click(self, program, window, place):
        _, _, width, height = program.geometry(window)
        program.click(window, width - place[0], height - place[1])

    def test_typing_and_enter(self):
        program, _ = self.ask("「名前は」")
        program.type("Hanako")
        program.key("Return")
        self.assert_result(program, "Hanako")

    def test_typing_and_the_mouse(self):
        program, window = self.ask("「名前は」", "「花子」", "「聞く」")
        program.type("abc")
        self.click(program, window, OK)
        self.assert_result(program, "abc")

    def test_the_preset_is_taken(self):
        program, _ = self.ask("「名前は」", "「花子」")
        program.key("Return")
        self.assert_result(program, "花子")

    def test_the_preset_is_edited(self):
        program, _ = self.ask("「名前は」", "「花子」")
        program.key("End")
        program.type("x")
        program.key("Return")
        self.assert_result(program, "花子x")

    def test_cancelling_is_the_empty_text(self):
        for keys in (["Escape"], ["alt+F4"], ["Tab", "Tab", "space"]):
            with self.subTest(keys=keys):
                program, _ = self.ask("「名前は」", "「花子」")
                program.key(*keys)
                self.assert_result(program, "")

    def test_cancelling_by_the_mouse(self):
        program, window = self.ask("「名前は」", "「花子」")
        self.click(program, window, CANCEL)
        self.assert_result(program, "")

    def test_ok_by_the_tab_key(self):
        program, _ = self.ask("「名前は」", "「花子」")
        program.key("Tab", "space")
        self.assert_result(program, "花子")

    def test_the_title_of_the_program(self):
        program = self.run_script("タイトルは 「道具箱」", "答え＝入力（「名前は」）", *SHOW_RESULT)
        program.window("道具箱")
        program.type("7")
        program.key("Return")
        self.assert_result(program, "7")

    def test_one_after_another(self):
        program = self.run_script(
            "A＝入力（「一つめ」、「1」、「問い一」）",
            "B＝入力（「二つめ」、「2」、「問い二」）",
            "答え＝A＆B",
            *SHOW_RESULT,
        )
        program.window("問い一")
        program.key("Return")
        program.window("問い二")
        program.type("9")
        program.key("Return")
        self.assert_result(program, "19")

    def test_a_number_can_be_reckoned_with(self):
        program = self.run_script("答え＝入力（「数は」）", "答え＝答え＊3", *SHOW_RESULT)
        program.window("Velmrun")
        program.type("14")
        program.key("Return")
        self.assert_result(program, "42")

    def test_copied_text_can_be_pasted(self):
        program = self.run_script("「うつす文」を表示", "答え＝入力（「名前は」）", *SHOW_RESULT)
        box = program.window("Velmrun")
        program.key("ctrl+c")
        program.key("Return")
        wait_for(lambda: box not in program.windows(), "the end of the box")
        program.window("Velmrun")
        program.key("ctrl+v", "Return")
        self.assert_result(program, "うつす文")


if __name__ == "__main__":
    main()
