"""Random programs whose loops and procedures run several times over and are left in every way.

What they are made of stays small: no statement makes a text twice as long, and every loop, label and
procedure that could go on for ever counts its passes and ends the program after so many.
"""

from random_programs import DICTIONARIES, NUMBERS, SCALARS, TABLES, Program

BUDGET = 150  # of passes, calls and labels
ODD_NUMBERS = NUMBERS + ("1E15", "1E16", "-0", "1E308", "（0.1＋0.2）", "123456789012345", "1E-7", "0.5")
COUNTERS = ("I", "J", "K", "L", "I", "J", "数")
PLAIN, LOOSE = 0, 1
FALSE_STEPS = ("ほげほげ", "無い印へ飛べ", "表（0－1）＝1", "無し（1）を表示", "もし 数 よりなら 「x」を表示",
               "もし 数 なら 「x」を表示", "「無い」を実行", "和（0－2）を表示")
WORDS_OF_ERRORS = ("報告", "無視", "続ける", "表示")


class FlowProgram(Program):
    """Lines of one program, made by the seed alone."""

    def begin(self):
        self.in_if = self.in_loop = self.in_procedure = False
        self.jumps = self.random.random() < 0.4
        # Flags that nothing takes up: 抜ける where there is nothing to leave.
        self.loose = self.random.random() < 0.3
        self.errors = self.random.random() < 0.3
        self.runs = self.random.random() < 0.2
        self.parameters = ()
        self.region = "主"
        self.guard()
        super().begin()

    def guard(self):
        """Ends the program once the budget is used up."""
        self.put("歩＝歩＋1")
        self.put(f"もし 歩＞{BUDGET} なら 見納め")

    def scalars(self):
        return SCALARS + self.parameters

    # Words. None of them is long.

    def index(self, limit=7):
        kind = self.random.random()
        if kind < 0.35 or not self.counters:
            return str(self.random.randint(1, limit))
        if kind < 0.9:
            counter = self.pick(self.counters)
            return counter if kind < 0.65 else f"{counter}{self.pick(('＋1', '－1', '＊2', '％3＋1'))}"
        # Never empty: the empty key makes a table twice as long.
        return self.pick(("足し算（1、1）", "増やす（1）－2", "「2」", "2.5", "「k1」", "鍵", "大域＋1"))

    def cell(self):
        kind = self.random.random()
        if kind < 0.3:
            return f"{self.pick(DICTIONARIES)}（{self.key()}）"
        if kind < 0.65:
            return f"{self.pick(TABLES)}（{self.index()}）"
        return f"{self.pick(TABLES)}（{self.index(4)}、{self.index(4)}）"

    def key(self):
        if self.counters and self.random.random() < 0.4:
            return f"「k」＆{self.pick(self.counters)}"
        return self.pick(("鍵", "「k2」", "「色」", "鍵"))

    def number(self, depth=0):
        kind = self.random.random()
        if kind < 0.2 or depth > 2:
            return self.pick(ODD_NUMBERS)
        if kind < 0.5:
            return self.pick(self.scalars() + tuple(self.counters) * 2)
        if kind < 0.62:
            return self.cell()
        if kind < 0.7:
            return f"（{self.number(depth + 1)}{self.pick('＋－＊')}{self.number(depth + 1)}）"
        if kind < 0.88:
            return f"{self.number(depth + 1)}{self.pick('＋＋－＊／％')}{self.number(depth + 1)}"
        if kind < 0.9:
            return self.pick(("改行", "はい", "甲－1", "それ", "無い名", "応答"))
        return self.called() if kind < 0.97 else self.number_function()

    def number_function(self):
        return self.pick((f"文字数（{self.pick(self.scalars())}）", f"配列数（{self.pick(TABLES)}）",
                          f"絶対値（{self.number(2)}）", f"四捨五入（{self.number(2)}）"))

    def called(self):
        one, other = self.number(2), self.number(2)
        return self.pick((
            f"足し算（{one}、{other}）", f"増やす（{one}）", f"数＋増やす（{one}）", f"増やす（1）＋数",
            f"漏れる（{one}）", f"漏れる（{self.random.randint(0, 4)}）", f"深い（{self.random.randint(0, 3)}）",
            f"働く一（{one}）", f"働く二（{one}、{other}）", f"伸ばす（{self.index()}）＋表（2）",
            f"写す（{self.pick(SCALARS)}、{one}）", "大域", f"奇妙（{one}、{other}）", "改行する",
        ))

    def value(self, depth=0):
        kind = self.random.random()
        if kind < 0.25:
            return self.quoted()
        if kind < 0.7:
            return self.number(depth + 1)
        if kind < 0.8:
            return f"左（{self.number(1)}＆{self.number(1)}、9）"
        if kind < 0.9:
            return f"左（「［{self.pick(self.scalars())}］-［{self.cell()}］」、9）"
        return f"左（印（{self.quoted()}）、9）"

    def condition(self):
        one = self.comparison()
        kind = self.random.random()
        if kind < 0.15:
            return f"［{one}］［{self.comparison()}］"
        return one

    def other_condition(self):
        return self.condition()

    def comparison(self):
        sign = self.pick(("＝", "＜＞", "＞", "＜", "＞＝", "＜＝"))
        if self.counters and self.random.random() < 0.4:
            return f"{self.pick(self.counters)}{sign}{self.random.randint(0, 4)}"
        return f"{self.number(1)}{sign}{self.pick((self.number, self.value))(1)}"

    # Statements.

    def statement(self):
        if not self.in_loop and not self.in_procedure and self.random.random() < 0.6:
            self.loop()
            return
        makers = [(self.assign, 10), (self.store, 6), (self.show, 4), (self.append, 2), (self.copy, 1),
                  (self.if_line, 6), (self.call, 4), (self.several, 1), (self.new_name, 1)]
        if self.depth < 4:
            makers += [(self.if_block, 5), (self.cases, 1), (self.loop, 4)]
        makers += [(self.leave_line, 1), (self.small_loop, 1)]
        if self.jumps:
            makers += [(self.jump, 1), (self.label, 1)]
        if self.errors:
            makers += [(self.mistake, 1)]
        if self.runs:
            makers += [(self.nested, 1)]
        self.random.choices([m for m, _ in makers], [w for _, w in makers])[0]()

    def assign(self):
        kind = self.random.random()
        name = self.pick(self.scalars())
        if kind < 0.05 and self.counters:
            counter = self.counters[-1]
            self.put(f"{counter}＝{self.pick((f'{counter}＋1', '「a」', '0.5', '「3」', f'{counter}－1'))}")
        elif kind < 0.4:
            self.put(f"{name}＝{name}{self.pick('＋＋－＊')}{self.number(1)}")
        elif kind < 0.5:
            self.put(f"{name}＝{self.cell()}")
        elif kind < 0.6:
            self.put(f"{name}＝{self.called()}")
        elif kind < 0.7:
            self.put(f"{name}＝{self.called()}＋{self.number(1)}")
        else:
            self.put(f"{name}＝{self.value()}")

    def store(self):
        self.put(f"{self.cell()}＝{self.value()}")

    def copy(self):
        self.put(self.pick(("写し＝表", "表＝写し", "行列＝写し", "控え＝辞", "表＝行列", "A＝数", "語＝文")))

    def append(self):
        self.put(f"{self.pick(('文', '語', '写し'))}＝左（文＆{self.quoted()}、20）")

    def show(self):
        self.put(f"{self.pick((self.value, lambda: self.pick(self.scalars()), lambda: 'それ'))()}を表示")

    def new_name(self):
        name = f"新{self.random.randint(1, 3)}"
        self.put(self.pick((f"{name}＝{name}＋1", f"{name}を表示", f"{name}＝{self.number(1)}",
                            f"和＝{name}＋1", f"{name}（2）＝{self.number(1)}")))

    def mistake(self):
        self.put(self.pick(FALSE_STEPS) if self.random.random() < 0.7
                 else f"エラーは {self.pick(WORDS_OF_ERRORS)}")

    def nested(self):
        name = self.pick(SCALARS)
        self.put(self.pick((
            f"「{name}＝{name}＋1」を日本語処理", "「副」を実行", "「部品」を参照",
            f"「もし {self.pick(SCALARS)}＝1 なら_\n文＝1_\nもし終わり」を日本語処理",
            "「3回、繰り返し_\n和＝和＋1_\n繰り返し終わり」を日本語処理")))

    def simple(self):
        start = len(self.lines)
        self.pick((self.assign, self.store, self.append, self.show, self.call, self.new_name))()
        return self.lines.pop() if len(self.lines) == start + 1 else ""

    def several(self):
        self.put("。".join(self.simple() for _ in range(self.random.randint(2, 3))))

    def small_loop(self):
        steps = "。".join(self.simple() for _ in range(self.random.randint(1, 2)))
        self.put(self.pick((f"「{steps}」を{self.random.randint(0, 4)}回、繰り返せ",
                            f"Mに1から3まで「{steps}」を繰り返せ")))

    def call(self):
        one = self.number(1)
        self.put(self.pick((
            f"漏れる　{one}", f"働く一　{one}", f"働く二　{one}、{self.number(1)}", "働く三", "大域",
            f"{self.index()}を{self.value(1)}に入れる", f"{self.pick(SCALARS)}へ{one}を移す",
            f"深い　{self.random.randint(0, 3)}", f"伸ばす　{self.index()}")))

    # Leaving and jumping.

    def leaving(self):
        ways = []
        if self.loose or self.in_if:
            ways.append("もしから抜ける")
        if self.loose or self.in_loop:
            ways += ["繰り返しから抜ける"] * 2
        if self.loose or self.in_procedure:
            ways += ["抜ける", f"{self.number(1)}で抜ける", f"{self.called()}で抜ける",
                     f"{self.called()}＋1で抜ける", "「文」で抜ける", f"{self.pick(self.scalars())}で抜ける",
                     "手順から抜ける"]
        if self.jumps and (self.loose or not self.in_else_if):
            ways += [f"{self.label_name()}へ飛べ"] * 2
        return self.pick(ways) if ways else self.simple()

    in_else_if = False

    def leave_line(self):
        self.put(self.leaving())

    def label_name(self):
        return f"{self.region}印{self.random.randint(1, 3)}"

    def label(self):
        self.put(f"{self.label_name()}：")
        self.guard()

    def jump(self):
        if self.loose or not self.in_else_if:
            self.put(f"もし {self.condition()} なら {self.label_name()}へ飛べ")

    def if_line(self):
        then = self.pick((self.leaving, self.simple))()
        other = self.pick((self.leaving, self.simple))()
        kind = self.random.random()
        if kind < 0.5:
            self.put(f"もし {self.condition()} なら {then}")
        elif kind < 0.8:
            self.put(f"もし {self.condition()} なら {then} でないなら {other}")
        else:
            self.put(f"もし {self.condition()} でないなら {then}")

    # Blocks.

    def inside(self, low, high, **changes):
        saved = {name: getattr(self, name) for name in changes}
        for name, value in changes.items():
            setattr(self, name, value)
        self.block(low, high)
        for name, value in saved.items():
            setattr(self, name, value)

    def if_block(self):
        head = self.pick(("なら", "なら", "なら", "でないなら"))
        self.put(f"もし {self.condition()} {head}")
        self.inside(1, 3, in_if=True)
        for _ in range(self.pick((0, 0, 1, 2))):
            self.put(f"他でもし {self.other_condition()} なら")
            self.inside(1, 3, in_if=True, in_else_if=True)
        if self.random.random() < 0.5:
            self.put(self.pick(("他なら", "他なら", "でないなら")))
            self.inside(1, 3, in_if=True)
        self.put("もし終わり")

    def cases(self):
        self.put(f"{self.number(1)}について分岐")
        for _ in range(self.random.randint(1, 3)):
            self.put(f"{self.pick(ODD_NUMBERS + ('「a」', 'I', '1、2'))}の場合")
            self.inside(1, 2)
        if self.random.random() < 0.5:
            self.put("他の場合")
            self.inside(1, 2)
        self.put("分岐終わり")

    def count_of_passes(self):
        return self.pick(("3", "4", "5", "6", "3", "4", "5", "3", "4", "0", "2.5", "1.5", "「3」", "足し算（1、2）",
                          "増やす（1）", "漏れる（2）", "数", "-1" if self.random.random() < 0.1 else "2"))

    def loop(self):
        counter = self.pick(COUNTERS if self.depth < 2 else COUNTERS[:-1])
        if self.random.random() < 0.05:
            counter = self.pick(("表（2）", "辞（「k1」）", "表（漏れる（1））", "行列（1、2）"))
        if self.random.random() < 0.1:
            self.put(f"{counter}＝{self.pick(('「a」', '「2」', '1E15', '-2', '0.5'))}")
        kind, passes = self.random.random(), self.count_of_passes()
        if kind < 0.35:
            start = self.pick(("1", "1", "1", "0", "-1", "2.5", "足し算（1、0）"))
            limit = self.pick(("3", "4", "5", "3", "4", "6", "2.5", "足し算（2、2）", "漏れる（3）", "数"))
            self.put(f"{counter}に{start}から{limit}まで繰り返す")
        elif kind < 0.45:
            self.put(f"{counter}に{self.random.randint(2, 5)}まで繰り返す")
        elif kind < 0.85:
            self.put(self.pick((f"{counter}に{passes}回、繰り返す", f"{counter}に2から{passes}回、繰り返す",
                                f"{passes}回、繰り返す")))
        else:
            self.put(self.pick(("永遠に繰り返す", f"永遠、{counter}に繰り返す")))
            self.leave_at(counter)
        ends = 0.45 <= kind < 0.85 and passes[0] in "0123456" and not self.jumps
        if not ends or self.random.random() < 0.3:
            self.guard()
        self.counters.append(counter if counter in COUNTERS else "I")
        self.inside(2, 5, in_loop=True, in_if=self.loose and self.in_if)
        self.counters.pop()
        self.put("繰り返し終わり")

    def leave_at(self, counter):
        self.put(self.pick((f"{counter}＝{counter}＋1", f"和＝{counter}")))
        way = self.pick(("繰り返しから抜ける", "繰り返しから抜ける", "抜ける" if self.in_procedure else "終了"))
        if self.random.random() < 0.5:
            self.put(f"もし {counter}＞{self.random.randint(2, 5)} なら {way}")
            return
        self.put(f"もし {counter}＞{self.random.randint(2, 5)} なら")
        self.put(way)
        if self.random.random() < 0.5:
            self.put(self.simple())
        self.put("もし終わり")

    # Procedures.

    def procedures(self):
        self.put("終了")
        self.put("手順は　見納め")
        self.show_all()
        self.put("終了")
        self.put("終わり")
        self.fixed("足し算（甲、乙）", "甲＋乙で抜ける")
        self.fixed("印（甲）", "「<」＆甲＆「>」で抜ける")
        self.fixed("増やす（甲）", self.pick(("数＝数＋1", "数＝数＋甲", "新1＝1")), self.pick(("3で抜ける", "数＝2")))
        leak = self.pick(("もしから抜ける", "繰り返しから抜ける")) if self.loose else "乙＝1"
        self.fixed("漏れる（甲）", "乙＝0", f"もし 甲＞{self.random.randint(0, 3)} なら {leak}",
                   self.pick(("甲で抜ける", "甲＋1で抜ける", "3で抜ける")))
        self.fixed("伸ばす（甲）", self.pick(("表（甲＋2）＝甲", "表＝「5,6」", "辞（「k1」）＝甲", "行列＝写し")),
                   "表（1）で抜ける")
        self.fixed("大域", self.pick(("和＝和＋1", "文＝「大」", "I＝I＋1")), self.pick(("2で抜ける", "A＝1")))
        self.fixed("改行する", "和＝和＋1", "改行で抜ける")
        self.fixed("!写す（甲、乙）", "甲＝左（乙、9）", "甲で抜ける")
        self.fixed("!移す（［甲］へ、［乙］を）", self.pick(("甲＝左（乙、9）", "乙＝1")))
        self.fixed("奇妙（［甲－1］、乙）", "甲＝5", self.pick(("甲－1で抜ける", "足し算（甲－1、乙）で抜ける",
                                                     "乙＝甲－1", "甲－1＋乙で抜ける")))
        self.body("入れる（［番号］を、［中身］に）", ("番号", "中身"))
        self.body("深い（段）", ("段",), "もし 段＜1 なら 1で抜ける",
                  self.pick(("乙＝深い（段－1）＋1", "乙＝深い（段－1）＋深い（段－2）", "深い　段－1",
                             "もし 深い（段－1）＝1 なら 5で抜ける")))
        self.body("働く一（甲）", ("甲",))
        self.body("働く二（数、乙）", ("乙",))
        self.body("働く三", ())

    def fixed(self, head, *lines):
        self.put(f"手順は　{head}")
        for line in lines:
            self.put(line)
        self.put("終わり")

    def body(self, head, parameters, *first):
        self.put(f"手順は　{head}")
        self.guard()
        for line in first:
            self.put(line)
        if self.random.random() < 0.4:
            self.put(f"ここだけの変数は {self.pick(('A、文', '新1', 'I、J', '数', '表'))}")
        self.region, self.parameters = head[:2], parameters
        self.depth, self.counters = 1, []
        self.inside(2, 6, in_procedure=True)
        if self.random.random() < 0.6:
            self.put(self.pick((f"{self.number(1)}で抜ける", f"{self.called()}で抜ける", "それで抜ける")))
        self.put("終わり")
