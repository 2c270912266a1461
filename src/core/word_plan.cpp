// Working out what a word is.
#include "core/word_plan.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/arguments.h"
#include "core/expression.h"
#include "core/sentence.h"
#include "core/stack_guard.h"
#include "data/brackets.h"
#include "data/numbers.h"
#include "data/resources.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr std::u16string_view kOperatorMarks = u"＋－＊×／÷＾％￥+-*/^%\\";
constexpr std::size_t kLongestFunctionName = 24;

// A number in one pair of brackets, the same kind on both sides, loses them.
std::u16string_view WithoutNumberBrackets(std::u16string_view word) {
    const std::u16string_view half = StripPair(word, u"(", u")");
    return half.size() != word.size() ? half : StripPair(word, u"（", u"）");
}

bool PlanNumber(std::u16string_view word, WordPlan& plan) {
    if (!IsNumeric(word)) return false;
    const std::u16string_view bare = WithoutNumberBrackets(word);
    if (bare.size() != word.size()) plan.rewritten = bare;
    plan.kind = PlanKind::kNumber;
    double number = 0;
    plan.constant = IsCanonicalNumber(bare, number) ? Value::OfNumber(number) : Value(bare);
    return true;
}

// Each ＆ joins what stands before it to all that follows, which is a word by itself: its brackets are
// counted anew.
bool PlanJoin(std::u16string_view word, WordPlan& plan) {
    if (word.find(u'＆') == kNotFound) return false;
    const std::vector<std::u16string_view> parts = CutAtMark(word, u'＆', kQuotesAndRound);
    if (parts.size() == 1) return false;
    plan.kind = PlanKind::kJoin;
    for (const std::u16string_view part : parts) plan.parts.emplace_back(part);
    return true;
}

// The holes of a word, cut into the literal text between them and the words inside. A hole without
// its closing bracket is literal text.
bool PlanHoles(std::u16string_view word, bool quoted, WordPlan& plan) {
    std::size_t open = word.find(u'［');
    if (open == kNotFound) return false;
    if (!quoted && IsInsideBrackets(word, open + 1, kRound)) return false;
    plan.kind = PlanKind::kHoles;
    std::size_t from = 0;
    while (open != kNotFound) {
        const std::size_t close = word.find(u'］', open + 1);
        if (close == kNotFound) break;
        plan.literals.emplace_back(word.substr(from, open - from));
        plan.parts.emplace_back(word.substr(open + 1, close - open - 1));
        from = close + 1;
        open = word.find(u'［', from);
    }
    plan.literals.emplace_back(word.substr(from));
    if (quoted) {
        plan.literals.front().erase(0, 1);
        plan.literals.back().pop_back();
    }
    return true;
}

// Whether an operator stands in the word outside 「」 and （）. The last character is not tested.
bool IsArithmetic(std::u16string_view word) {
    const std::size_t first = word.find_first_of(kOperatorMarks);
    if (first == kNotFound || first + 1 >= word.size()) return false;
    BracketScanner scanner(word, kQuotesAndWide);
    for (std::size_t i = first; i + 1 < word.size(); ++i) {
        if (kOperatorMarks.find(word[i]) != kNotFound && !scanner.IsInside(i)) return true;
    }
    return false;
}

// An operator behind a bracket that is never closed parts nothing: such a word would be its own only
// token, and stand for itself without end.
bool PlanArithmetic(std::u16string_view word, WordPlan& plan) {
    if (!IsArithmetic(word)) return false;
    std::shared_ptr<const Expression> expression = PlanExpression(word);
    if (expression->steps.size() == 1 && expression->steps[0].word.Text() == word) return false;
    plan.kind = PlanKind::kArithmetic;
    plan.expression = std::move(expression);
    return true;
}

void PlanName(std::u16string_view word, std::u16string_view name, WordPlan& plan) {
    plan.name = Word(name);
    plan.whole = Word(word);
    if (!name.empty()) plan.symbol = plan.name.AsName();
}

