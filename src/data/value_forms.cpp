// The hidden forms of values: cells, rows and entries.
#include "data/value_forms.h"

#include <utility>

#include "data/lists.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr std::u16string_view kCommas = u",、，";
// Lines left empty by updates are swept out when they are more than half, above this number.
constexpr std::size_t kSweepFrom = 64;

void AppendLine(EntriesForm& form, std::u16string_view key, std::unique_ptr<Value> value) {
    if (value != nullptr) {
        const auto place = static_cast<std::uint32_t>(form.lines.size());
        form.usable = form.places.emplace(std::u16string(key), place).second && form.usable;
    }
    form.lines.push_back({std::u16string(key), std::move(value), false});
}

// Whether what is left of the lines joins to the empty text.
bool JoinsToNothing(const EntriesForm& form) {
    const std::size_t left = form.lines.size() - form.goneCount;
    if (left > 1) return false;
    for (const EntriesForm::Line& line : form.lines) {
        if (!line.gone && (line.value != nullptr || !line.key.empty())) return false;
    }
    return true;
}

bool JoinsToNothing(const std::vector<Value>& pieces) {
    return pieces.empty() || (pieces.size() == 1 && pieces[0].IsEmpty());
}

void Sweep(EntriesForm& form) {
    if (form.goneCount < kSweepFrom || form.goneCount * 2 < form.lines.size()) return;
    std::vector<EntriesForm::Line> lines = std::move(form.lines);
    form.lines.clear();
    form.places.clear();
    form.goneCount = 0;
    for (EntriesForm::Line& line : lines) {
        if (!line.gone) AppendLine(form, line.key, std::move(line.value));
    }
}

Value WithLineBreaksEscaped(const Value& value) {
    double number = 0;
    if (value.IsPlainNumber(number) || !Contains(value.Text(), kCrLf)) return value;
    return Value(EscapeLineBreaks(value.Text()));
}

void CloneEntriesForm(const EntriesForm& from, EntriesForm& to) {
    for (const EntriesForm::Line& line : from.lines) {
        if (line.gone) continue;
        AppendLine(to, line.key, line.value ? std::make_unique<Value>(*line.value) : nullptr);
    }
}

}  // namespace

std::size_t CellsForm::Count() const { return unpacked ? cells.size() : starts.size(); }

void FindCells(std::u16string_view text, CellsForm& form) {
    form.starts.push_back(0);
    for (std::size_t hit = text.find_first_of(kCommas); hit != kNotFound;
         hit = text.find_first_of(kCommas, hit + 1)) {
        form.starts.push_back(static_cast<std::uint32_t>(hit + 1));
    }
}

std::u16string_view CellAt(std::u16string_view text, const CellsForm& form, std::size_t column) {
    if (column >= form.starts.size()) return {};
    const std::size_t from = form.starts[column];
    const std::size_t to =
        column + 1 < form.starts.size() ? form.starts[column + 1] - 1 : text.size();
    return text.substr(from, to - from);
}

void FindEntries(std::u16string_view text, EntriesForm& form) {
    if (text.empty()) return;
    for (const std::u16string_view line : SplitLines(text)) {
        const std::size_t equals = line.find(u'=');
        if (equals == kNotFound) {
            AppendLine(form, line, nullptr);
        } else {
            AppendLine(form, line.substr(0, equals),
                       std::make_unique<Value>(line.substr(equals + 1)));
        }
    }
}

void JoinCells(const CellsForm& form, std::u16string& text) {
    for (std::size_t i = 0; i < form.cells.size(); ++i) {
        if (i != 0) text += u',';
        form.cells[i].AppendTo(text);
    }
}

void JoinRows(const RowsForm& form, std::u16string& text) {
    for (std::size_t i = 0; i < form.rows.size(); ++i) {
        if (i != 0) text.append(kCrLf);
        form.rows[i].AppendTo(text);
    }
}

void JoinEntries(const EntriesForm& form, std::u16string& text) {
    bool first = true;
    for (const EntriesForm::Line& line : form.lines) {
        if (line.gone) continue;
        if (!first) text.append(kCrLf);
        first = false;
        text.append(line.key);
        if (line.value == nullptr) continue;
        text += u'=';
        line.value->AppendTo(text);
    }
}

bool JoinsToNothing(const ValueRecord& record) {
    switch (record.truth) {
        case TruthForm::kCells: return JoinsToNothing(record.forms->cells->cells);
        case TruthForm::kRows: return JoinsToNothing(record.forms->rows->rows);
        case TruthForm::kEntries: return JoinsToNothing(*record.forms->entries);
        case TruthForm::kText: break;
    }
    return record.text.empty();
}

bool IsPlainKey(std::u16string_view key) { return key.find_first_of(u"=\r\n") == kNotFound; }

Value EntryAt(const EntriesForm& form, std::u16string_view key) {
    const auto place = form.places.find(key);
    if (place == form.places.end()) return Value();
    const Value& value = *form.lines[place->second].value;
    double number = 0;
    if (value.IsPlainNumber(number) || !Contains(value.Text(), u"{/n}")) return value;
    return Value(UnescapeLineBreaks(value.Text()));
}

void StoreEntry(EntriesForm& form, std::u16string_view key, const Value& value) {
    auto stored = std::make_unique<Value>(WithLineBreaksEscaped(value));
    const auto place = form.places.find(key);
    if (place != form.places.end()) {
        EntriesForm::Line& line = form.lines[place->second];
        // With one other line it may be that nothing is left before this one.
        const bool mayStay = form.lines.size() - form.goneCount != 2;
        if (mayStay && place->second + 1 == form.lines.size()) {
            line.value = std::move(stored);
            return;
        }
        line.gone = true;
        line.value.reset();
        ++form.goneCount;
        form.places.erase(place);
    }
    if (JoinsToNothing(form)) {
        form.lines.clear();
        form.goneCount = 0;
    }
    AppendLine(form, key, std::move(stored));
    Sweep(form);
}

void CopyTruth(const ValueRecord& from, ValueRecord& to) {
    to.forms = std::make_unique<ValueForms>();
    to.truth = from.truth;
    to.textValid = false;
    if (from.truth == TruthForm::kCells) {
        to.forms->cells = std::make_unique<CellsForm>(*from.forms->cells);
    } else if (from.truth == TruthForm::kRows) {
        to.forms->rows = std::make_unique<RowsForm>(*from.forms->rows);
    } else {
        to.forms->entries = std::make_unique<EntriesForm>();
        CloneEntriesForm(*from.forms->entries, *to.forms->entries);
    }
}

}  // namespace velm
