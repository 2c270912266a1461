// Loops, blocks and words in the bytecode.
//
// Each program runs its loop or procedure several times over: the first pass is walked, the others run as
// bytecode, and nothing may tell them apart.
#include <gtest/gtest.h>

#include "unit/script_run.h"

namespace velm {
namespace {

class BytecodeTest : public ScriptRun {};

TEST_F(BytecodeTest, LeavingABlockPassesOverItsOtherLines) {
    Run(R"(
iに1から4まで、繰り返す
もし i＞1 なら
数＝数＋1
もし i＞2 なら もしから抜ける
数＝数＋10
もし終わり
数＝数＋100
繰り返し終わり
数を表示
)");
    EXPECT_EQ(Shown(), "413");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, LeavingTheInnerBlockStaysInTheOuterOne) {
    Run(R"(
iに1から4まで、繰り返す
もし i＞0 なら
もし i＞2 なら
数＝数＋1
もしから抜ける
数＝数＋10
もし終わり
数＝数＋100
もし終わり
繰り返し終わり
数を表示
)");
    EXPECT_EQ(Shown(), "402");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, LeavingALoopRunsTheLinesBehindInTheBlock) {
    Run(R"(
2回、繰り返す
iに1から9まで、繰り返す
もし i＝3 なら
繰り返しから抜ける
数＝数＋100
もし終わり
数＝数＋1
繰り返し終わり
「［i］ ［数］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "3 102\n3 204");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, LeavingFromTheBranchesOfALine) {
    Run(R"(
2回、繰り返す
iに1から9まで、繰り返す
もし i＜4 なら 数＝数＋1 でないなら 繰り返しから抜ける
繰り返し終わり
jに1から9まで、繰り返す
もし j＞5 なら 繰り返しから抜ける でないなら 数＝数＋10
繰り返し終わり
「［i］ ［j］ ［数］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "4 6 53\n4 6 106");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, LeavingOnlyTheInnermostOfThreeLoops) {
    Run(R"(
iに1から3まで、繰り返す
jに1から3まで、繰り返す
kに1から3まで、繰り返す
数＝数＋1
もし k＝2 なら
もし j＝2 なら
繰り返しから抜ける
もし終わり
もし終わり
繰り返し終わり
もし j＝i なら 繰り返しから抜ける
繰り返し終わり
「［i］［j］［k］ ［数］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "114 3\n222 8\n334 16");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, BranchesThreeDeep) {
    Run(R"(
文＝「」
iに1から6まで、繰り返す
もし i＜4 なら
もし i＜3 なら
もし i＜2 なら
文＝文＆「a」
他でもし i＝2 なら
文＝文＆「b」
もし終わり
他なら
文＝文＆「c」
もし終わり
他でもし i＝4 なら
文＝文＆「d」
他でもし i＝5 なら
文＝文＆「e」
他なら
文＝文＆「f」
もし終わり
繰り返し終わり
文を表示
)");
    EXPECT_EQ(Shown(), "abcdef");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, AnInvertedBlock) {
    Run(R"(
iに1から4まで、繰り返す
もし i＝2 でないなら
数＝数＋1
他なら
数＝数＋10
もし終わり
繰り返し終わり
数を表示
)");
    EXPECT_EQ(Shown(), "13");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, CasesWithinALoop) {
    Run(R"(
iに1から5まで、繰り返す
iについて分岐
2の場合
数＝数＋1
3、4の場合
数＝数＋10
他の場合
もし i＝5 なら 繰り返しから抜ける
数＝数＋100
分岐終わり
数＝数＋1000
繰り返し終わり
「［i］ ［数］」を表示
)");
    EXPECT_EQ(Shown(), "5 4221");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, AConditionOfABranchIsEvaluatedOnce) {
    Run(R"(
手順は　数える（x）
回＝回＋1
xで抜ける
終わり
表＝「1,2」
iに1から4まで、繰り返す
もし 数える（i）＝9 なら
数＝数＋1
他でもし 表（9、4）＝2 なら
数＝数＋10
もし終わり
回を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "1\n2\n3\n4");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, ACounterThatTheBodyChanges) {
    Run(R"(
3回、繰り返す
iに1から8まで、繰り返す
数＝数＋1
i＝i＋1
繰り返し終わり
「［i］ ［数］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "9 4\n9 8\n9 12");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, ACounterThatBecomesText) {
    Run(R"(
3回、繰り返す
iに1から5回、繰り返す
もし i＝3 なら i＝「語」
数＝数＋1
繰り返し終わり
「［i］ ［数］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "3 5\n3 10\n3 15");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, ACounterThatStartsAsText) {
    Run(R"(
iに「2」から「4」まで、繰り返す
数＝数＋i
繰り返し終わり
i＝「x」
iに3回、繰り返す
数＝数＋i
繰り返し終わり
「［i］ ［数］」を表示
)");
    EXPECT_EQ(Shown(), "3 12");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, ACellAsTheCounter) {
    Run(R"(
表＝「0,0」
3回、繰り返す
表（2）に1から3まで、繰り返す
数＝数＋表（2）
繰り返し終わり
「［表］ ［数］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "0,4 6\n0,4 12\n0,4 18");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, TheCellOfACounterIsSoughtAnewEachTime) {
    Run(R"(
手順は　次（x）
番＝番＋1
番で抜ける
終わり
番＝0
表＝「0,0」
表（次（1））に1から5回、繰り返す
数＝数＋1
繰り返し終わり
「［表］ ［数］」を表示
)");
    EXPECT_EQ(Shown(), "1,0,1,,1,,1,,1,,1 5");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, CountsOfEveryKind) {
    Run(R"(
手順は　二つ（x）
数＝数＋1000
2で抜ける
終わり
3回、繰り返す
0回、繰り返す
数＝数＋1
繰り返し終わり
2.5回、繰り返す
数＝数＋10
繰り返し終わり
「3」回、繰り返す
数＝数＋100
繰り返し終わり
二つ（1）回、繰り返す
数＝数＋10000
繰り返し終わり
「語」回、繰り返す
数＝数＋1
繰り返し終わり
数を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "21320\n42640\n63960");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, ANegativeCountGoesOnFromTheStart) {
    Run(R"(
’
回＝回＋1
回を表示
もし 回＝3 なら 終了
iに1から4まで、繰り返す
数＝3－i
数＊2－1回、繰り返す
数＝数＋1
繰り返し終わり
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "1\n2\n3");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, AnEndlessLoopLeftInSeveralWays) {
    Run(R"(
手順は　探す（上）
永遠に繰り返す
数＝数＋1
もし 数％上＝0 なら 数で抜ける
もし 数＞20 なら
繰り返しから抜ける
もし終わり
繰り返し終わり
「尽きた」で抜ける
終わり
5回、繰り返す
探す（6）を表示
繰り返し終わり
永遠、iに繰り返す
もし i＝4 なら 繰り返しから抜ける
数＝数＋1
繰り返し終わり
「［i］ ［数］」を表示
)");
    EXPECT_EQ(Shown(), "6\n12\n18\n尽きた\n尽きた\n4 26");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, AValueOutOfALoopInALoop) {
    Run(R"(
手順は　探す（何）
iに1から4まで、繰り返す
jに1から4まで、繰り返す
もし i＊j＝何 なら
i＊10＋jで抜ける
もし終わり
繰り返し終わり
繰り返し終わり
終わり
xに5から12まで、繰り返す
「［x］: ［探す（x）］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "5: \n6: 23\n7: \n8: 24\n9: 33\n10: \n11: \n12: 34");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, TheAnswerBehindCalls) {
    Run(R"(
手順は　答える（x）
もし x＞2 なら x＊2で抜ける
もし x＞1 なら 抜ける
x＝0
終わり
iに1から4まで、繰り返す
答える　i
「［それ］」を表示
答える（i）＋1を表示
「［それ］」を表示
もし 1＝1 なら 数＝数＋1 でないなら 5で抜ける
「［それ］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "\n1\n\n\n\n1\n\n\n6\n7\n6\n6\n8\n9\n8\n8");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, ALineOfSeveralSentences) {
    Run(R"(
手順は　足す（x）
数＝数＋x
もし x＝3 なら 抜ける
数＝数＋10
終わり
iに1から4まで、繰り返す
数＝数＋1。足す　i。もし i＞2 なら 数＝数＋100
繰り返し終わり
数を表示
「数＝数＋1。足す　5」を3回、繰り返せ
数を表示
)");
    EXPECT_EQ(Shown(), "244\n292");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, NamesThatComeIntoBeing) {
    Run(R"(
手順は　試す（x）
新しい＝新しい＋x
ここだけの変数は 中、A
中＝中＋x
A＝A＋1
「［新しい］ ［中］ ［A］」を表示
終わり
A＝100
3回、繰り返す
別＝別＋2
試す　5
繰り返し終わり
「［別］ ［A］ ［中］」を表示
)");
    EXPECT_EQ(Shown(), "5 5 1\n10 5 1\n15 5 1\n6 100 ");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, NamesOfFunctionsAndArithmetic) {
    Run(R"(
手順は　足す（甲、乙）
甲＋乙で抜ける
終わり
手順は　奇妙（［甲－1］、乙）
甲＝5
足す（甲－1、乙）＊100＋甲－1で抜ける
終わり
手順は　改める（改行）
改行＝改行＋1
改行＊2で抜ける
終わり
iに1から4まで、繰り返す
奇妙（20、i）を表示
改める（i）を表示
繰り返し終わり
はい＝はい＋1
)");
    EXPECT_EQ(Shown(), "2104\n4\n2204\n6\n2304\n8\n2404\n10");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, ASumWhoseCallChangesItsVariable) {
    Run(R"(
手順は　変える（x）
数＝数＋x
表（5）＝x
3で抜ける
終わり
数＝1
表＝「1,2」
4回、繰り返す
和＝数＋変える（2）＋数
差＝変える（2）－数
別＝表（5）＋変える（1）＋表（5）
「［和］ ［差］ ［別］ ［表］」を表示
表＝「1,2」
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "7 -2 6 1,2,,,1\n17 -7 6 1,2,,,1\n27 -12 6 1,2,,,1\n37 -17 6 1,2,,,1");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, ATableThatTheIndexChanges) {
    Run(R"(
手順は　伸ばす（x）
表（x＋2）＝x
xで抜ける
終わり
表＝「5,6」
iに1から4まで、繰り返す
表（伸ばす（i））＝i＊10
和＝表（伸ばす（i））＋1
「［和］ ［表］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "11 10,6,1\n21 10,20,1,2\n31 10,20,30,2,3\n41 10,20,30,40,3,4");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, ParametersThatAreWrittenBack) {
    Run(R"(
手順は　!増やす（甲、乙）
甲＝甲＊2
もし 甲＞20 なら 抜ける
乙＝乙＋1
甲で抜ける
終わり
数＝3
回＝0
4回、繰り返す
増やす　数、回
「［数］ ［回］ ［それ］」を表示
和＝増やす（数、回）＋1
「［数］ ［回］ ［和］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "6 1 6\n12 2 13\n24 2 \n48 2 1\n96 2 \n192 2 1\n384 2 \n768 2 1");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, ProceduresWithinThemselves) {
    Run(R"(
手順は　数列（n）
もし n＜2 なら nで抜ける
iに1から2まで、繰り返す
和＝数列（n－1）＋数列（n－2）
もし i＝2 なら 和で抜ける
繰り返し終わり
終わり
手順は　深い（n）
もし n＝0 なら 抜ける
数＝数＋1
2回、繰り返す
深い　n－1
もし n＝2 なら 繰り返しから抜ける
繰り返し終わり
終わり
nに1から5まで、繰り返す
数列（n）を表示
深い　n
数を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "1\n1\n1\n3\n2\n8\n3\n19\n5\n42");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, NumbersAtTheirLimits) {
    Run(R"(
大＝1E15
小＝1
端＝1E308
3回、繰り返す
大＝大＊10＋1
小＝小／1000000
端＝端＊10
零＝小－小
割り＝大／零
余り＝2.5％2
和＝0.1＋0.2
もし 和＝0.3 なら 数＝数＋1
「［大］ ［小］ ［端］ ［零］ ［割り］ ［余り］ ［和］ ［数］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(),
              "1E+16 1E-06 1E+308 0 1E+16 0 0.3 1\n1E+17 1E-12 1E+308 0 1E+17 0 0.3 2\n"
              "1E+18 0 1E+308 0 1E+18 0 0.3 3");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, CellsThatAreNoNumbers) {
    Run(R"(
表＝「1,語,,２,007」＆改行＆「a,5」
辞（「色」）＝3
辞（「k2」）＝「語」
鍵＝「色」
iに1から7まで、繰り返す
数＝表（i）＋1
和＝表（2、i）＋表（i、2）
辞（鍵）＝辞（鍵）＋i
辞（「k」＆i）＝辞（「k」＆i）＋1
表（i）＝表（i）＋0
もし 表（i）＝0 なら 零＝零＋i
「［数］ ［和］ ［辞（鍵）］ ［辞（「k2」）］」を表示
繰り返し終わり
「［表］ ［零］」を表示
)");
    EXPECT_EQ(Shown(),
              "2 0 4 語\n1 10 6 1\n1 0 9 1\n3 0 13 1\n1 0 18 1\n6 0 24 1\n1 0 31 1\n"
              "1,0,0,2,0,5,0 17");
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(BytecodeTest, ACellIsReadAsItIs) {
    Run(R"(
手順は　読む（x）
表（x）で抜ける
終わり
表＝「1E-20,-2E-16」
4回、繰り返す
数＝表（1）
「［数］ ［読む（2）］ ［表（1）＋0］」を表示
繰り返し終わり
)");
    EXPECT_EQ(Shown(), "1E-20 -2E-16 0\n1E-20 -2E-16 0\n1E-20 -2E-16 0\n1E-20 -2E-16 0");
    EXPECT_EQ(Reports(), 0U);
}

}  // namespace
}  // namespace velm
