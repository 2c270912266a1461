// Changing tables. Where a change applies is told by a position word: "2列目" a column, "2行目" a row,
// a plain number an item of the comma list.
#include "functions/table_edit_functions.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/arguments.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/table_column.h"
#include "data/text.h"
#include "data/value.h"
#include "functions/table_loop.h"

namespace velm {

namespace {

constexpr int kNoSuchRow = 9;
constexpr int kNoSuchItem = 10;
constexpr std::u16string_view kColumnSuffix = u"列目";
constexpr std::u16string_view kRowSuffix = u"行目";
constexpr std::u16string_view kComma = u",";

enum class PositionKind { kItem, kRow, kColumn };

struct Position {
    PositionKind kind = PositionKind::kItem;
    std::int32_t number = 0;  // from 1

    std::size_t Index() const { return static_cast<std::size_t>(number) - 1; }
    bool IsWithin(std::size_t count) const { return number >= 1 && Index() < count; }
    std::u16string_view Separator() const { return kind == PositionKind::kRow ? kCrLf : kComma; }
};

// Reads a position word; its number is a word of its own.
Position ReadPosition(std::u16string_view word) {
    Position position;
    std::u16string_view number = word;
    if (word.ends_with(kColumnSuffix)) position.kind = PositionKind::kColumn;
    if (word.ends_with(kRowSuffix)) position.kind = PositionKind::kRow;
    if (position.kind != PositionKind::kItem) number.remove_suffix(kRowSuffix.size());
    position.number = ToInt32(ToDouble(EvalText(number)));
    return position;
}

void ReportPosition(const Position& position) {
    const int message = position.kind == PositionKind::kRow ? kNoSuchRow : kNoSuchItem;
    RaiseError(message, kIconInformation, FormatNumber(position.number), u"", -1);
}

// The text in which a position counts: rows are told by line ends alone, so that the commas of a table
// stay as they are written.
std::u16string TextFor(const Position& position, const std::u16string& text) {
    return position.kind == PositionKind::kRow ? text : NormaliseCommas(text);
}

std::u16string JoinViews(const std::vector<std::u16string_view>& parts,
                         std::u16string_view separator) {
    std::u16string out;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i != 0) out.append(separator);
        out.append(parts[i]);
    }
    return out;
}

// Puts the items as one piece before the row or item of the position, or behind the last one.
std::u16string InsertPiece(const std::u16string& text, const Position& position,
                           std::u16string_view items) {
    std::vector<std::u16string_view> pieces = Split(text, position.Separator());
    const std::size_t place = std::min(position.Index(), pieces.size());
    pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(place), items);
    return JoinViews(pieces, position.Separator());
}

// Adds a row with the item put into the column. A row that doesn't reach the column is padded up to it,
// also where it gets no item.
void AppendWidenedRow(std::u16string& out, std::u16string_view row, std::size_t column,
                      const std::u16string_view* item) {
    const std::size_t commas = CountOf(row, kComma);
    if (row.empty() || column > commas) {
        out.append(row).append(column - commas, u',');
        if (item != nullptr) out.append(*item);
    } else if (item != nullptr) {
        const std::size_t place = NthToken(row, kComma, column);  // the comma in front, 0 for none
        out.append(row.substr(0, place)).append(*item).append(kComma).append(row.substr(place));
    } else {
        out.append(row);
    }
}

std::u16string InsertColumn(const std::u16string& text, const Position& position,
                            std::u16string_view list) {
    std::vector<std::u16string_view> rows = SplitParts(text, kCrLf);
    const std::vector<std::u16string_view> items = SplitParts(list, kComma);
    if (rows.size() < items.size()) rows.resize(items.size());
    CheckMadeLength(text.size() + list.size() + std::uint64_t{rows.size()} * position.Index());
    std::u16string out;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i != 0) out.append(kCrLf);
        AppendWidenedRow(out, rows[i], position.Index(), i < items.size() ? &items[i] : nullptr);
    }
    return out;
}

// The table without the named row or item, taken out by way of a mark, so that a piece that itself
// begins with the mark loses it.
std::u16string DeletePiece(const std::u16string& text, const Position& position) {
    constexpr std::u16string_view kMark = u"\x05";
    const std::u16string separator(position.Separator());
    std::vector<std::u16string_view> pieces = SplitParts(text, separator);
    if (!position.IsWithin(pieces.size())) {
        ReportPosition(position);
        return {};
    }
    pieces[position.Index()] = kMark;
    const std::u16string marked = separator + JoinViews(pieces, separator);
    const std::u16string left = ReplaceAll(marked, separator + std::u16string(kMark), u"");
    return left.empty() ? left : left.substr(separator.size());
}

