// The hidden forms of values: nobody may see them. Random accesses are compared with a model that is
// plain text and cuts it anew each time.
#include "data/value.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "data/brackets.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"

namespace velm {
namespace {

using Texts = std::vector<std::u16string>;

Texts Pieces(std::u16string_view text, std::u16string_view separator) {
    const auto cut = Split(text, separator);
    return {cut.begin(), cut.end()};
}

std::u16string ModelCell(std::u16string_view text, std::size_t column) {
    const Texts cells = Pieces(NormaliseCommas(text), u",");
    return column < cells.size() ? cells[column] : std::u16string();
}

std::u16string WithCell(std::u16string_view text, std::size_t column, const std::u16string& item) {
    Texts cells = Pieces(NormaliseCommas(text), u",");
    if (cells.size() <= column) cells.resize(column + 1);
    cells[column] = item;
    return Join(cells, u",");
}

std::u16string ModelRow(std::u16string_view text, std::size_t row) {
    const Texts rows = Pieces(text, kCrLf);
    return row < rows.size() ? rows[row] : std::u16string();
}

std::u16string WithRow(std::u16string_view text, std::size_t row, const std::u16string& line) {
    Texts rows = Pieces(text, kCrLf);
    if (rows.size() <= row) rows.resize(row + 1);
    rows[row] = line;
    return Join(rows, kCrLf);
}

const Texts kTexts = {u"",        u"a,b,c",           u"a、b，c",      u"x=1\r\ny=2",
                      u"1",       u"a,b\r\nc、d\r\n", u"k=1\r\nk=2",   u"\r\n",
                      u"=1\r\nk", u"12,34",           u"p=1,2\r\nq=3", u",,"};
const Texts kItems = {u"", u"a", u"12", u"x=y", u"b{**}c", u"1.50"};
const Texts kKeys = {u"a", u"k", u"x", u"p", u"K", u"a=b", u""};
const Texts kKeyValues = {u"", u"a", u"12", u"1\r\n2", u"{/n}", u"p,q"};

// Three values with their models, and the accesses that a script can make.
class Pair {
  public:
    explicit Pair(unsigned seed) : random_(seed) {
        for (std::size_t i = 0; i < 3; ++i) Assign(i, Pick(kTexts));
    }

    void Step() {
        const std::size_t at = Number(3);
        const std::size_t row = Number(4);
        const std::size_t column = Number(4);
        Value& value = values_[at];
        std::u16string& text = models_[at];
        switch (Number(16)) {
            case 0: Assign(at, Pick(kTexts)); break;
            case 1: Copy(at, Number(3)); break;
            case 2: ExpectSame(value.Cell(column), ModelCell(text, column)); break;
            case 3: ExpectSame(value.Row(row), ModelRow(text, row)); break;
            case 4:
                ExpectSame(value.RowCell(row, column), ModelCell(ModelRow(text, row), column));
                break;
            case 5: {
                const std::u16string item = Pick(kItems);
                value.SetCell(column, Value(item));
                text = WithCell(text, column, item);
                break;
            }
            case 6: {
                const std::u16string line = Pick(kItems) + u"," + Pick(kItems);
                value.SetRow(row, Value(line));
                text = WithRow(text, row, line);
                break;
            }
            case 7: {
                const std::u16string item = Pick(kItems);
                value.SetRowCell(row, column, Value(item));
                text = WithRow(text, row, WithCell(ModelRow(text, row), column, item));
                break;
            }
            case 8: {
                const std::u16string key = Pick(kKeys);
                ExpectSame(value.Entry(key), GetKey(text, key));
                break;
            }
            case 9: {
                const std::u16string key = Pick(kKeys);
                const std::u16string stored = Pick(kKeyValues);
                value.SetEntry(key, Value(stored));
                text = SetKey(text, key, stored);
                break;
            }
            case 10: {
                const std::size_t tail = Number(3);
                const std::u16string added = models_[tail];
                const Value copy = values_[tail];
                value.Append(copy);
                text += added;
                if (text.size() > 200) Assign(at, u"");
                break;
            }
            case 11: EXPECT_EQ(value.Number(), ParseNumber(text)); break;
            case 12: EXPECT_EQ(value.IsEmpty(), text.empty()); break;
            case 13: AssignNumber(at, static_cast<double>(Number(5)) / 2); break;
            case 14: EXPECT_EQ(value.SameText(values_[0]), text == models_[0]); break;
            default: ExpectSame(value, text); break;
        }
    }

