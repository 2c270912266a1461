#!/usr/bin/env python3
"""The window programs of examples/windows: each shows its window, does its main thing for mouse, keys or
timer, and ends with its window.

They run in a copy of their folder. What they show is told by the pixels of the window.
"""

import pathlib
import shutil
import subprocess
import time

from display import WindowCase, main, wait_for

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples" / "windows"
BLACK, WHITE, RED, YELLOW = (0, 0, 0), (255, 255, 255), (255, 0, 0), (255, 255, 0)
PURPLE, ORANGE, BROWN, FOREST = (128, 0, 128), (255, 128, 0), (128, 0, 0), (0, 128, 64)


class Example(WindowCase):
    def setUp(self):
        super().setUp()
        self.place = self.folder / "examples"
        shutil.copytree(EXAMPLES, self.place)

    def run_example(self, name, title):
        """Starts an example: the program and its window once it is up."""
        program = self.start(self.place / f"{name}.vlm")
        return program, program.window(title)

    def close(self, program):
        program.key("alt+F4")
        self.assert_quiet_end(program)

    def part(self, window, x, y, width, height):
        """The pixels of a part of a window, row by row."""
        data = subprocess.run(
            ["import", "-window", window, "-crop", f"{width}x{height}+{x}+{y}", "-depth", "8", "rgb:-"],
            env=self.display.environment, capture_output=True, check=True,
        ).stdout
        self.assertEqual(len(data), 3 * width * height)
        return [tuple(data[i:i + 3]) for i in range(0, len(data), 3)]

    def changed(self, window, box, before, what):
        """The pixels of a part of a window once they differ from those before."""
        return wait_for(lambda: (now := self.part(window, *box)) != before and now, what)

    def shows(self, window, box, colour):
        wait_for(lambda: colour in self.part(window, *box), f"{colour} within {box}")

    def shows_not(self, window, box, colour):
        wait_for(lambda: colour not in self.part(window, *box), f"no {colour} within {box}")

    def drag(self, window, start, end):
        self.mouse("mousemove", "--window", window, *start, "mousedown", 1)
        for step in range(1, 6):
            place = (start[i] + (end[i] - start[i]) * step // 5 for i in (0, 1))
            self.mouse("mousemove", "--window", window, *place)
        self.mouse("mouseup", 1)

    def mouse(self, *words):
        self.display.read("xdotool", *map(str, words))


class Tools(Example):
    def choose(self, program, window, *keys):
        """Opens the first menu and goes on by keys."""
        program.click(window, 20, 10)
        time.sleep(0.3)  # an opened menu takes keys once it is up
        program.key(*keys)

    def test_notepad(self):
        program, window = self.run_example("notepad", "メモ帳")
        before = self.part(window, 0, 25, 200, 60)
        program.type("abc")
        self.changed(window, (0, 25, 200, 60), before, "the typed text")
        self.choose(program, window, "Down", "Down", "Return")
        program.window("名前を付けて保存")
        program.key("Escape")
        program.window("メモ帳")
        program.key("alt+F4")
        program.window("Velmrun")  # not saved yet: it asks, and stays on No
        program.key("Tab", "Return")
        program.window("メモ帳")
        self.choose(program, window, "Down", "Down", "Return")
        program.window("名前を付けて保存")
        saved = self.folder / "memo.txt"
        program.type(str(saved))
        program.key("Return")
        wait_for(saved.is_file, "the saved file")
        wait_for(lambda: saved.read_bytes() == b"abc", "the text in the file")
        program.window("メモ帳")
        self.close(program)

    def test_calculator(self):
        program, window = self.run_example("calculator", "電卓")
        answer = (15, 15, 150, 22)
        at_first = self.part(window, *answer)

        def press(place, before):
            program.click(window, 35 + 60 * (place % 3), 73 + 48 * (place // 3))
            return self.changed(window, answer, before, f"the answer of button {place}")

        seven = press(0, at_first)
        program.click(window, 95, 217)  # plus
        five = press(4, seven)
        twelve = press(11, five)
        one = press(6, twelve)
        self.assertEqual(press(7, one), twelve)
        self.close(program)

    def test_todo(self):
        program, window = self.run_example("todo", "やることリスト")
        saved = self.place / "todo.txt"
        program.key("Return")  # nothing typed: nothing to add
        program.type("milk")
        program.key("Return")
        wait_for(lambda: saved.is_file() and b"milk" in saved.read_bytes(), "the first thing")
        program.type("bread")
        program.click(window, 255, 22)
        wait_for(lambda: saved.read_bytes().split() == [b"milk", b"bread"], "both things")
        self.close(program)
        program, window = self.run_example("todo", "やることリスト")
        program.click(window, 60, 260)  # nothing chosen: nothing to remove
        program.click(window, 60, 52)
        program.click(window, 60, 260)
        wait_for(lambda: saved.read_bytes().split() == [b"bread"], "the end of the first thing")
        self.close(program)

    def test_quiz(self):
        program, window = self.run_example("quiz", "クイズ")
        result = (125, 262, 190, 20)
        program.click(window, 50, 270)  # nothing answered yet
        self.shows(window, result, RED)
        none = self.part(window, *result)
        for place in ((40, 46), (40, 166), (40, 218)):
            program.click(window, *place)
        self.shows_not(window, result, RED)
        program.key("Return")
        self.shows(window, result, RED)
        right = self.part(window, *result)
        program.click(window, 40, 72)
        self.shows_not(window, result, RED)
        program.key("Return")
        self.shows(window, result, RED)
        half = self.part(window, *result)
        self.assertNotIn(half, (none, right))
        self.assertNotEqual(none, right)
        self.close(program)


class Pictures(Example):
    def test_paint(self):
        program, window = self.run_example("paint", "お絵かき")
        paper = (15, 15, 380, 280)
        self.drag(window, (60, 60), (260, 160))
        self.shows(window, (155, 105, 10, 10), BLACK)
        program.click(window, 58, 334)
        self.drag(window, (60, 200), (260, 200))
        self.shows(window, (155, 195, 10, 10), RED)
        program.click(window, 370, 334)
        wait_for(lambda: set(self.part(window, *paper)) == {WHITE}, "an empty paper")
        program.click(window, 200, 100)  # the colour stays
        self.shows(window, (195, 95, 10, 10), RED)
        self.close(program)

    def test_slide_show(self):
        program, window = self.run_example("slide_show", "スライドショー")
        picture = (100, 60, 40, 40)
        first = self.part(window, *picture)
        second = self.changed(window, picture, first, "the next picture by the timer")
        program.click(window, 170, 256)  # stop
        program.click(window, 260, 256)
        third = self.changed(window, picture, second, "the next picture")
        self.assertNotEqual(third, first)
        program.click(window, 260, 256)
        self.assertEqual(self.changed(window, picture, third, "the first picture"), first)
        program.click(window, 80, 256)
        self.assertEqual(self.changed(window, picture, first, "the picture before"), third)
        self.close(program)

    def test_slide_show_without_pictures(self):
        shutil.rmtree(self.place / "data")
        program = self.start(self.place / "slide_show.vlm")
        program.window("Velmrun")
        program.key("Return")
        self.assert_quiet_end(program)

    def test_turtle_flower(self):
        program, window = self.run_example("turtle_flower", "カメの花")
        self.shows(window, (110, 30, 200, 200), RED)
        self.shows(window, (0, 150, 200, 200), PURPLE)
        self.shows(window, (220, 150, 200, 200), ORANGE)
        self.shows(window, (315, 245, 10, 10), YELLOW)
        self.shows(window, (205, 300, 10, 10), FOREST)
        self.close(program)

    def test_turtle_tree(self):
        program, window = self.run_example("turtle_tree", "カメの木")
        self.shows(window, (0, 390, 20, 20), FOREST)
        self.shows(window, (225, 350, 10, 10), BROWN)
        # The last branch, far right.
        self.shows(window, (320, 200, 120, 80), BROWN)
        self.close(program)


class Timers(Example):
    def test_clock(self):
        program, window = self.run_example("clock", "時計")
        face, digits = (20, 20, 200, 200), (10, 240, 220, 28)
        self.shows(window, face, RED)
        before = self.part(window, *digits)
        hands = self.part(window, *face)
        self.changed(window, digits, before, "the next second")
        self.changed(window, face, hands, "the second hand's next step")
        self.close(program)

    def test_ball(self):
        program, window = self.run_example("ball", "はねるボール")
        whole = (0, 0, 400, 300)

        def ball():
            """Left, top, right and bottom of what is orange."""
            places = [i for i, pixel in enumerate(self.part(window, *whole)) if pixel == ORANGE]
            xs, ys = [i % 400 for i in places], [i // 400 for i in places]
            return (min(xs), min(ys), max(xs), max(ys)) if places else None

        first = wait_for(ball, "the ball")
        seen = wait_for(lambda: (now := ball()) != first and now, "the moving ball")
        # It isn't cut by the edges, and is as wide as high.
        self.assertLessEqual(abs((seen[2] - seen[0]) - (seen[3] - seen[1])), 2)
        program.click(window, 200, 150)
        wait_for(lambda: ball()[1] < 120, "the ball above")
        self.close(program)


if __name__ == "__main__":
    main()
