// Structure dictionaries: layout, memory, and reading back.
#include "data/structures.h"

#include <gtest/gtest.h>

#include <string>

#include "../platform/fails_with.h"
#include "data/lists.h"

namespace velm {
namespace {

std::u16string Defined(std::u16string_view definitions) {
    return DefineStructure(u"", definitions);
}

std::u16string With(std::u16string_view definitions, std::u16string_view key,
                    std::u16string_view value) {
    return SetDictValue(Defined(definitions), key, value);
}

// The value of the only field x of a kind and size after a block was read.
std::u16string Read(std::u16string_view key, std::u16string_view size, std::string_view block) {
    const std::u16string definition = std::u16string(key) + u"=" + std::u16string(size);
    return GetDictValue(ReadBlock(Defined(definition), block), key);
}

std::string Built(std::u16string_view key, std::u16string_view size, std::u16string_view value) {
    const std::u16string definition = std::u16string(key) + u"=" + std::u16string(size);
    return BuildBlock(With(definition, key, value));
}

TEST(Structures, TheReservedKeysAreWrittenLast) {
    EXPECT_EQ(Defined(u"a=long,b=int,c=12"),
              u"a=\r\nb=\r\nc=\r\n__Keys=a,b,c\r\n__Size=4,2,12\r\n__Type=,,\r\n__Total=18");
}

TEST(Structures, EachTypeWordHasItsSize) {
    const std::u16string text =
        Defined(u"a=long,b=string,c=dword,d=lparam,e=integer,f=int,g=double,h=float,i=single,j=7");
    EXPECT_EQ(GetDictValue(text, u"__Size"), u"4,4,4,4,2,2,8,4,4,7");
    EXPECT_EQ(GetDictValue(text, u"__Type"), u",,,,,,Double,Single,Single,");
    EXPECT_EQ(GetDictValue(text, u"__Total"), u"43");
}

TEST(Structures, TypeWordsIgnoreCaseAndBlanks) {
    const std::u16string text = Defined(u" x = Double、y= LONG ，z=unknown");
    EXPECT_EQ(GetDictValue(text, u"__Keys"), u"x,y,z");
    EXPECT_EQ(GetDictValue(text, u"__Size"), u"8,4,0");
}

TEST(Structures, ADefinitionWithoutATypeLeavesAnEmptySlot) {
    const std::u16string text = Defined(u"a=long,zzz,b=int");
    EXPECT_EQ(GetDictValue(text, u"__Keys"), u"a,,b");
    EXPECT_EQ(GetDictValue(text, u"__Size"), u"4,,2");
    EXPECT_EQ(GetDictValue(text, u"__Total"), u"6");
    const std::string block = BuildBlock(SetDictValue(text, u"b", u"258"));
    EXPECT_EQ(block, std::string("\0\0\0\0\2\1", 6));
}

TEST(Structures, OtherEntriesOfTheDictionaryStay) {
    const std::u16string text = DefineStructure(u"題=帳簿\r\na=9", u"a=2");
    EXPECT_TRUE(text.starts_with(u"題=帳簿\r\na=\r\n__Keys=a\r\n"));
}

TEST(Structures, ADictionaryIsAStructureWhenItsTotalIsAboveZero) {
    EXPECT_TRUE(IsStructure(Defined(u"a=1")));
    EXPECT_FALSE(IsStructure(Defined(u"a=0")));
    EXPECT_FALSE(IsStructure(u"a=1"));
    EXPECT_FALSE(IsStructure(u""));
    EXPECT_FALSE(IsStructure(u"__Total=many"));
}

TEST(Structures, FieldsFollowEachOtherWithoutPadding) {
    std::u16string text = Defined(u"a=1,b=long,c=2");
    text = SetDictValue(text, u"a", u"255");
    text = SetDictValue(text, u"b", u"16909060");  // 01020304 in hexadecimal
    text = SetDictValue(text, u"c", u"-2");
    EXPECT_EQ(BuildBlock(text), std::string("\xFF\4\3\2\1\xFE\xFF", 7));
}

TEST(Structures, AnIntegerGivesItsLowBytesAndReadsBackUnsignedBelowFourBytes) {
    EXPECT_EQ(Built(u"n", u"2", u"-1"), "\xFF\xFF");
    EXPECT_EQ(Read(u"n", u"2", "\xFF\xFF"), u"65535");
    EXPECT_EQ(Read(u"n", u"1", "\x80"), u"128");
    EXPECT_EQ(Read(u"n", u"3", std::string_view("\1\0\1", 3)), u"65537");
    EXPECT_EQ(Read(u"n", u"4", "\xFE\xFF\xFF\xFF"), u"-2");
}

TEST(Structures, FieldsOfEightBytesHoldLongNumbers) {
    EXPECT_EQ(Built(u"n", u"8", u"-2"), "\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF");
    EXPECT_EQ(Built(u"n", u"8", u"5000000000"), std::string("\x00\xF2\x05\x2A\1\0\0\0", 8));
    EXPECT_EQ(Read(u"n", u"8", std::string_view("\x00\xF2\x05\x2A\1\0\0\0", 8)), u"5000000000");
    EXPECT_EQ(Read(u"n", u"8", "\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF"), u"-2");
    EXPECT_EQ(Built(u"n", u"10", u"1"), std::string("\1\0\0\0\0\0\0\0\0\0", 10));
}

TEST(Structures, AFixedTextIsFilledWithNuls) {
    EXPECT_EQ(Built(u"$name", u"8", u"abc"), std::string("abc\0\0\0\0\0", 8));
    EXPECT_EQ(Built(u"$name", u"4", u"日本"), "\x93\xFA\x96\x7B");
    EXPECT_EQ(Built(u"$name", u"3", u"abcdef"), "abc");
    EXPECT_EQ(Read(u"$name", u"8", std::string_view("abc\0\0\0\0\0", 8)), u"abc");
    EXPECT_EQ(Read(u"$name", u"6", std::string_view("a\0b \0\0", 6)), u"a b");
}

TEST(Structures, AByteListIsCopiedAsFarAsItFits) {
    EXPECT_EQ(Built(u"#b", u"4", u"1,2,255"), std::string("\1\2\xFF\0", 4));
    EXPECT_EQ(Built(u"#b", u"2", u"1、2、3"), "\1\2");
    EXPECT_EQ(Built(u"#b", u"2", u""), std::string("\0\0", 2));
    EXPECT_EQ(Read(u"#b", u"3", std::string_view("\0\x7F\xFF", 3)), u"0,127,255");
}

// 1.5 is 3FC00000 as a single and 3FF8000000000000 as a double.
TEST(Structures, RealNumbersHaveTheirOwnKinds) {
    EXPECT_EQ(Built(u"!f", u"single", u"1.5"), std::string("\0\0\xC0\x3F", 4));
    EXPECT_EQ(Built(u"%d", u"double", u"1.5"), std::string("\0\0\0\0\0\0\xF8\x3F", 8));
    EXPECT_EQ(Read(u"!f", u"single", std::string_view("\xCD\xCC\xCC\x3D", 4)), u"0.1");
    EXPECT_EQ(Read(u"%d", u"double", std::string_view("\x9A\x99\x99\x99\x99\x99\xB9\x3F", 8)),
              u"0.1");
    EXPECT_EQ(Built(u"!f", u"2", u"1.5"), std::string("\0\0", 2));
    EXPECT_EQ(Read(u"%d", u"double", std::string_view("\0\0\0\0\0\0\xF0\x7F", 8)), u"");
}

TEST(Structures, TheTypeOfTheDefinitionDoesNotDecideTheKind) {
    EXPECT_EQ(Built(u"d", u"double", u"2"), std::string("\2\0\0\0\0\0\0\0", 8));
}

TEST(Structures, ANestedStructureLiesInItsField) {
    const std::u16string inner = With(u"x=2,y=2", u"y", u"7");
    std::u16string outer = Defined(u"a=1,@in=4,b=1");
    outer = SetDictValue(outer, u"@in", inner);
    outer = SetDictValue(outer, u"b", u"9");
    EXPECT_EQ(BuildBlock(outer), std::string("\0\0\0\7\0\x09", 6));

    const std::u16string read = ReadBlock(outer, std::string_view("\1\2\0\3\0\4", 6));
    EXPECT_EQ(GetDictValue(read, u"a"), u"1");
    EXPECT_EQ(GetDictValue(GetDictValue(read, u"@in"), u"x"), u"2");
    EXPECT_EQ(GetDictValue(GetDictValue(read, u"@in"), u"y"), u"3");
    EXPECT_EQ(GetDictValue(read, u"b"), u"4");
}

TEST(Structures, ANestedStructureTellsItsOwnSizeAfterwards) {
    std::u16string outer = Defined(u"@in=6,b=1");
    outer = SetDictValue(outer, u"@in", Defined(u"x=4"));
    const std::u16string read = ReadBlock(outer, std::string(7, '\1'));
    EXPECT_EQ(GetDictValue(read, u"__Size"), u"4,1");
    EXPECT_EQ(GetDictValue(read, u"__Total"), u"7");
}

TEST(Structures, AFieldForANestedStructureWithoutOneIsEmptyMemory) {
    EXPECT_EQ(Built(u"@in", u"3", u"何か"), std::string("\0\0\0", 3));
    EXPECT_EQ(Read(u"@in", u"3", std::string_view("\1\1\1", 3)), u"");
}

TEST(Structures, ValuesThatDontFitTheirKindFail) {
    EXPECT_EQ(FailureOf([] { Built(u"n", u"4", u"何"); }), failure::kTypeMismatch);
    EXPECT_EQ(FailureOf([] { Built(u"n", u"4", u"2147483648"); }), failure::kOverflow);
    EXPECT_EQ(FailureOf([] { Built(u"n", u"8", u"1E+19"); }), failure::kOverflow);
    EXPECT_EQ(FailureOf([] { Built(u"#b", u"4", u"256"); }), failure::kOverflow);
    EXPECT_EQ(FailureOf([] { Built(u"#b", u"4", u"-1"); }), failure::kOverflow);
    EXPECT_EQ(FailureOf([] { Built(u"#b", u"4", u"x"); }), failure::kTypeMismatch);
    EXPECT_EQ(FailureOf([] { Built(u"!f", u"4", u"1E+39"); }), failure::kOverflow);
}

// A script may change the reserved keys; memory is never smaller than the fields.
TEST(Structures, ReservedKeysThatDontAgreeAreHarmless) {
    std::u16string text = Defined(u"a=4,b=4");
    text = SetDictValue(text, u"__Total", u"1");
    EXPECT_EQ(BuildBlock(text).size(), 8U);
    text = SetDictValue(text, u"__Total", u"16");
    EXPECT_EQ(BuildBlock(text).size(), 16U);
    text = SetDictValue(text, u"__Size", u"4");
    EXPECT_EQ(BuildBlock(text).size(), 16U);
    text = SetDictValue(text, u"__Size", u"-5,4");
    EXPECT_EQ(BuildBlock(text).size(), 16U);
    EXPECT_EQ(ReadBlock(Defined(u"a=4"), "abc"), Defined(u"a=4"));
}

TEST(Structures, StructuresBeyondTheLimitFail) {
    EXPECT_EQ(FailureOf([] { BuildBlock(Defined(u"a=2000000000,b=2000000000")); }),
              failure::kOverflow);
    EXPECT_EQ(FailureOf([] { BuildBlock(u"__Total=2000000000"); }), failure::kOverflow);
    EXPECT_EQ(FailureOf([] { Defined(u"a=5000000000"); }), failure::kOverflow);
}

}  // namespace
}  // namespace velm
