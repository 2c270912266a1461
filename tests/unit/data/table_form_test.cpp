// Tables as places in their text: what is stored over an item, behind the text and aside, and how it
// comes together again.
#include "data/table_form.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/value.h"

namespace velm {
namespace {

const std::u16string kLong(100, u'長');

TEST(TableForm, ShorterAndLongerItemsTakeAPlace) {
    Value table(u"abc,def\r\nghi,jkl");
    table.SetRowCell(0, 0, Value(u"x"));
    table.SetRowCell(0, 1, Value(u"longer"));
    table.SetRowCell(1, 1, Value(u"y"));
    EXPECT_EQ(table.RowCell(0, 0).Text(), u"x");
    EXPECT_EQ(table.RowCell(0, 1).Text(), u"longer");
    EXPECT_EQ(table.RowCell(1, 0).Text(), u"ghi");
    EXPECT_EQ(table.Row(0).Text(), u"x,longer");
    EXPECT_EQ(table.Text(), u"x,longer\r\nghi,y");
    table.SetRowCell(1, 0, Value(u"z"));
    EXPECT_EQ(table.Text(), u"x,longer\r\nz,y");
}

TEST(TableForm, RowsThatNobodyChangedKeepTheirCommas) {
    Value table(u"a、b\r\nc，d");
    EXPECT_EQ(table.RowCell(1, 1).Text(), u"d");
    table.SetRowCell(0, 0, Value(u"x"));
    EXPECT_EQ(table.Text(), u"x,b\r\nc，d");
}

TEST(TableForm, ItemsWithBreaksAndLongOnesStayWhole) {
    Value table(u"a,b\r\nc");
    table.SetRowCell(0, 0, Value(kLong));
    table.SetRowCell(1, 2, Value(u"d\r"));
    table.SetRowCell(1, 0, Value(u"e\r\nf"));
    EXPECT_EQ(table.RowCell(0, 0).Text(), kLong);
    EXPECT_EQ(table.RowCell(1, 2).Text(), u"d\r");
    EXPECT_EQ(table.RowCell(1, 0).Text(), u"e\r\nf");
    EXPECT_EQ(table.Text(), kLong + u",b\r\ne\r\nf,,d\r");
}

TEST(TableForm, ARowOfSeveralLinesBecomesSeveralRows) {
    Value table(u"a\r\nb");
    table.SetRow(0, Value(u"x\r\n\r\ny,z"));
    EXPECT_EQ(table.RowCount(), 4U);
    EXPECT_EQ(table.RowCell(2, 1).Text(), u"z");
    EXPECT_EQ(table.RowCell(3, 0).Text(), u"b");
    EXPECT_EQ(table.Text(), u"x\r\n\r\ny,z\r\nb");
}

TEST(TableForm, NumbersOfAnySpellingKeepIt) {
    Value table(u"007,1.50,12,1E+15,-0");
    for (std::size_t i = 0; i < 5; ++i) table.Cell(i);
    table.SetCell(5, Value(u"+3"));
    table.SetCell(6, Value::OfNumber(0.1));
    EXPECT_EQ(table.Text(), u"007,1.50,12,1E+15,-0,+3,0.1");
}

TEST(TableForm, ACopyLivesOnItsOwn) {
    Value table(u"a,b\r\nc,d");
    table.SetRowCell(0, 0, Value(u"changed"));
    Value copy = table;
    copy.SetRowCell(0, 1, Value(kLong));
    table.SetRowCell(1, 1, Value(u"e"));
    EXPECT_EQ(copy.Text(), u"changed," + kLong + u"\r\nc,d");
    EXPECT_EQ(table.Text(), u"changed,b\r\nc,e");
}

// The same stores on a vector of texts.
TEST(TableForm, ManyStoresPutTheTextInOrderNowAndThen) {
    constexpr std::size_t kCells = 50;
    Value table;
    std::vector<std::u16string> expected(kCells);
    std::uint32_t random = 1;
    for (int i = 0; i < 20000; ++i) {
        random = random * 1664525U + 1013904223U;
        const std::size_t column = (random >> 8U) % kCells;
        const std::u16string item((random >> 16U) % 40, static_cast<char16_t>(u'a' + i % 20));
        table.SetCell(column, Value(item));
        expected[column] = item;
        EXPECT_EQ(table.Cell(column).Text(), item);
    }
    table.SetCell(kCells - 1, Value(u"end"));
    expected.back() = u"end";
    EXPECT_EQ(table.Text(), Join(expected, u","));
}

TEST(TableForm, VeryLongItemsStayWhole) {
    const std::u16string long1(0xFFFF, u'a');
    const std::u16string long2(0x10000, u'b');
    Value table(long1 + u"," + long2 + u"\r\nc," + long2);
    EXPECT_EQ(table.RowCell(0, 0).Text(), long1);
    EXPECT_EQ(table.RowCell(0, 1).Text(), long2);
    EXPECT_EQ(table.RowCell(1, 1).Text(), long2);
    table.SetRowCell(1, 0, Value(u"longer"));
    table.SetRowCell(0, 0, Value(u"x"));
    EXPECT_EQ(table.RowCell(1, 1).Text(), long2);
    EXPECT_EQ(table.Text(), u"x," + long2 + u"\r\nlonger," + long2);
    table.SetRow(0, Value(u"y"));
    EXPECT_EQ(table.Text(), u"y\r\nlonger," + long2);
}

// The same stores on a vector of rows: rows that grow by turns, are replaced, and are copied.
TEST(TableForm, RowsGrowByTurns) {
    Value table;
    std::vector<std::vector<std::u16string>> expected(20, {u""});
    const auto joined = [&] {
        std::vector<std::u16string> rows;
        for (const std::vector<std::u16string>& row : expected) rows.push_back(Join(row, u","));
        return Join(rows, kCrLf);
    };
    table.SetRow(19, Value());
    std::uint32_t random = 7;
    for (int i = 0; i < 20000; ++i) {
        random = random * 1664525U + 1013904223U;
        const std::size_t row = (random >> 8U) % 20;
        const std::size_t column = (random >> 16U) % 40;
        const std::u16string item(1 + (random >> 24U) % 9, static_cast<char16_t>(u'a' + i % 20));
        if (i % 17 == 0) {
            table.SetRow(row, Value(item));
            expected[row] = {item};
        } else {
            table.SetRowCell(row, column, Value(item));
            if (column >= expected[row].size()) expected[row].resize(column + 1);
            expected[row][column] = item;
        }
        ASSERT_EQ(table.Row(row).Text(), Join(expected[row], u","));
        if (i % 999 == 0) {
            const Value copy = table;
            table.SetRowCell(row, 0, Value(u"first"));
            EXPECT_EQ(copy.Text(), joined());
            expected[row][0] = u"first";
        }
    }
    EXPECT_EQ(table.Text(), joined());
}

TEST(TableForm, ARowThatIsReplacedByALongerOneAgainAndAgain) {
    Value table(u"a,b\r\nc,d,e");
    std::u16string line = u"0";
    for (int i = 1; i < 2000; ++i) {
        line.append(u",").append(FormatNumber(i));
        table.SetRow(0, Value(line));
        ASSERT_EQ(table.RowCell(0, static_cast<std::size_t>(i)).NumberOrZero(), i);
        ASSERT_EQ(table.RowCell(1, 2).Text(), u"e");
    }
    table.SetRowCell(1, 1, Value(u"changed"));
    EXPECT_EQ(table.Text(), line + u"\r\nc,changed,e");
}

}  // namespace
}  // namespace velm
