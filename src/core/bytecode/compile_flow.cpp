// Compiling loops and 抜ける, and whole loops and bodies.
#include <utility>

#include "core/blocks.h"
#include "core/bytecode/compiler.h"
#include "core/loops.h"
#include "core/procedures.h"
#include "core/short_roads.h"
#include "core/variables.h"

namespace velm {

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
        Op& op = Emit(ops::ReturnSum(), line);
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
    const int level = AddLevel(CodeLevel::Kind::kLoop, LineOf(line).level, line, number + 1);
    LevelOf(level).loop = &plan;
    LevelOf(level).state = ++loops_;
    Emit(ops::BeginLoop(), line).a = level;
    if (++depth_ > kDeepest) throw NotCompiled();
    LoopBody(level, number + 1);
    --depth_;
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

void Compiler::Body(std::int32_t first) {
    isProcedure_ = true;
    AddLevel(CodeLevel::Kind::kBody, -1, -1, first);
    const std::int32_t end = Lines(first, 0);
    Emit(ops::End(), -1).a = end;
}

void Compiler::Loop(std::int32_t first, const LoopPlan& plan) {
    const int level = AddLevel(CodeLevel::Kind::kLoop, -1, -1, first);
    LevelOf(level).loop = &plan;
    LoopBody(level, first);
}

namespace {

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

const Bytecode* KeptCode::Renew(const Program& program, std::int32_t first, const LoopPlan* loop) {
    constexpr std::uint32_t kPatience = 4;
    const bool isFirst = current_ == nullptr;
    if (!kShortRoads || (isFirst && ++uses_ < next_)) return nullptr;
    next_ = uses_ * kPatience;
    std::unique_ptr<const Bytecode> code =
        loop == nullptr ? CompileBody(program, first) : CompileLoop(program, first, *loop);
    current_ = code.get();
    if (code) all_.push_back(std::move(code));
    return current_;
}

}  // namespace velm
