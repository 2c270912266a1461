// The hidden forms of values: cells, rows and entries.
#include "data/value_forms.h"

#include "data/entries_form.h"
#include "data/table_form.h"

namespace velm {

ValueForms::ValueForms() = default;
ValueForms::~ValueForms() = default;

void JoinTruth(ValueRecord& record) {
    switch (record.truth) {
        case TruthForm::kCells: record.forms->cells->Join(record.text); break;
        case TruthForm::kRows: record.forms->rows->Join(record.text); break;
        case TruthForm::kEntries:
            record.text.clear();
            record.forms->entries->Join(record.text);
            break;
        case TruthForm::kText: break;
    }
}

bool JoinsToNothing(const ValueRecord& record) {
    switch (record.truth) {
        case TruthForm::kCells: return record.forms->cells->JoinsToNothing();
        case TruthForm::kRows: return record.forms->rows->JoinsToNothing();
        case TruthForm::kEntries: return record.forms->entries->JoinsToNothing();
        case TruthForm::kText: break;
    }
    return record.text.empty();
}

void CopyTruth(const ValueRecord& from, ValueRecord& to) {
    to.forms = std::make_unique<ValueForms>();
    to.truth = from.truth;
    to.textValid = false;
    if (from.truth == TruthForm::kEntries) {
        to.forms->entries = std::make_unique<EntriesForm>(*from.forms->entries);
    } else {
        // The form tells the places of pieces in the text.
        to.text = from.text;
        const bool cells = from.truth == TruthForm::kCells;
        const TableForm& form = cells ? *from.forms->cells : *from.forms->rows;
        (cells ? to.forms->cells : to.forms->rows) = std::make_unique<TableForm>(form);
    }
}

}  // namespace velm
