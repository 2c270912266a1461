// From the lines of a program to bytecode.
#include <algorithm>
#include <optional>
#include <utility>

#include "core/action.h"
#include "core/blocks.h"
#include "core/bytecode.h"
#include "core/bytecode_machine.h"
#include "core/compiled_comparison.h"
#include "core/expression.h"
#include "core/hooks.h"
#include "core/if_blocks.h"
#include "core/number_node.h"
#include "core/procedures.h"
#include "core/sentence.h"
#include "core/short_roads.h"
#include "core/temporary_sentence.h"
#include "core/word_plan.h"

namespace velm {

namespace {

bool EndsBlock(Statement& statement) {
    const StatementKind kind = statement.Kind;
    if (kind == StatementKind::kProcedureHead || kind == StatementKind::kProcedureEnd) return true;
    const bool plain =
        statement.mark == LineMark::kNone || statement.mark == LineMark::kCaseHead;
    return !plain || statement.VerbMark() == LoopMark::kLoopEnd;
}

// What an operation takes: a slot, a register, or a number.
struct CodeOperand {
    OperandMode mode = OperandMode::kConstant;
    int index = 0;
    double number = 0;
};

// A line that no operations can be found for is left to the told rule.
struct NotCompiled {};

class Compiler {
  public:
    Compiler(Bytecode& code, const Program& program) : code_(code), program_(program) {}

    void Body(std::int32_t first) {
        isProcedure_ = true;
        AddLevel(CodeLevel::Kind::kBody, -1, -1, first);
        const std::int32_t end = Lines(first, 0);
        Emit(ops::End(), -1).a = end;
    }

    void Loop(std::int32_t first, const LoopPlan& plan) {
        const int level = AddLevel(CodeLevel::Kind::kLoop, -1, -1, first);
        LevelOf(level).loop = &plan;
        LoopBody(level, first);
    }

  private:
    Bytecode& code_;
    const Program& program_;
    bool isProcedure_ = false;
    int usedRegisters_ = 0;
    int loops_ = 0;

    Statement& At(std::int32_t line) const {
        return *program_.Statements[static_cast<std::size_t>(line)];
    }
    std::int32_t Size() const { return static_cast<std::int32_t>(program_.Statements.size()); }
    int Here() const { return static_cast<int>(code_.ops.size()); }
    CodeLine& LineOf(int line) { return code_.lines[static_cast<std::size_t>(line)]; }
    CodeLevel& LevelOf(int level) { return code_.levels[static_cast<std::size_t>(level)]; }
    Op& OpAt(int index) { return code_.ops[static_cast<std::size_t>(index)]; }

    Op& Emit(OpHandler handler, int line) {
        Op& op = code_.ops.emplace_back();
        op.run = handler;
        op.line = line;
        return op;
    }
    OpData& AddData(Op& op) {
        code_.data.push_back(std::make_unique<OpData>());
        op.data = code_.data.back().get();
        return *code_.data.back();
    }
    int AddLevel(CodeLevel::Kind kind, int parent, int head, std::int32_t first) {
        CodeLevel& level = code_.levels.emplace_back();
        level.kind = kind;
        level.parent = parent;
        level.head = head;
        level.first = first;
        return static_cast<int>(code_.levels.size()) - 1;
    }
    int Slot(Symbol* symbol) {
        const auto found = std::find(code_.symbols.begin(), code_.symbols.end(), symbol);
        if (found == code_.symbols.end()) {
            if (code_.symbols.size() == Bytecode::kMostSlots) throw NotCompiled();
            code_.symbols.push_back(symbol);
            return static_cast<int>(code_.symbols.size()) - 1;
        }
        return static_cast<int>(found - code_.symbols.begin());
    }
    int Register() {
        if (usedRegisters_ == static_cast<int>(Bytecode::kMostRegisters)) throw NotCompiled();
        return usedRegisters_++;
    }

    // The last line of the block that a line heads, if it is well formed; the line itself when it heads none.
    std::int32_t LastLine(std::int32_t head) const;
    std::int32_t LastOfCases(std::int32_t head) const;

