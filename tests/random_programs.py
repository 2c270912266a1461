"""Random programs of the language, the same for the same seed: they end, and print what they did."""

import random
import re

NUMBERS = ("0", "1", "2", "3", "7", "10", "255", "-4", "0.5", "2.25", "１２", "－３", "1E3", "100000")
# What reads as a number without being its usual text, what almost does, and what doesn't.
WORDS = ("007", "1.50", "+3", " 5", "1,000", "１２", "1E3", "(4)", "-0", "1e400", "", "a", "Ab", "文字",
         "{**}", "{*n}", "{/n}", "a=b", "［", "a、b", "x，y", "「", "）", "一、二,三", "a,b,c", "k=1", "5 ",
         "長い長い長い長い長い長い長い長い長い長い長い長い長い長い長い長い長い長い文", "\t", "\r")
KEYS = ("色", "形", "k", "K", "k1", "k2", "k3", "a=b", "長い鍵の名前", "")
SCALARS = ("数", "和", "文", "語", "A", "b1")
TABLES = ("表", "行列", "写し")
DICTIONARIES = ("辞", "控え")
COUNTERS = ("I", "J", "K")
PROCEDURE_COUNTERS = ("L", "M", "N")  # their loops run inside the others
# Words that may hold a whole table, or several words: stored to where they come from they double it.
LARGE = re.compile(f"(?:{'|'.join(TABLES + DICTIONARIES)})(?!（)|0）|[＆［]")
ORDERS = ("小さい順", "大きい順", "名前順", "逆")


