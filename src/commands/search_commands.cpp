// Searching and changing variables and text objects.
#include "commands/search_commands.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "commands/variable_words.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "core/statement.h"
#include "core/variables.h"
#include "data/brackets.h"
#include "data/text.h"
#include "data/value.h"

namespace velm {

namespace {

constexpr int kNoObject = 105;

constexpr std::u16string_view kFrom = u"から";
constexpr std::u16string_view kWith = u"と";

void ReportNoObject() { RaiseError(kNoObject, kIconStop, u"", u"", -1); }

void SearchList(std::u16string_view list, std::u16string_view wanted) {
    const std::vector<std::u16string_view> items = Split(list, u",");
    // Kept: the first item is never looked at.
    for (std::size_t i = items.size(); i-- > 1;) {
        if (items[i] != wanted) continue;
        run.Response = Value::OfInteger(static_cast<std::int64_t>(i));
        return;
    }
}

}  // namespace

void CmdSearch(Statement& statement, Context&) {
    const Word from = GetWord(statement, kFrom);
    bool found = false;
    const std::u16string list = NormaliseCommas(ReadVariableWord(from, found).Text());
    if (Contains(list, u",")) {
        SearchList(list, EvalWord(statement.WoArg).Text());
        return;
    }
    const Word& object = from.IsEmpty() ? statement.WoArg : from;
    const Value wanted = EvalWord(statement.WoArg);
    const bool searched = hooks.SearchInObject != nullptr && hooks.SearchInObject(object, wanted);
    if (!searched) ReportNoObject();
}

void CmdReplace(Statement& statement, Context&) {
    const Word object = GetWord(statement, kFrom);
    const Value text = EvalWord(statement.WoArg);
    const Value replacement = EvalWord(statement.HeArg);
    const bool opened =
        hooks.ReplaceInObject != nullptr && hooks.ReplaceInObject(object, text, replacement);
    if (!opened) ReportNoObject();
}

void CmdExchange(Statement& statement, Context&) {
    const Word first = GetWord(statement, kWith);
    const Word second = statement.WoArg;
    const Value firstValue = EvalWord(first);
    const Value secondValue = EvalWord(second);
    SetVariable(first, secondValue);
    SetVariable(second, firstValue);
}

}  // namespace velm
