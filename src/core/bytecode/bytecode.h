// The bytecode of a loop or of the body of a procedure. What its lines say is worked out once, down to single
// operations on numbers, and a small machine runs these. It goes no road of its own: an operation that meets
// anything but the usual case (a variable that doesn't hold a number, a name that nothing knows, a cell that
// isn't there) has done nothing yet and hands its line over to the told rule; so does every line for which
// there are no operations. When the rule asks for something unusual (a jump, a flag), the walkers over lines
// go on at that point, level by level, until what they leave behind is what the machine would have.
//
// The machine looks variables up when it starts, and again whenever a line may have made or hidden one.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "core/action.h"
#include "core/hooks.h"
#include "core/loops.h"
#include "core/run_state.h"
#include "core/statement.h"
#include "core/variables.h"

namespace velm {

class CompiledComparison;
class TemporarySentence;
class WordCall;
struct Frame;
struct IfPlan;
struct Op;

// Runs one operation and gives the next; nullptr at the end of the run.
using OpHandler = const Op* (*)(const Op& op, Frame& frame);

// A line of the program, or a sentence behind なら, as the told rule runs it.
struct CodeLine {
    StatementPtr statement;                 // of a line
    TemporarySentence* sentence = nullptr;  // of a sentence; the line's statement holds it
    std::int32_t number = 0;
    std::int32_t last = 0;  // the last line within it, when it heads a block
    int level = 0;
    int next = 0;  // the operation behind it
};

// A block: what stands on one level.
struct CodeLevel {
    enum class Kind : std::uint8_t { kBody, kIf, kLoop };

    Kind kind = Kind::kBody;
    int parent = -1;
    int head = -1;  // the CodeLine of the block's head; a branch has that of the whole block
    std::int32_t first = 0;  // the line behind the head
    std::int32_t end = 0;    // the line that ends a loop
    const IfPlan* condition = nullptr;
    bool nested = false;  // a branch behind 他でもし: its walk runs within that of the block
    const LoopPlan* loop = nullptr;
    int state = 0;    // of a loop: which LoopState
    int begin = 0;    // of a loop: its body's first operation
    int behind = 0;   // of a loop: the operation behind it
    int passEnd = 0;  // of a loop: the operation between two passes
};

// What an operation needs beside its numbers; which members are set is for its handler to know.
struct OpData {
    const IfPlan* condition = nullptr;
    const CompiledComparison* comparison = nullptr;  // the only condition, if it is compiled
    std::int32_t lineNumber = 0;                     // of the condition
    int onTrue = 0;
    int onFalse = 0;
    Word word;
    Symbol* symbol = nullptr;
    std::shared_ptr<const WordCall> call;
    std::shared_ptr<const AssignmentTarget> target;
    ActionPtr action;
    StatementPtr statement;
    // Of a sentence whose verb isn't a keyword itself: Generation() of Commands and of Procedures.
    std::uint64_t commands = 0;
    std::uint64_t procedures = 0;
};

struct Op {
    OpHandler run = nullptr;
    int a = 0;  // slots, registers or operations
    int b = 0;
    int c = 0;
    int d = 0;
    int line = 0;  // the CodeLine that it belongs to
    double number = 0;
    const Value* constant = nullptr;
    const OpData* data = nullptr;
};

struct Bytecode {
    static constexpr std::size_t kMostSlots = 24;
    static constexpr std::size_t kMostRegisters = 16;
    static constexpr std::size_t kMostLoops = 4;

    std::uint64_t version = 0;  // Program::version
    std::int32_t first = 0;
    bool settled =
        true;  // every sentence in it is bound: compiling it anew would give nothing better
    std::vector<Op> ops;
    std::vector<CodeLine> lines;
    std::vector<CodeLevel> levels;
    std::vector<Symbol*> symbols;  // one a slot
    std::vector<std::unique_ptr<OpData>> data;
    std::vector<StatementPtr> sentences;  // behind なら, analysed for this code
};

// How a run of the machine has ended.
struct CodeResult {
    enum class End : std::uint8_t {
        kDone,      // behind the last line, or behind the loop
        kReturned,  // 抜ける: the procedure has returned
        kWalkOn,    // the walk over lines is to go on
    };

    End end = End::kDone;
    std::int32_t line = 0;  // for kWalkOn
};

// Runs the body of a procedure. No flag may be set when code begins to run.
CodeResult RunCode(const Bytecode& code, const Program& program);
// Runs a loop from the beginning of a pass on; state is brought up to date.
CodeResult RunCode(const Bytecode& code, const Program& program, LoopState& state);

// The code of a procedure's body, or of a loop that the line before the first one heads.
std::unique_ptr<const Bytecode> CompileBody(const Program& program, std::int32_t first);
std::unique_ptr<const Bytecode> CompileLoop(const Program& program, std::int32_t first,
                                            const LoopPlan& plan);

// Where the code of a procedure or loop is kept. Code that is replaced may still be running, and is kept as
// well.
class KeptCode {
  public:
    // The code, once it is worth compiling; nullptr before, and where no short road is taken.
    const Bytecode* Of(const Program& program, std::int32_t first, const LoopPlan* loop) {
        if (hooks.RestartRepeatedMedia != nullptr) return nullptr;
        const bool known = current_ != nullptr && current_->version == program.version;
        if (known && (current_->settled || ++uses_ < next_)) return current_;
        return Renew(program, first, loop);
    }

  private:
    std::uint32_t uses_ = 0;
    std::uint32_t next_ = 2;  // at which use it is compiled (anew)
    const Bytecode* current_ = nullptr;
    std::vector<std::unique_ptr<const Bytecode>> all_;

    const Bytecode* Renew(const Program& program, std::int32_t first, const LoopPlan* loop);
};

}  // namespace velm
