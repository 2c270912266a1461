// What the shared record behind a value does with its hidden forms, whichever of them is the truth. Only
// data/value.cpp calls these.
#pragma once

#include "data/value_record.h"

namespace velm {

// Brings the text of a record up to date with the form that is its truth.
void JoinTruth(ValueRecord& record);

// Whether that would be the empty text.
bool JoinsToNothing(const ValueRecord& record);

// Copies the form that is the truth of a record, for an owner that is about to change it.
void CopyTruth(const ValueRecord& from, ValueRecord& to);

}  // namespace velm
