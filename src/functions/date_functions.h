// Functions of dates and times. Dates are text; reading and showing them is in data/dates.h.
#pragma once

#include "core/names.h"

namespace velm {

void FnNow(Value& result, Arguments& arguments);
void FnDate(Value& result, Arguments& arguments);
void FnTime(Value& result, Arguments& arguments);
void FnTimer(Value& result, Arguments& arguments);
void FnYear(Value& result, Arguments& arguments);
void FnMonth(Value& result, Arguments& arguments);
void FnDay(Value& result, Arguments& arguments);
void FnHour(Value& result, Arguments& arguments);
void FnMinute(Value& result, Arguments& arguments);
void FnSecond(Value& result, Arguments& arguments);
void FnWeekday(Value& result, Arguments& arguments);
void FnWeekdayName(Value& result, Arguments& arguments);
void FnDateAdd(Value& result, Arguments& arguments);
void FnDateDifference(Value& result, Arguments& arguments);
void FnDatePart(Value& result, Arguments& arguments);
void FnTimePart(Value& result, Arguments& arguments);
void FnUptime(Value& result, Arguments& arguments);

}  // namespace velm
