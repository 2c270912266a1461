// Evaluation of words.
#include "core/eval.h"

#include <string>
#include <utility>

#include "core/arguments.h"
#include "core/diagnostics.h"
#include "core/expression.h"
#include "core/hooks.h"
#include "core/procedures.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "core/short_roads.h"
#include "core/stack_guard.h"
#include "core/variables.h"
#include "core/word_plan.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/resources.h"

namespace velm {

const WordDictionary* wordDictionary = nullptr;

namespace {

constexpr int kUnknownFunction = 6;
constexpr int kOverflowMessage = 90;
constexpr std::u16string_view kOverflowText =
    u"有効桁数をオーバーしています。\\n整数のみ指定可能な場合は10桁、小数は15桁まで有効です";
constexpr std::u16string_view kEmptyVariableText = u"%1は、変数ですが何も保存されていません";

// Runs a handler. Only an overflow is heard of; after any other failure the result is what the handler
// had written.
Value CallHandler(xxCmdData& function, const Arguments& arguments) {
    Value result;
    function.used = true;
    const bool done =
        Attempt([&] { function.FuncPnt.function(result, const_cast<Arguments&>(arguments)); });
    if (!done && pendingFailure.number == failure::kOverflow) {
        RaiseMessage(kOverflowText, kOverflowMessage, 48, u"", u"", -1);
    }
    pendingFailure.Clear();
    return result;
}

[[gnu::noinline]] Value EvalHoles(const WordPlan& plan) {
    std::u16string text = plan.literals[0];
    for (std::size_t i = 0; i < plan.parts.size(); ++i) {
        Word inner = plan.parts[i];
        const Value filled = EvalWord(inner);
        // A word that is its own value is unknown: it leaves the hole empty.
        double number = 0;
        const bool computed =
            filled.IsPlainNumber(number) && plan.parts[i].Plan().kind != PlanKind::kNumber;
        if (computed || filled.Text() != inner.Text()) filled.AppendTo(text);
        text.append(plan.literals[i + 1]);
    }
    return Value(std::move(text));
}

// Nothing knows the word: it is its own value.
Value UnknownWord(const WordPlan& plan) {
    if (!plan.arguments.IsEmpty()) {
        RaiseError(kUnknownFunction, 64, plan.whole, plan.whole, -1);
        if (run.ErrorMode == ErrorModes::kReport) {
            RaiseMessage(kEmptyVariableText, 0, 32, plan.whole, u"", -1);
        }
    }
    return Value(plan.whole.Text());
}

// The steps behind variables: function, answer word, property, procedure, the word itself.
Value EvalKnownName(const WordPlan& plan) {
    const FunctionBinding& binding = plan.Function();
    if (binding.function != nullptr) return CallHandler(*binding.function, *binding.arguments);
    if (const Value* answer = plan.AnswerWord()) return *answer;
    if (hooks.GetProperty != nullptr) {
        Value value;
        if (hooks.GetProperty(plan.name, plan.arguments, value)) return value;
    }
    if (CallProcedureAsWord(plan.symbol, plan.arguments)) return run.Response;
    return UnknownWord(plan);
}

// A name, with or without an index or arguments.
Value EvalName(const WordPlan& plan) {
    if (const Value* variable = FindVariable(plan.symbol)) {
        if (plan.arguments.IsEmpty()) return *variable;
        return ReadIndexed(*variable, plan.name, plan.arguments.Pieces());
    }
    if (wordDictionary != nullptr && plan.kind == PlanKind::kName) {
        const auto found = wordDictionary->find(plan.symbol);
        if (found != wordDictionary->end()) return found->second;
    }
    return EvalKnownName(plan);
}

Value EvalOther(const WordPlan& plan) {
    switch (plan.kind) {
        case PlanKind::kJoin: return EvalJoin(plan, 0);
        case PlanKind::kHoles: return EvalHoles(plan);
        case PlanKind::kArithmetic: return Value::OfNumber(Evaluate(*plan.expression));
        case PlanKind::kBracketed: return EvalWord(plan.parts[0]);
        case PlanKind::kName:
        case PlanKind::kCall: return EvalName(plan);
        default: return Value();
    }
}

// What most words are, a constant or a variable, and can't run anything; nullptr for any other.
inline const Value* SimpleValue(const WordPlan& plan) {
    switch (plan.kind) {
        case PlanKind::kNumber:
        case PlanKind::kText: return &plan.constant;
        case PlanKind::kName: return FindVariable(plan.symbol);
        default: return nullptr;
    }
}

Value EvalLongJoin(const WordPlan& plan, std::size_t first) {
    Value text = EvalWord(plan.parts[first]);
    for (std::size_t i = first + 1; i < plan.parts.size(); ++i) {
        text.Append(EvalWord(plan.parts[i]));
    }
    return text;
}

// The word is held: a nested run may drop the statement that owns it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
[[gnu::noinline]] Value EvalGuarded(const Word held) {
    const NestingGuard guard(held.Text().size());
    if (guard.Exhausted()) return Value();
    return EvalOther(held.Plan());
}

}  // namespace

Value EvalWord(const Word& word) {
    if (word.IsEmpty()) return Value();
    if (const Value* simple = SimpleValue(word.Plan())) return *simple;
    return EvalGuarded(word);
}

Value EvalWord(Word& word) {
    if (word.IsEmpty()) return Value();
    Word held = word;
    const WordPlan& plan = held.Plan();
    if (!plan.rewritten.empty() || plan.kind == PlanKind::kEmpty) word = Word(plan.rewritten);
    if (const Value* simple = SimpleValue(plan)) return *simple;
    return EvalGuarded(std::move(held));
}

Value EvalCall(const Word& word) {
    if (!kShortRoads || word.IsEmpty()) return EvalWord(word);
    const WordPlan& plan = word.Plan();
    if (plan.kind != PlanKind::kCall || FindVariable(plan.symbol) != nullptr) return EvalWord(word);
    const FunctionBinding& binding = plan.Function();
    if (binding.function == nullptr) return EvalWord(word);
    const NestingGuard guard(word.Text().size());
    return guard.Exhausted() ? Value() : CallHandler(*binding.function, *binding.arguments);
}

// A few parts of usual length are put together at once.
Value EvalJoin(const WordPlan& plan, std::size_t first) {
    constexpr std::size_t kFewParts = 4;
    const std::size_t count = plan.parts.size() - first;
    if (count > kFewParts) return EvalLongJoin(plan, first);
    Value values[kFewParts];
    const Value* parts[kFewParts];
    for (std::size_t i = 0; i < count; ++i) {
        values[i] = EvalWord(plan.parts[first + i]);
        parts[i] = &values[i];
    }
    Value text;
    if (count > 1 && text.TryJoin({parts, count})) return text;
    text = std::move(values[0]);
    for (std::size_t i = 1; i < count; ++i) text.Append(std::exchange(values[i], Value()));
    return text;
}

Value EvalText(std::u16string_view text) { return EvalWord(CachedWord(text)); }

double NumberOf(const Value& value) {
    const std::optional<double> number = value.Number();
    return number ? *number : TextToNumber(value.Text());
}

double EvalNumber(const Word& word) { return NumberOf(EvalWord(word)); }

Value CallFunction(std::u16string_view name, bool& found, std::u16string_view arguments) {
    WordPlan plan;
    plan.name = Word(name);
    plan.arguments = Word(arguments);
    if (!name.empty()) plan.symbol = plan.name.AsName();
    const FunctionBinding& binding = plan.Function();
    found = true;
    if (binding.function != nullptr) return CallHandler(*binding.function, *binding.arguments);
    if (const Value* answer = plan.AnswerWord()) return *answer;
    found = false;
    return Value();
}

Value TryWord(std::u16string_view word, bool& found) {
    found = false;
    if (wordDictionary == nullptr || word.empty()) return Value();
    const auto entry = wordDictionary->find(FindSymbol(word));
    if (entry == wordDictionary->end()) return Value();
    found = true;
    return entry->second;
}

namespace {

const WordDictionary& DictionaryOf(int resource) {
    static std::unordered_map<int, WordDictionary> all;
    const auto found = all.find(resource);
    if (found != all.end()) return found->second;
    WordDictionary words;
    for (const auto& [key, value] : ResourceEntries(resource)) {
        words.emplace(Intern(key), Value(value));
    }
    return all.emplace(resource, std::move(words)).first->second;
}

// Puts a word dictionary in force for one evaluation.
class DictionaryInForce {
  public:
    explicit DictionaryInForce(const WordDictionary& words)
        : saved_(std::exchange(wordDictionary, &words)) {}
    DictionaryInForce(const DictionaryInForce&) = delete;
    DictionaryInForce& operator=(const DictionaryInForce&) = delete;
    ~DictionaryInForce() { wordDictionary = saved_; }

  private:
    const WordDictionary* saved_;
};

}  // namespace

Value EvalWithWords(int resource, const Word& word) {
    const DictionaryInForce inForce(DictionaryOf(resource));
    return EvalWord(word);
}

}  // namespace velm
