// Procedures: registration, binding of words, the walk over a body.
#include "core/procedures.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <span>
#include <utility>

#include "core/action.h"
#include "core/bytecode/bytecode.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/execute.h"
#include "core/sentence.h"
#include "core/short_roads.h"
#include "core/stack_guard.h"
#include "core/variables.h"
#include "core/word_plan.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr std::u16string_view kHead = u"手順は\u3000";
constexpr int kBadParameters = 99;
constexpr std::u16string_view kBadParametersText =
    u"手順の（ ）で囲まれた必要な情報の指定が正しくありません。";
constexpr std::u16string_view kNoParametersText =
    u"オリジナル%2「%1」は、必要な情報(引数)が定義されていません。\\nオリジナル%2に情報を"
    u"指定したい場合は、手順名の後に（ ）を使って必要な情報を指定してください。";
constexpr int kNoParameters = 48;

// One parameter of a head: ［name］particle, name, or ［name］.
void ReadParameter(std::u16string_view item, ParameterSpec& spec) {
    const std::size_t close = item.find(u'］');
    if (close == kNotFound) {
        spec.positional = true;
        spec.particles.emplace_back(item);
        spec.names.emplace_back(item);
        return;
    }
    const std::size_t open = item.find(u'［');
    const std::size_t from = open == kNotFound || open > close ? 0 : open + 1;
    const std::u16string_view name = item.substr(from, close - from);
    const std::u16string_view particle = item.substr(close + 1);
    if (particle.empty()) {
        spec.refused = spec.refused || spec.positional;
        spec.positional = true;
    }
    spec.particles.emplace_back(particle.empty() ? name : particle);
    spec.names.emplace_back(name);
}

bool AreDistinct(const std::vector<Word>& names) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i].IsEmpty()) return false;
        for (std::size_t j = 0; j < i; ++j) {
            if (names[i].AsName() == names[j].AsName()) return false;
        }
    }
    return true;
}

std::shared_ptr<const ParameterSpec> ReadSpec(const xxCmdData& entry) {
    auto spec = std::make_shared<ParameterSpec>();
    spec->copiesOut = entry.Name.starts_with(u'!');
    for (const std::u16string_view item : Split(entry.Value.Text(), u",")) {
        ReadParameter(item, *spec);
    }
    // One particle found is enough for a call in word form to bind by particle; each found one sets
    // two fences.
    spec->byParticle.Flags = 1;
    spec->byParticle.Joshi = spec->particles;
    spec->distinct = AreDistinct(spec->names);
    spec->particleViews.assign(spec->particles.begin(), spec->particles.end());
    return spec;
}

inline const ParameterSpec& SpecOf(xxCmdData& entry) {
    if (!entry.Parameters) entry.Parameters = ReadSpec(entry);
    return *entry.Parameters;
}

// A procedure without parameters that is given words doesn't run. Kept: its report is given the name of
// the procedure for its buttons, and so is heard only if the name is a number.
void RefuseWords(const xxCmdData& entry, std::u16string_view form) {
    const std::optional<double> buttons = ParseNumber(entry.Name);
    if (!buttons) return;
    const std::u16string text = ReplaceAll(kNoParametersText, u"%2", form);
    RaiseMessage(text, kNoParameters, ToInt32(*buttons), entry.Name, u"", -1);
}

// The words of one call. The caller holds them.
using WordSpan = std::span<const Word>;
// The words that were variables, for the copy-out; the others are empty.
using PassedVariables = std::vector<Word>;

// The value that a parameter gets: a variable's value, else what the word gives.
Value BindWord(const Word& word, Word* passed) {
    if (word.IsEmpty()) return Value();
    if (const Value* variable = FindVariable(word.AsName())) {
        if (passed != nullptr) *passed = word;
        return *variable;
    }
    return EvalWord(word);
}