std::u16string DeleteColumn(const std::u16string& text, const Position& position) {
    if (position.number < 1) {
        ReportPosition(position);
        return {};
    }
    std::u16string out;
    bool first = true;
    for (const std::u16string_view row : Split(text, kCrLf)) {
        if (!first) out.append(kCrLf);
        first = false;
        std::vector<std::u16string_view> cells = SplitParts(row, kComma);
        if (position.IsWithin(cells.size())) {
            cells.erase(cells.begin() + static_cast<std::ptrdiff_t>(position.Index()));
        }
        out.append(JoinViews(cells, kComma));
    }
    return out;
}

// The escaped value of the expression for one item, which それ names while it is worked out.
std::u16string MapItem(std::u16string_view item, const Word& expression) {
    run.Response = Value(UnescapeItem(item));
    std::u16string mapped;
    AppendItem(mapped, EvalWord(expression).Text());
    return mapped;
}

Value MapColumn(const std::u16string& text, const Position& position, const Word& expression) {
    const std::u16string table = NormaliseCommas(text);
    const std::vector<std::u16string_view> rows = SplitParts(table, kCrLf);
    std::u16string out;
    ForEachItem(rows.size(), [&](std::size_t i) {
        std::vector<std::u16string_view> cells = SplitParts(rows[i], kComma);
        if (!position.IsWithin(cells.size())) throw Failure(failure::kSubscript);
        const std::u16string mapped = MapItem(cells[position.Index()], expression);
        cells[position.Index()] = mapped;
        if (i != 0) out.append(kCrLf);
        out.append(JoinViews(cells, kComma));
    });
    return Value(std::move(out));
}

// Kept: whatever row is named, the items come from the first row, and the loop runs as often as the
// table has rows. The outcome is stored in the named row.
Value MapRow(const std::u16string& text, const Position& position, const Word& expression) {
    const std::u16string table = NormaliseCommas(text);
    std::vector<std::u16string_view> rows = SplitParts(table, kCrLf);
    if (!position.IsWithin(rows.size())) {
        ReportPosition(position);
        return Value();
    }
    const std::vector<std::u16string_view> first = SplitParts(rows[0], kComma);
    std::vector<std::u16string> cells(first.begin(), first.end());
    ForEachItem(rows.size(), [&](std::size_t i) {
        if (i >= cells.size()) throw Failure(failure::kSubscript);
        cells[i] = MapItem(cells[i], expression);
    });
    const std::u16string joined = Join(cells, kComma);
    rows[position.Index()] = joined;
    return Value(JoinViews(rows, kCrLf));
}

Value MapList(const std::u16string& text, std::u16string_view expressionText) {
    const Word expression = CachedWord(StripPair(expressionText, u"「", u"」"));
    const TableColumn items(text, 0);
    std::u16string out;
    ForEachItem(items.Count(), [&](std::size_t i) {
        if (i != 0) out += u',';
        out.append(MapItem(items[i], expression));
    });
    return Value(std::move(out));
}

}  // namespace

void FnTableInsert(Value& result, Arguments& arguments) {
    Value table;
    std::u16string positionWord;
    std::u16string items;
    arguments.Split(table, positionWord, items);
    items = NormaliseCommas(items);
    const Position position = ReadPosition(positionWord);
    const std::u16string text = TextFor(position, table.Text());
    const bool column = position.kind == PositionKind::kColumn;
    if (text.empty() && !column) {
        result = Value(std::move(items));
    } else if (position.number < 1) {
        ReportPosition(position);
    } else {
        result = Value(column ? InsertColumn(text, position, items)
                              : InsertPiece(text, position, items));
    }
}

void FnTableDelete(Value& result, Arguments& arguments) {
    Word tableWord;
    Word positionWord;
    arguments.SplitRaw(tableWord, positionWord);
    const Value table = EvalWord(tableWord);
    const Position position = ReadPosition(Trim(positionWord.Text()));
    const std::u16string text = TextFor(position, table.Text());
    const bool column = position.kind == PositionKind::kColumn;
    result = Value(column ? DeleteColumn(text, position) : DeletePiece(text, position));
}

void FnTableMap(Value& result, Arguments& arguments) {
    Word tableWord;
    Word positionWord;
    Word expression;
    arguments.SplitRaw(tableWord, positionWord, expression);
    ShowPointer(kHourglass);
    const std::u16string text = EvalWord(tableWord).Text();
    const std::u16string positionText = EvalWord(positionWord).Text();
    // Kept: a row that is too short ends the function here, and leaves the hourglass.
    if (positionText.ends_with(kColumnSuffix)) {
        result = MapColumn(text, ReadPosition(positionText), expression);
    } else if (positionText.ends_with(kRowSuffix)) {
        result = MapRow(text, ReadPosition(positionText), expression);
    } else {
        result = MapList(text, Trim(expression.Text()));
    }
    ShowPointer(kPlainPointer);
}

}  // namespace velm
