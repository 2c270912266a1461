// Functions on Japanese text.
#include "functions/japanese_functions.h"

#include <string>
#include <string_view>

#include "core/arguments.h"
#include "core/conditions.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "data/failure.h"
#include "data/value.h"
#include "data/width.h"
#include "platform/readings.h"

namespace velm {

namespace {

constexpr int kNoReadings = 27;

using TextMap = std::u16string (*)(std::u16string_view text);

void MapWith(TextMap map, Value& result, const Arguments& arguments) {
    Value text;
    arguments.Split(text);
    result = Value(map(text.Text()));
}

}  // namespace

// The map takes "\" to "￥" and back, so that no "\" is left in a wide text and no "￥" in a narrow one.
void FnFullWidth(Value& result, Arguments& arguments) { MapWith(ToFullWidth, result, arguments); }

void FnHalfWidth(Value& result, Arguments& arguments) { MapWith(ToHalfWidth, result, arguments); }

void FnHiragana(Value& result, Arguments& arguments) { MapWith(ToHiragana, result, arguments); }

void FnKatakana(Value& result, Arguments& arguments) { MapWith(ToKatakana, result, arguments); }

void FnReading(Value& result, Arguments& arguments) {
    Value text;
    arguments.Split(text);
    const bool done = Attempt([&] { result = Value(KanaReading(text.Text())); });
    if (done) return;
    const std::u16string missing = pendingFailure.description;
    RaiseError(kNoReadings, kIconStop, missing, u"", -1);
}

// Kept: both branches are evaluated before the condition, whatever it says, so that the side effects
// of both happen.
void FnDecide(Value& result, Arguments& arguments) {
    Word condition;
    Word yes;
    Word no;
    arguments.SplitRaw(condition, yes, no);
    const Value ifTrue = EvalWord(yes);
    const Value ifFalse = EvalWord(no);
    result = EvalCondition(comparison::kEqual, condition.Text()) ? ifTrue : ifFalse;
}

}  // namespace velm
