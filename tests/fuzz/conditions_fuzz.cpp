// Any text as a condition, and any lines as blocks: the list forms agree with the single conditions.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/blocks.h"
#include "core/conditions.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "core/variables.h"
#include "data/text.h"
#include "data/utf.h"
#include "data/value.h"
#include "fuzz_input.h"
#include "quiet_engine.h"

namespace {

using velm::fuzz::Require;

constexpr std::size_t kLongest = 1024;

bool IsLimited() { return velm::run.StopFlag; }

void CheckConditions(std::u16string_view text, int code) {
    const velm::ConditionList all = velm::PlanConditionList(text, code, false);
    const velm::ConditionList any = velm::PlanConditionList(text, code, true);
    Require(!all.conditions.empty() && all.conditions.size() == any.conditions.size());
    const bool allHold = velm::EvalConditionList(all);
    const bool anyHolds = velm::EvalConditionList(any);
    if (IsLimited()) return;
    Require(anyHolds || !allHold);
    Require(all.conditions.size() > 1 || allHold == anyHolds);
    Require(velm::EvalConditionList(all) == allHold || IsLimited());
    const bool each = std::all_of(all.conditions.begin(), all.conditions.end(),
                                  [](const auto& one) { return velm::EvalComparison(one); });
    Require(each == allHold || IsLimited());
    const bool planned = velm::EvalComparison(velm::PlanComparison(code, text));
    Require(velm::EvalCondition(code, text) == planned || IsLimited());
}

bool IsEnd(const velm::StatementPtr& statement) {
    return statement->mark == velm::LineMark::kIfEnd;
}

void CheckBlocks(std::u16string_view text) {
    velm::Program program;
    for (const std::u16string_view line : velm::Split(text, u"\n")) {
        program.Statements.push_back(velm::ParseStatement(line));
    }
    velm::ScanBlocks(program);
    Require(program.Depth.size() == program.Statements.size());
    for (std::size_t i = 0; i < program.Depth.size(); ++i) {
        Require(program.Depth[i] >= 0 && static_cast<std::size_t>(program.Depth[i]) <= i + 1);
    }
    const bool anyEnd = std::any_of(program.Statements.begin(), program.Statements.end(), IsEnd);
    Require(anyEnd || program.Depth.empty() || program.Depth.front() == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0 || size > kLongest) return 0;
    velm::fuzz::PrepareBareRun();
    velm::SetVariable(u"数", velm::Value::OfNumber(7));
    velm::SetVariable(u"語", velm::Value(u"ＡＢＣ"));
    velm::SetVariable(u"空", velm::Value());
    const std::u16string text = velm::Utf8ToUtf16(velm::fuzz::Bytes(data + 1, size - 1));
    CheckConditions(text, data[0] % 6);
    CheckBlocks(text);
    return 0;
}
