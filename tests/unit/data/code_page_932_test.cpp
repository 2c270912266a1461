// Code page 932 by hand-picked characters; tests/code_page_932_check.py compares every single code.
#include "data/code_page_932.h"

#include <gtest/gtest.h>

#include <string>

namespace velm {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

// The code that is written for each unit, and what the code reads back as.
struct Pairing {
    char16_t unit;
    int code;
};

int CodeOf(std::string_view bytes) {
    int code = 0;
    for (const char byte : bytes) {
        code = code * 0x100 + static_cast<unsigned char>(byte);
    }
    return code;
}

TEST(CodePage932, PairsCharactersAndCodes) {
    const Pairing pairings[] = {
        {u'A', 0x41},    {u'\\', 0x5C},   {u'~', 0x7E},    {0x7F, 0x7F},    {0x80, 0x80},
        {0xA0, 0xA0},    {u'｡', 0xA1},    {u'ｱ', 0xB1},    {u'ﾟ', 0xDF},    {0xF8F1, 0xFD},
        {0xF8F2, 0xFE},  {0xF8F3, 0xFF},  {u'　', 0x8140}, {u'、', 0x8141}, {u'×', 0x817E},
        {u'÷', 0x8180},  {u'◯', 0x81FC},  {u'あ', 0x82A0}, {u'ん', 0x82F1}, {u'ソ', 0x835C},
        {u'ヴ', 0x8394}, {u'亜', 0x889F}, {u'表', 0x955C}, {u'腕', 0x9872}, {u'弌', 0x989F},
        {u'滌', 0x9FFC}, {u'漾', 0xE040}, {u'熙', 0xEAA4}, {u'①', 0x8740},  {u'㍻', 0x877E},
        {u'ⅰ', 0xFA40},  {u'髙', 0xFBFC}, {u'﨑', 0xFAB1}, {u'黑', 0xFC4B}, {0x212B, 0x81F0},
    };
    for (const auto& [unit, code] : pairings) {
        SCOPED_TRACE(code);
        const std::string bytes = EncodeCodePage932(std::u16string(1, unit));
        EXPECT_EQ(CodeOf(bytes), code);
        EXPECT_EQ(bytes.size(), code > 0xFF ? 2U : 1U);
        EXPECT_EQ(EncodeUnit932(unit), code);
        EXPECT_EQ(DecodeCodePage932(bytes), std::u16string(1, unit));
    }
}

// Where this platform differs from JIS X 0208 and from other makers' Shift JIS.
TEST(CodePage932, UsesThePlatformsOwnCharactersForTheDisputedCells) {
    EXPECT_EQ(DecodePair932(0x81, 0x5C), 0x2015);
    EXPECT_EQ(DecodePair932(0x81, 0x5F), 0xFF3C);
    EXPECT_EQ(DecodePair932(0x81, 0x60), 0xFF5E);
    EXPECT_EQ(DecodePair932(0x81, 0x61), 0x2225);
    EXPECT_EQ(DecodePair932(0x81, 0x7C), 0xFF0D);
    EXPECT_EQ(DecodePair932(0x81, 0x91), 0xFFE0);
    EXPECT_EQ(DecodePair932(0x81, 0x92), 0xFFE1);
    EXPECT_EQ(DecodePair932(0x81, 0xCA), 0xFFE2);
    EXPECT_EQ(EncodeUnit932(0x301C), -1);
    EXPECT_EQ(EncodeUnit932(0x2016), -1);
    EXPECT_EQ(EncodeUnit932(0x2212), -1);
    EXPECT_EQ(EncodeUnit932(0x2014), -1);
    EXPECT_EQ(EncodeUnit932(0x203E), -1);
}

TEST(CodePage932, WritesJisRowsFirstThenRow13ThenTheExtension) {
    EXPECT_EQ(DecodePair932(0x87, 0x9C), u'∪');
    EXPECT_EQ(EncodeUnit932(u'∪'), 0x81BE);
    EXPECT_EQ(DecodePair932(0xEE, 0xF9), u'￢');
    EXPECT_EQ(DecodePair932(0xFA, 0x54), u'￢');
    EXPECT_EQ(EncodeUnit932(u'￢'), 0x81CA);
    EXPECT_EQ(DecodePair932(0xFA, 0x5B), u'∵');
    EXPECT_EQ(EncodeUnit932(u'∵'), 0x81E6);
    EXPECT_EQ(DecodePair932(0xFA, 0x4A), u'Ⅰ');
    EXPECT_EQ(EncodeUnit932(u'Ⅰ'), 0x8754);
    EXPECT_EQ(DecodePair932(0xFA, 0x58), u'㈱');
    EXPECT_EQ(EncodeUnit932(u'㈱'), 0x878A);
    EXPECT_EQ(DecodePair932(0xED, 0x40), u'纊');
    EXPECT_EQ(DecodePair932(0xFA, 0x5C), u'纊');
    EXPECT_EQ(EncodeUnit932(u'纊'), 0xFA5C);
    EXPECT_EQ(DecodePair932(0xEE, 0xEF), u'ⅰ');
    EXPECT_EQ(EncodeUnit932(u'ⅰ'), 0xFA40);
}

TEST(CodePage932, CountsTheUserDefinedAreaThrough) {
    EXPECT_EQ(DecodePair932(0xF0, 0x40), 0xE000);
    EXPECT_EQ(DecodePair932(0xF0, 0x7E), 0xE03E);
    EXPECT_EQ(DecodePair932(0xF0, 0x80), 0xE03F);
    EXPECT_EQ(DecodePair932(0xF0, 0xFC), 0xE0BB);
    EXPECT_EQ(DecodePair932(0xF1, 0x40), 0xE0BC);
    EXPECT_EQ(DecodePair932(0xF9, 0xFC), 0xE757);
    EXPECT_EQ(EncodeUnit932(0xE758), -1);
    for (int unit = 0xE000; unit <= 0xE757; ++unit) {
        const int code = EncodeUnit932(static_cast<char16_t>(unit));
        ASSERT_GE(code, 0xF040);
        ASSERT_EQ(DecodePair932(static_cast<std::uint8_t>(code >> 8),
                                static_cast<std::uint8_t>(code & 0xFF)),
                  unit);
    }
}

TEST(CodePage932, KnowsItsLeadBytes) {
    for (int byte = 0; byte < 0x100; ++byte) {
        const bool lead = (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
        EXPECT_EQ(IsLeadByte932(static_cast<std::uint8_t>(byte)), lead) << byte;
    }
    EXPECT_EQ(DecodeByte932(0x81), u'・');
    EXPECT_EQ(DecodeByte932(0xFC), u'・');
}

TEST(CodePage932, GivesAMiddleDotForPairsWithoutACharacter) {
    EXPECT_EQ(DecodePair932(0x81, 0xAD), u'・');  // a free cell of row 2
    EXPECT_EQ(DecodePair932(0x85, 0x40), u'・');  // a row that nobody filled
    EXPECT_EQ(DecodePair932(0xFC, 0x4C), u'・');  // behind the last character
    EXPECT_EQ(DecodePair932(0x82, 0x7F), u'・');
    EXPECT_EQ(DecodePair932(0xF0, 0x7F), u'・');
    EXPECT_EQ(DecodePair932(0xF0, 0xFD), u'・');
    EXPECT_EQ(DecodePair932(0x41, 0x41), u'・');
    EXPECT_EQ(DecodePair932(0x82, 0x3F), u'・');
}

TEST(CodePage932, TakesAnyByteBehindALeadByteButNul) {
    EXPECT_EQ(DecodeCodePage932("a\x81\x20"
                                "b"),
              u"a・b");
    EXPECT_EQ(DecodeCodePage932("\x82\r\nx"), u"・\nx");
    EXPECT_EQ(DecodeCodePage932("\x82\xFFx"), u"・x");
    EXPECT_EQ(DecodeCodePage932("x\x82"), u"x・");
    EXPECT_EQ(DecodeCodePage932("x\x82\0y"sv), u"x・\0y"s);
}

TEST(CodePage932, KeepsAsciiRunsOfAnyLengthWhole) {
    for (std::size_t length = 0; length < 40; ++length) {
        std::string bytes;
        std::u16string text;
        for (std::size_t i = 0; i < length; ++i) {
            bytes += static_cast<char>('!' + i);
            text += static_cast<char16_t>(u'!' + i);
        }
        EXPECT_EQ(DecodeCodePage932(bytes), text);
        EXPECT_EQ(EncodeCodePage932(text), bytes);
        EXPECT_EQ(DecodeCodePage932(bytes + "\x82\xA0" + bytes), text + u"あ" + text);
        EXPECT_EQ(EncodeCodePage932(text + u"あ" + text), bytes + "\x82\xA0" + bytes);
    }
    EXPECT_EQ(DecodeCodePage932("a\0b"sv), u"a\0b"s);
    EXPECT_EQ(EncodeCodePage932(u"a\0b"sv), "a\0b"s);
}

TEST(CodePage932, WritesAQuestionMarkForEachUnitWithoutACode) {
    EXPECT_EQ(EncodeCodePage932(u"a한b"), "a?b");
    EXPECT_EQ(EncodeCodePage932(u"😀"), "??");
    EXPECT_EQ(EncodeCodePage932(std::u16string(1, 0xD800)), "?");
    EXPECT_EQ(EncodeCodePage932(u"\uFFFD"), "?");
    EXPECT_EQ(EncodeUnit932(0x81), -1);
    EXPECT_EQ(EncodeUnit932(0xFFFF), -1);
    EXPECT_EQ(EncodeUnit932(0xF8F0), -1);
}

// What stands on the left is written as the same place of the right.
TEST(CodePage932, WritesBestFits) {
    EXPECT_EQ(EncodeCodePage932(u"¡¥¦©ª\u00AD®²³¹º"), "!\\|ca-R231o");
    EXPECT_EQ(EncodeCodePage932(u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏ"), "AAAAAAACEEEEIIII");
    EXPECT_EQ(EncodeCodePage932(u"ÐÑÒÓÔÕÖØÙÚÛÜÝÞß"), "DNOOOOOOUUUUYTs");
    EXPECT_EQ(EncodeCodePage932(u"àáâãäåæçèéêëìíîï"), "aaaaaaaceeeeiiii");
    EXPECT_EQ(EncodeCodePage932(u"ðñòóôõöøùúûüýþÿ"), "dnoooooouuuuyty");
    EXPECT_EQ(DecodeCodePage932(EncodeCodePage932(u"¢£«¬¯µ·¸»ゔ")), u"￠￡≪￢￣μ・，≫ヴ");
    // These are in the code page or have no likeness, so they aren't best fits.
    EXPECT_EQ(EncodeCodePage932(u"¤¼½¾¿"), "?????");
    EXPECT_EQ(DecodeCodePage932(EncodeCodePage932(u"§¨°±´¶×÷")), u"§¨°±´¶×÷");
}

TEST(CodePage932, KnowsWhichTextFits) {
    EXPECT_TRUE(FitsCodePage932(u""));
    EXPECT_TRUE(FitsCodePage932(u"plain ASCII, longer than a step"));
    EXPECT_TRUE(FitsCodePage932(u"漢字とｶﾅ①髙\uE000"));
    EXPECT_FALSE(FitsCodePage932(u"é"));
    EXPECT_FALSE(FitsCodePage932(u"ascii first, then 한"));
    EXPECT_FALSE(FitsCodePage932(u"😀"));
    EXPECT_FALSE(FitsCodePage932(u"〜"));
}

}  // namespace
}  // namespace velm
