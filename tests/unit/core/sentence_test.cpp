// Sentence analysis and the search for words.
#include "core/sentence.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/velm.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/text.h"
#include "data/utf.h"

namespace velm {
namespace {

using Texts = std::vector<std::u16string>;

// What a statement says, fences shown as "|".
std::u16string Shown(const Statement& statement) {
    const std::u16string_view marker(&kMarker, 1);
    return ReplaceAll(statement.Marked.Text(), marker, u"|") + u" [" + statement.Verb.Text() +
           u"][" + statement.WoArg.Text() + u"][" + statement.HeArg.Text() + u"]";
}

std::u16string ShownOf(std::u16string_view line) { return Shown(*ParseStatement(line)); }

StatementKind KindOf(std::u16string_view line) { return ParseStatement(line)->Kind; }

class SentenceTest : public testing::Test {
  protected:
    void SetUp() override { TheEngine(); }
};

TEST_F(SentenceTest, KindsInTheirOrder) {
    EXPECT_EQ(KindOf(u""), StatementKind::kCommand);
    EXPECT_EQ(KindOf(u"手順は\u3000x"), StatementKind::kProcedureHead);
    EXPECT_EQ(KindOf(u"手順は x"), StatementKind::kAssignment);
    EXPECT_EQ(KindOf(u"終わり"), StatementKind::kProcedureEnd);
    EXPECT_EQ(KindOf(u"印："), StatementKind::kLabel);
    EXPECT_EQ(KindOf(u"もし A＝1 なら"), StatementKind::kIf);
    EXPECT_EQ(KindOf(u"もし、A＝1 なら"), StatementKind::kIf);
    EXPECT_EQ(KindOf(u"もし\u3000A＝1 なら。x"), StatementKind::kIf);
    EXPECT_EQ(KindOf(u"もし終わり"), StatementKind::kCommand);
    EXPECT_EQ(KindOf(u"a。b"), StatementKind::kSentences);
    EXPECT_EQ(KindOf(u"「a。b」を表示"), StatementKind::kCommand);
    EXPECT_EQ(KindOf(u"終わり。"), StatementKind::kSentences);
    EXPECT_EQ(KindOf(u"変数は 3"), StatementKind::kAssignment);
    EXPECT_EQ(KindOf(u"変数は3"), StatementKind::kCommand);
    EXPECT_EQ(KindOf(u"A=1"), StatementKind::kAssignment);
    EXPECT_EQ(KindOf(u"色は 赤"), StatementKind::kSetting);
    EXPECT_EQ(KindOf(u"いろ＝赤"), StatementKind::kSetting);
    EXPECT_EQ(KindOf(u"色は赤"), StatementKind::kCommand);
    EXPECT_EQ(KindOf(u"Aの色は 赤"), StatementKind::kProperty);
    EXPECT_EQ(KindOf(u"X＝Yを表示"), StatementKind::kCommand);
    EXPECT_EQ(KindOf(u"A（「は 」）"), StatementKind::kCommand);
}

TEST_F(SentenceTest, AssignmentsAreCutAtTheirMark) {
    EXPECT_EQ(ShownOf(u"変数は 3"), u" [変数][3][]");
    EXPECT_EQ(ShownOf(u"A＝「x＝y」"), u" [A][「x＝y」][]");
    EXPECT_EQ(ShownOf(u"A = 1 = 2"), u" [A][1 = 2][]");
    EXPECT_EQ(ShownOf(u"A（i＝1）＝2"), u" [A（i＝1）][2][]");
    EXPECT_EQ(ShownOf(u"A＝B は 2"), u" [A＝B][2][]");
}

TEST_F(SentenceTest, CommandsAreCutFromTheirEnd) {
    EXPECT_EQ(ShownOf(u"「東京」を大阪を移動"), u"「東京」を大阪|を|移動 [移動][「東京」を大阪][]");
    EXPECT_EQ(ShownOf(u"AをBへ移動"), u"A|を|B|へ|移動 [移動][A][B]");
    EXPECT_EQ(ShownOf(u"BにAを、移動"), u"B|に|A|を|移動 [移動][A][B]");
    EXPECT_EQ(ShownOf(u"AをBを"), u"AをB|を| [][AをB][]");
    EXPECT_EQ(ShownOf(u"甲を、乙に丙を表示"), u"甲|を|乙|に|丙を表示 [丙を表示][甲][乙]");
    EXPECT_EQ(ShownOf(u"ほげ"), u"ほげ [ほげ][][]");
}

TEST_F(SentenceTest, TheVerbMayComeFirst) {
    EXPECT_EQ(ShownOf(u"表示\u3000「a b」"), u"表示\u3000「a b」 [表示][「a b」][]");
    EXPECT_EQ(ShownOf(u"表示 a\u3000b"), u"表示 a\u3000b [表示 a][b][]");
    EXPECT_EQ(ShownOf(u"表示 a b"), u"表示 a b [表示][a b][]");
    EXPECT_EQ(ShownOf(u"3回 繰り返し"), u"3回 繰り返し [3回 繰り返し][][]");
}

TEST_F(SentenceTest, ALeadingHeMayBelongToTheVerb) {
    EXPECT_EQ(ShownOf(u"右へ\u3000100"), u"右|へ|\u3000100 [右へ][100][右]");
    const StatementPtr plain = ParseStatement(u"右へ100");
    EXPECT_EQ(plain->Verb.Text(), u"100");
    EXPECT_EQ(plain->HeArg.Text(), u"右");
}

TEST_F(SentenceTest, HandlersAskForMoreWords) {
    const StatementPtr statement = ParseStatement(u"AからBまでCを試す");
    const auto [from, to, none] = GetWords(*statement, u"から", u"まで", u"と");
    EXPECT_EQ(from.Text(), u"A");
    EXPECT_EQ(to.Text(), u"B");
    EXPECT_EQ(none.Text(), u"");
    EXPECT_EQ(statement->WoArg.Text(), u"C");
    EXPECT_EQ(statement->Verb.Text(), u"試す");
}

TEST_F(SentenceTest, NiIsServedByHeAndTheOtherWayRound) {
    const StatementPtr statement = ParseStatement(u"Aを Bへ 置く");
    EXPECT_EQ(GetWord(*statement, u"に").Text(), u"B");
    EXPECT_EQ(GetWord(*statement, u"へ").Text(), u"B");
}

TEST_F(SentenceTest, ReadWordsSetsNoFences) {
    const StatementPtr statement = ParseStatement(u"Aから Bを 試す");
    const std::u16string_view asked[] = {u"から", u"を"};
    std::vector<Word> words = ReadWords(*statement, asked);
    EXPECT_EQ(words[0].Text(), u"");
    EXPECT_EQ(words[1].Text(), u"Aから B");
    GetWord(*statement, u"から");
    words = ReadWords(*statement, asked);
    EXPECT_EQ(words[0].Text(), u"A");
    EXPECT_EQ(words[1].Text(), u" B");
}

TEST_F(SentenceTest, ATwelfthParticleFails) {
    const StatementPtr statement = ParseStatement(u"1甲を");
    const std::vector<std::u16string_view> eleven(kMostParticles, u"甲");
    const std::vector<std::u16string_view> twelve(kMostParticles + 1, u"甲");
    std::vector<Word> found(kMostParticles + 1);
    EXPECT_NO_THROW(SplitByParticles(*statement, eleven, found));
    EXPECT_EQ(found[10].Text(), u"1");
    EXPECT_THROW(SplitByParticles(*statement, twelve, found), Failure);
}

// The rules of the split, told on plain text: each state is what a statement says after it.
struct Model {
    std::u16string marked;
    std::u16string verb;
    std::u16string wo;
    std::u16string he;

