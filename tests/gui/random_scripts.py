"""Random window scripts: windows of all kinds with all controls, menus and timers, and procedures that do
anything to them from within their events. The same seed gives the same script.

A script ends when the file STOP is there, or when its last window has been closed.
"""

STOP = "stop.txt"
DEEPEST = 5  # procedures within procedures that still do something

WINDOWS = ("ウィンドウ", "固定ウィンドウ", "縁無しウィンドウ", "ツールウィンドウ", "固定ツールウィンドウ", "フルスクリーン")
# As the maker takes them; SHOWN where a procedure calls them otherwise.
KINDS = ("ボタン", "テキスト", "文章テキスト", "ピクチャー", "イメージ", "ラベル", "リスト", "選択リスト",
         "入力選択リスト", "縦スクロールバー", "横スクロールバー", "チェック", "オプション", "フレーム", "形",
         "フォルダリスト", "ドライブリスト", "タイマー", "拡張テキスト")
SHOWN = {"形": "シェイプ"}
PLACED = tuple(kind for kind in KINDS if kind != "タイマー")
TEXTS = ("テキスト", "文章テキスト", "拡張テキスト", "入力選択リスト")
LISTS = ("リスト", "選択リスト", "入力選択リスト")
CONTROL_EVENTS = (
    "をクリック", "をダブルクリック", "が変化", "を移動", "に入る", "を離れる", "でマウスのボタンを下げる",
    "でマウスのボタンを上げる", "でマウスが動く", "を右クリック", "に入力", "でキーボードを押す", "でキーボードを離す",
    "の大きさが変わる")
WINDOW_EVENTS = (
    "をクリック", "をダブルクリック", "の大きさが変わる", "でマウスのボタンを下げる", "でマウスが動く", "を右クリック",
    "でマウスのボタンを上げる", "でキーボードを押す", "でキーボードを離す")
VALUES = ("0", "1", "-1", "3", "99999", "「」", "「あいう」", "「赤,青」", "0,0", "10,20", "5,6,7,8", "「\"」", "1E30",
          "「改行」＆改行＆「二行」", "中央", "赤", "最大化", "標準", "ウィンドウ1", "「無い.bmp」", "0.5")
PROPERTIES = (
    "内容", "名前", "色", "背景", "位置", "大きさ", "幅", "高さ", "横", "縦", "位置と大きさ", "表示", "有効", "絵", "ヒント",
    "階層", "フォント名", "フォントサイズ", "太字", "斜体", "タブインデックス", "タブ移動", "マウスカーソル", "表示場所", "折り返し", "一覧",
    "番号", "選択", "選択スタート", "選択長さ", "チェック", "最大値", "最小値", "数字", "間隔", "透明化", "自動調整", "形",
    "線の太さ", "複数選択", "ソート", "選択一覧", "制限文字数", "隠し文字", "入力ロック", "エンター", "キャンセル", "配置", "情報",
    "状態", "中の大きさ", "種類", "透明度", "最前面", "変形", "座標", "タスクバー表示", "最小化ボタン", "システムメニュー",
    "再描画", "描画ロック", "枠", "フォルダ", "RTF内容", "選択太字", "ドラッグ＆ドロップ", "UNKNOWN")
TURTLE = ("前へ　20", "右へ　30", "後ろへ　5", "10,10から30,40で塗りつぶして円", "5,5から200,90で線", "50,50を塗れ",
          "「字」を書け", "スタンプ", "クリア", "60で枝", "太さは 5", "色は 緑", "位置は 中央", "カメを出て", "カメを隠れ")