void BindParameters(const ParameterSpec& spec, WordSpan words, Scope& locals,
                    PassedVariables& passed) {
    const std::size_t count = std::min(words.size(), spec.names.size());
    for (std::size_t i = 0; i < count; ++i) {
        Attempt([&] {
            locals.Add(spec.names[i], BindWord(words[i], i < passed.size() ? &passed[i] : nullptr));
        });
    }
    pendingFailure.Clear();
}

std::vector<Word> SortedArguments(const ParameterSpec& spec, const Word& arguments) {
    std::vector<Word> words;
    for (const std::u16string& word : SortByParticles(spec.byParticle, arguments)) {
        words.emplace_back(Trim(word));
    }
    words.resize(spec.names.size());
    return words;
}

// Writes each parameter's last value back to the variable that was passed.
void CopyOut(const ParameterSpec& spec, const Scope& finished, const PassedVariables& words) {
    const std::size_t count = std::min(words.size(), spec.names.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (words[i].IsEmpty() || spec.names[i].IsEmpty()) continue;
        const Value* value = const_cast<Scope&>(finished).Find(spec.names[i].AsName());
        if (value == nullptr) continue;
        const std::u16string_view target = BeforeNul(StripPair(words[i].Text(), u"「", u"」"));
        if (target != value->Text()) SetVariable(words[i].Text(), *value);
    }
}

// Calls a body with its own locals; the caller's are put back afterwards.
void RunBody(const xxCmdData& entry, ScopePtr locals) {
    Locals = std::move(locals);
    run.Response = Value();
    RunEventBody(entry);
}

void CallWithWords(xxCmdData& entry, WordSpan words) {
    const ParameterSpec& spec = *entry.Parameters;
    PassedVariables passed(spec.copiesOut ? words.size() : 0);
    ScopePtr locals = Scope::Make();
    ScopePtr saved = Locals;
    BindParameters(spec, words, *locals, passed);
    RunBody(entry, std::move(locals));
    std::swap(Locals, saved);
    if (spec.copiesOut && saved) CopyOut(spec, *saved, passed);
}

void CallWithWordsOf(xxCmdData& entry, Statement& statement) {
    const ParameterSpec& spec = *entry.Parameters;
    if (spec.positional) {
        const Word held = statement.WoArg;
        CallWithWords(entry, held.Pieces());
        return;
    }
    const std::size_t count = spec.particleViews.size();
    std::array<Word, kMostParticles> usual;
    std::vector<Word> many(count > usual.size() ? count : 0);
    const std::span<Word> words = many.empty() ? std::span(usual).first(count) : std::span(many);
    Attempt([&] { SplitByParticles(statement, spec.particleViews, words); });
    CallWithWords(entry, words);
}

void CallWithoutWords(const xxCmdData& entry) {
    const ScopePtr saved = Locals;
    RunBody(entry, ScopePtr());
    Locals = saved;
}

inline bool HasRefusedSpec(xxCmdData& entry) {
    if (!SpecOf(entry).refused) return false;
    RaiseMessage(kBadParametersText, kBadParameters, kIconWarning, u"", u"", -1);
    return true;
}

}  // namespace

void RegisterProcedures(const Program& program, std::int32_t index) {
    for (std::size_t i = 0; i < program.Statements.size(); ++i) {
        const std::u16string_view source = program.Statements[i]->Source;
        if (!source.starts_with(kHead)) continue;
        std::u16string_view title = source.substr(kHead.size());
        xxCmdData entry;
        const std::size_t open = title.find(u'（');
        if (open != kNotFound) {
            entry.Value = Value(NormaliseCommas(StripPair(title.substr(open), u"（", u"）")));
            title = title.substr(0, open);
        }
        entry.Name = title;
        entry.FuncPnt.line = static_cast<std::intptr_t>(i + 1);
        entry.Num = index;
        Symbol* key = Intern(title.starts_with(u'!') ? title.substr(1) : title);
        Procedures.Remove(key);
        Procedures.Add(key, std::move(entry));
    }
}