// A word that ends in a closing bracket: a word in brackets, or a name with arguments.
void PlanBrackets(std::u16string_view word, WordPlan& plan) {
    std::size_t open = word.find(u'（');
    if (open == kNotFound) open = word.find(u'(');
    if (open == 0) {
        plan.kind = PlanKind::kBracketed;
        plan.parts.emplace_back(word.substr(1, word.size() - 2));
        return;
    }
    plan.kind = PlanKind::kCall;
    if (open == kNotFound) {
        PlanName(word, word, plan);
        return;
    }
    PlanName(word, word.substr(0, open), plan);
    plan.arguments = Word(word.substr(open + 1, word.size() - open - 2));
}

void PlanRest(std::u16string_view word, WordPlan& plan) {
    const bool quoted = word.size() >= 2 && word.front() == u'「' && word.back() == u'」';
    if (PlanJoin(word, plan)) return;
    if (PlanHoles(word, quoted, plan)) return;
    if (quoted) {
        plan.kind = PlanKind::kText;
        plan.constant = Value(word.substr(1, word.size() - 2));
    } else if (PlanArithmetic(word, plan)) {
        return;
    } else if (word.back() == u'）' || word.back() == u')') {
        PlanBrackets(word, plan);
    } else {
        plan.kind = PlanKind::kName;
        PlanName(word, word, plan);
    }
}

// The arguments as the function's particles order them, joined by commas.
std::shared_ptr<const Arguments> BindArguments(const xxCmdData& function,
                                               std::u16string_view text) {
    if (function.Joshi.empty()) return std::make_shared<Arguments>(text);
    return std::make_shared<Arguments>(Join(SortByParticles(function, text), u","));
}

bool HoldsAParticle(const xxCmdData& function, std::u16string_view text) {
    return std::any_of(function.Joshi.begin(), function.Joshi.end(), [text](const auto& particle) {
        return FindLastOutsideBrackets(text, particle) != 0;
    });
}

// 「abc」を2文字だけ左: a word that ends in the name of a function and holds one of its particles
// outside brackets. The longest name is tried first.
FunctionBinding BindBySuffix(std::u16string_view word) {
    FunctionBinding binding;
    if (word.size() < 2) return binding;
    for (std::size_t length = std::min(word.size() - 1, kLongestFunctionName); length > 0;
         --length) {
        const std::size_t start = word.size() - length;
        xxCmdData* function = Functions.Find(word.substr(start));
        if (function == nullptr || function->FuncPnt.function == nullptr) continue;
        const std::u16string_view text = word.substr(0, start);
        if (!HoldsAParticle(*function, text)) continue;
        binding.function = function;
        binding.arguments = BindArguments(*function, text);
        break;
    }
    return binding;
}

}  // namespace

std::shared_ptr<const WordPlan> PlanWord(std::u16string_view text) {
    auto plan = std::make_shared<WordPlan>();
    if (PlanNumber(text, *plan)) return plan;
    const std::u16string_view word = Trim(text);
    if (word.size() != text.size()) plan->rewritten = word;
    if (!word.empty()) PlanRest(word, *plan);
    return plan;
}

std::vector<Word> CutWords(std::u16string_view text) {
    const std::u16string normalised = NormaliseCommas(text);
    std::vector<Word> words;
    for (const std::u16string_view piece : CutAtCommas(normalised)) words.emplace_back(Trim(piece));
    return words;
}

void WordPlan::Bind() const {
    bound_ = true;
    if (symbol == nullptr) return;
    xxCmdData* function = symbol->Entry(TableKind::kFunctions);
    if (function != nullptr && function->FuncPnt.function != nullptr) {
        function_.function = function;
        function_.arguments = BindArguments(*function, arguments);
        return;
    }
    const std::u16string answer = ResourceValue(kAnswerWords, name);
    if (!answer.empty()) {
        isAnswerWord_ = true;
        answerWord_ = Value(answer);
        return;
    }
    if (arguments.IsEmpty()) {
        function_ = BindBySuffix(name);
    } else {
        leftToProcedures_ = !Contains(name, u"の");
    }
}

}  // namespace velm