    // Compiles lines up to the first that may end a block, and returns that one.
    std::int32_t Lines(std::int32_t first, int level) {
        std::int32_t line = first;
        while (line < Size() && !EndsBlock(At(line))) line = Line(line, level);
        return line;
    }

    // Compiles a line with all that it heads; returns the next one.
    std::int32_t Line(std::int32_t number, int level) {
        const std::int32_t last = LastLine(number);
        if (At(number).Source.empty()) return last + 1;
        const int line = AddLine(number, last, level);
        usedRegisters_ = 0;
        OrByRule(line, [&] { Sentence(line); });
        LineOf(line).next = Here();
        return last + 1;
    }

    // Compiles what a line says; where that can't be, nothing is left of the try, and the line is left to the
    // told rule.
    template <class Step>
    void OrByRule(int line, Step step) {
        const std::size_t ops = code_.ops.size();
        const std::size_t lines = code_.lines.size();
        const std::size_t levels = code_.levels.size();
        const int loops = loops_;
        try {
            step();
        } catch (const NotCompiled&) {
            code_.ops.resize(ops);
            code_.lines.resize(lines);
            code_.levels.resize(levels);
            loops_ = loops;
            Emit(ops::RunLine(), line);
        }
    }
    int AddLine(std::int32_t number, std::int32_t last, int level) {
        CodeLine& line = code_.lines.emplace_back();
        line.statement = program_.Statements[static_cast<std::size_t>(number)];
        line.number = number;
        line.last = last;
        line.level = level;
        return static_cast<int>(code_.lines.size()) - 1;
    }

    void Sentence(int line) {
        Statement& statement = *LineOf(line).statement;
        switch (statement.Kind) {
            case StatementKind::kAssignment: Assignment(statement, line); break;
            case StatementKind::kIf: If(statement, line); break;
            case StatementKind::kCommand: Command(statement, line); break;
            default: throw NotCompiled();
        }
    }
    void Command(Statement& statement, int line) {
        if (statement.FuncPnt == nullptr) code_.settled = false;
        if (statement.FuncPnt == CmdLeave) {
            Leave(statement, line);
        } else if (statement.FuncPnt == CmdRepeat) {
            NestedLoop(statement, line);
        } else {
            throw NotCompiled();
        }
    }

    void Assignment(Statement& statement, int line);
    void AssignSum(const std::shared_ptr<const AssignmentTarget>& target, const WordPlan& plan,
                   int line);
    void StoreToCell(const AssignmentTarget& target, const Word& word, int line);

    void If(Statement& statement, int line);
    void Branch(TemporarySentence& sentence, int line);
    void CheckBinding(int line);
    void Block(const IfPlan& plan, std::int32_t number, int line);
    // Falls through where the condition holds; the operations that go elsewhere are added to whenFalse.
    void Condition(const IfPlan& plan, std::int32_t number, int line, std::vector<int>& whenFalse);
    void Comparisons(const IfPlan& plan, std::int32_t number, int line,
                     std::vector<int>& whenFalse);
    void Patch(const std::vector<int>& jumps);

    void Leave(Statement& statement, int line);
    int LoopLeftBy(int line) const;
    void ReturnWith(const Word& word, Statement& statement, int line);
    void NestedLoop(Statement& statement, int line);
    void LoopBody(int level, std::int32_t first);

    // Whether a word gives its number with nothing run, as far as can be told beforehand.
    static bool IsPure(const Word& word, int depth);
    static bool IsPureSum(const Expression& expression, int depth);
    // The operand for such a word, or for such a sum, which isn't rounded yet. The last operation of a sum
    // stores to a slot if there is one.
    CodeOperand Pure(const Word& word, int line);
    CodeOperand PureSum(const Expression& expression, int line, std::optional<int> slot = {});
    CodeOperand Cell(const WordPlan& plan, int line);
    // The operand for any word, or any sum.
    CodeOperand Load(const Word& word, int line, const StatementPtr& statement);
    CodeOperand AnySum(const Expression& expression, int line, StatementPtr statement);