bool CallProcedureAsCommand(Symbol* name, bool withSource, Statement& statement) {
    xxCmdData* entry = Procedures.Find(name);
    if (entry == nullptr) return false;
    const NestingGuard guard;
    if (guard.Exhausted()) return true;
    if (entry->Value.IsEmpty()) {
        const bool hasWords = withSource && Contains(statement.Marked, {&kMarker, 1});
        if (hasWords) {
            RefuseWords(*entry, u"命令");
        } else {
            CallWithoutWords(*entry);
        }
    } else if (!HasRefusedSpec(*entry)) {
        CallWithWordsOf(*entry, statement);
    }
    return true;
}

bool CallProcedureAsWord(Symbol* name, const Word& arguments) {
    xxCmdData* entry = Procedures.Find(name);
    if (entry == nullptr) return false;
    const NestingGuard guard;
    if (guard.Exhausted()) return true;
    if (entry->Value.IsEmpty()) {
        if (arguments.IsEmpty()) {
            CallWithoutWords(*entry);
        } else {
            RefuseWords(*entry, u"関数");
        }
    } else if (HasRefusedSpec(*entry)) {
        return true;
    } else if (entry->Parameters->positional) {
        const Word held = arguments;
        CallWithWords(*entry, held.Pieces());
    } else {
        CallWithWords(*entry, SortedArguments(*entry->Parameters, arguments));
    }
    return true;
}

namespace {

inline const xxCmdData* FindPlainProcedure(const Symbol* name) {
    const xxCmdData* entry = Procedures.Find(name);
    if (entry == nullptr || !entry->Parameters) return nullptr;
    const ParameterSpec& spec = *entry->Parameters;
    return spec.refused || spec.copiesOut ? nullptr : entry;
}

// A sentence that is a call, and has run before.
class SentenceCall : public Action {
  public:
    SentenceCall(const Statement& statement, std::shared_ptr<const ParameterSpec> spec,
                 const std::vector<Word>& words)
        : name_(statement.Verb.AsName()),
          fences_(statement.fences),
          spec_(std::move(spec)),
          words_(words) {}

    bool Run(Statement& statement) const override {
        const xxCmdData* entry = FindPlainProcedure(name_);
        if (entry == nullptr || entry->Parameters != spec_) return false;
        if (statement.fences != fences_) return false;
        const ActionPtr held(this);  // the statement may get another one meanwhile
        words_.Call(*entry);
        return true;
    }

  private:
    Symbol* name_;
    std::uint32_t fences_;
    std::shared_ptr<const ParameterSpec> spec_;
    CallWords words_;
};

}  // namespace

ActionPtr CompileCall(Statement& statement) {
    const xxCmdData* entry = FindPlainProcedure(statement.Verb.AsName());
    if (entry == nullptr) return ActionPtr();
    const std::shared_ptr<const ParameterSpec>& spec = entry->Parameters;
    const std::vector<Word>* words =
        spec->positional ? &statement.WoArg.Pieces() : SettledWords(statement, spec->particleViews);
    return words == nullptr ? ActionPtr() : ActionPtr(new SentenceCall(statement, spec, *words));
}

