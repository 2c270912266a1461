// Planning and evaluating conditions.
#include "core/conditions.h"

#include <algorithm>
#include <optional>

#include "core/compiled_comparison.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/short_roads.h"
#include "core/variables.h"
#include "data/brackets.h"
#include "data/code_page_932.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/value.h"
#include "data/width.h"
#include "platform/files.h"
#include "platform/regex.h"

namespace velm {

namespace {

constexpr int kUnreadableCondition = 3;
constexpr std::u16string_view kRangeWord = u" から ";
constexpr std::u16string_view kEitherWord = u" または ";

struct Sign {
    std::u16string_view text;
    int code;
};

// In the order in which they are sought over the whole text.
constexpr Sign kSigns[] = {
    {u"＞＝", comparison::kGreaterOrEqual},
    {u"＜＝", comparison::kLessOrEqual},
    {u"＜＞", comparison::kNotEqual},
    {u"！＝", comparison::kNotEqual},
    {u"＞", comparison::kGreater},
    {u"＜", comparison::kLess},
    {u"＝", comparison::kEqual},
};

constexpr std::u16string_view kParticles[] = {u"は、", u"は ", u"が ", u"が、"};

constexpr Sign kKinds[] = {
    {u"存在する", comparison::kExists},   {u"ファイル", comparison::kFile},
    {u"フォルダ", comparison::kFolder},   {u"大文字", comparison::kUpperCase},
    {u"小文字", comparison::kLowerCase},  {u"ひらがな", comparison::kHiragana},
    {u"カタカナ", comparison::kKatakana}, {u"半角", comparison::kHalfWidth},
    {u"全角", comparison::kFullWidth},    {u"数字", comparison::kNumber},
    {u"文字", comparison::kText},         {u"オブジェクト", comparison::kObject},
    {u"空", comparison::kEmpty},
};

int KindOf(std::u16string_view word) {
    const auto* found = std::find_if(std::begin(kKinds), std::end(kKinds),
                                     [word](const Sign& kind) { return kind.text == word; });
    return found == std::end(kKinds) ? comparison::kPattern : found->code;
}

// Where the two sides of a condition part: the offset and width of the operator.
struct Cut {
    std::size_t at = kNotFound;
    std::size_t width = 0;
};

Cut FindCut(std::u16string_view text, int& code) {
    if (code == comparison::kEqual) {
        for (const Sign& sign : kSigns) {
            const std::size_t hit = text.find(sign.text);
            if (hit == kNotFound) continue;
            code = sign.code;
            return {hit, sign.text.size()};
        }
    }
    for (const std::u16string_view particle : kParticles) {
        const std::size_t hit = text.find(particle);
        if (hit != kNotFound) return {hit, particle.size()};
    }
    return {};
}

bool PlanTwoWords(std::u16string_view right, std::u16string_view between, int code,
                  Comparison& plan) {
    const std::size_t hit = right.find(between);
    if (hit == kNotFound) return false;
    plan.right = Word(right.substr(0, hit));
    plan.second = Word(right.substr(hit + between.size()));
    plan.code = code;
    return true;
}

bool CompareAsNumbers(int code, const Value& left, const Value& right) {
    const std::optional<double> leftNumber = NumberOfSide(left);
    const std::optional<double> rightNumber = NumberOfSide(right);
    // Two empty words are equal as text, and no numbers.
    if (!leftNumber || !rightNumber || (left.IsEmpty() && right.IsEmpty())) return false;
    return CompareNumbers(code, *leftNumber, *rightNumber);
}

bool IsInRange(const Value& value, const Value& low, const Value& high) {
    const std::optional<double> number = value.Number();
    const std::optional<double> from = low.Number();
    const std::optional<double> to = high.Number();
    return number && from && to && *from <= *number && *number <= *to;
}

bool AllInCodeRange(std::u16string_view text, int first, int last) {
    return std::all_of(text.begin(), text.end(), [first, last](char16_t unit) {
        const int code = EncodeUnit932(unit);
        return code >= first && code <= last;
    });
}

bool IsCased(const Value& value, const std::u16string& cased) {
    const std::u16string& text = value.Text();
    return !text.empty() && text == cased && text != ToFullWidth(text) && !value.IsNumeric();
}

bool MatchesPattern(const std::u16string& text, const std::u16string& inner) {
    bool found = false;
    const Value value = GetVariable(inner, found, u"");
    return RegexTest(found ? value.Text() : inner, text);
}

bool HasKind(const Comparison& plan, const Value& left) {
    const std::u16string& text = left.Text();
    switch (plan.code) {
        case comparison::kExists: return PathExists(text);
        case comparison::kFile: return IsPlainFile(text);
        case comparison::kFolder: return !IsPlainFile(text);
        case comparison::kUpperCase: return IsCased(left, ToUpper(text));
        case comparison::kLowerCase: return IsCased(left, ToLower(text));
        case comparison::kHiragana: return AllInCodeRange(text, 0x829F, 0x82F1);
        case comparison::kKatakana: return AllInCodeRange(text, 0x8340, 0x8396);
        case comparison::kHalfWidth: return !text.empty() && text == ToHalfWidth(text);
        case comparison::kFullWidth: return !text.empty() && text == ToFullWidth(text);
        case comparison::kNumber: return left.IsNumeric();
        case comparison::kText: return !left.IsNumeric();
        case comparison::kPattern: return MatchesPattern(text, plan.inner);
        case comparison::kObject: return hooks.ObjectExists != nullptr && hooks.ObjectExists(text);
        case comparison::kEmpty: return text.empty();
        default: return false;
    }
}

bool Compare(const Comparison& plan) {
    const Value left = EvalWord(plan.left);
    if (!plan.inner.empty() || plan.code >= comparison::kExists) return HasKind(plan, left);
    const Value right = EvalWord(plan.right);
    switch (plan.code) {
        case comparison::kEqual: return AreEqual(left, right);
        case comparison::kNotEqual: return !AreEqual(left, right);
        case comparison::kRange: return IsInRange(left, right, EvalWord(plan.second));
        case comparison::kEither:
            return AreEqual(left, right) || AreEqual(left, EvalWord(plan.second));
        default: return CompareAsNumbers(plan.code, left, right);
    }
}

std::shared_ptr<const CompiledComparison> Compile(const Comparison& plan) {
    const bool bySign = plan.inner.empty() && plan.code <= comparison::kLessOrEqual;
    if (!kShortRoads || !bySign || plan.left.IsEmpty() || plan.right.IsEmpty()) return nullptr;
    return CompileComparison(plan.code, plan.left, plan.right);
}

}  // namespace

Comparison PlanComparison(int code, std::u16string_view text) {
    Comparison plan;
    const Cut cut = FindCut(text, code);
    if (cut.at == kNotFound) return plan;
    plan.valid = true;
    plan.code = code;
    plan.left = Word(text.substr(0, cut.at));
    const std::u16string_view right = text.substr(cut.at + cut.width);
    const std::u16string_view trimmed = Trim(right);
    if (trimmed.size() >= 2 && trimmed.front() == u'"' && trimmed.back() == u'"') {
        plan.inner = trimmed.substr(1, trimmed.size() - 2);
        plan.code = KindOf(plan.inner);
    } else if (!PlanTwoWords(right, kRangeWord, comparison::kRange, plan) &&
               !PlanTwoWords(right, kEitherWord, comparison::kEither, plan)) {
        plan.right = Word(right);
    }
    return plan;
}

bool EvalComparison(const Comparison& plan) {
    if (!plan.valid) {
        RaiseError(kUnreadableCondition, kIconWarning, u"", u"", -1);
        return false;
    }
    bool result = false;
    if (!Attempt([&] { result = Compare(plan); })) pendingFailure.Clear();
    return result;
}

bool EvalCondition(int code, std::u16string_view text) {
    return EvalComparison(PlanComparison(code, text));
}

ConditionList PlanConditionList(std::u16string_view text, int code, bool anyMode) {
    ConditionList list;
    list.anyMode = anyMode;
    BracketScanner scanner(text, kQuotesAndRound);
    std::size_t open = kNotFound;
    for (std::size_t i = text.find(u'［'); i < text.size(); ++i) {
        const char16_t sought = open == kNotFound ? u'［' : u'］';
        if (text[i] != sought || scanner.IsInside(i)) continue;
        if (open == kNotFound) {
            open = i;
            continue;
        }
        const std::u16string_view part = text.substr(open + 1, i - open - 1);
        if (part.empty() && list.conditions.empty()) break;
        list.conditions.push_back(PlanComparison(code, part));
        open = kNotFound;
    }
    if (list.conditions.empty()) list.conditions.push_back(PlanComparison(code, text));
    for (Comparison& condition : list.conditions) condition.compiled = Compile(condition);
    return list;
}

bool TryConditionList(const ConditionList& list, bool& result) {
    result = !list.anyMode;
    for (const Comparison& condition : list.conditions) {
        bool holds = false;
        if (!condition.compiled || !condition.compiled->Try(holds)) return false;
        if (holds == list.anyMode) result = holds;
        if (!holds && !list.anyMode) return true;
    }
    return true;
}

bool EvalConditionList(const ConditionList& list) {
    bool result = false;
    if (TryConditionList(list, result)) return result;
    result = !list.anyMode;
    for (const Comparison& condition : list.conditions) {
        const bool holds = EvalComparison(condition);
        if (list.anyMode) {
            result = result || holds;
        } else if (!holds) {
            return false;
        }
    }
    return result;
}

}  // namespace velm
