// Interned names and the name tables.
#include "core/names.h"

#include <gtest/gtest.h>

#include <string>

namespace velm {
namespace {

xxCmdData Entry(std::u16string_view name) {
    xxCmdData entry;
    entry.Name = name;
    return entry;
}

std::u16string Order(const NameTable& table) {
    std::u16string all;
    for (const xxCmdData* entry : table.InOrder()) all += entry->Name + u" ";
    return all;
}

class NamesTest : public testing::Test {
  protected:
    void SetUp() override { Globals.Clear(); }
    void TearDown() override { Globals.Clear(); }
};

TEST_F(NamesTest, CaseAndWidthDoNotMatter) {
    Symbol* name = Intern(u"AbcガA");
    EXPECT_EQ(Intern(u"ａＢＣガａ"), name);
    EXPECT_EQ(Intern(u"abcｶﾞa"), name);
    EXPECT_NE(Intern(u"abcがa"), name);
    EXPECT_NE(Intern(u"abcカa"), name);
    EXPECT_EQ(FindSymbol(u"ABCガA"), name);
}

TEST_F(NamesTest, AnUnknownNameHasNoSymbol) {
    EXPECT_EQ(FindSymbol(u"誰も使わない名前その一"), nullptr);
    EXPECT_EQ(Globals.Find(u"誰も使わない名前その一"), nullptr);
}

TEST_F(NamesTest, TablesKeepTheOrderOfInsertion) {
    for (const std::u16string_view name : {u"乙", u"甲", u"丙"}) {
        Globals.Add(Intern(name), Entry(name));
    }
    EXPECT_EQ(Order(Globals), u"乙 甲 丙 ");
    Globals.Remove(Intern(u"甲"));
    EXPECT_EQ(Order(Globals), u"乙 丙 ");
    Globals.Add(Intern(u"甲"), Entry(u"甲"));
    EXPECT_EQ(Order(Globals), u"乙 丙 甲 ");
}

TEST_F(NamesTest, AKeyStandsOnce) {
    EXPECT_NE(Globals.Add(Intern(u"甲"), Entry(u"一")), nullptr);
    EXPECT_EQ(Globals.Add(Intern(u"甲"), Entry(u"二")), nullptr);
    EXPECT_EQ(Globals.Find(u"甲")->Name, u"一");
}

TEST_F(NamesTest, TablesDoNotShareTheirEntries) {
    Globals.Add(Intern(u"甲"), Entry(u"甲"));
    EXPECT_EQ(Procedures.Find(u"甲"), nullptr);
}

TEST_F(NamesTest, TheGenerationGrowsWithEachChange) {
    const std::uint64_t first = Globals.Generation();
    Globals.Add(Intern(u"甲"), Entry(u"甲"));
    const std::uint64_t second = Globals.Generation();
    EXPECT_GT(second, first);
    Globals.Remove(Intern(u"甲"));
    EXPECT_GT(Globals.Generation(), second);
    const std::uint64_t third = Globals.Generation();
    Globals.Remove(Intern(u"甲"));
    EXPECT_EQ(Globals.Generation(), third);
}

TEST_F(NamesTest, ARowGivesEachAliasItsEntry) {
    NameTable& table = Globals;
    RegisterEntries(table, {nullptr}, u"甲,乙", 0, u"で,から,して");
    RegisterEntries(table, {nullptr}, u"丙", 5, u"で,から");
    RegisterEntries(table, {nullptr}, u"丁", 2, u"");
    EXPECT_EQ(table.Find(u"甲")->Flags, 2);
    EXPECT_EQ(table.Find(u"乙")->Joshi, JoshiList({u"で", u"から", u"して"}));
    EXPECT_EQ(table.Find(u"乙")->Name, u"乙");
    EXPECT_EQ(table.Find(u"丙")->Flags, 5);
    EXPECT_EQ(table.Find(u"丁")->Flags, 2);
    EXPECT_TRUE(table.Find(u"丁")->Joshi.empty());
}

}  // namespace
}  // namespace velm
