#!/usr/bin/env python3
"""The input box of 入力: typing, preset, cancelling, titles."""

from display import SHOW_RESULT, WindowCase, main


def ask(arguments):
    return (f"答え＝入力（{arguments}）", *SHOW_RESULT)


class InputBoxes(WindowCase):
    def test_typed_text(self):
        program = self.run_script(*ask("「名は」、「」、「入力の題」"))
        program.window("入力の題")
        program.type("abc 12")
        program.key("Return")
        self.assert_result(program, "abc 12")

    def test_the_preset_stays(self):
        program = self.run_script(*ask("「名は」、「花子」、「入力の題」"))
        program.window("入力の題")
        program.key("Return")
        self.assert_result(program, "花子")

    def test_typing_takes_the_place_of_the_preset(self):
        program = self.run_script(*ask("「名は」、「花子」、「入力の題」"))
        program.window("入力の題")
        program.type("xyz")
        program.key("Return")
        self.assert_result(program, "xyz")

    def test_cancel_gives_the_empty_text(self):
        for keys in (["Escape"], ["Tab", "Tab", "space"], ["alt+F4"]):
            with self.subTest(keys=keys):
                program = self.run_script(*ask("「名は」、「花子」、「入力の題」"))
                program.window("入力の題")
                program.key(*keys)
                self.assert_result(program, "")

    def test_ok_by_the_tab_key(self):
        program = self.run_script(*ask("「名は」、「花子」、「入力の題」"))
        program.window("入力の題")
        program.key("Tab", "space")
        self.assert_result(program, "花子")

    def test_the_title_of_the_program(self):
        program = self.run_script("タイトルは 「道具箱」", *ask("「名は」"))
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


if __name__ == "__main__":
    main()
