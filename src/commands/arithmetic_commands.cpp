// Arithmetic on variables.
#include "commands/arithmetic_commands.h"

#include <cstdint>
#include <string_view>

#include "commands/step_report.h"
#include "commands/variable_words.h"
#include "core/arguments.h"
#include "core/eval.h"
#include "core/expression.h"
#include "core/run_state.h"
#include "core/statement.h"
#include "core/variables.h"
#include "data/numbers.h"
#include "data/value.h"

namespace velm {

namespace {

// The number that を names; 1 without such a word.
double AmountOf(const Statement& statement) {
    return statement.WoArg.IsEmpty() ? 1 : ToDouble(EvalWord(statement.WoArg));
}

// The variable that へ names, as the short integer that both commands read it as.
std::int16_t ShortOf(const Word& name) {
    bool found = false;
    return ToInt16(ToDouble(ReadVariableWord(name, found)));
}

}  // namespace

void CmdCalculate(Statement& statement, Context&) {
    bool found = false;
    const Value formula = ReadVariableWord(statement.WoArg, found);
    const std::u16string_view text = found ? formula.Text() : statement.WoArg.Text();
    run.Response = Value::OfNumber(Calculate(text));
}

// Kept: the two differ in width. A sum must fit sixteen bits, a difference thirty-two.
void CmdAdd(Statement& statement, Context&) {
    RunReported([&] {
        const std::int32_t amount = ToInt16(AmountOf(statement));
        const std::int16_t sum = ToInt16(ShortOf(statement.HeArg) + amount);
        SetVariable(statement.HeArg, Value::OfInteger(sum));
    });
}

void CmdSubtract(Statement& statement, Context&) {
    RunReported([&] {
        const std::int64_t amount = ToInt32(AmountOf(statement));
        const std::int64_t difference = ShortOf(statement.HeArg) - amount;
        SetVariable(statement.HeArg, Value::OfInteger(ToInt32(static_cast<double>(difference))));
    });
}

}  // namespace velm