    Texts Ask(const Texts& particles) {
        for (const std::u16string& particle : particles) Fence(particle);
        const auto parts = Split(marked, {&kMarker, 1});
        Texts words(particles.size());
        for (std::size_t k = 1; k < parts.size(); k += 2) {
            const std::u16string word(Trim(parts[k - 1]));
            const bool to = parts[k] == u"に" || parts[k] == u"へ";
            if (parts[k] == u"を") wo = word;
            if (to) he = word;
            for (std::size_t i = 0; i < words.size(); ++i) {
                const bool toAsked = particles[i] == u"に" || particles[i] == u"へ";
                if (particles[i] == parts[k] || (to && toAsked)) words[i] = word;
            }
        }
        if (parts.size() > 1) verb = parts.back();
        return words;
    }

  private:
    void Fence(const std::u16string& particle) {
        std::size_t hit = FindLastOutsideBrackets(marked, particle + u"、");
        if (hit == 0) hit = FindLastOutsideBrackets(marked, particle);
        if (hit == 0 || (hit > 1 && marked[hit - 2] == kMarker)) return;
        std::size_t behind = hit - 1 + particle.size();
        if (behind < marked.size() && marked[behind] == u'、') ++behind;
        marked = marked.substr(0, hit - 1) + kMarker + particle + kMarker + marked.substr(behind);
    }
};

// Every sentence of up to five of these pieces.
constexpr std::u16string_view kPieces[] = {u"A",    u"を", u"に",     u"へ、",
                                           u"から", u"で", u"「に」", u"（"};

template <class Check>
void ForEachSentence(std::size_t pieces, const std::u16string& start, const Check& check) {
    if (!start.empty()) check(start);
    if (pieces == 0) return;
    for (const std::u16string_view piece : kPieces) {
        ForEachSentence(pieces - 1, start + std::u16string(piece), check);
    }
}

std::u16string SaidBy(const Statement& statement, const Texts& words) {
    std::u16string all = Shown(statement);
    for (const std::u16string& word : words) all += u"<" + word + u">";
    return all;
}

Texts AskAll(Statement& statement) {
    const auto [by, from] = GetWords(statement, u"で", u"から");
    const auto [to] = GetWords(statement, u"に");
    return {by.Text(), from.Text(), to.Text()};
}

TEST_F(SentenceTest, WordsFollowTheRulesInEveryShortSentence) {
    ForEachSentence(5, u"", [](const std::u16string& line) {
        const StatementPtr statement = ParseStatement(line);
        Model model;
        model.marked = line;
        model.Ask({u"を", u"へ", u"に"});
        const Texts words = AskAll(*statement);
        const Texts first = model.Ask({u"で", u"から"});
        const Texts second = model.Ask({u"に"});
        ASSERT_EQ(words, Texts({first[0], first[1], second[0]})) << Utf16ToUtf8(line);
        ASSERT_EQ(statement->Marked.Text(), model.marked) << Utf16ToUtf8(line);
        ASSERT_EQ(statement->WoArg.Text(), model.wo) << Utf16ToUtf8(line);
        ASSERT_EQ(statement->HeArg.Text(), model.he) << Utf16ToUtf8(line);
    });
}

TEST_F(SentenceTest, ALaterPassGivesTheSameWords) {
    ForEachSentence(5, u"", [](const std::u16string& line) {
        const StatementPtr statement = ParseStatement(line);
        const std::u16string first = SaidBy(*statement, AskAll(*statement));
        const std::u16string second = SaidBy(*statement, AskAll(*statement));
        const std::u16string third = SaidBy(*statement, AskAll(*statement));
        ASSERT_EQ(second, third) << Utf16ToUtf8(line);
        const StatementPtr fresh = ParseStatement(line);
        ASSERT_EQ(SaidBy(*fresh, AskAll(*fresh)), first) << Utf16ToUtf8(line);
    });
}

TEST_F(SentenceTest, ArgumentsByParticleAndByPosition) {
    xxCmdData left;
    left.Flags = 2;
    left.Joshi = {u"を", u"文字だけ"};
    EXPECT_EQ(SortByParticles(left, u"「abc」を2文字だけ"), Texts({u"「abc」", u"2"}));
    EXPECT_EQ(SortByParticles(left, u"「abc」を、2文字だけ"), Texts({u"「abc」", u"2"}));
    EXPECT_EQ(SortByParticles(left, u"「abc」を"), Texts({u"「abc」", u""}));
    EXPECT_EQ(SortByParticles(left, u"「abc」、2"), Texts({u"「abc」", u"2"}));
    EXPECT_EQ(SortByParticles(left, u"「を、」,2"), Texts({u"「を,」", u"2"}));
}

TEST_F(SentenceTest, TheCountIsAThresholdOnTheFences) {
    xxCmdData three;
    three.Flags = 3;
    three.Joshi = {u"を", u"から", u"へ"};
    EXPECT_EQ(SortByParticles(three, u"Aを1,2"), Texts({u"Aを1", u"2"}));
    EXPECT_EQ(SortByParticles(three, u"Aを Bから"), Texts({u"A", u"B", u""}));
    EXPECT_EQ(SortByParticles(three, u"Aを Bから Cに"), Texts({u"A", u"B", u"C"}));
    EXPECT_EQ(SortByParticles(three, u"BからAを残り"), Texts({u"A", u"B", u""}));
}

TEST_F(SentenceTest, CachedWordsAreOneWord) {
    EXPECT_EQ(&CachedWord(u"一語").Text(), &CachedWord(u"一語").Text());
    EXPECT_TRUE(CachedWord(u"").IsEmpty());
}

}  // namespace
}  // namespace velm
