// クリア.
#include "commands/clear_commands.h"

#include <cmath>
#include <cstdint>
#include <string>

#include "core/eval.h"
#include "core/hooks.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "core/tables.h"
#include "data/numbers.h"

namespace velm {

namespace {

constexpr std::u16string_view kErrorWord = u"エラー";
constexpr std::u16string_view kRandomWord = u"乱数";

void ClearErrors() {
    run.ErrorText.clear();
    run.ErrorNumber = 0;
    run.ErrorFile.clear();
    run.ErrorLine = 0;
}

}  // namespace

void CmdClear(Statement& statement, Context& /*context*/) {
    const Word by = GetWord(statement, u"で");
    const std::u16string& what = statement.WoArg.Text();
    if (what == kErrorWord) {
        ClearErrors();
    } else if (what == kRandomWord) {
        SeedRandom(static_cast<std::uint32_t>(ToInt32(EvalNumber(by))));
    } else if (hooks.ClearObject != nullptr) {
        hooks.ClearObject(statement);
    }
}

}  // namespace velm
