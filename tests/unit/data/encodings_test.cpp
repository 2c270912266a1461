// Base64, EUC, JIS, UTF-8, the URL form and the scrambling, with the codes worked out by hand.
#include "data/encodings.h"

#include <gtest/gtest.h>

#include <string>

#include "data/code_page_932.h"

namespace velm {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

std::string EucOf(std::u16string_view text) { return TextToEuc(EncodeCodePage932(text)); }

// --- Base64

TEST(Base64, PadsByThreesOfCharacters) {
    EXPECT_EQ(EncodeBase64(""), u"");
    EXPECT_EQ(EncodeBase64("A"), u"QQ=");
    EXPECT_EQ(EncodeBase64("AB"), u"QUI");
    EXPECT_EQ(EncodeBase64("ABC"), u"QUJD==");
    EXPECT_EQ(EncodeBase64("ABCD"), u"QUJDRA");
    EXPECT_EQ(EncodeBase64("ABCDE"), u"QUJDREU==");
    EXPECT_EQ(EncodeBase64("ABCDEF"), u"QUJDREVG=");
    EXPECT_EQ(EncodeBase64("ABCDEFGHI"), u"QUJDREVGR0hJ");
}

TEST(Base64, UsesTheWholeAlphabet) {
    EXPECT_EQ(EncodeBase64("\x00\x10\x83\x10\x51\x87\x20\x92\x8B"sv), u"ABCDEFGHIJKL");
    EXPECT_EQ(EncodeBase64("\xFF\xFE\xFD\xFB\xF0\x00"sv), u"//79+/AA=");
    EXPECT_EQ(DecodeBase64(u"ABCDEFGHIJKL"), "\x00\x10\x83\x10\x51\x87\x20\x92\x8B"s);
    EXPECT_EQ(DecodeBase64(u"//79+/AA="), "\xFF\xFE\xFD\xFB\xF0\x00"s);
}

TEST(Base64, CutsLinesOf72CharactersPaddingIncluded) {
    const std::u16string line(72, u'A');
    EXPECT_EQ(EncodeBase64(std::string(52, '\0')), std::u16string(70, u'A') + u"==");
    EXPECT_EQ(EncodeBase64(std::string(53, '\0')), std::u16string(71, u'A') + u"=");
    EXPECT_EQ(EncodeBase64(std::string(54, '\0')), line);
    EXPECT_EQ(EncodeBase64(std::string(55, '\0')), line + u"\r\nAA=");
    EXPECT_EQ(EncodeBase64(std::string(56, '\0')), line + u"\r\nAAA");
    EXPECT_EQ(EncodeBase64(std::string(57, '\0')), line + u"\r\nAAAA==");
    EXPECT_EQ(EncodeBase64(std::string(108, '\0')), line + u"\r\n" + line);
}

TEST(Base64, StopsAtTheFirstPadAndDropsAnIncompleteByte) {
    EXPECT_EQ(DecodeBase64(u""), "");
    EXPECT_EQ(DecodeBase64(u"Q"), "");
    EXPECT_EQ(DecodeBase64(u"QQ="), "A");
    EXPECT_EQ(DecodeBase64(u"QQ"), "A");
    EXPECT_EQ(DecodeBase64(u"QUI"), "AB");
    EXPECT_EQ(DecodeBase64(u"QUJD==QUJD"), "ABC");
    EXPECT_EQ(DecodeBase64(u"=QUJD"), "");
}

TEST(Base64, SkipsWhatIsOutsideTheAlphabet) {
    EXPECT_EQ(DecodeBase64(u"QU\r\nJD"), "ABC");
    EXPECT_EQ(DecodeBase64(u" Q-U_J.Dあ"), "ABC");
    EXPECT_EQ(DecodeBase64(u"ＱＵＪＤ"), "");
    EXPECT_EQ(DecodeBase64(u"@[`{:QUJD"), "ABC");
}

TEST(Base64, ComesBackForEveryLength) {
    std::string bytes;
    for (int i = 0; i < 300; ++i) {
        EXPECT_EQ(DecodeBase64(EncodeBase64(bytes)), bytes);
        bytes += static_cast<char>(i * 37);
    }
}

TEST(Base64, CallsBackAfterEveryHundredCharacters) {
    const auto callsFor = [](std::u16string_view text) {
        int calls = 0;
        DecodeBase64(text, [&calls] { ++calls; });
        return calls;
    };
    EXPECT_EQ(callsFor(std::u16string(99, u'A')), 0);
    EXPECT_EQ(callsFor(std::u16string(100, u'A')), 1);
    EXPECT_EQ(callsFor(std::u16string(250, u'-')), 2);
    EXPECT_EQ(callsFor(std::u16string(150, u'A') + u"=" + std::u16string(150, u'A')), 1);
}

// --- EUC

TEST(Euc, WritesPairsByArithmetic) {
    EXPECT_EQ(EucOf(u"漢字"), "\xB4\xC1\xBB\xFA");
    EXPECT_EQ(EucOf(u"　"), "\xA1\xA1");  // 8140: the first cell of an odd row
    EXPECT_EQ(EucOf(u"×"), "\xA1\xDF");   // 817E, before the gap
    EXPECT_EQ(EucOf(u"÷"), "\xA1\xE0");   // 8180, behind it
    EXPECT_EQ(EucOf(u"◆"), "\xA2\xA1");   // 819F: the first cell of an even row
    EXPECT_EQ(EucOf(u"◯"), "\xA2\xFE");   // 81FC: the last one
    EXPECT_EQ(EucOf(u"滌"), "\xDE\xFE");  // 9FFC: the last lead before the gap
    EXPECT_EQ(EucOf(u"漾"), "\xDF\xA1");  // E040: the first behind it
    EXPECT_EQ(EucOf(u"①"), "\xAD\xA1");
    EXPECT_EQ(TextToEuc("\xEF\xFC"), "\xFE\xFE");
    EXPECT_EQ(TextToEuc("\x81\x7F"), "\xA1\xE0");
}

TEST(Euc, FollowsALoneLastByteByANul) {
    EXPECT_EQ(EucOf(u""), "");
    EXPECT_EQ(EucOf(u"a"), "a\0"s);
    EXPECT_EQ(EucOf(u"表 ソ"), "\xC9\xBD \xA5\xBD");
    EXPECT_EQ(EucOf(u"表a"),
              "\xC9\xBD"
              "a\0"s);
    EXPECT_EQ(EucOf(u"aｱ"), "a\xB1\0"s);
    EXPECT_EQ(TextToEuc("a\x82"), "a\x82\0"s);
    EXPECT_EQ(EucOf(u"a\r\n"), "a\r\n\0"s);
}

TEST(Euc, PrefixesHalfWidthKatakana) {
    EXPECT_EQ(EucOf(u"ｱ漢"), "\x8E\xB1\xB4\xC1");
    EXPECT_EQ(EucOf(u"ﾟa"),
              "\x8E\xDF"
              "a\0"s);
    EXPECT_EQ(TextToEuc("\xA0"
                        "b"),
              "\x8E\xA0"
              "b\0"s);
}

TEST(Euc, CopiesALeadByteWithoutATrailByte) {
    EXPECT_EQ(TextToEuc("\x82 z"), "\x82 z\0"s);
    EXPECT_EQ(TextToEuc("\x80@z"), "\x80@z\0"s);
    EXPECT_EQ(TextToEuc("\x82\x3Fz"), "\x82?z\0"s);
}

TEST(Euc, HasNoPlaceBehindItsRows) {
    EXPECT_EQ(EucOf(u"髙い"), "?\xA4\xA4");
    EXPECT_EQ(EucOf(u"\uE000い"), "?\xA4\xA4");
    EXPECT_EQ(TextToEuc("\x81\xFDz"), "?z\0"s);
}

TEST(Euc, ReadsPairsAndSingleBytes) {
    EXPECT_EQ(EucToText(""), u"");
    EXPECT_EQ(EucToText("a\xB4\xC1\xBB\xFAz"), u"a漢字z");
    EXPECT_EQ(EucToText("\xA1\xDF\xA1\xE0\xA2\xA1\xA2\xFE\xDE\xFE\xDF\xA1"), u"×÷◆◯滌漾");
    EXPECT_EQ(EucToText("\xAD\xA1"), u"①");
}

TEST(Euc, TurnsEachLineFeedIntoALineBreak) {
    EXPECT_EQ(EucToText("a\nb"), u"a\r\nb");
    EXPECT_EQ(EucToText("\xA4\xA2\r\n"), u"あ\r\r\n");
}

TEST(Euc, EndsAtANul) {
    EXPECT_EQ(EucToText("\xA4\xA2\0\xA4\xA4"sv), u"あ");
    EXPECT_EQ(EucToText("\0a"sv), u"");
}

TEST(Euc, ReadsBadPairsAsMiddleDots) {
    EXPECT_EQ(EucToText("\x8E\xB1z"), u"・z");  // half-width katakana don't come back
    EXPECT_EQ(EucToText("\xA4zz"), u"・z");
    EXPECT_EQ(EucToText("\x80\xA1z"), u"・z");
    EXPECT_EQ(EucToText("\xA4\xFFz"), u"・z");
    EXPECT_EQ(EucToText("\xA9\xA1z"), u"・z");  // a row that nobody filled
    EXPECT_EQ(EucToText("z\xA4"), u"z");
}

// --- JIS

TEST(Jis, EscapesTheFirstCharacterAndEachChange) {
    EXPECT_EQ(TextToJis(u""), "");
    EXPECT_EQ(TextToJis(u"a"), "\x1B(Ba");
    EXPECT_EQ(TextToJis(u"あ"), "\x1B$B$\"");
    EXPECT_EQ(TextToJis(u"a漢b"), "\x1B(Ba\x1B$B4A\x1B(Bb");
    EXPECT_EQ(TextToJis(u"漢字"), "\x1B$B4A;z");
    EXPECT_EQ(TextToJis(u"あ\r\nい"), "\x1B$B$\"\x1B(B\r\n\x1B$B$$");
}

TEST(Jis, WritesHalfWidthKatakanaAsTheyAre) { EXPECT_EQ(TextToJis(u"ｱあ"), "\x1B(B\xB1\x1B$B$\""); }

TEST(Jis, WritesUpToANulAndQuestionMarksForWhatHasNoCode) {
    EXPECT_EQ(TextToJis(u"a\0b"sv), "\x1B(Ba");
    EXPECT_EQ(TextToJis(u"あ한い"), "\x1B$B$\"\x1B(B?\x1B$B$$");
}

TEST(Jis, CountsTheRowsBehindTheLastOneOn) {
    EXPECT_EQ(TextToJis(u"\uE000"), "\x1B$B\x7F!");
    EXPECT_EQ(TextToJis(u"髙"), "\x1B$B\x96~");
    EXPECT_EQ(JisToText("\x1B$B\x7F!\x96~"), u"\uE000髙");
}

TEST(Jis, ReadsModes) {
    EXPECT_EQ(JisToText(""), u"");
    EXPECT_EQ(JisToText("\x1B$B4A;z\x1B(B\nA"), u"漢字\r\nA");
    EXPECT_EQ(JisToText("a\x1B$@$\"\x1B(Jb\0c"sv), u"aあb");
    EXPECT_EQ(JisToText("\x1B$B4A"), u"漢");
    EXPECT_EQ(JisToText("\x1B(B\xB1\xB2"), u"ｱｲ");
    EXPECT_EQ(JisToText("a\r\nb"), u"a\r\r\nb");
}

TEST(Jis, SkipsWhatIsCutOff) {
    EXPECT_EQ(JisToText("a\x1B"), u"a");
    EXPECT_EQ(JisToText("a\x1B$"), u"a");
    EXPECT_EQ(JisToText("\x1B$B4A;"), u"漢");
    EXPECT_EQ(JisToText("\x1B$B$\"\0$$"sv), u"あ");
}

TEST(Jis, ReadsBadPairsAsMiddleDots) {
    EXPECT_EQ(JisToText("\x1B$B \"$\""), u"・あ");
    EXPECT_EQ(JisToText("\x1B$B$\x7F$\""), u"・あ");
    EXPECT_EQ(JisToText("\x1B$B\x99!$\""), u"・あ");
    EXPECT_EQ(JisToText("\x1B$B\r\n$\""), u"・あ");
}

TEST(Jis, BringsTheCharactersOfTheCodePageBack) {
    for (int unit = 0x3000; unit < 0xE000; ++unit) {
        const std::u16string text(1, static_cast<char16_t>(unit));
        if (FitsCodePage932(text)) {
            ASSERT_EQ(JisToText(TextToJis(text)), text) << unit;
        }
    }
}

// --- UTF-8

TEST(Utf8Data, ReadsSequencesOfUpToThreeBytes) {
    EXPECT_EQ(Utf8ToText(""), u"");
    EXPECT_EQ(Utf8ToText("a\0b\x7F"sv), u"a\0b\x7F"s);
    EXPECT_EQ(Utf8ToText("\xC2\x80\xDF\xBF"), u"\u0080\u07FF");
    EXPECT_EQ(Utf8ToText("\xE6\xBC\xA2\xC3\xA9!\nz"), u"漢é!\nz");
    EXPECT_EQ(Utf8ToText("\xEF\xBB\xBF"
                         "a"),
              u"\uFEFFa");
    EXPECT_EQ(Utf8ToText("\xEF\xBF\xBF"), u"\uFFFF");
}

TEST(Utf8Data, TakesThreeByteFormsOfAnyValue) {
    EXPECT_EQ(Utf8ToText("\xE0\x80\x80"), std::u16string(1, u'\0'));
    EXPECT_EQ(Utf8ToText("\xED\xA0\xBD\xED\xB8\x80"), u"😀");
}

TEST(Utf8Data, DropsOrReplacesEachBadByte) {
    EXPECT_EQ(Utf8ToText("\xF0\x9F\x98\x80"), u"");
    EXPECT_EQ(Utf8ToText("\xF0\x9F\x98\x80", u"?"), u"????");
    EXPECT_EQ(Utf8ToText("a\xFF"
                         "b",
                         u"<bad>"),
              u"a<bad>b");
    EXPECT_EQ(Utf8ToText("\x80\xC0\x80\xC1\xBF", u"."), u".....");
    EXPECT_EQ(Utf8ToText("\xE3\x81z", u"."), u"..z");
    EXPECT_EQ(Utf8ToText("\xE3\x81", u"."), u"..");
    EXPECT_EQ(Utf8ToText("\xC3", u"."), u".");
    EXPECT_EQ(Utf8ToText("\xC3\xC3\xA9", u"."), u".é");
    EXPECT_EQ(Utf8ToText("\xE3z\x82"), u"z");
}

TEST(Utf8Data, WritesEachUnitByItself) {
    EXPECT_EQ(TextToUtf8(u""), "");
    EXPECT_EQ(TextToUtf8(u"漢字a\r\n"),
              "\xE6\xBC\xA2\xE5\xAD\x97"
              "a\r\n");
    EXPECT_EQ(TextToUtf8(u"\x7F\u0080\u07FF\u0800\uFFFF"),
              "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
    EXPECT_EQ(TextToUtf8(u"😀"), "\xED\xA0\xBD\xED\xB8\x80");
}

TEST(Utf8Data, BringsEveryUnitBack) {
    for (int unit = 0; unit < 0x10000; ++unit) {
        const std::u16string text(1, static_cast<char16_t>(unit));
        ASSERT_EQ(Utf8ToText(TextToUtf8(text)), text) << unit;
    }
}

// --- URL form

TEST(UrlForm, KeepsPlainCharacters) {
    EXPECT_EQ(UrlEncode(""), u"");
    EXPECT_EQ(UrlEncode("AZaz09*-._@"), u"AZaz09*-._@");
    EXPECT_EQ(UrlEncode("a b"), u"a+b");
}

TEST(UrlForm, WritesOthersWithTwoUpperCaseDigits) {
    EXPECT_EQ(UrlEncode("/?=&~[`{+%:"), u"%2F%3F%3D%26%7E%5B%60%7B%2B%25%3A");
    EXPECT_EQ(UrlEncode("\0\x01\r\n"sv), u"%00%01%0D%0A");
}

TEST(UrlForm, KeepsPairsWhole) {
    EXPECT_EQ(UrlEncode("\x83\x5C"), u"%83%5C");
    EXPECT_EQ(UrlEncode(EncodeCodePage932(u"日本a")), u"%93%FA%96%7Ba");
    EXPECT_EQ(UrlEncode("\xB1"
                        "a"),
              u"%B1%61");
    EXPECT_EQ(UrlEncode("\xB1 a"), u"%B1%20a");
    EXPECT_EQ(UrlEncode("\xFF"), u"%FF");
}

TEST(UrlForm, ReadsBack) {
    EXPECT_EQ(UrlDecode(u""), "");
    EXPECT_EQ(UrlDecode(u"a+b%2Fc%2fd"), "a b/c/d");
    EXPECT_EQ(UrlDecode(u"%83%5C"), "\x83\x5C");
    EXPECT_EQ(UrlDecode(u"%00%FF%0D"), "\0\xFF\r"s);
    EXPECT_EQ(UrlDecode(u"あ%41"), "\x82\xA0\x41");
}

TEST(UrlForm, LeavesBrokenPercentFormsAsTheyAre) {
    EXPECT_EQ(UrlDecode(u"100%"), "100%");
    EXPECT_EQ(UrlDecode(u"%4"), "%4");
    EXPECT_EQ(UrlDecode(u"%G1%1G%%41"), "%G1%1G%A");
    EXPECT_EQ(UrlDecode(u"％41"), "\x81\x93\x34\x31");
}

TEST(UrlForm, BringsEveryBytePairBack) {
    for (int high = 0; high < 0x100; ++high) {
        for (int low = 0; low < 0x100; ++low) {
            const std::string bytes = {static_cast<char>(high), static_cast<char>(low)};
            ASSERT_EQ(UrlDecode(UrlEncode(bytes)), bytes) << high << " " << low;
        }
    }
}

// --- Scrambling

TEST(Scramble, SubtractsTheCodeAndAddsTheKey) {
    EXPECT_EQ(ScrambleText(u""), u"");
    EXPECT_EQ(ScrambleText(u"Hello"), u"N1**'");
    EXPECT_EQ(ScrambleText(u"Hello", 3), u"Q4--*");
    EXPECT_EQ(ScrambleText(u"H", -1), u"M");
    // 0x96 - 0x82A2 + 1180 is 0x8290 in 16 bits.
    EXPECT_EQ(ScrambleText(u"い", 1180), u"ｐ");
}

TEST(Scramble, GivesEveryTextBackWhenDoneTwice) {
    const std::u16string texts[] = {
        u"Secret 123", u"two\r\nlines\t", u"漢字とｶﾅ①髙\uE000", u"ÀéŘ", u"😀", u"\0"s};
    const std::int16_t keys[] = {0, 1, 7, -1, -150, 1180, 32767, -32768};
    for (const auto& text : texts) {
        for (const std::int16_t key : keys) {
            EXPECT_EQ(ScrambleText(ScrambleText(text, key), key), text) << key;
        }
    }
}

TEST(Scramble, GivesEveryUnitBackAndKeepsThemApart) {
    std::u16string all;
    for (int unit = 0; unit < 0x10000; ++unit) {
        all += static_cast<char16_t>(unit);
    }
    EXPECT_EQ(ScrambleText(ScrambleText(all, 5), 5), all);
}

}  // namespace
}  // namespace velm
