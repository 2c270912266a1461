// Compiling lines: assignments, conditions and their blocks.
#include <algorithm>

#include "core/blocks.h"
#include "core/bytecode/compiler.h"
#include "core/compiled_comparison.h"
#include "core/names.h"
#include "core/procedures.h"
#include "core/sentence.h"
#include "core/variables.h"

namespace velm {

bool EndsBlock(Statement& statement) {
    const StatementKind kind = statement.Kind;
    if (kind == StatementKind::kProcedureHead || kind == StatementKind::kProcedureEnd) return true;
    const bool plain = statement.mark == LineMark::kNone || statement.mark == LineMark::kCaseHead;
    return !plain || statement.VerbMark() == LoopMark::kLoopEnd;
}

Op& Compiler::Emit(OpHandler handler, int line) {
    Op& op = code_.ops.emplace_back();
    op.run = handler;
    op.line = line;
    return op;
}

OpData& Compiler::AddData(Op& op) {
    code_.data.push_back(std::make_unique<OpData>());
    op.data = code_.data.back().get();
    return *code_.data.back();
}

int Compiler::AddLevel(CodeLevel::Kind kind, int parent, int head, std::int32_t first) {
    CodeLevel& level = code_.levels.emplace_back();
    level.kind = kind;
    level.parent = parent;
    level.head = head;
    level.first = first;
    return static_cast<int>(code_.levels.size()) - 1;
}

int Compiler::Slot(Symbol* symbol) {
    const auto found = std::find(code_.symbols.begin(), code_.symbols.end(), symbol);
    if (found == code_.symbols.end()) {
        if (code_.symbols.size() == Bytecode::kMostSlots) throw NotCompiled();
        code_.symbols.push_back(symbol);
        return static_cast<int>(code_.symbols.size()) - 1;
    }
    return static_cast<int>(found - code_.symbols.begin());
}

int Compiler::Register() {
    if (usedRegisters_ == static_cast<int>(Bytecode::kMostRegisters)) throw NotCompiled();
    return usedRegisters_++;
}

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
        if (!std::u16string_view(At(head).Source).ends_with(u"なら")) return head;
        while (line + 1 < Size() && depth(line + 1) > depth(head)) ++line;
        return line;
    }
    if (At(head).VerbMark() != LoopMark::kLoopHead) return head;
    const std::int32_t end = EndOfBody(program_, head + 1);
    return end < Size() && At(end).VerbMark() == LoopMark::kLoopEnd ? end : head;
}

std::int32_t Compiler::Lines(std::int32_t first, int level) {
    std::int32_t line = first;
    while (line < Size() && !EndsBlock(At(line))) line = Line(line, level);
    return line;
}

std::int32_t Compiler::Line(std::int32_t number, int level) {
    const std::int32_t last = LastLine(number);
    if (At(number).Source.empty()) return last + 1;
    const int line = AddLine(number, last, level);
    usedRegisters_ = 0;
    OrByRule(line, [&] { Sentence(line); });
    LineOf(line).next = Here();
    return last + 1;
}

int Compiler::AddLine(std::int32_t number, std::int32_t last, int level) {
    CodeLine& line = code_.lines.emplace_back();
    line.statement = program_.Statements[static_cast<std::size_t>(number)];
    line.number = number;
    line.last = last;
    line.level = level;
    return static_cast<int>(code_.lines.size()) - 1;
}

void Compiler::Sentence(int line) {
    Statement& statement = *LineOf(line).statement;
    switch (statement.Kind) {
        case StatementKind::kAssignment: Assignment(statement, line); break;
        case StatementKind::kIf: If(statement, line); break;
        case StatementKind::kCommand: Command(statement, line); break;
        default: throw NotCompiled();
    }
}

void Compiler::Command(Statement& statement, int line) {
    if (statement.FuncPnt == nullptr) code_.settled = false;
    if (statement.FuncPnt == CmdLeave) {
        Leave(statement, line);
    } else if (statement.FuncPnt == CmdRepeat) {
        NestedLoop(statement, line);
    } else {
        throw NotCompiled();
    }
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
    Op& op = Emit(
        isRow ? ops::StoreRowCell(first.mode, second.mode) : ops::StoreCell(first.mode, value.mode),
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
    // An operation that declines runs the whole block anew; behind 他でもし that would be once too often.
    const bool isFirst = number == LineOf(line).number;
    const auto isNative = [&](const Word& side) {
        if (!IsPure(side, 0)) return false;
        const PlanKind kind = side.Plan().kind;
        return isFirst || kind == PlanKind::kName || kind == PlanKind::kNumber;
    };
    const bool native = !plan.condition.anyMode &&
                        std::all_of(conditions.begin(), conditions.end(), [&](const auto& each) {
                            return each.compiled && isNative(each.left) && isNative(each.right);
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
    if (++depth_ > kDeepest) throw NotCompiled();
    if (plan.inverted || shape.behind != last + 1 || !isBranch(last, LineMark::kIfEnd)) {
        throw NotCompiled();
    }
    std::vector<int> whenFalse;
    Condition(plan, number, line, whenFalse);
    const auto lines = [&](std::int32_t first) {
        const int level = AddLevel(CodeLevel::Kind::kIf, LineOf(line).level, line, shape.first);
        LevelOf(level).condition = &plan;
        LevelOf(level).nested = number != LineOf(line).number;
        return Lines(first, level);
    };
    const std::int32_t end = lines(number + 1);
    if (end == last) {
        Patch(whenFalse);
        --depth_;
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
    --depth_;
}

}  // namespace velm
