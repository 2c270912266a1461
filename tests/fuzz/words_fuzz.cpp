// Any text as a word, with some variables to hit: the plan that is kept gives what a new one gives.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/eval.h"
#include "core/expression.h"
#include "core/variables.h"
#include "core/word.h"
#include "core/word_plan.h"
#include "data/numbers.h"
#include "data/utf.h"
#include "data/value.h"
#include "fuzz_input.h"
#include "quiet_engine.h"

namespace {

using velm::Value;
using velm::Word;
using velm::fuzz::Require;

constexpr std::size_t kLongest = 1024;

void SetVariables() {
    velm::SetVariable(u"数", Value::OfNumber(12.5));
    velm::SetVariable(u"名前", Value(u"山田 太郎"));
    velm::SetVariable(u"表", Value(u"1,2,三\r\n4,{**}5,6"));
    velm::SetVariable(u"辞", Value(u"年=20\r\n町=京都"));
}

std::u16string Heard(std::u16string_view text, Value& value) {
    velm::fuzz::TheQuietDialogs().StartRun();
    velm::run.StopFlag = false;
    SetVariables();
    value = velm::EvalText(text);
    return velm::fuzz::TheQuietDialogs().heard;
}

void CheckValue(const Value& value) {
    const Value copy(value.Text());
    Require(value.Number() == copy.Number());
    Require(value.IsEmpty() == copy.Text().empty());
    double number = 0;
    if (value.IsPlainNumber(number)) Require(std::isfinite(number));
}

void CheckPlan(std::u16string_view text) {
    const auto kept = velm::PlanWord(text);
    const auto again = velm::PlanWord(text);
    Require(kept->kind == again->kind && kept->parts.size() == again->parts.size());
    Require(kept->kind != velm::PlanKind::kHoles ||
            kept->literals.size() == kept->parts.size() + 1);
    Require(kept->kind != velm::PlanKind::kJoin || kept->parts.size() >= 2);
    Require(velm::IsNumeric(text) == (kept->kind == velm::PlanKind::kNumber));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kLongest) return 0;
    velm::fuzz::PrepareBareRun();
    const std::u16string text = velm::Utf8ToUtf16(velm::fuzz::Bytes(data, size));
    CheckPlan(text);
    Value first;
    const std::u16string heard = Heard(text, first);
    CheckValue(first);
    if (velm::run.StopFlag) return 0;
    Value second;
    Require(Heard(text, second) == heard);
    Require(first.SameText(second));

    Word word(text);
    SetVariables();
    Require(velm::EvalWord(word).SameText(first));
    SetVariables();
    const double calculated = velm::Calculate(text);
    SetVariables();
    Require(std::isfinite(calculated) && velm::Calculate(text) == calculated);
    return 0;
}
