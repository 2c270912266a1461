// Script sources: which encoding they are taken for, their line ends and their first line.
#include "data/script_source.h"

#include <gtest/gtest.h>

#include <string>

namespace velm {
namespace {

TEST(ScriptSource, ReadsCodePage932) {
    EXPECT_EQ(DecodeScriptSource(""), u"");
    EXPECT_EQ(DecodeScriptSource("\x95\x5C\x8E\xA6\r\nA=1"), u"表示\r\nA=1");
}

TEST(ScriptSource, LeavesALoneLineFeedInCodePage932) {
    EXPECT_EQ(DecodeScriptSource("\x95\x5C\nb\r\nc"), u"表\nb\r\nc");
    // ASCII alone is no sign of UTF-8.
    EXPECT_EQ(DecodeScriptSource("A=1\nB=2\r\n"), u"A=1\nB=2\r\n");
}

TEST(ScriptSource, ReadsUtf8WithoutAMark) {
    EXPECT_EQ(DecodeScriptSource("\xE8\xA1\xA8\xE7\xA4\xBA"), u"表示");
    EXPECT_EQ(DecodeScriptSource("\xE8\xA1\xA8\nb\r\nc\n\n"), u"表\r\nb\r\nc\r\n\r\n");
    EXPECT_EQ(DecodeScriptSource("a\n\xF0\x9F\x98\x80"), u"a\r\n😀");
    EXPECT_EQ(DecodeScriptSource("\xE8\xA1\xA8\rb\r\r\n"), u"表\rb\r\r\n");
}

TEST(ScriptSource, CutsTheMarkOff) {
    EXPECT_EQ(DecodeScriptSource("\xEF\xBB\xBF"), u"");
    EXPECT_EQ(DecodeScriptSource("\xEF\xBB\xBF"
                                 "A=1\nB=2"),
              u"A=1\r\nB=2");
    EXPECT_EQ(DecodeScriptSource("\xEF\xBB\xBF\xE8\xA1\xA8\r\n"), u"表\r\n");
    // Only the first one is a mark.
    EXPECT_EQ(DecodeScriptSource("\xEF\xBB\xBF\xEF\xBB\xBF"), u"\uFEFF");
}

TEST(ScriptSource, StaysWithUtf8BehindAMarkThoughBytesAreBad) {
    EXPECT_EQ(DecodeScriptSource("\xEF\xBB\xBF"
                                 "a\xFF\nb"),
              u"a\uFFFD\r\nb");
}

TEST(ScriptSource, TakesBytesThatAreNoUtf8ForCodePage932) {
    // "あ" in UTF-8 with one byte too many: not well-formed as a whole.
    EXPECT_EQ(DecodeScriptSource("\xE3\x81\x82\xA0"), u"縺あ");
    EXPECT_EQ(DecodeScriptSource("\x82\xA0\n"), u"あ\n");
}

TEST(ScriptSource, EmptiesALineThatNamesAnInterpreter) {
    EXPECT_EQ(DecodeScriptSource("#!/usr/bin/velmconsole"), u"");
    EXPECT_EQ(DecodeScriptSource("#!/usr/bin/velmconsole\r\nA=1\r\n"), u"\r\nA=1\r\n");
    EXPECT_EQ(DecodeScriptSource("#!/usr/bin/velmconsole\n\xE8\xA1\xA8\n"), u"\r\n表\r\n");
    EXPECT_EQ(DecodeScriptSource("#!x\n\x95\x5C\r\n"), u"\r\n表\r\n");
    EXPECT_EQ(DecodeScriptSource("\xEF\xBB\xBF#!x\nA=1"), u"\r\nA=1");
    EXPECT_EQ(DecodeScriptSource("#!"), u"");
}

TEST(ScriptSource, KnowsTheEncodingFromTheInterpretersLineToo) {
    EXPECT_EQ(DecodeScriptSource("#!/\xE8\xA1\xA8\nA=1\nB=2"), u"\r\nA=1\r\nB=2");
}

TEST(ScriptSource, KeepsALaterInterpretersLine) {
    EXPECT_EQ(DecodeScriptSource("\r\n#!x\r\n"), u"\r\n#!x\r\n");
    EXPECT_EQ(DecodeScriptSource(" #!x"), u" #!x");
    EXPECT_EQ(DecodeScriptSource("#x"), u"#x");
}

}  // namespace
}  // namespace velm