class Program:
    """Lines of one program, made by the seed alone."""

    def __init__(self, seed, statements):
        self.random = random.Random(seed)
        self.lines = []
        self.depth = 0      # of loops, so that nothing doubles too often
        self.calls = True   # whether procedures may be called: they call none themselves
        self.counters = []
        self.free_counters = COUNTERS
        self.begin()
        for _ in range(statements):
            self.statement()
        self.show_all()
        self.procedures()

    def text(self):
        return "\n".join(self.lines) + "\n"

    def pick(self, items):
        return self.random.choice(items)

    def put(self, line):
        self.lines.append(line)

    def name(self):
        return self.pick(SCALARS + TABLES + DICTIONARIES)

    def begin(self):
        """Every name has a value, so that programs do more than report the names that they lack."""
        for name in SCALARS:
            self.put(f"{name}＝{self.pick((self.quoted, lambda: self.pick(NUMBERS)))()}")
        for name in TABLES:
            self.put(f"{name}＝{self.table_text()}")
        for name in DICTIONARIES:
            for key in KEYS[:3]:
                self.put(f"{name}（「{key}」）＝{self.pick(NUMBERS)}")
        self.put("鍵＝「k1」")

    def quoted(self):
        word = self.pick(WORDS)
        if word in ("「", "）", "\r"):
            return f"キャラクタ（{ {'「': -32437, '）': -32406, chr(13): 13}[word]}）"
        return f"「{word}」"

    def index(self, limit=12):
        kind = self.random.random()
        if kind < 0.5 or not self.counters:
            return str(self.random.randint(0 if kind < 0.1 else 1, limit))
        counter = self.pick(self.counters)
        return counter if kind < 0.85 else f"{counter}＋{self.random.randint(0, 3)}"

    def key(self):
        if self.counters and self.random.random() < 0.4:
            return f"「k」＆{self.pick(self.counters)}"
        if self.random.random() < 0.3:
            return "鍵"  # never empty
        # The empty key doubles its text each time: not in a loop.
        return f"「{self.pick(KEYS[:-1] if self.depth else KEYS)}」"

    def cell(self):
        kind = self.random.random()
        if kind < 0.3:
            return f"{self.pick(DICTIONARIES)}（{self.key()}）"
        if kind < 0.6:
            return f"{self.pick(TABLES)}（{self.index()}）"
        if kind < 0.9:
            return f"{self.pick(TABLES)}（{self.index(6)}、{self.index(6)}）"
        return f"{self.pick(TABLES + DICTIONARIES)}（{self.index(6)}、0）"

    def bounded(self, word):
        """The word as what is stored in a loop, where nothing may become twice as long in each pass."""
        return f"左（{word}、60）" if self.depth and LARGE.search(word) else word

    def number(self, depth=0):
        kind = self.random.random()
        if kind < 0.3 or depth > 2:
            return self.pick(NUMBERS + tuple(self.counters))
        if kind < 0.5:
            return self.pick(SCALARS + tuple(self.counters))
        if kind < 0.65:
            return self.cell()
        if kind < 0.75:
            return f"（{self.number(depth + 1)}{self.pick('＋－＊')}{self.number(depth + 1)}）"
        if kind < 0.9:
            return f"{self.number(depth + 1)}{self.pick('＋－＊／％')}{self.number(depth + 1)}"
        return self.number_function()

    def number_function(self):
        text = self.value(2)
        if self.calls and self.random.random() < 0.3:
            return self.procedure_word()
        return self.pick((
            f"文字数（{text}）", f"行数（{text}）", f"配列数（{self.name()}）",
            f"いくつ（{text}、{self.quoted()}）", f"探せ（1、{text}、{self.quoted()}）",
            f"合計（{self.pick(TABLES)}）", f"絶対値（{self.number(2)}）",
            f"四捨五入（{self.number(2)}）", f"小数切り捨て（{self.number(2)}）",
        ))

    def procedure_word(self):
        """A call in a word; the first argument bounds how deep it goes."""
        words = self.bounded(self.pick((self.number, self.value, lambda depth: self.pick(SCALARS)))(2))
        return self.pick((
            f"下る（{self.random.randint(0, 4)}、{words}）", f"隠す（{words}、{self.number(2)}）",
            f"写す（{self.pick(SCALARS)}、{words}）", f"隠す（{words}）",
            f"下る（{self.random.randint(0, 4)}、{words}）＋足し算（{words}、1）",
        ))

    def text_function(self):
        text, small = self.value(2), self.random.randint(0, 9)
        return self.pick((
            f"左（{text}、{small}）", f"右（{text}、{small}）", f"真ん中（{text}、{small}、3）",
            f"置き換え（{text}、{self.quoted()}、{self.quoted()}）", f"大文字（{text}）",
            f"情報（{self.name()}、{self.index()}）", f"一行だけ（{self.name()}、{self.index()}）",
            f"辞書一覧（{self.pick(DICTIONARIES)}）", f"辞書（{self.key()}、{self.name()}）",
            f"列取り出し（{self.pick(TABLES)}、{self.index(4)}）", f"全角（{text}）", f"半角（{text}）",
            f"区切れ（{text}、{self.quoted()}）", f"繋げろ（{self.pick(TABLES)}、{self.quoted()}）",
            f"配列検索（{self.pick(TABLES)}、{self.quoted()}、{small}）", f"スペース削除（{text}）",
        ))

    def value(self, depth=0):
        kind = self.random.random()
        if kind < 0.25 or depth > 2:
            return self.quoted()
        if kind < 0.45:
            return self.number(depth + 1)
        if kind < 0.6:
            return self.cell()
        if kind < 0.7:
            return self.name()
        if kind < 0.8:
            return f"{self.value(depth + 1)}＆{self.value(depth + 1)}"
        if kind < 0.87:
            return f"「［{self.pick(SCALARS)}］-［{self.cell()}］」"
        if kind < 0.93 and self.calls:
            return self.pick((f"足し算（{self.number(2)}、{self.number(2)}）", f"印（{self.quoted()}）"))
        return self.text_function()

    def list_text(self):
        pieces = [self.pick(NUMBERS + ("a", "語", "", "b c", "10", "２")) for _ in range(
            self.random.randint(1, 8))]
        return "「" + self.pick((",", ",", "、")).join(pieces) + "」"

    def table_text(self):
        return "＆改行＆".join(self.list_text() for _ in range(self.random.randint(2, 5)))

    def condition(self):
        sign = self.pick(("＝", "＜＞", "＞", "＜", "＞＝", "＜＝"))
        one = f"{self.pick((self.number, self.value))()}{sign}{self.pick((self.number, self.value))()}"
        if self.random.random() < 0.2:
            return f"［{one}］［{self.number()}＞{self.number()}］"
        return one

    def statement(self):
        makers = [(self.new_key, 2), (self.assign, 8), (self.store, 12), (self.show, 4),
                  (self.fill, 4), (self.copy, 3), (self.append, 3), (self.if_line, 3), (self.nested, 1), (self.sort, 1)]
        if self.depth < 2:
            makers += [(self.if_block, 2), (self.loop, 4)]
        if self.calls:
            makers += [(self.call, 3)]
        self.random.choices([m for m, _ in makers], [w for _, w in makers])[0]()

    def simple(self):
        start = len(self.lines)
        self.pick((self.assign, self.store, self.append, self.show))()
        return self.lines.pop() if len(self.lines) == start + 1 else ""

    def assign(self):
        name = self.pick(SCALARS)
        if self.random.random() < 0.3:
            self.put(f"{name}＝{name}＋{self.number(1)}")
        else:
            self.put(f"{name}＝{self.bounded(self.pick((self.number, self.value))())}")

    def new_key(self):
        self.put(f"鍵＝「k」＆{self.number(1)}")

    def store(self):
        self.put(f"{self.cell()}＝{self.bounded(self.pick((self.number, self.value))())}")

    def fill(self):
        self.put(f"{self.pick(TABLES)}＝{self.pick((self.list_text, self.table_text))()}")

    def copy(self):
        names = TABLES + DICTIONARIES
        self.put(f"{self.pick(names)}＝{self.pick(names)}")

    def append(self):
        name = self.name()
        self.put(f"{name}＝{name}＆{self.pick((self.list_text, self.quoted, lambda: '改行'))()}")

    def show(self):
        kind = self.random.random()
        self.put(f"{self.name() if kind < 0.5 else self.value(1)}を表示")

    def sort(self):
        self.put(f"{self.pick(TABLES)}を{self.pick(ORDERS)}へ並び替え")

    def nested(self):
        self.put(f"「{self.pick(SCALARS)}＝{self.pick(SCALARS)}＋1」を日本語処理")

    def if_line(self):
        other = f" でないなら {self.simple()}" if self.random.random() < 0.4 else ""
        self.put(f"もし {self.condition()} なら {self.simple()}{other}")

    def block(self, low=1, high=4):
        self.depth += 1
        for _ in range(self.random.randint(low, high)):
            self.statement()
        self.depth -= 1

    def if_block(self):
        self.put(f"もし {self.condition()} なら")
        self.block()
        if self.random.random() < 0.3:
            self.put(f"他でもし {self.condition()} なら")
            self.block()
        if self.random.random() < 0.5:
            self.put("他なら")
            self.block()
        self.put("もし終わり")

    def loop(self):
        free = [x for x in self.free_counters if x not in self.counters]
        count = self.random.randint(1, 12 if self.depth == 0 else 5)
        counter = self.pick(free)
        kind = self.random.random()
        if kind < 0.5:
            self.put(f"{counter}に1から{count}まで繰り返す")
        elif kind < 0.7:
            self.put(f"{counter}＝1")
            self.put(f"{counter}に{count}回繰り返す")
        else:
            self.put(f"{counter}＝0")
            self.put("永遠に繰り返す")
            self.put(f"{counter}＝{counter}＋1")
            self.put(f"もし {counter}＞{count} なら 繰り返しから抜ける")
        self.counters.append(counter)
        self.block(1, 5)
        self.counters.pop()
        self.put("繰り返し終わり")

    def call(self):
        value = self.bounded(self.value(1))
        self.put(self.pick((f"{self.index()}を{value}に入れる", f"{self.number(1)}を数え足す",
                            f"{value}を控える", f"{self.random.randint(0, 4)}を巡る",
                            f"{self.pick(SCALARS)}へ{value}を移す",
                            f"{self.name()}を隠す")))

    def show_all(self):
        for name in SCALARS + TABLES + DICTIONARIES:
            self.put(f"「{name}:」＆{name}を表示")

    def procedures(self):
        """What the statements call; their bodies are random too."""
        self.calls, self.depth, self.free_counters = False, 1, PROCEDURE_COUNTERS
        self.put("手順は　足し算（甲、乙）")
        self.put("甲＋乙で抜ける")
        self.put("終わり")
        self.put("手順は　印（甲）")
        self.put("「<」＆甲＆「>」で抜ける")
        self.put("終わり")
        # Recursion with a bound, parameters that hide variables, and those that are written back.
        self.put("手順は　下る（段、値）")
        self.put("もし 段＜1 なら 値で抜ける")
        self.put(self.pick(("和＝和＋段", "値＝値＆段", "表（段）＝値")))
        self.put(self.pick(("下る（段－1、値）＋下る（段－1、段）＋1で抜ける", "下る（段－1、値）で抜ける",
                            "「<」＆下る（段－1、値＋1）＆「>」で抜ける")))
        self.put("終わり")
        self.put("手順は　巡る（［段］を）")
        self.put(self.pick(("和＝和＋段", "数＝数＋1", "文＝文＆段")))
        self.put("もし 段＜＝0 なら 抜ける")
        self.put("段－1を巡る")
        self.put("段－1を巡る")
        self.put("終わり")
        self.put("手順は　隠す（数、表）")
        self.block(1, 2)
        self.put("数＆表で抜ける")
        self.put("終わり")
        self.put("手順は　!写す（甲、乙）")
        self.put("甲＝乙")
        self.put("甲＆乙で抜ける")
        self.put("終わり")
        self.put("手順は　!移す（［甲］へ、［乙］を）")
        self.put(self.pick(("甲＝乙", "甲＝甲＆乙", "乙＝甲")))
        self.put("終わり")
        for head in ("手順は　入れる（［番号］を、［中身］に）", "手順は　数え足す（［量］を）",
                     "手順は　控える（［中身］を）"):
            self.put(head)
            if self.random.random() < 0.5:
                self.put("ここだけの変数は 数、表")
            self.put({"入": "表（番号）＝中身", "数": "和＝和＋量",
                      "控": "辞（「控え」）＝中身"}[head[4]])
            self.block(1, 3)
            self.put("終わり")
