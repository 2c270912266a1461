// The fields of 情報: noted places answer as the walk over the text does.
#include "data/fields.h"

#include <gtest/gtest.h>

#include <string>

#include "data/value.h"

namespace velm {
namespace {

// Both ways of reading every field of a text, and a few behind the last one.
void ExpectSameFields(const std::u16string& text, std::size_t count) {
    const std::vector<std::uint32_t> starts = FindFields(text);
    for (std::size_t n = 1; n <= count; ++n) {
        EXPECT_EQ(FieldAt(text, starts, n), FieldOf(text, n)) << n;
    }
}

TEST(Fields, NotedPlacesAgreeWithTheWalk) {
    ExpectSameFields(u"", 3);
    ExpectSameFields(u"a,b,c", 5);
    ExpectSameFields(u",a,,b,", 6);
    ExpectSameFields(u"a、b、c,d，e", 6);
    ExpectSameFields(u"（a,b）,「c,d」,e", 6);
    ExpectSameFields(u"（a,b,「c,d」,e", 6);
}

TEST(Fields, TheLastNotedFieldEndsAtItsComma) {
    std::u16string text;
    for (std::size_t i = 0; i < kLastField + 5; ++i) text += u"x,";
    ExpectSameFields(text, kLastField);
    EXPECT_EQ(FieldOf(text, kLastField), u"x");
    EXPECT_EQ(Value(text).Field(kLastField).Text(), u"x");
    EXPECT_TRUE(Value(text).Field(kLastField + 1).IsEmpty());
}

TEST(Fields, AChangedTextHasNewFields) {
    Value text(std::u16string(100, u'a') + u",b");
    EXPECT_EQ(text.Field(2).Text(), u"b");
    text.Append(Value(u"c,d"));
    EXPECT_EQ(text.Field(2).Text(), u"bc");
    EXPECT_EQ(text.Field(3).Text(), u"d");
    text.SetCell(1, Value(u"e"));
    EXPECT_EQ(text.Field(2).Text(), u"e");
}

}  // namespace
}  // namespace velm
