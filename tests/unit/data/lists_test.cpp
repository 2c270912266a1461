// List, dictionary and CSV text.
#include "data/lists.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velm {
namespace {

using Items = std::vector<std::u16string>;

TEST(Lists, ItemsKeepTheirSeparatorsEscaped) {
    EXPECT_EQ(EscapeItem(u"a、b,c，d\r\ne"), u"a{//}b{**}c{*/}d{*n}e");
    EXPECT_EQ(UnescapeItem(u"a{//}b{**}c{*/}d{*n}e"), u"a、b,c，d\r\ne");
    EXPECT_EQ(UnescapeItem(u"{*}{/}{**"), u"{*}{/}{**");
    EXPECT_EQ(EscapeItem(u""), u"");
}

TEST(Lists, ParseListTakesAllThreeCommas) {
    EXPECT_EQ(ParseList(u"1,a{**}b,2"), Items({u"1", u"a,b", u"2"}));
    EXPECT_EQ(ParseList(u"a、b，c"), Items({u"a", u"b", u"c"}));
    EXPECT_EQ(ParseList(u""), Items({u""}));
    EXPECT_EQ(ParseList(u","), Items({u"", u""}));
}

TEST(Lists, JoinListEscapesWhatIsNoNumber) {
    EXPECT_EQ(JoinList({u"1", u"a,b"}, u","), u"1,a{**}b");
    EXPECT_EQ(JoinList({u"1,000", u"x"}, u","), u"1,000,x");
    EXPECT_EQ(JoinList({u"a、b", u"c"}, u"\r\n"), u"a{//}b\r\nc");
}

TEST(Lists, AppendItemAndListOfNames) {
    std::u16string list = u"a";
    AppendItem(list, u"b,c");
    EXPECT_TRUE(list.ends_with(u"b{**}c"));
    EXPECT_EQ(ListOfNames({u"1,000", u"x"}), u"1{**}000,x");
}

TEST(Lists, DictValuesAreReplacedInPlace) {
    EXPECT_EQ(SetDictValue(u"", u"k", u"v"), u"k=v");
    EXPECT_EQ(SetDictValue(u"k=v", u"j", u"w"), u"k=v\r\nj=w");
    EXPECT_EQ(SetDictValue(u"ba=1", u"a", u"2"), u"ba=1\r\na=2");
    EXPECT_EQ(SetDictValue(u"a=1\r\nb=2\r\nc=3", u"b", u"x"), u"a=1\r\nb=x\r\nc=3");
    EXPECT_EQ(SetDictValue(u"a=1", u"a", u"1\r\n2"), u"a=1{/n}2");
}

TEST(Lists, DictValuesAreRead) {
    EXPECT_EQ(GetDictValue(u"a=1{/n}2", u"a"), u"1\r\n2");
    EXPECT_EQ(GetDictValue(u"a=1\r\na=2", u"a"), u"1");
    EXPECT_EQ(GetDictValue(u"a=1", u"A"), u"");
    EXPECT_EQ(GetDictValue(u"ba=1", u"a"), u"");
    EXPECT_EQ(GetDictValue(u"a=b=c", u"a"), u"b=c");
    EXPECT_EQ(GetDictValue(u"", u"a"), u"");
}

TEST(Lists, AKeyStoredAgainMovesToTheEnd) {
    EXPECT_EQ(SetKey(u"a=1\r\nb=2", u"a", u"3"), u"b=2\r\na=3");
    EXPECT_EQ(SetKey(u"a=1", u"a", u"2"), u"a=2");
    EXPECT_EQ(SetKey(u"", u"a", u"1\r\n2"), u"a=1{/n}2");
    EXPECT_EQ(SetKey(u"a=1", u"b", u""), u"a=1\r\nb=");
    EXPECT_EQ(GetKey(u"b=2\r\na=3{/n}4", u"a"), u"3\r\n4");
    EXPECT_EQ(GetKey(u"b=2", u"a"), u"");
}

TEST(Lists, LineBreaks) {
    EXPECT_EQ(EscapeLineBreaks(u"a\r\nb\nc"), u"a{/n}b\nc");
    EXPECT_EQ(UnescapeLineBreaks(u"a{/n}b"), u"a\r\nb");
}

}  // namespace
}  // namespace velm
