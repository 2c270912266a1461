// Flags, jumps, errors and ends that the bytecode leaves to the walkers over lines.
//
// Each program runs its loop or procedure several times over: the first pass is walked, the others run as
// bytecode, and nothing may tell them apart.
#include <gtest/gtest.h>

#include "unit/script_run.h"

namespace velm {
namespace {

class BytecodeFlowTest : public ScriptRun {};

TEST_F(BytecodeFlowTest, ABareLeavingEndsTheProcedure) {
    Run(R"(
手順は　進む（x）
数＝数＋1
もし x＞2 なら
数＝数＋10
抜ける
数＝数＋100
もし終わり
数＝数＋1000
終わり
iに1から4まで、繰り返す
進む　i
数を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "1001\n2002\n2013\n2024");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, AProcedureThatLeavesTheBlockOfItsCaller) {
    Run(R"(
手順は　漏れる（x）
もしから抜ける
xで抜ける
終わり
iに1から4まで、繰り返す
もし 1＝1 なら
数＝数＋1
漏れる　1
数＝数＋10
もし終わり
もし 漏れる（1）＝1 なら
数＝数＋100
数＝数＋1000
もし終わり
和＝漏れる（1）＋1
もし 1＝1 なら
数＝数＋10000
数＝数＋100000
もし終わり
数を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "10101\n20202\n30303\n40404");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, AProcedureThatLeavesTheLoopOfItsCaller) {
    Run(R"(
手順は　漏れる（x）
繰り返しから抜ける
xで抜ける
終わり
手順は　数える（x）
iに1から3まで、繰り返す
数＝数＋1
繰り返し終わり
終わり
3回、繰り返す
iに1から5まで、繰り返す
数＝数＋100
もし i＝3 なら 漏れる　1
数＝数＋1000
繰り返し終わり
「［i］ ［数］」を表示
繰り返し終わり
3回、繰り返す
数える　1
「［i］ ［数］」を表示
繰り返し終わり
繰り返しから抜ける
数える　1
「［i］ ［数］」を表示
)");
    EXPECT_EQ(Shown(), "3 2300\n3 4600\n3 6900\n4 6903\n4 6906\n4 6909\n4 6912");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, AFlagIsLeftBehindThePass) {
    Run(R"(
4回、繰り返す
もし 1＝1 なら
数＝数＋1
数＝数＋10
もし終わり
もしから抜ける
繰り返し終わり
数を表示
)");
    EXPECT_EQ(Shown(), "14");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, AFlagThatAProcedureBeginsWith) {
    Run(R"(
手順は　足す
もし 1＝1 なら
数＝数＋1
数＝数＋10
もし終わり
終わり
3回、繰り返す
足す
繰り返し終わり
数を表示
3回、繰り返す
もしから抜ける
足す
繰り返し終わり
数を表示
)");
    EXPECT_EQ(Shown(), "33\n36");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, AFlagThatTheCounterLeavesBehind) {
    Run(R"(
手順は　番号（x）
回＝回＋1
もし 回＞4 なら もしから抜ける
1で抜ける
終わり
表＝「0,0」
表（番号（1））に1から6まで、繰り返す
もし 1＝1 なら
数＝数＋1
数＝数＋10
もし終わり
繰り返し終わり
数を表示
)");
    EXPECT_EQ(Shown(), "26");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, ReturningOutOfABlockClearsItsFlag) {
    Run(R"(
手順は　漏れる（x）
もしから抜ける
5で抜ける
終わり
手順は　包む（x）
もし 1＝1 なら
漏れる（1）＋1で抜ける
もし終わり
終わり
手順は　包む二（x）
もし 1＝1 なら
漏れる（1）で抜ける
もし終わり
終わり
4回、繰り返す
和＝包む（1）
もし 1＝1 なら
「［和］」を表示
「a」を表示
もし終わり
和＝包む二（1）
もし 1＝1 なら
「［和］」を表示
「b」を表示
もし終わり
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "6\na\n5\nb\n6\na\n5\nb\n6\na\n5\nb\n6\na\n5\nb");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, AJumpWithinThePass) {
    Run(R"(
’
iに1から4まで、繰り返す
もし i＝2 なら 先へ飛べ
数＝数＋1
先：
数＝数＋10
繰り返し終わり
数を表示
)");
    EXPECT_EQ(Shown(), "43");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, AJumpBackIsALoopOfItsOwn) {
    Run(R"(
’
iに1から3まで、繰り返す
回＝0
戻り：
回＝回＋1
数＝数＋1
もし 回＜i なら 戻りへ飛べ
繰り返し終わり
数を表示
)");
    EXPECT_EQ(Shown(), "6");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, AJumpOutOfABlock) {
    Run(R"(
’
iに1から4まで、繰り返す
もし i＞1 なら
数＝数＋1
もし i＝3 なら 先へ飛べ
数＝数＋10
もし終わり
数＝数＋100
先：
数＝数＋1000
もし i＝4 なら
数＝数＋10000
もし終わり
繰り返し終わり
数を表示
)");
    EXPECT_EQ(Shown(), "23323");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, AJumpOutOfALaterBranchGoesOnBehindTheBlock) {
    Run(R"(
手順は　試す（x）
もし x＝1 なら
数＝数＋1
他でもし x＝2 なら
数＝数＋10
先へ飛べ
数＝数＋100
もし終わり
数＝数＋1000
先：
数＝数＋10000
もし 1＝2 なら
もし終わり
終わり
3回、繰り返す
試す　2
数を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "11010\n22020\n33030");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, AJumpOutOfALoopInAProcedure) {
    Run(R"(
手順は　試す（x）
iに1から5まで、繰り返す
もし i＝x なら 外へ飛べ
数＝数＋1
繰り返し終わり
数＝数＋100
外：
数＝数＋1000
終わり
xに2から4まで、繰り返す
試す　x
数を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "1001\n2003\n3006");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, ATextThatRunsChangesTheProcedures) {
    Run(R"(
手順は　答える（x）
「答」で抜ける
終わり
手順は　加える（［量］を、［先］に）
「［量］［先］」を表示
終わり
3回、繰り返す
「和＝和＋1」を日本語処理
もし 1＝1 なら 1を2に加える でないなら 数＝1
数＝答える（1）
「a」を表示 。「b」を表示
「［それ］ ［和］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "12\na\nb\n答 1\n12\na\nb\n答 2\n12\na\nb\n答 3");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, ErrorsWithinALoop) {
    Run(R"(
iに1から3まで、繰り返す
もし i＝2 なら エラーは 報告
ほげほげ
数＝数＋1
もし 数 よりなら 「x」を表示
無い印へ飛べ
表（0－1）＝i
もし 無い（i）＝1 なら
数＝数＋10
もし終わり
数＝数＋100
繰り返し終わり
数を表示
)");
    EXPECT_EQ(Shown(), "303");
    EXPECT_EQ(Reports(), 5U);
}

TEST_F(BytecodeFlowTest, AStrayEndBehindALineOfItsOwn) {
    Run(R"(
iに1から3まで、繰り返す
もし i＞9 なら 「x」を表示
もし終わり
繰り返し終わり
iを表示
)");
    EXPECT_EQ(Shown(), "4");
    EXPECT_EQ(Reports(), 3U);
}

TEST_F(BytecodeFlowTest, ALoopWithoutItsEndIsOnePass) {
    Run(R"(
手順は　短い
3回、繰り返す
数＝数＋1
終わり
短い
短い
短い
短い
数を表示
)");
    EXPECT_EQ(Shown(), "4");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, TheEndOfTheRun) {
    Run(R"(
手順は　終える（x）
数＝数＋1
もし x＝4 なら 終了
数＝数＋10
xで抜ける
終わり
iに1から9まで、繰り返す
もし 終える（i）＝i なら
数を表示
もし終わり
繰り返し終わり
「x」を表示
)");
    EXPECT_EQ(Shown(), "11\n22\n33");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeFlowTest, ABranchWithoutItsEnd) {
    Run(R"(
手順は　試す（x）
もし x＞2 なら
数＝数＋1
終わり
4回、繰り返す
試す　1
数を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "1\n2\n3\n4");
    EXPECT_EQ(Reports(), 5U);
}

}  // namespace
}  // namespace velm
