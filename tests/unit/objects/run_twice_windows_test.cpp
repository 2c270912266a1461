// A run with windows leaves nothing behind: the same script runs twice in one process and asks the same of
// the toolkit.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/velm.h"
#include "unit/objects/recording_toolkit.h"

namespace velm {
namespace {

struct Trace {
    std::vector<std::u16string> notes;
    std::vector<std::u16string> texts;

    bool operator==(const Trace&) const = default;
};

// Runs a script on a toolkit that begins counting anew.
Trace WhatItDoes(RecordingToolkit& toolkit, RecordedDialogs& dialogs,
                 const std::u16string& script) {
    toolkit.StartNotes();
    dialogs.shown.clear();
    dialogs.reported.clear();
    TheEngine().Run(script, u"", false);
    Trace trace{toolkit.notes, {}};
    for (const auto& box : dialogs.shown) trace.texts.push_back(box.text);
    for (const auto& box : dialogs.reported) trace.texts.push_back(u"! " + box.text);
    return trace;
}

class RunTwiceWindows : public testing::TestWithParam<std::u16string> {
  protected:
    InstallRecordingToolkit installed_;
};

TEST_P(RunTwiceWindows, AsksTheSame) {
    RecordingToolkit& toolkit = installed_.toolkit;
    const Trace first = WhatItDoes(toolkit, installed_.dialogs, GetParam());
    EXPECT_GT(first.notes.size(), 5U);
    EXPECT_FALSE(first.texts.empty());
    EXPECT_TRUE(toolkit.windows.empty());
    EXPECT_TRUE(toolkit.controls.empty());
    EXPECT_FALSE(toolkit.hasTrayIcon);
    EXPECT_EQ(WhatItDoes(toolkit, installed_.dialogs, GetParam()), first);
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, RunTwiceWindows,
    testing::Values(
        u"ウィンドウ1を作る\r\nボタン1を作る\r\nボタン2を開始として作る\r\n"
        u"ボタン1について\r\nこの名前は "
        u"「次」\r\n「［ボタン1の名前］［ボタン1のオブジェクト数］」を表示",
        u"メニュー「ファイル」を作る\r\nサブメニュー「開く」を作る\r\nメニューのファイルの開くの有"
        u"効は "
        u"0\r\n「［メニューのファイルの開くの有効］」を表示\r\nウィンドウ０を表示",
        u"ウィンドウ2を作る\r\nピクチャー1を作る\r\n場所は ピクチャー1\r\nボタン1を作る\r\n"
        u"拡張テキスト4を作る\r\n「［拡張テキスト4のオブジェクト数］」を表示\r\n終了",
        u"ウィンドウ2を作る\r\n1をタスクトレイに追加\r\n閉じない\r\n"
        u"ウィンドウ2を閉じる\r\n「後」を表示\r\n手順は　ウィンドウ2を閉じる\r\n「閉」を表示\r\n終"
        u"わり"));

}  // namespace
}  // namespace velm
