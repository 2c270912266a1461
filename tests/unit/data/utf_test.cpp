// UTF-8 at the limits of each sequence length, and every kind of ill-formed sequence.
#include "data/utf.h"

#include <gtest/gtest.h>

#include <string>

namespace velm {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr char16_t kBad = 0xFFFD;

TEST(Utf, ConvertsSequencesOfEachLengthBothWays) {
    const struct {
        std::string bytes;
        std::u16string text;
    } pairs[] = {
        {"", u""},
        {"a\0z"s, u"a\0z"s},
        {"\x7F", u"\x7F"},
        {"\xC2\x80", u"\u0080"},
        {"\xDF\xBF", u"\u07FF"},
        {"\xE0\xA0\x80", u"\u0800"},
        {"\xE3\x81\x82", u"あ"},
        {"\xED\x9F\xBF", u"\uD7FF"},
        {"\xEE\x80\x80", u"\uE000"},
        {"\xEF\xBB\xBF"
         "a",
         u"\uFEFFa"},
        {"\xEF\xBF\xBF", u"\uFFFF"},
        {"\xF0\x90\x80\x80", u"\U00010000"},
        {"\xF0\x9F\x98\x80!", u"😀!"},
        {"\xF4\x8F\xBF\xBF", u"\U0010FFFF"},
        {"mixed \xE6\xBC\xA2\xE5\xAD\x97 and a long run of ASCII",
         u"mixed 漢字 and a long run of ASCII"},
    };
    for (const auto& [bytes, text] : pairs) {
        EXPECT_EQ(Utf8ToUtf16(bytes), text);
        EXPECT_EQ(Utf16ToUtf8(text), bytes);
        EXPECT_TRUE(IsValidUtf8(bytes));
    }
}

TEST(Utf, ReplacesEachLongestPartOfABadSequence) {
    const struct {
        std::string_view bytes;
        std::u16string text;
    } pairs[] = {
        {"\x80", {kBad}},
        {"a\xFF"
         "b",
         {u'a', kBad, u'b'}},
        {"\xC0\x80", {kBad, kBad}},            // overlong
        {"\xC1\xBF", {kBad, kBad}},            //
        {"\xE0\x9F\xBF", {kBad, kBad, kBad}},  //
        {"\xF0\x8F\xBF\xBF", {kBad, kBad, kBad, kBad}},
        {"\xED\xA0\x80", {kBad, kBad, kBad}},            // a surrogate
        {"\xF4\x90\x80\x80", {kBad, kBad, kBad, kBad}},  // above the last code point
        {"\xF5\x80", {kBad, kBad}},
        {"\xC2", {kBad}},  // cut off
        {"\xE3\x81", {kBad}},
        {"\xE3\x81x", {kBad, u'x'}},
        {"\xF0\x9F\x98", {kBad}},
        {"\xF0\x9F\x98\xE3\x81\x82", {kBad, u'あ'}},
        {"\xE3\xE3\x81\x82", {kBad, u'あ'}},
    };
    for (const auto& [bytes, text] : pairs) {
        EXPECT_EQ(Utf8ToUtf16(bytes), text);
        EXPECT_FALSE(IsValidUtf8(bytes));
    }
}

TEST(Utf, WritesAReplacementForALoneSurrogate) {
    EXPECT_EQ(Utf16ToUtf8(std::u16string{0xD83D}), "\xEF\xBF\xBD");
    EXPECT_EQ(Utf16ToUtf8(std::u16string{0xDE00}), "\xEF\xBF\xBD");
    EXPECT_EQ(Utf16ToUtf8(std::u16string{0xDE00, 0xD83D}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(Utf16ToUtf8(std::u16string{u'a', 0xD83D, u'b'}),
              "a\xEF\xBF\xBD"
              "b");
    EXPECT_EQ(Utf16ToUtf8(std::u16string{0xD83D, 0xD83D, 0xDE00}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

TEST(Utf, FindsABadByteBehindALongRun) {
    for (std::size_t length = 0; length < 20; ++length) {
        const std::string run(length, 'x');
        EXPECT_TRUE(IsValidUtf8(run));
        EXPECT_TRUE(IsValidUtf8(run + "\xC3\xA9" + run));
        EXPECT_FALSE(IsValidUtf8(run + "\xE9" + run));
        EXPECT_EQ(Utf8ToUtf16(run + "\xE9" + run).size(), 2 * length + 1);
    }
}

}  // namespace
}  // namespace velm
