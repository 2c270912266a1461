// Width, kana and case maps character by character, and the key form of names.
#include "data/width.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace velm {
namespace {

// Every half-width character that has a partner, and the partners in the same order.
constexpr std::u16string_view kHalfAscii =
    u" !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"
    u"abcdefghijklmnopqrstuvwxyz{|}~";
constexpr std::u16string_view kFullAscii =
    u"　！\u201D＃＄％＆\u2019（）＊＋，－．／０１２３４５６７８９：；＜＝＞？＠"
    u"ＡＢＣＤＥＦＧＨＩＪＫＬＭＮＯＰＱＲＳＴＵＶＷＸＹＺ［￥］＾＿\u2018"
    u"ａｂｃｄｅｆｇｈｉｊｋｌｍｎｏｐｑｒｓｔｕｖｗｘｙｚ｛｜｝～";
constexpr std::u16string_view kHalfKana =
    u"｡｢｣､･ｦｧｨｩｪｫｬｭｮｯｰｱｲｳｴｵｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾅﾆﾇﾈﾉﾊﾋﾌﾍﾎﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜﾝﾞﾟ";
constexpr std::u16string_view kFullKana =
    u"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホ"
    u"マミムメモヤユヨラリルレロワン゛゜";
constexpr std::u16string_view kHalfVoiced = u"ｳﾞｶﾞｷﾞｸﾞｹﾞｺﾞｻﾞｼﾞｽﾞｾﾞｿﾞﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ";
constexpr std::u16string_view kFullVoiced = u"ヴガギグゲゴザジズゼゾダヂヅデドバビブベボパピプペポ";
constexpr std::u16string_view kHalfSigns = u"\u00A2\u00A3\u00AC\u00AF\u00A6\u20A9";
constexpr std::u16string_view kFullSigns = u"\uFFE0\uFFE1\uFFE2\uFFE3\uFFE4\uFFE6";

void ExpectPairs(std::u16string_view half, std::u16string_view full) {
    ASSERT_EQ(half.size(), full.size());
    for (std::size_t i = 0; i < half.size(); ++i) {
        EXPECT_EQ(ToFullWidth(half.substr(i, 1)), full.substr(i, 1)) << i;
        EXPECT_EQ(ToHalfWidth(full.substr(i, 1)), half.substr(i, 1)) << i;
        EXPECT_TRUE(SameName(half.substr(i, 1), full.substr(i, 1))) << i;
    }
}

TEST(Width, AsciiPairs) { ExpectPairs(kHalfAscii, kFullAscii); }

TEST(Width, KatakanaPairs) { ExpectPairs(kHalfKana, kFullKana); }

TEST(Width, SignPairs) { ExpectPairs(kHalfSigns, kFullSigns); }

TEST(Width, VoicedPairsJoinAndSplit) {
    ASSERT_EQ(kHalfVoiced.size(), 2 * kFullVoiced.size());
    for (std::size_t i = 0; i < kFullVoiced.size(); ++i) {
        EXPECT_EQ(ToFullWidth(kHalfVoiced.substr(2 * i, 2)), kFullVoiced.substr(i, 1)) << i;
        EXPECT_EQ(ToHalfWidth(kFullVoiced.substr(i, 1)), kHalfVoiced.substr(2 * i, 2)) << i;
    }
    EXPECT_EQ(ToFullWidth(kHalfVoiced), kFullVoiced);
    EXPECT_EQ(ToHalfWidth(kFullVoiced), kHalfVoiced);
}

TEST(Width, MarksThatFitNoLetterStandAlone) {
    EXPECT_EQ(ToFullWidth(u"ｱﾞ"), u"ア゛");
    EXPECT_EQ(ToFullWidth(u"ﾞｶ"), u"゛カ");
    EXPECT_EQ(ToFullWidth(u"ｶﾟ"), u"カ゜");
    EXPECT_EQ(ToFullWidth(u"ｶﾞﾞ"), u"ガ゛");
    EXPECT_EQ(ToFullWidth(u"ﾜﾞ"), u"ワ゛");
    // A full-width letter in front of a half-width mark was no pair.
    EXPECT_EQ(ToFullWidth(u"カﾞ"), u"カ゛");
}

TEST(Width, FormsThatMapOneWay) {
    EXPECT_EQ(ToHalfWidth(u"\u201C＂＇｀＼"), u"\"\"'`\\");
    EXPECT_EQ(ToFullWidth(u"\u00A5"), u"￥");
}

TEST(Width, OtherTextStays) {
    const std::u16string_view kept = u"漢字ひらがなヮヰヱヵヶヷヺ→←↑↓■○〜\u2015\U00020B9F";
    EXPECT_EQ(ToHalfWidth(kept), kept);
    EXPECT_EQ(ToFullWidth(kept), kept);
    EXPECT_EQ(ToFullWidth(u"\t\r\n"), u"\t\r\n");
    EXPECT_EQ(ToHalfWidth(u""), u"");
}

TEST(Width, MixedText) {
    EXPECT_EQ(ToFullWidth(u"Abc 12ｶﾞ漢"), u"Ａｂｃ　１２ガ漢");
    EXPECT_EQ(ToHalfWidth(u"Ａ：￥ラーメン（大）"), u"A:\\ﾗｰﾒﾝ(大)");
}

TEST(Kana, HiraganaAndKatakanaLetters) {
    for (char16_t unit = u'ぁ'; unit <= u'ん'; ++unit) {
        const std::u16string hiragana(1, unit);
        const std::u16string katakana(1, static_cast<char16_t>(unit + 0x60));
        EXPECT_EQ(ToKatakana(hiragana), katakana);
        EXPECT_EQ(ToHiragana(katakana), hiragana);
        EXPECT_FALSE(SameName(hiragana, katakana));
    }
    EXPECT_EQ(ToHiragana(u"ヽヾ"), u"ゝゞ");
    EXPECT_EQ(ToKatakana(u"ゝゞ"), u"ヽヾ");
}

TEST(Kana, LettersOutsideTheCodePage) {
    EXPECT_EQ(ToHiragana(u"ヴヵヶ"), u"ヴヵヶ");
    EXPECT_EQ(ToKatakana(u"ゔゕゖ"), u"ヴヵヶ");
}

TEST(Kana, TheRestStays) {
    EXPECT_EQ(ToHiragana(u"ラーメンとABC漢字ｱ・"), u"らーめんとABC漢字ｱ・");
    EXPECT_EQ(ToKatakana(u"らーめんとＡ漢字゛"), u"ラーメントＡ漢字゛");
}

TEST(LetterCase, Alphabets) {
    const std::u16string_view lower = u"azａｚàöøþÿαωϊϋάέήίόύώаяёѐџ";
    const std::u16string_view upper = u"AZＡＺÀÖØÞŸΑΩΪΫΆΈΉΊΌΎΏАЯЁЀЏ";
    EXPECT_EQ(ToUpper(lower), upper);
    EXPECT_EQ(ToLower(upper), lower);
    EXPECT_EQ(ToUpper(upper), upper);
    EXPECT_EQ(ToLower(lower), lower);
}

TEST(LetterCase, OneWayAndNoPartner) {
    EXPECT_EQ(ToUpper(u"ς"), u"Σ");
    EXPECT_EQ(ToLower(u"Σ"), u"σ");
    EXPECT_EQ(ToUpper(u"ßµ÷ΐΰ"), u"ßµ÷ΐΰ");
    EXPECT_EQ(ToLower(u"×\u03A2"), u"×\u03A2");
    EXPECT_EQ(ToUpper(u"1@[`{あアｱ漢"), u"1@[`{あアｱ漢");
    EXPECT_EQ(ToLower(u"1@[`{あアｱ漢"), u"1@[`{あアｱ漢");
}

TEST(FoldName, CaseAndWidthAreIgnored) {
    EXPECT_TRUE(SameName(u"Abc", u"ａＢＣ"));
    EXPECT_TRUE(SameName(u"ボタン1", u"ﾎﾞﾀﾝ１"));
    EXPECT_TRUE(SameName(u"パート", u"ﾊﾟｰﾄ"));
    EXPECT_TRUE(SameName(u"カ゛", u"ｶﾞ"));
    EXPECT_TRUE(SameName(u"a b", u"Ａ　Ｂ"));
    EXPECT_TRUE(SameName(u"C:\\", u"ｃ：￥"));
    EXPECT_TRUE(SameName(u"ёж", u"ЁЖ"));
    EXPECT_TRUE(SameName(u"", u""));
}

TEST(FoldName, OtherDifferencesCount) {
    EXPECT_FALSE(SameName(u"ボタン", u"ぼたん"));
    EXPECT_FALSE(SameName(u"ガ", u"カ"));
    EXPECT_FALSE(SameName(u"ハ゛", u"パ"));
    EXPECT_FALSE(SameName(u"ツ", u"ッ"));
    EXPECT_FALSE(SameName(u"a", u"a "));
    EXPECT_FALSE(SameName(u"ラーメン", u"ラメン"));
}

TEST(FoldName, AFoldedNameStays) {
    for (const std::u16string_view name :
         {u"合計", u"ボタン１", u"ﾎﾞﾀﾝ1", u"abcＡＢＣ", u"ｶﾞﾞ", u"カ゛゛", u"゛", u"“”‘’￥\\¥"}) {
        const std::u16string key = FoldName(name);
        EXPECT_EQ(FoldName(key), key);
    }
    EXPECT_EQ(FoldName(u"合計ボタン"), u"合計ボタン");
}

// What each map gives must still be the same name, whichever single unit it is given.
TEST(FoldName, MeetsTheWidthAndCaseMapsForEveryUnit) {
    for (int code = 0; code <= 0xFFFF; ++code) {
        const std::u16string text(1, static_cast<char16_t>(code));
        const std::u16string key = FoldName(text);
        ASSERT_EQ(FoldName(key), key) << code;
        ASSERT_EQ(FoldName(ToFullWidth(text)), key) << code;
        ASSERT_EQ(FoldName(ToHalfWidth(text)), key) << code;
        ASSERT_EQ(FoldName(ToUpper(text)), key) << code;
        ASSERT_EQ(FoldName(ToLower(text)), key) << code;
        ASSERT_EQ(ToFullWidth(ToFullWidth(text)), ToFullWidth(text)) << code;
        ASSERT_EQ(ToHalfWidth(ToHalfWidth(text)), ToHalfWidth(text)) << code;
        // “ ＂ ＇ ｀ ＼ are wide already, and narrow to a partner of another one.
        if (ToFullWidth(text) == text) continue;
        ASSERT_EQ(ToFullWidth(ToHalfWidth(ToFullWidth(text))), ToFullWidth(text)) << code;
    }
}

}  // namespace
}  // namespace velm
