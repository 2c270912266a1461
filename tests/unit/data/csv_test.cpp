// CSV text against list text, and both against the rule told piece by piece.
#include "data/csv.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"

namespace velm {
namespace {

void StripQuotes(std::u16string& out, std::size_t from) {
    if (out.size() < from + 2 || out[from] != u'"' || out.back() != u'"') return;
    out.pop_back();
    out.erase(from, 1);
}

// The rule of reading: lines, their pieces, and whether a quote is open.
std::u16string ModelOfReading(std::u16string_view text) {
    std::u16string out;
    bool inQuote = false;
    bool first = true;
    for (const std::u16string_view line : SplitLines(text)) {
        if (!first) out.append(kCrLf);
        first = false;
        std::size_t field = out.size();
        const std::vector<std::u16string_view> pieces = Split(line, u",");
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            if (std::count(pieces[i].begin(), pieces[i].end(), u'"') == 1) inQuote = !inQuote;
            if (i + 1 == pieces.size()) {
                out.append(pieces[i]);
                StripQuotes(out, field);
                continue;
            }
            out.append(EscapeItem(pieces[i]));
            if (inQuote) {
                out.append(u"{**}");
                continue;
            }
            StripQuotes(out, field);
            out += u',';
            field = out.size();
        }
    }
    return out;
}

std::u16string ModelOfItem(std::u16string_view item) {
    const std::u16string plain = UnescapeItem(item);
    const bool bare = UnescapeItem(plain) == plain && IsNumeric(plain);
    return bare ? plain : u"\"" + plain + u"\"";
}

std::u16string ModelOfWriting(std::u16string_view text) {
    std::u16string out;
    for (const std::u16string_view line : SplitLines(text)) {
        if (!out.empty()) out.append(kCrLf);
        std::size_t from = 0;
        for (std::size_t at = 0; at <= line.size(); ++at) {
            if (at < line.size() && !IsAnyComma(line[at])) continue;
            if (from != 0) out += u',';
            out.append(ModelOfItem(line.substr(from, at - from)));
            from = at + 1;
        }
    }
    return out;
}

TEST(Csv, QuotesEverythingButPlainNumbers) {
    EXPECT_EQ(ListToCsv(u"1,x,"), u"1,\"x\",\"\"");
    EXPECT_EQ(ListToCsv(u"a{**}b,c"), u"\"a,b\",\"c\"");
    EXPECT_EQ(ListToCsv(u"a\r\n2"), u"\"a\"\r\n2");
    EXPECT_EQ(ListToCsv(u"a\"b"), u"\"a\"b\"");
}

TEST(Csv, IsReadWithItsLimits) {
    EXPECT_EQ(CsvToList(u"\"a,b\",c"), u"a{**}b,c");
    EXPECT_EQ(CsvToList(u"1,\"x\",\"\""), u"1,x,");
    EXPECT_EQ(CsvToList(u"\"a\"\r\n2,3"), u"a\r\n2,3");
    EXPECT_EQ(CsvToList(u"a、b,c、d"), u"a{//}b,c、d");
}

TEST(Csv, GoesBothWays) {
    EXPECT_EQ(CsvToList(ListToCsv(u"1,a{**}b,x\r\n2,,y")), u"1,a{**}b,x\r\n2,,y");
}

TEST(Csv, AnyTextFollowsTheRule) {
    std::mt19937 random(1);
    const std::u16string_view pieces[] = {u",",
                                          u",",
                                          u"\"",
                                          u"\"",
                                          u"、",
                                          u"，",
                                          u"\r\n",
                                          u"\r",
                                          u"\n",
                                          u"{",
                                          u"{**}",
                                          u"{*n}",
                                          u"1",
                                          u"-2.5",
                                          u"字",
                                          u"長い語の続き",
                                          u"abcdefghijklmn"};
    for (int i = 0; i < 20'000; ++i) {
        std::u16string text;
        for (std::size_t left = random() % 24; left > 0; --left) {
            text.append(pieces[random() % std::size(pieces)]);
        }
        ASSERT_EQ(CsvToList(text), ModelOfReading(text)) << i;
        ASSERT_EQ(ListToCsv(text), ModelOfWriting(text)) << i;
    }
}

}  // namespace
}  // namespace velm
