// Columns of table text.
#include "data/table_column.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/lists.h"

namespace velm {
namespace {

std::vector<std::u16string> Items(std::u16string_view text, int column) {
    const TableColumn items(text, column);
    return {items.Items().begin(), items.Items().end()};
}

using Texts = std::vector<std::u16string>;

TEST(TableColumn, WholeTextAsOneList) {
    EXPECT_EQ(Items(u"a、b，c,d", 0), (Texts{u"a", u"b", u"c", u"d"}));
    EXPECT_EQ(Items(u"a,b\r\nc,d", 0), (Texts{u"a", u"b\r\nc", u"d"}));
    EXPECT_EQ(Items(u"a,b", -1), (Texts{u"a", u"b"}));
}

TEST(TableColumn, ItemsOfTheRows) {
    EXPECT_EQ(Items(u"a,1\r\nb\r\nc,3", 1), (Texts{u"a", u"b", u"c"}));
    EXPECT_EQ(Items(u"a,1\r\nb\r\nc,3", 2), (Texts{u"1", u"", u"3"}));
    EXPECT_EQ(Items(u"a、1\r\n\r\n", 2), (Texts{u"1", u"", u""}));
    EXPECT_EQ(Items(u"a,1", 9), (Texts{u""}));
}

TEST(TableColumn, TheEmptyTextHasNoItems) {
    EXPECT_EQ(Items(u"", 0), Texts{});
    EXPECT_EQ(Items(u"", 1), Texts{});
    EXPECT_EQ(Items(u",", 0), (Texts{u"", u""}));
}

TEST(TableColumn, ItemsStayEscaped) { EXPECT_EQ(Items(u"x{**}y,z", 0), (Texts{u"x{**}y", u"z"})); }

TEST(TableColumn, CellOfRow) {
    bool found = false;
    EXPECT_EQ(CellOfRow(u"a,b,c", 1, found), u"b");
    EXPECT_TRUE(found);
    EXPECT_EQ(CellOfRow(u"a,b,c", 2, found), u"c");
    EXPECT_TRUE(found);
    EXPECT_EQ(CellOfRow(u"a,b,c", 3, found), u"");
    EXPECT_FALSE(found);
    EXPECT_EQ(CellOfRow(u",", 1, found), u"");
    EXPECT_TRUE(found);
    EXPECT_EQ(CellOfRow(u"", 0, found), u"");
    EXPECT_FALSE(found);
}

TEST(TableColumn, AppendItemEscapesWhatIsNoNumber) {
    std::u16string list;
    AppendItem(list, u"a,b");
    AppendItem(list, u"|");
    AppendItem(list, u"1,000");
    AppendItem(list, u"|x、y，z\r\n");
    EXPECT_EQ(list, u"a{**}b|1,000|x{//}y{*/}z{*n}");
}

}  // namespace
}  // namespace velm
