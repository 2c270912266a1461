// Kana readings: what is read and what stays, pieces of long texts, a missing dictionary.
#include "platform/readings.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "data/failure.h"

namespace velm {
namespace {

constexpr const char* kVariable = "VELM_MECAB_DICTIONARY";

void ExpectReading(const std::u16string& text, const std::u16string& reading) {
    EXPECT_TRUE(KanaReading(text) == reading) << testing::PrintToString(KanaReading(text));
}

void ExpectNoDictionary(const char* folder) {
    ASSERT_EQ(setenv(kVariable, folder, 1), 0);
    try {
        KanaReading(u"漢字");
        ADD_FAILURE() << "read with " << folder;
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), failure::kFileNotFound);
        EXPECT_TRUE(failure.Description() == u"MeCab の辞書が見つかりません。");
    }
    ASSERT_EQ(unsetenv(kVariable), 0);
}

TEST(Readings, AMissingDictionaryFailsAndIsLookedForAgain) {
    ExpectNoDictionary("/nowhere/at/all");
    ExpectNoDictionary("/nowhere/at/all");
    ExpectReading(u"漢字", u"かんじ");
}

TEST(Readings, ADictionaryThatIsNoneFails) { ExpectNoDictionary("/tmp"); }

TEST(Readings, TheDictionaryMayBeNamed) {
    ASSERT_EQ(setenv(kVariable, "/var/lib/mecab/dic/ipadic-utf8/", 1), 0);
    ExpectReading(u"漢字", u"かんじ");
    ASSERT_EQ(setenv(kVariable, "", 1), 0);
    ExpectReading(u"漢字", u"かんじ");
    ASSERT_EQ(unsetenv(kVariable), 0);
}

TEST(Readings, AnEmptyTextHasAnEmptyReading) { ExpectReading(u"", u""); }

TEST(Readings, KanjiAndKatakanaAreRead) {
    ExpectReading(u"日本語を勉強する", u"にほんごをべんきょうする");
    ExpectReading(u"私は学生です", u"わたしはがくせいです");
    ExpectReading(u"カタカナ", u"かたかな");
    ExpectReading(u"コーヒー", u"こーひー");
    ExpectReading(u"人々", u"ひとびと");
    ExpectReading(u"三人", u"さんにん");
}

// The library would take minutes over a row of letters of this length.
TEST(Readings, LongRowsOfLettersAreNotAnalysed) {
    const std::u16string letters(5'000'000, u'a');
    ExpectReading(letters, letters);
    ExpectReading(u"東京。" + letters + u"。大阪", u"とうきょう。" + letters + u"。おおさか");
    ExpectReading(u"\xD842" + letters.substr(0, 10), u"\xD842" + letters.substr(0, 10));
}

TEST(Readings, EverythingElseStays) {
    ExpectReading(u"ひらがな", u"ひらがな");
    ExpectReading(u"ABC xyz", u"ABC xyz");
    ExpectReading(u"ＡＢＣ", u"ＡＢＣ");
    ExpectReading(u"2004", u"2004");
    ExpectReading(u"１２３", u"１２３");
    ExpectReading(u"100円", u"100えん");
    ExpectReading(u"、。「」＋％", u"、。「」＋％");
    ExpectReading(u"a,b\"c", u"a,b\"c");
}

TEST(Readings, BlanksAndLineEndsStay) {
    ExpectReading(u"  東京  大阪 ", u"  とうきょう  おおさか ");
    ExpectReading(u"東京　大阪", u"とうきょう　おおさか");
    ExpectReading(u"東京\r\n大阪\t", u"とうきょう\r\nおおさか\t");
    ExpectReading(std::u16string(u"山\0川", 3), std::u16string(u"やま\0かわ", 5));
    ExpectReading(u" ", u" ");
}

TEST(Readings, AnUnknownWordStays) {
    ExpectReading(u"\U00020BB7", u"\U00020BB7");
    ExpectReading(u"鿍鿍", u"鿍鿍");
}

TEST(Readings, LongTextsAreReadInPieces) {
    std::u16string text;
    std::u16string reading;
    for (int i = 0; i < 3000; ++i) {
        text += u"東京。";
        reading += u"とうきょう。";
    }
    ExpectReading(text, reading);
    // Without any end of a sentence, and with a character of two units at every cut.
    const std::u16string letters(70000, u'ｗ');
    ExpectReading(letters, letters);
    std::u16string pairs = u"a";
    for (int i = 0; i < 5000; ++i) pairs += u"\U00020BB7";
    ExpectReading(pairs, pairs);
}

}  // namespace
}  // namespace velm