    void ExpectAllSame() {
        for (std::size_t i = 0; i < 3; ++i) ExpectSame(values_[i], models_[i]);
    }

  private:
    std::mt19937 random_;
    Value values_[3];
    std::u16string models_[3];

    std::size_t Number(std::size_t below) { return random_() % below; }
    const std::u16string& Pick(const Texts& texts) { return texts[Number(texts.size())]; }
    void Assign(std::size_t at, const std::u16string& text) {
        values_[at] = Value(text);
        models_[at] = text;
    }
    void AssignNumber(std::size_t at, double number) {
        values_[at] = Value::OfNumber(number);
        models_[at] = FormatNumber(number);
    }
    void Copy(std::size_t to, std::size_t from) {
        values_[to] = values_[from];
        models_[to] = models_[from];
    }
    static void ExpectSame(const Value& value, const std::u16string& text) {
        EXPECT_EQ(value.Text(), text);
    }
};

TEST(Value, NoScriptCanDetectTheForms) {
    for (unsigned seed = 0; seed < 3000; ++seed) {
        Pair pair(seed);
        for (int step = 0; step < 40; ++step) pair.Step();
        pair.ExpectAllSame();
        ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed;
    }
}

TEST(Value, AComputedNumberHasItsText) {
    EXPECT_EQ(Value::OfNumber(0.1 + 0.2).Text(), u"0.3");
    EXPECT_EQ(Value::OfInteger(-7).Text(), u"-7");
    EXPECT_EQ(Value::OfBool(true).Text(), u"1");
    EXPECT_EQ(Value::OfBool(false).Text(), u"0");
    EXPECT_EQ(Value::OfNumber(1e15).Text(), u"1E+15");
}

TEST(Value, TheNumberIsTheOneThatTheTextReadsBackAs) {
    const Value third = Value::OfNumber(1.0 / 3);
    EXPECT_EQ(third.Number(), ParseNumber(u"0.333333333333333"));
    EXPECT_EQ(third.Text(), u"0.333333333333333");
    EXPECT_EQ(third.Number(), ParseNumber(u"0.333333333333333"));
}

TEST(Value, NumbersOfTexts) {
    EXPECT_EQ(Value(u"007").Number(), 7);
    EXPECT_EQ(Value(u"1,000").Number(), 1000);
    EXPECT_FALSE(Value(u"1,2").IsNumeric());
    EXPECT_FALSE(Value(u"").IsNumeric());
    EXPECT_EQ(Value(u"abc").NumberOrZero(), 0);
}

TEST(Value, CopiesAreIndependent) {
    Value table(u"a,b\r\nc,d");
    Value copy = table;
    copy.SetRowCell(1, 0, Value(u"x"));
    EXPECT_EQ(table.Text(), u"a,b\r\nc,d");
    EXPECT_EQ(copy.Text(), u"a,b\r\nx,d");
    table.SetRowCell(0, 1, Value(u"y"));
    EXPECT_EQ(copy.Text(), u"a,b\r\nx,d");
    EXPECT_EQ(table.Text(), u"a,y\r\nc,d");
}

TEST(Value, ACopyTakenBetweenStoresKeepsItsText) {
    Value table(u"a");
    table.SetCell(3, Value(u"x"));
    const Value copy = table;
    table.SetCell(0, Value(u"b"));
    EXPECT_EQ(copy.Text(), u"a,,,x");
    EXPECT_EQ(table.Text(), u"b,,,x");
}

TEST(Value, ACellMayHoldItsOwnTable) {
    Value table(u"a,b");
    table.SetCell(1, table.Cell(0));
    EXPECT_EQ(table.Text(), u"a,a");
    table.SetRow(2, table);
    EXPECT_EQ(table.Text(), u"a,a\r\n\r\na,a");
}

TEST(Value, ATextOfATableMayTakeItsPlace) {
    Value table(u"a,b\r\nc,d");
    table = table.Row(1);
    EXPECT_EQ(table.Text(), u"c,d");
    table = table.Cell(1);
    EXPECT_EQ(table.Text(), u"d");
    table = Value(std::u16string_view(table.Text()).substr(1));
    EXPECT_TRUE(table.IsEmpty());
}

// Records are used again: nothing of the value that had one before may be seen.
TEST(Value, ANewTextKnowsNothingOfTheOneBefore) {
    for (const std::size_t size : {1U, 7U, 8U, 200U, 255U, 256U, 5000U}) {
        for (int round = 0; round < 3; ++round) {
            Value number(std::u16string(size, u'0') + u"1,2");
            EXPECT_EQ(number.Cell(1).Text(), u"2");
            EXPECT_EQ(number.RowCount(), 1U);
            number.SetCell(0, Value(u"x"));
            const Value known(u"12");
            EXPECT_EQ(known.Number(), 12);
        }
        const Value text(std::u16string(size, u'a'));
        EXPECT_EQ(text.Text(), std::u16string(size, u'a'));
        EXPECT_EQ(text.Number(), std::nullopt);
        EXPECT_EQ(text.Cell(0).Text(), text.Text());
        const Value third = Value::OfNumber(0.5);
        EXPECT_EQ(third.Text(), u"0.5");
    }
}

TEST(Value, ManyValuesMayLiveAndDieAtOnce) {
    std::vector<Value> values;
    for (std::size_t i = 0; i < 500; ++i) values.emplace_back(std::u16string(i % 300 + 1, u'v'));
    values.erase(values.begin(), values.begin() + 400);
    for (int i = 0; i < 400; ++i) values.push_back(Value(Value::OfInteger(i).Text()));
    for (std::size_t i = 0; i < 500; ++i) {
        if (i < 100) {
            EXPECT_EQ(values[i].Text(), std::u16string((i + 400) % 300 + 1, u'v'));
        } else {
            EXPECT_EQ(values[i].Number(), static_cast<double>(i - 100));
        }
    }
}

TEST(Value, ANewTextLeavesTheOtherOwnersTheirs) {
    Value value(u"1,2");
    EXPECT_EQ(value.Cell(1).Text(), u"2");
    const Value copy = value;
    value.NewText(3) = u"abc";
    EXPECT_EQ(copy.Text(), u"1,2");
    EXPECT_EQ(copy.CellCount(), 2U);
    EXPECT_EQ(value.CellCount(), 1U);
    value.NewText(0).append(u"5");
    EXPECT_EQ(value.Number(), 5);
    value = Value::OfNumber(7);
    EXPECT_TRUE(value.NewText(100).empty());
    EXPECT_TRUE(value.IsEmpty());
}

TEST(Value, SharingIsTold) {
    Value text(u"long enough");
    Value copy = text;
    EXPECT_TRUE(copy.SharesRecordWith(text));
    copy.Append(Value(u"!"));
    EXPECT_FALSE(copy.SharesRecordWith(text));
    EXPECT_FALSE(Value::OfNumber(1).SharesRecordWith(Value::OfNumber(1)));
    EXPECT_EQ(text.Text(), u"long enough");
}

TEST(Value, AppendToKeepsANumberPlain) {
    const Value number = Value::OfNumber(2.5);
    std::u16string out = u"x";
    number.AppendTo(out);
    EXPECT_EQ(out, u"x2.5");
#ifndef VELM_NO_CACHES
    double plain = 0;
    EXPECT_TRUE(number.IsPlainNumber(plain));
    EXPECT_EQ(plain, 2.5);
#endif
}

TEST(Value, AssigningToItselfChangesNothing) {
    Value value(u"a,b");
    Value& same = value;
    value = same;
    EXPECT_EQ(value.Text(), u"a,b");
}

TEST(Value, AnEntryBehindAnEmptyLineTakesItsPlace) {
    Value table(u"\r\na=2");
    table.SetEntry(u"a", Value(u"3"));
    EXPECT_EQ(table.Text(), u"a=3");
    table.SetEntry(u"b", Value(u"4"));
    table.SetEntry(u"b", Value(u"5"));
    EXPECT_EQ(table.Text(), u"a=3\r\nb=5");
}

// The same stores on the pairs in their order.
TEST(Value, ManyKeysOfEveryLength) {
    std::vector<std::pair<std::u16string, int>> expected;
    Value table;
    std::mt19937 random(3);
    for (int i = 0; i < 4000; ++i) {
        const std::u16string key(1 + random() % 19, static_cast<char16_t>(u'あ' + random() % 20));
        const auto known = std::find_if(expected.begin(), expected.end(),
                                        [&](const auto& entry) { return entry.first == key; });
        EXPECT_EQ(table.Entry(key).NumberOrZero(), known == expected.end() ? 0 : known->second);
        if (known != expected.end()) expected.erase(known);
        expected.emplace_back(key, i);
        table.SetEntry(key, Value::OfInteger(i));
    }
    std::u16string text;
    for (const auto& [key, number] : expected) {
        if (!text.empty()) text.append(kCrLf);
        text.append(key).append(u"=").append(FormatNumber(number));
    }
    EXPECT_EQ(table.Text(), text);
}

TEST(Value, APieceThatIsANumberKeepsItsText) {
    for (const std::u16string_view piece : {u"12", u"-0", u"007", u"1.5", u"1E+15", u"", u"字"}) {
        EXPECT_EQ(Value::OfPiece(piece).Text(), piece);
    }
}

#ifndef VELM_NO_CACHES

TEST(Value, AKeyIsReachedAsANumberOnlyThroughTheEntries) {
    Value table(u"a=1\r\nb=文");
    const Value key(u"a");
    double number = 0;
    EXPECT_FALSE(table.TryEntryNumber(key, number)) << "no entries are at hand yet";
    EXPECT_FALSE(table.TrySetEntryNumber(key, 5));
    table.SetEntry(u"a", Value::OfNumber(2));
    EXPECT_TRUE(table.TryEntryNumber(key, number));
    EXPECT_EQ(number, 2);
    EXPECT_FALSE(table.TryEntryNumber(Value(u"b"), number)) << "a text";
    EXPECT_FALSE(table.TryEntryNumber(Value(u"c"), number)) << "absent";
    EXPECT_FALSE(table.TryEntryNumber(Value(u"1"), number)) << "a position";
    EXPECT_FALSE(table.TryEntryNumber(Value::OfNumber(1), number));
    EXPECT_FALSE(table.TryEntryNumber(Value(), number));

    EXPECT_TRUE(table.TrySetEntryNumber(key, 3));
    EXPECT_TRUE(table.TrySetEntryNumber(Value(u"c"), 4));
    EXPECT_FALSE(table.TrySetEntryNumber(Value(u"d=e"), 4)) << "no plain key";
    const Value copy = table;
    EXPECT_FALSE(table.TrySetEntryNumber(key, 9)) << "somebody else holds it";
    EXPECT_EQ(table.Text(), u"b=文\r\na=3\r\nc=4");
    EXPECT_FALSE(table.TrySetEntryNumber(key, 9)) << "the text is a truth too";
}

TEST(Value, TailsOfAnyLengthAreAppended) {
    const Value number = Value::OfNumber(-1.23456789012345e-300);
    const Value empty;
    for (const std::size_t size : {1U, 8U, 9U, 73U, 74U, 75U, 96U, 97U, 4096U}) {
        const Value text(std::u16string(size, u't'));
        const Value* tails[] = {&empty, &text, &number, &empty};
        Value place(u"x");
        EXPECT_TRUE(place.TryAppend(tails));
        const std::u16string expected = text.Text() + u"-1.23456789012345E-300";
        EXPECT_EQ(place.Text(), u"x" + expected);
        EXPECT_TRUE(place.TryJoin(tails));
        EXPECT_EQ(place.Text(), expected);
    }
    const Value tooLong(std::u16string(4097, u't'));
    const Value* tails[] = {&tooLong};
    Value place(u"x");
    EXPECT_FALSE(place.TryAppend(tails));
    EXPECT_EQ(place.Text(), u"x");
}

TEST(Value, AJoinTakesThePlaceOfAText) {
    const Value text(u"k");
    const Value number = Value::OfNumber(2.5);
    const Value empty;
    const Value* parts[] = {&text, &number, &empty, &text};
    Value place(u"1,2");
    EXPECT_EQ(place.Number(), std::nullopt);
    EXPECT_TRUE(place.TryJoin(parts));
    EXPECT_EQ(place.Text(), u"k2.5k");
    const Value held = place;
    const Value* numbers[] = {&number, &number};
    EXPECT_TRUE(place.TryJoin({numbers, 1}));
    EXPECT_EQ(place.Number(), 2.5) << "what was known of the old text is forgotten";
    EXPECT_EQ(held.Text(), u"k2.5k") << "another owner keeps what it holds";
    const Value cells(u"1,2");
    EXPECT_EQ(cells.Cell(1).Text(), u"2");
    place = cells;
    EXPECT_TRUE(place.TryJoin(parts));
    EXPECT_EQ(place.Text(), u"k2.5k");
    const Value longText(std::u16string(5000, u'x'));
    const Value* tooLong[] = {&text, &longText};
    EXPECT_FALSE(place.TryJoin(tooLong));
    EXPECT_EQ(place.Text(), u"k2.5k");
}

#endif

}  // namespace
}  // namespace velm
