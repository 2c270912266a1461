// Sorting a variable. Lines and items stay views into the one text of the variable; what is sorted are
// their places (data/sort_order.h).
#include "commands/sort_commands.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "commands/step_report.h"
#include "commands/variable_words.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/statement.h"
#include "core/tables.h"
#include "core/variables.h"
#include "data/brackets.h"
#include "data/dates.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/sort_order.h"
#include "data/table_column.h"
#include "data/text.h"
#include "data/unit_scan.h"
#include "data/value.h"
#include "functions/number_functions.h"
#include "platform/readings.h"

namespace velm {

namespace {

constexpr int kNoSuchColumn = 10;
constexpr int kNoReadings = 27;

constexpr char16_t kOf = u'の';
constexpr std::size_t kColumnWordLength = 2;  // 列目

constexpr std::u16string_view kRandomOrder = u"ランダム";
constexpr std::u16string_view kAnyOrder = u"適当";
constexpr std::u16string_view kByDate = u"日付順";
constexpr std::u16string_view kAscending = u"小さい順";
constexpr std::u16string_view kDescending = u"大きい順";
constexpr std::u16string_view kReverse = u"逆";
constexpr std::u16string_view kBackward = u"降順";
constexpr std::u16string_view kByName = u"名前順";
constexpr std::u16string_view kByReading = u"漢字順";

using Keys = std::vector<std::u16string_view>;

// What is to be sorted.
struct SortTarget {
    Word variable;
    Value value;
    std::optional<std::int32_t> column;  // from 0
};

SortTarget FindTarget(const Word& word) {
    SortTarget target;
    target.variable = word;
    bool found = false;
    target.value = ReadVariableWord(word, found);
    const std::u16string_view text = word.Text();
    const std::size_t of = text.find(kOf);
    if (found || of == kNotFound) return target;
    const Word column(TrimRight(text.substr(of + 1), kColumnWordLength));
    target.variable = Word(text.substr(0, of));
    target.value = ReadVariableWord(target.variable, found);
    target.column = ToInt32(EvalNumber(column) - 1);
    return target;
}

// The text in its rows or items, with the key of each. It must outlive this.
class Pieces {
  public:
    Pieces(std::u16string_view text, std::optional<std::int32_t> column)
        : escapes_(ContainsUnitOf<u'{'>(text)), wide_(ContainsUnitOf<u'、', u'，'>(text)) {
        if (text.ends_with(kCrLf)) text.remove_suffix(kCrLf.size());
        size_ = text.size();
        table_ = column.has_value() || Contains(text, kCrLf);
        if (table_) {
            pieces_ = SplitLines(text);
            keys_.reserve(pieces_.size());
            for (const std::u16string_view line : pieces_) AddKeyOfLine(line, column.value_or(0));
        } else {
            std::size_t from = 0;
            VisitUnits<u',', u'、', u'，'>(text, 0, [&](std::size_t comma) {
                AddKey(text.substr(from, comma - from));
                from = comma + 1;
            });
            AddKey(text.substr(from));
        }
    }
    Pieces(const Pieces&) = delete;
    Pieces& operator=(const Pieces&) = delete;

    const Keys& AllKeys() const { return keys_; }

    // The text in its new order.
    std::u16string Joined(const SortOrder& order) const {
        std::u16string out;
        out.reserve(size_);
        for (std::size_t i = 0; i < order.size(); ++i) {
            if (i != 0) out.append(table_ ? kCrLf : u",");
            if (table_) {
                out.append(pieces_[order[i]]);
            } else if (escapes_) {
                AppendItem(out, keys_[order[i]]);
            } else {
                out.append(keys_[order[i]]);  // cut at its commas it holds nothing to escape
            }
        }
        return out;
    }

  private:
    bool escapes_;
    bool wide_;
    bool table_ = false;
    std::size_t size_ = 0;
    std::deque<std::u16string> owned_;  // lines and keys that differ from the text; never moved
    std::vector<std::u16string_view> pieces_;
    Keys keys_;

