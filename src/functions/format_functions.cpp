// Showing numbers, dates and texts in pictures.
#include "functions/format_functions.h"

#include <string>
#include <string_view>

#include "core/arguments.h"
#include "core/eval.h"
#include "core/word.h"
#include "data/number_pictures.h"
#include "data/pictures.h"

namespace velm {

namespace {

// The country's own forms: two decimals for a share, none for money. The backslash is the yen sign of
// code page 932, and what 半角 makes of ￥.
constexpr std::u16string_view kPercentPicture = u"#,##0.00%";
constexpr std::u16string_view kCurrencyPicture = u"\\\\#,##0";

Value InPicture(const Arguments& arguments, std::u16string_view picture) {
    Word number;
    arguments.SplitRaw(number);
    return Value(FormatNumberPicture(EvalNumber(number), picture));
}

}  // namespace

void FnFormat(Value& result, Arguments& arguments) {
    Value value;
    std::u16string picture;
    arguments.Split(value, picture);
    result = Value(FormatPicture(value.Text(), picture));
}

void FnPercent(Value& result, Arguments& arguments) {
    result = InPicture(arguments, kPercentPicture);
}

void FnCurrency(Value& result, Arguments& arguments) {
    result = InPicture(arguments, kCurrencyPicture);
}

}  // namespace velm
