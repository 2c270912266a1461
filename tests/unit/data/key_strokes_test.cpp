// The grammar of keys to press.
#include "data/key_strokes.h"

#include <gtest/gtest.h>

#include <string>

#include "data/failure.h"

namespace velm {

namespace {

// A readable form: "S" "C" "A" for modifiers, the character or the key's number, "*count".
std::u32string Shown(const std::vector<KeyStroke>& strokes) {
    std::u32string shown;
    for (const KeyStroke& one : strokes) {
        if (!shown.empty()) shown += U' ';
        if ((one.modifiers & stroke::kShift) != 0) shown += U"S-";
        if ((one.modifiers & stroke::kControl) != 0) shown += U"C-";
        if ((one.modifiers & stroke::kAlt) != 0) shown += U"A-";
        if (one.key == StrokeKey::kCharacter) {
            shown += one.character;
        } else {
            shown += U'<';
            for (const char digit : std::to_string(static_cast<int>(one.key)))
                shown += static_cast<char32_t>(digit);
            shown += U'>';
        }
        if (one.count != 1) {
            shown += U'*';
            for (const char digit : std::to_string(one.count))
                shown += static_cast<char32_t>(digit);
        }
    }
    return shown;
}

std::u32string Parsed(std::u16string_view text) { return Shown(ParseKeyStrokes(text)); }

int FailureOf(std::u16string_view text) {
    try {
        ParseKeyStrokes(text);
    } catch (const Failure& failed) {
        return failed.Number();
    }
    return 0;
}

StrokeKey KeyOf(std::u16string_view text) {
    const auto strokes = ParseKeyStrokes(text);
    EXPECT_EQ(strokes.size(), 1u);
    return strokes.empty() ? StrokeKey::kCharacter : strokes[0].key;
}

}  // namespace

TEST(KeyStrokes, CharactersStandForThemselves) {
    EXPECT_EQ(Parsed(u"aB 1[]"), U"a B   1 [ ]");
    EXPECT_EQ(Parsed(u"漢＋"), U"漢 ＋");
    EXPECT_EQ(Parsed(u"\U0001F600!"), U"\U0001F600 !");
    EXPECT_TRUE(ParseKeyStrokes(u"").empty());
}

TEST(KeyStrokes, ModifiersHoldForTheNextKeyOnly) {
    EXPECT_EQ(Parsed(u"+ec"), U"S-e c");
    EXPECT_EQ(Parsed(u"^%ab"), U"C-A-a b");
    EXPECT_EQ(Parsed(u"+{TAB}x"), U"S-<19> x");
    EXPECT_EQ(KeyOf(u"{TAB}"), static_cast<StrokeKey>(19));
}

TEST(KeyStrokes, GroupsHoldForAllTheirKeys) {
    EXPECT_EQ(Parsed(u"+(ec)d"), U"S-e S-c d");
    EXPECT_EQ(Parsed(u"^(a+bc)d"), U"C-a S-C-b C-c d");
    EXPECT_EQ(Parsed(u"+(a^(b)c)"), U"S-a S-C-b S-c");
    EXPECT_EQ(Parsed(u"(ab)"), U"a b");
}

TEST(KeyStrokes, LettersOfCommandsHaveNoCase) { EXPECT_EQ(Parsed(u"^C%F+A"), U"C-c A-f S-A"); }

TEST(KeyStrokes, NamesAndCounts) {
    EXPECT_EQ(KeyOf(u"~"), StrokeKey::kEnter);
    EXPECT_EQ(KeyOf(u"{enter}"), StrokeKey::kEnter);
    EXPECT_EQ(KeyOf(u"{BS}"), StrokeKey::kBackspace);
    EXPECT_EQ(KeyOf(u"{PgDn}"), StrokeKey::kPageDown);
    EXPECT_EQ(KeyOf(u"{F1}"), StrokeKey::kF1);
    EXPECT_EQ(KeyOf(u"{F16}"), StrokeKey::kF16);
    EXPECT_EQ(ParseKeyStrokes(u"{LEFT 42}").at(0).count, 42);
    EXPECT_EQ(Parsed(u"{h 10}"), U"h*10");
    EXPECT_EQ(Parsed(u"{あ 0}"), U"あ*0");
}

TEST(KeyStrokes, SignsOfTheGrammarInBraces) {
    EXPECT_EQ(Parsed(u"{+}{^}{%}{~}{(}{)}{{}{}}{[}{]}"), U"+ ^ % ~ ( ) { } [ ]");
    EXPECT_EQ(Parsed(u"{} 3}"), U"}*3");
    EXPECT_EQ(Parsed(u"{ }"), U" ");
}

TEST(KeyStrokes, LineEndsAndTabsAreKeys) {
    for (const std::u16string_view text : {u"\r\n", u"\r", u"\n"})
        EXPECT_EQ(KeyOf(text), StrokeKey::kEnter);
    EXPECT_EQ(ParseKeyStrokes(u"\n\r\n\r").size(), 3u);
    EXPECT_EQ(KeyOf(u"\t"), StrokeKey::kTab);
}

TEST(KeyStrokes, TextsOutsideTheGrammarFail) {
    for (const std::u16string_view text :
         {u"{", u"{}", u"{a", u"}", u"(a", u"a)", u"+", u"(+)", u"{NOKEY}", u"{F17}", u"{F0}",
          u"{TAB x}", u"{TAB 1234567890}"})
        EXPECT_EQ(FailureOf(text), failure::kBadCall) << std::u16string(text).size();
    EXPECT_EQ(FailureOf(u"{TAB 40000}"), failure::kOverflow);
}

TEST(KeyStrokes, PlainTextHasNoSigns) {
    EXPECT_EQ(Shown(PlainKeyStrokes(u"+^%~(){A}")), U"+ ^ % ~ ( ) { A }");
    EXPECT_EQ(PlainKeyStrokes(u"a\r\n\tb").size(), 4u);
    EXPECT_EQ(PlainKeyStrokes(u"\n")[0].key, StrokeKey::kEnter);
}

}  // namespace velm