class ScriptMaker:
    """Makes one script; `random` is a random.Random."""

    def __init__(self, random):
        self.random = random
        self.windows = [f"{kind}{number}" for number, kind in enumerate(WINDOWS, 1)]
        random.shuffle(self.windows)
        self.windows = self.windows[: random.randint(2, 4)]
        self.controls = {window: [] for window in self.windows}
        self.menus = {window: [] for window in self.windows}

    def control(self, kinds=KINDS):
        kind = self.random.choice(kinds)
        return f"{SHOWN.get(kind, kind)}{self.random.randint(1, 2)}"

    def window(self):
        return self.random.choice(self.windows)

    def any_object(self):
        """A path of a control, by its window or by the current one, or a window."""
        which = self.random.random()
        if which < 0.15:
            return self.window()
        if which < 0.3:
            return "この"
        if which < 0.5:
            return self.control()
        return f"{self.window()}の{self.control()}"

    def set_property(self):
        value = self.random.choice(VALUES)
        name = self.random.choice(PROPERTIES)
        return f"{self.any_object()}の{name}は {value}".replace("このの", "この")

    def make(self):
        return f"{self.random.choice(KINDS)}{self.random.randint(1, 3)}を作る"

    def place(self):
        numbers = [self.random.randint(0, 250) for _ in range(4)]
        return f"{self.control(PLACED)}の位置と大きさは {','.join(map(str, numbers))}"

    def close(self):
        return f"もし 乱数（3）＝0 なら {self.window()}を閉じる"

    def reopen(self):
        window = self.window()
        return f"{window}を{self.random.choice(('作る', '表示'))}"

    def modal(self):
        return f"もし 乱数（6）＝0 なら {self.window()}を モーダルで 表示"

    def message(self):
        say = self.random.choice((
            "「知らせ」を表示", "答え＝質問（「問い」を はいといいえで）", "答え＝入力（「文字」を）",
            "「警告」を警告で表示"))
        return f"もし 乱数（4）＝0 なら {say}"

    def menu(self):
        shown = self.random.choice(("メニュー「m{0}」を作る", "サブメニュー「s{0}」を作る", "メニューのm1のs1のチェックは 1",
                                    "メニューのm1のs1の表示は 0", "「m1」を ポップアップメニュー"))
        return "もし 乱数（5）＝0 なら " + shown.format(self.random.randint(1, 3))

    def item(self):
        target = self.control(LISTS)
        return self.random.choice((
            f"{target}に 「項目」を追加", f"{target}の0を消す", f"{target}をクリア", f"{self.control(TEXTS)}に 「字」を挿入"))

    def timer(self):
        number = self.random.randint(1, 2)
        return self.random.choice((
            f"タイマー{number}の有効は {self.random.randint(0, 1)}",
            f"タイマー{number}の間隔は {self.random.choice((1, 7, 30, 200))}", f"タイマー{number}を消す"))

    def whole(self):
        """What is done to an object as a whole."""
        target = self.any_object()
        return self.random.choice((
            f"{target}を消す", f"{target}に焦点", f"{target}を最前面", f"{target}を最背面", f"{target}を再描画",
            f"{target}を元に戻す", f"{target}を前へ5だけ進む", "カメを右へ3だけ進む", f"場所は {self.control(('ピクチャー',))}",
            f"場所は {self.window()}", "もし 乱数（20）＝0 なら クリア オブジェクト"))

    def pump(self):
        return self.random.choice(("休憩", "0.02を待て", "休憩"))

    def turtle(self):
        return self.random.choice(TURTLE)

    ACTIONS = (
        (set_property, 12), (make, 2), (place, 3), (close, 1), (reopen, 1), (modal, 1), (message, 1),
        (menu, 1), (item, 3), (timer, 2), (whole, 4), (pump, 2), (turtle, 2))

    def actions(self, most):
        makers = [maker for maker, _ in self.ACTIONS]
        weights = [weight for _, weight in self.ACTIONS]
        chosen = self.random.choices(makers, weights, k=self.random.randint(1, most))
        return [maker(self) for maker in chosen]

    def procedure(self, name, *more):
        """A procedure that stops nesting at some depth, and does nothing more near the end."""
        return [
            f"手順は　{name}", f"もし 「{STOP}」は \"存在する\" なら 深さ＝{DEEPEST}", "深さ＝深さ＋1",
            f"もし 深さ＜{DEEPEST} なら",
            *("    " + line for line in [*self.actions(4), *more]), "もし終わり", "深さ＝深さ－1", "終わり"]

    def set_up(self):
        for number, window in enumerate(self.windows):
            yield f"{window}を作る"
            yield f"{window}の位置は {20 + 300 * number},{40 + 30 * number}"
            yield f"{window}の中の大きさは 280,300"
            if self.random.random() < 0.5:
                for top in range(1, 3):
                    yield f"メニュー「m{top}」を作る"
                    yield from (f"サブメニュー「s{entry}」を作る" for entry in range(1, 4))
            for kind in self.random.sample(KINDS, self.random.randint(6, len(KINDS))):
                yield f"{kind}1を作る"
                if kind == "タイマー":
                    yield f"タイマー1の間隔は {self.random.choice((1, 10, 50, 200))}"
                    yield "タイマー1の有効は 1"
                    continue
                place = [self.random.randint(0, 200), self.random.randint(0, 250)]
                size = [self.random.randint(20, 150), self.random.randint(15, 80)]
                yield f"{SHOWN.get(kind, kind)}1の位置と大きさは {','.join(map(str, place + size))}"
                if kind in LISTS:
                    yield f"{kind}1の一覧は 「赤,青,緑,白,黒」"

    def procedures(self):
        for window in self.windows:
            for event in self.random.sample(WINDOW_EVENTS, 4):
                yield from self.procedure(window + event)
            for kind in KINDS:
                shown = SHOWN.get(kind, kind)
                for event in self.random.sample(CONTROL_EVENTS, 4):
                    yield from self.procedure(f"{window}の{shown}{event}")
            for number in (1, 2):
                yield from self.procedure(f"{window}のタイマー{number}が時間になった")
            for top in (1, 2):
                for entry in (1, 2, 3):
                    yield from self.procedure(f"{window}のm{top}のs{entry}をクリック")
            stay = "もし 乱数（3）＞0 なら 閉じない"
            yield from self.procedure(f"{window}を閉じる", stay)

    def lines(self):
        yield f"エラーは {self.random.choice(('報告', '続ける', '表示'))}"
        yield "深さ＝0"
        yield from self.set_up()
        yield "永遠に繰り返す"
        yield "    0.03を待て"
        yield f"    もし 「{STOP}」は \"存在する\" なら 終了"
        yield "繰り返し終わり"
        yield from self.procedures()