    std::u16string_view Own(std::u16string text) { return owned_.emplace_back(std::move(text)); }

    void AddKey(std::u16string_view item) {
        const bool escaped = escapes_ && item.find(u'{') != kNotFound;
        keys_.push_back(escaped ? Own(UnescapeItem(item)) : item);
    }
    // An empty line has an empty key whatever the column.
    void AddKeyOfLine(std::u16string_view line, std::int32_t column) {
        if (line.empty()) {
            keys_.emplace_back();
            return;
        }
        if (column < 0) throw Failure(failure::kSubscript);
        if (wide_ && ContainsUnitOf<u'、', u'，'>(line)) line = Own(NormaliseCommas(line));
        bool found = false;
        const std::u16string_view item = CellOfRow(line, static_cast<std::size_t>(column), found);
        if (!found) throw Failure(failure::kSubscript);
        AddKey(item);
    }
};

// A single key is compared with nothing, so that it may be anything.
template <class Convert>
KeyRanks RankConverted(const Keys& keys, Convert&& convert) {
    std::vector<double> numbers(keys.size());
    for (std::size_t i = 0; keys.size() > 1 && i < keys.size(); ++i) {
        const std::optional<double> number = convert(keys[i]);
        if (!number) throw Failure(failure::kTypeMismatch);
        numbers[i] = *number;
    }
    return RankNumbers(numbers);
}

SortOrder ShuffledOrder(std::size_t count) {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    SeedRandom(static_cast<std::uint32_t>(now.count()));
    SortOrder order = UnsortedOrder(count);
    for (std::size_t i = count; i-- > 1;) {
        // Kept: the rounding makes both ends half as likely as the places between.
        const auto j =
            static_cast<std::size_t>(std::nearbyint(NextRandom() * static_cast<double>(i)));
        std::swap(order[i], order[j]);
    }
    return order;
}

SortOrder ReadingOrder(const Keys& keys) {
    std::vector<std::u16string> readings;
    readings.reserve(keys.size());
    for (const std::u16string_view key : keys) readings.push_back(KanaReading(key));
    return ShellOrder(RankTexts(Keys(readings.begin(), readings.end())));
}

SortOrder OrderOf(const Keys& keys, std::u16string_view word) {
    if (word == kAscending) return SelectionOrder(RankConverted(keys, ParseNumber));
    if (word == kDescending) return SelectionOrder(Reversed(RankConverted(keys, ParseNumber)));
    if (word == kByDate) return SelectionOrder(RankConverted(keys, ParseDate));
    if (word == kByName) return ShellOrder(RankTexts(keys));
    if (word == kByReading) return ReadingOrder(keys);
    if (word == kRandomOrder || word == kAnyOrder) return ShuffledOrder(keys.size());
    SortOrder order = UnsortedOrder(keys.size());
    if (word == kReverse || word == kBackward) std::reverse(order.begin(), order.end());
    return order;
}

void Sort(const SortTarget& target, const Word& orderWord) {
    std::optional<Pieces> pieces;
    const bool cut = Attempt([&] { pieces.emplace(target.value.Text(), target.column); });
    if (!cut) {
        const double column = target.column.value_or(0) + 1.0;
        RaiseError(kNoSuchColumn, kIconInformation, FormatNumber(column), u"", -1);
        pendingFailure.Clear();
        return;
    }
    const Value word = EvalWord(orderWord);
    SortOrder order;
    const bool sorted = Attempt([&] { order = OrderOf(pieces->AllKeys(), word.Text()); });
    if (sorted) {
        SetVariable(target.variable, Value(pieces->Joined(order)));
    } else if (word.Text() == kByReading) {
        RaiseError(kNoReadings, kIconStop, pendingFailure.description, u"", -1);
        pendingFailure.Clear();
    } else {
        ReportPendingFailure();
    }
}

}  // namespace

void CmdSort(Statement& statement, Context&) {
    RunReported([&] { Sort(FindTarget(statement.WoArg), statement.HeArg); });
}

}  // namespace velm
