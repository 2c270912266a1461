// Searching by a regular expression; the answer is a row.
#include "commands/pattern_commands.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "core/eval.h"
#include "core/patterns.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "core/statement.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/value.h"
#include "platform/regex.h"

namespace velm {

namespace {

constexpr std::u16string_view kFrom = u"から";

// Adds the groups of the first match as a row; nothing when there is no match.
void AppendGroups(std::u16string& row, std::u16string_view pattern, std::u16string_view text) {
    RegexMatch match;
    if (!CompileRegex(pattern, RegexCase::kExact)->Search(text, 0, match)) return;
    for (std::size_t i = 1; i < match.size(); ++i) {
        if (i != 1) row += u',';
        row.append(EscapeItem(match[i].Of(text)));
    }
}

}  // namespace

void CmdPatternSearch(Statement& statement, Context&) {
    const Word from = GetWord(statement, kFrom);
    const Value pattern = EvalWord(statement.WoArg);
    const Value subject = EvalWord(from);
    std::u16string row;
    bool first = true;
    for (const std::u16string_view match : RegexMatches(pattern.Text(), subject.Text())) {
        if (!first) row += u',';
        first = false;
        row.append(EscapeItem(match));
    }
    run.Response = Value(std::move(row));
}

// Letter case counts here, unlike in the other pattern commands: the options of the engine stay at
// their defaults.
void CmdPatternGroups(Statement& statement, Context&) {
    const Word from = GetWord(statement, kFrom);
    const Value pattern = EvalWord(statement.WoArg);
    const Value subject = EvalWord(from);
    std::u16string row;
    run.Response = Value();
    if (Attempt([&] { AppendGroups(row, pattern.Text(), subject.Text()); })) {
        run.Response = Value(std::move(row));
    } else {
        ReportPattern(PatternReport::kNumberAndDescription);
    }
}

}  // namespace velm
