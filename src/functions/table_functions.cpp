// Counting, searching and building tables. Each call cuts its text anew; the pieces are views into one
// copy, so that a table of a hundred thousand items costs a few passes over its text.
#include "functions/table_functions.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/arguments.h"
#include "core/conditions.h"
#include "core/eval.h"
#include "core/run_state.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/table_column.h"
#include "data/text.h"
#include "data/value.h"
#include "functions/table_loop.h"

namespace velm {

namespace {

constexpr std::u16string_view kRows = u"行";
constexpr std::u16string_view kColumns = u"列";
constexpr std::u16string_view kWholeItem = u"完全一致";
constexpr std::u16string_view kNotMatching = u"一致しない";

std::size_t CountCommas(std::u16string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), IsAnyComma));
}

void AppendPlace(std::u16string& list, std::size_t index) {
    if (!list.empty()) list += u',';
    AppendNumber(list, static_cast<double>(index + 1));
}

}  // namespace

void FnTableCount(Value& result, Arguments& arguments) {
    Value table;
    std::u16string direction;
    arguments.Split(table, direction);
    std::u16string_view text = table.Text();
    if (text.ends_with(kCrLf)) text.remove_suffix(kCrLf.size());
    std::size_t count = 0;
    if (!text.empty()) {
        count = 1;
        if (direction != kRows) count += CountCommas(text);
        if (direction != kColumns) count += CountOf(text, kCrLf);
    }
    result = Value::OfInteger(static_cast<std::int64_t>(count));
}

void FnTableSearch(Value& result, Arguments& arguments) {
    Value table;
    std::u16string find;
    std::int16_t column = 0;
    std::u16string option;
    arguments.Split(table, find, column, option);
    ShowPointer(kHourglass);
    const TableColumn items(table.Text(), column);
    const std::u16string wanted = EscapeItem(find);
    const bool whole = option == kWholeItem;
    std::u16string places;
    ForEachItem(items.Count(), [&](std::size_t i) {
        if (whole ? items[i] == wanted : Contains(items[i], wanted)) AppendPlace(places, i);
    });
    ShowPointer(kPlainPointer);
    result = Value(std::move(places));
}

void FnTableSelect(Value& result, Arguments& arguments) {
    Value table;
    std::u16string find;
    std::int32_t column = 0;
    std::u16string option;
    arguments.Split(table, find, column, option);
    const TableColumn items(table.Text(), column);
    const bool matching = !option.starts_with(kNotMatching);
    std::u16string list;
    bool first = true;
    ForEachItem(items.Count(), [&](std::size_t i) {
        if (Contains(items[i], find) != matching) return;
        if (!first) list += u',';
        first = false;
        AppendItem(list, items[i]);
    });
    result = Value(std::move(list));
}

void FnTableTest(Value& result, Arguments& arguments) {
    Word tableWord;
    Word condition;
    Word columnWord;
    arguments.SplitRaw(tableWord, condition, columnWord);
    const Value table = EvalWord(tableWord);
    const std::int16_t column =
        columnWord.IsEmpty() ? std::int16_t{0} : ToInt16(ToDouble(EvalWord(columnWord)));
    const TableColumn items(table.Text(), column);
    const Comparison comparison = PlanComparison(comparison::kEqual, condition);
    std::u16string places;
    ForEachItem(items.Count(), [&](std::size_t i) {
        run.Response = Value(UnescapeItem(items[i]));
        if (EvalComparison(comparison)) AppendPlace(places, i);
    });
    // Kept: with no hit the list of numbers stays as long as the table, and empty.
    if (places.empty() && items.Count() != 0) places.assign(items.Count() - 1, u',');
    result = Value(std::move(places));
}

void FnTakeColumn(Value& result, Arguments& arguments) {
    Value table;
    std::int16_t column = 0;
    arguments.Split(table, column);
    const TableColumn items(table.Text(), column);
    std::u16string list;
    ForEachItem(items.Count(), [&](std::size_t i) {
        if (i != 0) list += u',';
        list.append(items[i]);
    });
    result = Value(std::move(list));
}

void FnSplit(Value& result, Arguments& arguments) {
    constexpr std::u16string_view kMark = u"\x03";
    Value text;
    std::u16string separator;
    arguments.Split(text, separator);
    const std::u16string marked = ReplaceAll(text.Text(), separator, kMark);
    result = Value(ReplaceAll(EscapeItem(marked), kMark, u","));
}

void FnJoin(Value& result, Arguments& arguments) {
    Value list;
    std::u16string joiner;
    arguments.Split(list, joiner);
    const TableColumn items(list.Text(), 0);
    CheckMadeLength(list.Text().size() + std::uint64_t{items.Count()} * joiner.size());
    std::u16string text;
    for (std::size_t i = 0; i < items.Count(); ++i) {
        if (i != 0) text.append(joiner);
        text.append(UnescapeItem(items[i]));
    }
    result = Value(std::move(text));
}

void FnDictionaryEntry(Value& result, Arguments& arguments) {
    std::u16string key;
    Value dictionary;
    arguments.Split(key, dictionary);
    result = dictionary.Entry(key);
}

void FnDictionaryKeys(Value& result, Arguments& arguments) {
    Value dictionary;
    arguments.Split(dictionary);
    const std::vector<std::u16string_view> lines = SplitParts(dictionary.Text(), kCrLf);
    std::u16string keys;
    ForEachItem(lines.size(), [&](std::size_t i) {
        if (i != 0) keys += u',';
        const std::size_t equals = lines[i].find(u'=');
        if (equals != kNotFound) AppendItem(keys, lines[i].substr(0, equals));
    });
    result = Value(std::move(keys));
}

}  // namespace velm
