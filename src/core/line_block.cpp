// Finding and running the lines of a block.
#include "core/line_block.h"

#include <utility>

#include "core/execute.h"
#include "core/hooks.h"
#include "core/short_roads.h"

namespace velm {

namespace {

bool EndsBlock(Statement& statement) {
    switch (statement.Kind) {
        case StatementKind::kProcedureHead:
        case StatementKind::kProcedureEnd: return true;
        default: break;
    }
    switch (statement.mark) {
        case LineMark::kNone:
        case LineMark::kCaseHead: return statement.VerbMark() == LoopMark::kLoopEnd;
        default: return true;
    }
}

// Where the block that a line heads ends, by the rules for a block that is well formed; the line itself when
// it heads none. A wrong guess costs time only.
std::int32_t LastLine(const Program& program, std::int32_t head) {
    const auto size = static_cast<std::int32_t>(program.Statements.size());
    const auto depth = [&](std::int32_t line) {
        return program.Depth[static_cast<std::size_t>(line)];
    };
    const auto statement = [&](std::int32_t line) -> Statement& {
        return *program.Statements[static_cast<std::size_t>(line)];
    };
    if (statement(head).Kind == StatementKind::kIf) {
        std::int32_t line = head;
        while (line + 1 < size && depth(line + 1) > depth(head)) ++line;
        return line;
    }
    if (statement(head).VerbMark() != LoopMark::kLoopHead) return head;
    std::int32_t nesting = 1;
    for (std::int32_t line = head + 1; line < size; ++line) {
        const LoopMark mark = statement(line).VerbMark();
        if (mark == LoopMark::kLoopHead) ++nesting;
        if (mark == LoopMark::kLoopEnd && --nesting == 0) return line;
    }
    return head;
}

}  // namespace

LineBlock::LineBlock(const Program& program, std::int32_t first)
    : version_(program.version), first_(first) {
    const auto size = static_cast<std::int32_t>(program.Statements.size());
    std::int32_t line = first;
    while (line < size) {
        const StatementPtr& statement = program.Statements[static_cast<std::size_t>(line)];
        if (EndsBlock(*statement)) break;
        const std::int32_t last = LastLine(program, line);
        if (!statement->Source.empty()) lines_.push_back({statement, line, last});
        line = last + 1;
    }
    behind_ = line;
    if (line == size) return;
    Statement& end = *program.Statements[static_cast<std::size_t>(line)];
    if (end.VerbMark() == LoopMark::kLoopEnd) loopEnd_ = line;
}

std::int32_t LineBlock::Run() const {
    if (hooks.RestartRepeatedMedia != nullptr) return first_;
    for (const Line& line : lines_) {
        Statement& statement = *line.statement;
        run.CurLine = line.number;
        if (!statement.action && statement.VerbMark() == LoopMark::kLoopEnd) return line.number;
        ExecStatement(statement);
        if (!run.AnySet() && !run.StopFlag) continue;
        const std::int32_t at = run.JumpFlag ? run.CurLine : line.number;
        run.JumpFlag = false;
        if (run.AnySet() || run.StopFlag || at != line.last) return at + 1;
    }
    return behind_;
}

void KeptBlock::Find(const Program& program, std::int32_t first) {
    if (!kShortRoads) return;
    all_.push_back(std::make_unique<const LineBlock>(program, first));
    last_ = all_.back().get();
}

}  // namespace velm