namespace {

// Runs the lines of a body from one on, by its code as far as that goes.
inline void RunLines(const xxCmdData& entry, const Program& body, std::int32_t next) {
    if (!entry.Code) entry.Code = std::make_shared<KeptCode>();
    const bool quiet = !run.StopFlag && !run.AnySet();
    const Bytecode* code = quiet ? entry.Code->Of(body, next, nullptr) : nullptr;
    if (code != nullptr) {
        const CodeResult result = RunCode(*code, body);
        if (result.end == CodeResult::End::kReturned) return;
        next = result.line;
    }
    while (!run.StopFlag && static_cast<std::size_t>(next) < body.Statements.size()) {
        Statement& statement = *body.Statements[static_cast<std::size_t>(next)];
        if (statement.Kind == StatementKind::kProcedureEnd || run.ReturnFlag) break;
        RunLine(statement, next);
        ++next;
    }
}

// Notes that a body runs, so that its code is kept.
class Running {
  public:
    explicit Running(const xxCmdData& entry) : entry_(entry) { ++entry_.running; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() { --entry_.running; }

  private:
    const xxCmdData& entry_;
};

[[gnu::always_inline]] inline void RunBodyLines(const xxCmdData& entry) {
    const std::int32_t line = run.CurLine;
    const std::int32_t program = run.CurProgram;
    const ErrorModes errorMode = run.ErrorMode;
    run.CurProgram = entry.Num;
    const ProgramPtr body = Programs[static_cast<std::size_t>(entry.Num)];
    const Running running(entry);
    RunLines(entry, *body, static_cast<std::int32_t>(entry.FuncPnt.line));
    run.ReturnFlag = false;
    run.ErrorMode = errorMode;
    if (run.StopFlag) return;  // the line stays, so that the place of the stop can be told
    run.CurLine = line;
    run.CurProgram = program;
}

}  // namespace

void RunEventBody(const xxCmdData& entry) { RunBodyLines(entry); }

CallWords::Argument::Argument(const Word& theWord, int depth) : word(theWord) {
    if (word.IsEmpty()) return;
    const WordPlan& plan = word.Plan();
    name = word.AsName();
    number = CompileNumber(word, depth);
    isSum = plan.kind == PlanKind::kArithmetic;
    if (plan.kind == PlanKind::kNumber || plan.kind == PlanKind::kText) constant = &plan.constant;
}

// What BindWord gives.
inline Value CallWords::Argument::Bind() const {
    if (name == nullptr) return Value();
    if (const Value* variable = FindVariable(name)) return *variable;
    if (constant != nullptr) return *constant;
    double computed = 0;
    if (!number->Try(computed)) return EvalWord(word);
    Value value;
    value.SetHeldNumber(computed);
    return value;
}

CallWords::CallWords(const std::vector<Word>& words, int depth) {
    for (const Word& word : words) arguments_.emplace_back(word, depth);
}

[[gnu::always_inline]] inline void CallWords::BindTo(const ParameterSpec& spec,
                                                     Scope& locals) const {
    const std::size_t count = std::min(arguments_.size(), spec.names.size());
    for (std::size_t i = 0; i < count; ++i) {
        const Word& name = spec.names[i];
        const Argument& argument = arguments_[i];
        double number = 0;
        // The most frequent case: arithmetic, to be put where it belongs at once.
        if (spec.distinct && argument.isSum && FindVariable(argument.name) == nullptr &&
            argument.number->Try(number)) {
            Attempt([&] { locals.AddNew(name.AsName(), name, Value()).SetHeldNumber(number); });
        } else {
            Attempt([&] { locals.Add(name, argument.Bind()); });
        }
    }
    if (pendingFailure.IsSet()) pendingFailure.Clear();
}

void CallWords::Call(const xxCmdData& entry) const {
    const NestingGuard guard;
    if (guard.Exhausted()) return;
    ScopePtr locals = Scope::Make();
    BindTo(*entry.Parameters, *locals);
    std::swap(Locals, locals);
    run.Response = Value();
    RunBodyLines(entry);
    std::swap(Locals, locals);
}

WordCall::WordCall(const WordPlan& plan, int depth)
    : name_(plan.symbol), words_(plan.arguments.Pieces(), depth) {}

bool WordCall::Run() const {
    if (entry_ == nullptr || generation_ != Procedures.Generation()) {
        entry_ = FindPlainProcedure(name_);
        generation_ = Procedures.Generation();
        if (entry_ != nullptr && !entry_->Parameters->positional) entry_ = nullptr;
        if (entry_ == nullptr) return false;
    }
    words_.Call(*entry_);
    return true;
}

bool CallProcedureByName(std::u16string_view name) {
    Statement blank;
    return CallProcedureAsCommand(FindSymbol(name), false, blank);
}

bool CallEventProcedure(std::u16string_view name) {
    const xxCmdData* entry = Procedures.Find(name);
    if (entry == nullptr) return false;
    RunEventBody(*entry);
    return true;
}

}  // namespace velm
