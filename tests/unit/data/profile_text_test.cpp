// Settings files: reading, and changes that touch one line only.
#include "data/profile_text.h"

#include <gtest/gtest.h>

#include <string>

#include "data/code_page_932.h"

namespace velm {
namespace {

std::string Bytes(std::u16string_view text) { return EncodeCodePage932(text); }

std::u16string ValueOf(std::string_view file, std::u16string_view section,
                       std::u16string_view key) {
    return ProfileValue(file, section, key).value_or(u"(none)");
}

TEST(ProfileText, ReadsTheValueOfAKeyInItsSection) {
    const std::string file = Bytes(u"[画面]\r\n幅=640\r\n高さ=480\r\n[音]\r\n高さ=低い\r\n");
    EXPECT_EQ(ValueOf(file, u"画面", u"高さ"), u"480");
    EXPECT_EQ(ValueOf(file, u"音", u"高さ"), u"低い");
    EXPECT_EQ(ValueOf(file, u"音", u"幅"), u"(none)");
    EXPECT_EQ(ValueOf(file, u"色", u"幅"), u"(none)");
    EXPECT_EQ(ValueOf("", u"画面", u"幅"), u"(none)");
}

TEST(ProfileText, NamesIgnoreLetterCaseAndBlanksRoundThem) {
    const std::string file = Bytes(u"[ Main ]\r\n  Width = 640  \r\nＡｂ=1\r\n");
    EXPECT_EQ(ValueOf(file, u"MAIN", u"width"), u"640");
    EXPECT_EQ(ValueOf(file, u" main ", u" WIDTH "), u"640");
    EXPECT_EQ(ValueOf(file, u"main", u"ａＢ"), u"1");
    EXPECT_EQ(ValueOf(file, u"main", u"ab"), u"(none)");
}

TEST(ProfileText, OneAPairOfQuotesIsReadAway) {
    const std::string file = "[s]\r\na=\" x \"\r\nb='y'\r\nc=\"z'\r\nd=\"\r\ne=\"\"q\"\"\r\n";
    EXPECT_EQ(ValueOf(file, u"s", u"a"), u" x ");
    EXPECT_EQ(ValueOf(file, u"s", u"b"), u"y");
    EXPECT_EQ(ValueOf(file, u"s", u"c"), u"\"z'");
    EXPECT_EQ(ValueOf(file, u"s", u"d"), u"\"");
    EXPECT_EQ(ValueOf(file, u"s", u"e"), u"\"q\"");
}

TEST(ProfileText, CommentsAndLinesWithoutEqualsAreNoEntries) {
    const std::string file = "; a=0\r\n[s]\r\n;a=1\r\na\r\na=2=3\r\na=4\r\n";
    EXPECT_EQ(ValueOf(file, u"s", u"a"), u"2=3");
    EXPECT_EQ(ValueOf(file, u"s", u";a"), u"(none)");
    EXPECT_EQ(ValueOf(file, u"", u"a"), u"(none)");
}

TEST(ProfileText, TheFirstOfTwoSectionsOfANameCounts) {
    const std::string file = "[s]\r\na=1\r\n[t]\r\n[S]\r\nb=2\r\n";
    EXPECT_EQ(ValueOf(file, u"s", u"a"), u"1");
    EXPECT_EQ(ValueOf(file, u"s", u"b"), u"(none)");
}

// ー is 81 5B and 充 is 8F 5B, whose second bytes are "["; ソ is 83 5C, with a "\".
TEST(ProfileText, SecondBytesOfCharactersAreNoBrackets) {
    const std::string file = Bytes(u"[ー充ソ]\r\nーー=ソー\r\n");
    EXPECT_EQ(ValueOf(file, u"ー充ソ", u"ーー"), u"ソー");
}

TEST(ProfileText, AHeadMayHoldABracketOrBeFollowedByAComment) {
    const std::string file = "[a]b]\r\nx=1\r\n[c] ; the third\r\nx=2\r\n[d\r\nx=3\r\n";
    EXPECT_EQ(ValueOf(file, u"a]b", u"x"), u"1");
    EXPECT_EQ(ValueOf(file, u"c", u"x"), u"2");
    EXPECT_EQ(ValueOf(file, u"d", u"x"), u"(none)");
}

TEST(ProfileText, AValueIsSetInItsLine) {
    const std::string file = "; top\r\n[S]\r\n Key = old ; not a comment\r\n\r\n[t]\r\nkey=1";
    EXPECT_EQ(SetProfileValue(file, u"s", u"KEY", u"new"),
              "; top\r\n[S]\r\n Key = new\r\n\r\n[t]\r\nkey=1");
    EXPECT_EQ(SetProfileValue(file, u"T", u"key", u""),
              "; top\r\n[S]\r\n Key = old ; not a comment\r\n\r\n[t]\r\nkey=");
}

TEST(ProfileText, ANewKeyStandsBehindTheLastLineOfItsSection) {
    EXPECT_EQ(SetProfileValue("[s]\r\na=1\r\n; end\r\n\r\n[t]\r\n", u"s", u"b", u"2"),
              "[s]\r\na=1\r\n; end\r\nb=2\r\n\r\n[t]\r\n");
    EXPECT_EQ(SetProfileValue("[s]\r\n\r\n\r\n", u"s", u"b", u"2"), "[s]\r\nb=2\r\n\r\n\r\n");
    EXPECT_EQ(SetProfileValue("[s]", u"s", u"b", u"2"), "[s]\r\nb=2\r\n");
    EXPECT_EQ(SetProfileValue("[s]\r\na=1", u"s", u"b", u"2"), "[s]\r\na=1\r\nb=2\r\n");
}

TEST(ProfileText, ANewSectionStandsAtTheEnd) {
    EXPECT_EQ(SetProfileValue("", u"s", u"a", u"1"), "[s]\r\na=1\r\n");
    EXPECT_EQ(SetProfileValue("; only this", u"s", u"a", u"1"), "; only this\r\n[s]\r\na=1\r\n");
    EXPECT_EQ(SetProfileValue("[t]\r\nb=1\r\n", u"s", u" a ", u"1"),
              "[t]\r\nb=1\r\n[s]\r\na=1\r\n");
}

TEST(ProfileText, LineEndsAreThoseOfTheFile) {
    EXPECT_EQ(SetProfileValue("[s]\na=1\n", u"s", u"b", u"2"), "[s]\na=1\nb=2\n");
    EXPECT_EQ(SetProfileValue("[s]\na=1\n", u"s", u"a", u"2"), "[s]\na=2\n");
    EXPECT_EQ(SetProfileValue("\n", u"s", u"a", u"2"), "\n[s]\na=2\n");
}

TEST(ProfileText, BytesOfOtherLinesStay) {
    const std::string odd = "\xFF\x80 \x81\n;\xEF\xBB\xBF\r\r\n[s]\r\n\xFD=\xFE\r\n";
    EXPECT_EQ(SetProfileValue(odd, u"s", u"a", u"1"), odd + "a=1\n");
    EXPECT_EQ(RemoveProfileKey(odd, u"s", u"a"), odd);
}

TEST(ProfileText, WhatTheCodePageLacksIsWrittenAsAQuestionMarkAndFoundAgain) {
    const std::string file = SetProfileValue("", u"é", u"한", u"글");
    EXPECT_EQ(file, "[e]\r\n?=?\r\n");
    EXPECT_EQ(ValueOf(file, u"é", u"한"), u"?");
    EXPECT_EQ(SetProfileValue(file, u"é", u"한", u"1"), "[e]\r\n?=1\r\n");
}

TEST(ProfileText, KeysAndSectionsAreRemoved) {
    const std::string file = "[s]\r\na=1\r\nb=2\r\n; of s\r\n\r\n[t]\r\na=3";
    EXPECT_EQ(RemoveProfileKey(file, u"S", u"A"), "[s]\r\nb=2\r\n; of s\r\n\r\n[t]\r\na=3");
    EXPECT_EQ(RemoveProfileKey(file, u"t", u"a"), "[s]\r\na=1\r\nb=2\r\n; of s\r\n\r\n[t]\r\n");
    EXPECT_EQ(RemoveProfileKey(file, u"t", u"b"), file);
    EXPECT_EQ(RemoveProfileKey(file, u"u", u"a"), file);
    EXPECT_EQ(RemoveProfileSection(file, u"s"), "[t]\r\na=3");
    EXPECT_EQ(RemoveProfileSection(file, u"t"), "[s]\r\na=1\r\nb=2\r\n; of s\r\n\r\n");
    EXPECT_EQ(RemoveProfileSection(file, u"u"), file);
}

TEST(ProfileText, NamesThatWouldReadAsSomethingElseDontFit) {
    EXPECT_TRUE(FitsProfile(u"s", u"k", u"v"));
    EXPECT_TRUE(FitsProfile(u"", u"k]", u"a=b;[c]"));
    EXPECT_FALSE(FitsProfile(u"s", u"", u"v"));
    EXPECT_FALSE(FitsProfile(u"s", u"  ", u"v"));
    EXPECT_FALSE(FitsProfile(u"s", u"a=b", u"v"));
    EXPECT_FALSE(FitsProfile(u"s", u";a", u"v"));
    EXPECT_FALSE(FitsProfile(u"s", u" [a", u"v"));
    EXPECT_FALSE(FitsProfile(u"s\r", u"k", u"v"));
    EXPECT_FALSE(FitsProfile(u"s", u"k\n", u"v"));
    EXPECT_FALSE(FitsProfile(u"s", u"k", u"v\r\nx=1"));
    EXPECT_FALSE(FitsProfile(u"s", u"k", std::u16string(u"v\0w", 3)));
}

}  // namespace
}  // namespace velm