    template <class Operands>
    CodeOperand Sum(const Expression& expression, int line, std::optional<int> slot,
                    Operands operandOf);
    CodeOperand InRegister(CodeOperand operand, int line);
    CodeOperand Rounded(CodeOperand operand, int line);
};

std::int32_t Compiler::LastOfCases(std::int32_t head) const {
    int nesting = 0;
    for (std::int32_t line = head; line < Size(); ++line) {
        const LineMark mark = At(line).mark;
        if (mark == LineMark::kCaseHead) ++nesting;
        if (mark == LineMark::kCaseEnd && --nesting == 0) return line;
    }
    return head;
}

std::int32_t Compiler::LastLine(std::int32_t head) const {
    const auto depth = [&](std::int32_t line) {
        return program_.Depth[static_cast<std::size_t>(line)];
    };
    if (At(head).mark == LineMark::kCaseHead) return LastOfCases(head);
    if (At(head).Kind == StatementKind::kIf) {
        std::int32_t line = head;
        while (line + 1 < Size() && depth(line + 1) > depth(head)) ++line;
        return line;
    }
    if (At(head).VerbMark() != LoopMark::kLoopHead) return head;
    const std::int32_t end = EndOfBody(program_, head + 1);
    return end < Size() && At(end).VerbMark() == LoopMark::kLoopEnd ? end : head;
}

bool Compiler::IsPure(const Word& word, int depth) {
    constexpr int kDeepest = 8;
    if (word.IsEmpty() || depth > kDeepest) return false;
    const WordPlan& plan = word.Plan();
    double number = 0;
    switch (plan.kind) {
        case PlanKind::kNumber: return plan.constant.IsPlainNumber(number);
        case PlanKind::kArithmetic: return IsPureSum(*plan.expression, depth + 1);
        case PlanKind::kName:
            return plan.symbol != nullptr &&
                   (FindVariable(plan.symbol) != nullptr ||
                    (plan.Function().function == nullptr && plan.AnswerWord() == nullptr));
        case PlanKind::kCall: {
            const std::vector<Word>& index = plan.arguments.Pieces();
            return FindVariable(plan.symbol) != nullptr && !index.empty() && index.size() <= 2 &&
                   std::all_of(index.begin(), index.end(),
                               [&](const Word& each) { return IsPure(each, depth + 1); });
        }
        default: return false;
    }
}

bool Compiler::IsPureSum(const Expression& expression, int depth) {
    return std::all_of(expression.steps.begin(), expression.steps.end(), [&](const auto& step) {
        return step.kind != ExpressionStep::Kind::kWord || IsPure(step.word, depth);
    });
}

template <class Operands>
CodeOperand Compiler::Sum(const Expression& expression, int line, std::optional<int> slot,
                          Operands operandOf) {
    constexpr std::size_t kMostSteps = 200;
    if (!expression.sound || expression.steps.size() > kMostSteps) throw NotCompiled();
    std::vector<CodeOperand> operands;
    for (std::size_t i = 0; i < expression.steps.size(); ++i) {
        const ExpressionStep& step = expression.steps[i];
        if (step.kind == ExpressionStep::Kind::kNumber) {
            operands.push_back({OperandMode::kConstant, 0, step.number});
            continue;
        }
        if (step.kind == ExpressionStep::Kind::kWord) {
            operands.push_back(operandOf(step.word));
            continue;
        }
        CodeOperand right = operands.back();
        operands.pop_back();
        CodeOperand& left = operands.back();
        if (left.mode == OperandMode::kConstant && right.mode == OperandMode::kConstant) {
            left = InRegister(left, line);
        }
        const bool last = slot && i + 1 == expression.steps.size();
        int to = last ? *slot : 0;
        if (!last) to = left.mode == OperandMode::kRegister ? left.index : Register();
        Op& op = Emit(last ? ops::ArithmeticToSlot(step.op, left.mode, right.mode)
                           : ops::Arithmetic(step.op, left.mode, right.mode),
                      line);
        op.a = left.index;
        op.b = right.index;
        op.c = to;
        op.number = left.mode == OperandMode::kConstant ? left.number : right.number;
        left = {OperandMode::kRegister, to, 0};
        if (last) return left;
    }
    if (slot) {
        Op& op = Emit(ops::Store(operands.back().mode), line);
        op.a = operands.back().index;
        op.c = *slot;
        op.number = operands.back().number;
    }
    return operands.back();
}

CodeOperand Compiler::InRegister(CodeOperand operand, int line) {
    if (operand.mode == OperandMode::kRegister) return operand;
    Op& op = Emit(ops::Load(operand.mode), line);
    op.a = operand.index;
    op.c = Register();
    op.number = operand.number;
    return {OperandMode::kRegister, op.c, 0};
}

CodeOperand Compiler::Rounded(CodeOperand operand, int line) {
    if (operand.mode != OperandMode::kRegister) return operand;
    Op& op = Emit(ops::Round(), line);
    op.a = op.c = operand.index;
    return operand;
}

CodeOperand Compiler::PureSum(const Expression& expression, int line, std::optional<int> slot) {
    return Sum(expression, line, slot, [&](const Word& word) { return Pure(word, line); });
}

CodeOperand Compiler::Pure(const Word& word, int line) {
    if (!IsPure(word, 0)) throw NotCompiled();
    const WordPlan& plan = word.Plan();
    double number = 0;
    switch (plan.kind) {
        case PlanKind::kNumber:
            plan.constant.IsPlainNumber(number);
            return {OperandMode::kConstant, 0, number};
        case PlanKind::kName: return {OperandMode::kSlot, Slot(plan.symbol), 0};
        case PlanKind::kCall: return Cell(plan, line);
        default: return Rounded(PureSum(*plan.expression, line), line);
    }
}

CodeOperand Compiler::Cell(const WordPlan& plan, int line) {
    const std::vector<Word>& index = plan.arguments.Pieces();
    CodeOperand first = Pure(index[0], line);
    const bool isRow = index.size() == 2;
    CodeOperand second;
    if (isRow) {
        if (first.mode == OperandMode::kConstant) first = InRegister(first, line);
        second = Pure(index[1], line);
        if (second.mode == OperandMode::kConstant) second = InRegister(second, line);
    }
    const int to = Register();
    const int table = Slot(plan.symbol);
    Op& op = Emit(isRow ? ops::ReadRowCell(first.mode, second.mode) : ops::ReadCell(first.mode), line);
    op.a = isRow ? second.index : first.index;
    op.b = table;
    op.c = to;
    op.number = first.number;
    if (isRow) AddData(op).onTrue = first.index;
    return {OperandMode::kRegister, to, 0};
}

CodeOperand Compiler::Load(const Word& word, int line, const StatementPtr& statement) {
    const WordPlan& plan = word.Plan();
    const bool calls = plan.kind == PlanKind::kCall && plan.IsLeftToProcedures();
    const bool isName = plan.kind == PlanKind::kName && plan.symbol != nullptr && !statement;
    const int slot = isName || calls ? Slot(plan.symbol) : -1;
    const int to = Register();
    Op& op = Emit(calls ? ops::CallWord() : ops::LoadWord(), line);
    op.b = slot;
    op.c = to;
    OpData& data = AddData(op);
    data.word = word;
    data.symbol = plan.symbol;
    data.statement = statement;
    if (calls) data.call = std::make_shared<const WordCall>(plan);
    return {OperandMode::kRegister, to, 0};
}

CodeOperand Compiler::AnySum(const Expression& expression, int line, StatementPtr statement) {
    return Sum(expression, line, {}, [&](const Word& word) {
        return Load(word, line, std::exchange(statement, StatementPtr()));
    });
}

void Compiler::Assignment(Statement& statement, int line) {
    std::shared_ptr<const AssignmentTarget>& target = statement.Cache().target;
    if (!target) target = PlanTarget(statement.Verb);
    const Word& word = statement.WoArg;
    if (target->symbol == nullptr || target->unclosed || word.IsEmpty()) throw NotCompiled();
    const WordPlan& plan = word.Plan();
    if (!plan.rewritten.empty()) throw NotCompiled();
    if (target->indexed) {
        StoreToCell(*target, word, line);
        return;
    }
    if (plan.kind == PlanKind::kArithmetic) {
        AssignSum(target, plan, line);
    } else if (plan.kind == PlanKind::kNumber || plan.kind == PlanKind::kText) {
        const int slot = Slot(target->symbol);
        Op& op = Emit(ops::CopyConstant(), line);
        op.c = slot;
        op.constant = &plan.constant;
        AddData(op).word = word;
    } else if (plan.kind == PlanKind::kName && IsPure(word, 0)) {
        const int from = Slot(plan.symbol);
        const int slot = Slot(target->symbol);
        Op& op = Emit(ops::CopySlot(), line);
        op.a = from;
        op.c = slot;
    } else if (plan.kind == PlanKind::kCall && IsPure(word, 0)) {
        const CodeOperand cell = Pure(word, line);
        const int slot = Slot(target->symbol);
        Op& op = Emit(ops::Store(cell.mode), line);
        op.a = cell.index;
        op.c = slot;
    } else {
        Op& op = Emit(ops::AssignWord(), line);
        op.b = plan.kind == PlanKind::kCall ? 1 : 0;
        OpData& data = AddData(op);
        data.target = target;
        data.word = word;
        data.symbol = plan.symbol;
        if (plan.kind != PlanKind::kCall) {
            data.action = CompileAssignment(target, word);
        } else if (plan.IsLeftToProcedures()) {
            data.call = std::make_shared<const WordCall>(plan);
        }
    }
}

void Compiler::AssignSum(const std::shared_ptr<const AssignmentTarget>& target,
                         const WordPlan& plan, int line) {
    if (IsPureSum(*plan.expression, 0)) {
        PureSum(*plan.expression, line, Slot(target->symbol));
        return;
    }
    const CodeOperand sum = InRegister(AnySum(*plan.expression, line, {}), line);
    const int slot = Slot(target->symbol);
    Op& op = Emit(ops::StoreByRule(), line);
    op.a = sum.index;
    op.c = slot;
    AddData(op).target = target;
}

void Compiler::StoreToCell(const AssignmentTarget& target, const Word& word, int line) {
    const std::vector<Word>& index = target.subscript;
    if (index.empty() || index.size() > 2) throw NotCompiled();
    const bool isRow = index.size() == 2;
    CodeOperand value = Pure(word, line);
    CodeOperand first = Pure(index[0], line);
    CodeOperand second;
    if (isRow) {
        value = InRegister(value, line);
        if (first.mode == OperandMode::kConstant) first = InRegister(first, line);
        second = Pure(index[1], line);
        if (second.mode == OperandMode::kConstant) second = InRegister(second, line);
    } else if (first.mode == OperandMode::kConstant) {
        value = InRegister(value, line);
    }
    const int table = Slot(target.symbol);
    Op& op = Emit(isRow ? ops::StoreRowCell(first.mode, second.mode)
                        : ops::StoreCell(first.mode, value.mode),
                  line);
    op.a = isRow ? second.index : first.index;
    op.b = table;
    op.c = value.index;
    op.number = first.mode == OperandMode::kConstant ? first.number : value.number;
    if (isRow) AddData(op).onTrue = first.index;
}

void Compiler::If(Statement& statement, int line) {
    const IfPlan& plan = PlanOfIf(statement, statement.WoArg);
    const std::int32_t number = LineOf(line).number;
    if (plan.error != 0) throw NotCompiled();
    if (!plan.oneLine) {
        Block(plan, number, line);
        return;
    }
    std::vector<int> whenFalse;
    Condition(plan, number, line, whenFalse);
    Branch(*plan.thenPart, line);
    if (plan.elsePart->Text().IsEmpty()) {
        Patch(whenFalse);
        return;
    }
    const int jump = Here();
    Emit(ops::Jump(), line);
    Patch(whenFalse);
    Branch(*plan.elsePart, line);
    OpAt(jump).a = Here();
}

void Compiler::Branch(TemporarySentence& sentence, int line) {
    if (sentence.Text().IsEmpty()) return;
    CodeLine branch = LineOf(line);
    branch.sentence = &sentence;
    code_.lines.push_back(branch);
    const int own = static_cast<int>(code_.lines.size()) - 1;
    const StatementPtr parsed = ParseStatement(sentence.Text());
    Statement* bound = sentence.Bound();
    OrByRule(own, [&] {
        if (parsed->Kind == StatementKind::kAssignment) {
            code_.sentences.push_back(parsed);
            Assignment(*parsed, own);
        } else if (bound != nullptr && bound->FuncPnt == CmdLeave) {
            if (!bound->exact) CheckBinding(own);
            Leave(*bound, own);
        } else {
            if (bound == nullptr) code_.settled = false;
            throw NotCompiled();
        }
    });
    LineOf(own).next = Here();
}

void Compiler::CheckBinding(int line) {
    OpData& data = AddData(Emit(ops::CheckBinding(), line));
    data.commands = Commands.Generation();
    data.procedures = Procedures.Generation();
}

void Compiler::Patch(const std::vector<int>& jumps) {
    for (const int jump : jumps) {
        OpAt(jump).c = Here();
        const_cast<OpData*>(OpAt(jump).data)->onFalse = Here();
    }
}

void Compiler::Condition(const IfPlan& plan, std::int32_t number, int line,
                         std::vector<int>& whenFalse) {
    const std::vector<Comparison>& conditions = plan.condition.conditions;
    const bool native =
        !plan.condition.anyMode &&
        std::all_of(conditions.begin(), conditions.end(), [](const Comparison& each) {
            return each.compiled && IsPure(each.left, 0) && IsPure(each.right, 0);
        });
    if (native) {
        Comparisons(plan, number, line, whenFalse);
        return;
    }
    whenFalse.push_back(Here());
    Op& op = Emit(ops::TestConditions(), line);
    OpData& data = AddData(op);
    data.condition = &plan;
    data.lineNumber = number;
    data.onTrue = Here();
    if (conditions.size() == 1) data.comparison = conditions[0].compiled.get();
}

void Compiler::Comparisons(const IfPlan& plan, std::int32_t number, int line,
                           std::vector<int>& whenFalse) {
    std::vector<int> tests;
    for (const Comparison& each : plan.condition.conditions) {
        CodeOperand left = Pure(each.left, line);
        const CodeOperand right = Pure(each.right, line);
        if (left.mode == OperandMode::kConstant && right.mode == OperandMode::kConstant) {
            left = InRegister(left, line);
        }
        tests.push_back(Here());
        Op& op = Emit(ops::CompareNumbers(each.code, left.mode, right.mode), line);
        op.a = left.index;
        op.b = right.index;
        op.number = left.mode == OperandMode::kConstant ? left.number : right.number;
        OpData& data = AddData(op);
        data.condition = &plan;
        data.lineNumber = number;
        if (plan.condition.conditions.size() == 1) data.comparison = each.compiled.get();
    }
    for (const int test : tests) const_cast<OpData*>(OpAt(test).data)->onTrue = Here();
    whenFalse.insert(whenFalse.end(), tests.begin(), tests.end());
}

// The branches of a block from the one on whose condition stands at a line.
void Compiler::Block(const IfPlan& plan, std::int32_t number, int line) {
    const std::int32_t last = LineOf(line).last;
    const BlockShape shape = ShapeOf(plan, program_, number + 1);
    const auto isBranch = [&](std::int32_t at, LineMark mark) {
        return at <= last && At(at).mark == mark &&
               program_.Depth[static_cast<std::size_t>(at)] == shape.depth;
    };
    if (plan.inverted || shape.behind != last + 1 || !isBranch(last, LineMark::kIfEnd)) {
        throw NotCompiled();
    }
    std::vector<int> whenFalse;
    Condition(plan, number, line, whenFalse);
    const auto lines = [&](std::int32_t first) {
        const int level =
            AddLevel(CodeLevel::Kind::kIf, LineOf(line).level, line, shape.first);
        LevelOf(level).condition = &plan;
        LevelOf(level).nested = number != LineOf(line).number;
        return Lines(first, level);
    };
    const std::int32_t end = lines(number + 1);
    if (end == last) {
        Patch(whenFalse);
        return;
    }
    const int jump = Here();
    Emit(ops::Jump(), line);
    Patch(whenFalse);
    if (isBranch(end, LineMark::kElse)) {
        if (lines(end + 1) != last) throw NotCompiled();
    } else if (isBranch(end, LineMark::kElseIf)) {
        const std::u16string_view source = At(end).Source;
        const IfPlan& next = PlanOfIf(At(end), source.substr(4));
        if (next.error != 0 || next.oneLine) throw NotCompiled();
        usedRegisters_ = 0;
        Block(next, end, line);
    } else {
        throw NotCompiled();
    }
    OpAt(jump).a = Here();
}

// The level of the loop that a line leaves when its flag is set there: nothing between the line and the end of
// the pass may be run, and the first line that ends a loop must be the loop's own. -1: none such.
int Compiler::LoopLeftBy(int line) const {
    const auto nothingFollows = [this](std::int32_t at) {
        while (at < Size() && At(at).Source.empty()) ++at;
        return at < Size() && EndsBlock(At(at));
    };
    const CodeLine* each = &code_.lines[static_cast<std::size_t>(line)];
    std::int32_t end = each->number + 1;
    while (end < Size() && At(end).VerbMark() != LoopMark::kLoopEnd) ++end;
    int level = each->level;
    while (true) {
        const CodeLevel& block = code_.levels[static_cast<std::size_t>(level)];
        if (block.kind == CodeLevel::Kind::kLoop) return block.end == end ? level : -1;
        if (block.kind == CodeLevel::Kind::kBody || !nothingFollows(each->last + 1)) return -1;
        each = &code_.lines[static_cast<std::size_t>(block.head)];
        level = block.parent;
    }
}

void Compiler::Leave(Statement& statement, int line) {
    const std::shared_ptr<const LeavePlan> plan =
        statement.cache == nullptr ? nullptr : statement.cache->leave;
    if (plan == nullptr || plan->fences != statement.fences) throw NotCompiled();
    if (plan->flag == &RunState::LoopBreakFlag && plan->with.IsEmpty()) {
        const int level = LoopLeftBy(line);
        if (level < 0) throw NotCompiled();
        Op& op = Emit(ops::LeaveLoop(), line);
        op.a = level;
        AddData(op).statement = StatementPtr(&statement);
        return;
    }
    bool inLoop = !isProcedure_;
    for (int level = LineOf(line).level; level >= 0; level = LevelOf(level).parent) {
        inLoop = inLoop || LevelOf(level).kind == CodeLevel::Kind::kLoop;
    }
    if (inLoop || plan->flag != &RunState::ReturnFlag) throw NotCompiled();
    ReturnWith(plan->with, statement, line);
}

void Compiler::ReturnWith(const Word& word, Statement& statement, int line) {
    const StatementPtr held(&statement);
    const auto emit = [&](OpHandler handler, int from) -> Op& {
        Op& op = Emit(handler, line);
        op.a = from;
        OpData& data = AddData(op);
        data.word = word;
        data.statement = held;
        return op;
    };
    if (word.IsEmpty()) {
        emit(ops::ReturnNothing(), 0);
        return;
    }
    const WordPlan& plan = word.Plan();
    const bool pure = IsPure(word, 0);
    if (plan.kind == PlanKind::kNumber || plan.kind == PlanKind::kText) {
        emit(ops::ReturnConstant(), 0).constant = &plan.constant;
    } else if (plan.kind == PlanKind::kName && pure) {
        emit(ops::ReturnSlot(), Slot(plan.symbol));
    } else if (pure) {
        emit(ops::ReturnRegister(), InRegister(Pure(word, line), line).index);
    } else if (plan.kind == PlanKind::kArithmetic) {
        const CodeOperand sum = InRegister(AnySum(*plan.expression, line, held), line);
        Op& op = Emit(ops::ReturnRegister(), line);
        op.a = sum.index;
    } else if (plan.kind == PlanKind::kCall && plan.IsLeftToProcedures()) {
        Op& op = emit(ops::ReturnWord(), 0);
        const_cast<OpData*>(op.data)->symbol = plan.symbol;
        const_cast<OpData*>(op.data)->call = std::make_shared<const WordCall>(plan);
    } else {
        throw NotCompiled();
    }
}

void Compiler::NestedLoop(Statement& statement, int line) {
    const LoopPlan& plan = PlanOfLoop(statement);
    const std::int32_t number = LineOf(line).number;
    if (!plan.IsBlock() || LineOf(line).last == number) throw NotCompiled();
    if (loops_ + 1 == static_cast<int>(Bytecode::kMostLoops)) throw NotCompiled();
    const int level =
        AddLevel(CodeLevel::Kind::kLoop, LineOf(line).level, line, number + 1);
    LevelOf(level).loop = &plan;
    LevelOf(level).state = ++loops_;
    Emit(ops::BeginLoop(), line).a = level;
    LoopBody(level, number + 1);
}

void Compiler::LoopBody(int level, std::int32_t first) {
    const LoopPlan& plan = *LevelOf(level).loop;
    const std::int32_t end = EndOfBody(program_, first);
    LevelOf(level).end = end;
    LevelOf(level).begin = Here();
    if (Lines(first, level) != end) throw NotCompiled();
    LevelOf(level).passEnd = Here();
    int counter = ops::kNoCounter;
    if (plan.counterTarget) {
        const AssignmentTarget& target = *plan.counterTarget;
        const bool plain = !target.indexed && !target.unclosed && target.symbol != nullptr;
        counter = plain ? Slot(target.symbol) : ops::kCounterByRule;
    }
    Op& op = Emit(ops::EndPass(), end);
    op.a = level;
    op.b = counter;
    op.c = LevelOf(level).state;
    op.d = LevelOf(level).passEnd - LevelOf(level).begin;
    LevelOf(level).behind = Here();
}

template <class Compile>
std::unique_ptr<const Bytecode> CompileCode(const Program& program, std::int32_t first,
                                            Compile compile) {
    auto code = std::make_unique<Bytecode>();
    code->version = program.version;
    code->first = first;
    Compiler compiler(*code, program);
    try {
        compile(compiler);
    } catch (const NotCompiled&) {
        return nullptr;
    }
    return code;
}

}  // namespace

std::unique_ptr<const Bytecode> CompileBody(const Program& program, std::int32_t first) {
    return CompileCode(program, first, [&](Compiler& compiler) { compiler.Body(first); });
}

std::unique_ptr<const Bytecode> CompileLoop(const Program& program, std::int32_t first,
                                            const LoopPlan& plan) {
    return CompileCode(program, first, [&](Compiler& compiler) { compiler.Loop(first, plan); });
}

const Bytecode* KeptCode::Renew(const Program& program, std::int32_t first,
                                const LoopPlan* loop) {
    constexpr std::uint32_t kPatience = 4;
    const bool outdated = current_ != nullptr && current_->version != program.version;
    if (!kShortRoads || (!outdated && uses_ < next_)) return nullptr;
    next_ = uses_ * kPatience;
    std::unique_ptr<const Bytecode> code = loop == nullptr ? CompileBody(program, first)
                                                           : CompileLoop(program, first, *loop);
    current_ = code.get();
    if (code) all_.push_back(std::move(code));
    return current_;
}

}  // namespace velm
