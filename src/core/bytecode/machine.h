// The frame of a running bytecode, and what its operations share.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/bytecode/bytecode.h"
#include "core/loops.h"
#include "core/names.h"
#include "core/run_state.h"
#include "core/variables.h"
#include "data/value.h"

namespace velm {

struct Frame {
    Frame(const Bytecode& theCode, const Program& theProgram)
        : code(theCode), program(theProgram) {}

    const Bytecode& code;
    const Program& program;
    std::array<Value*, Bytecode::kMostSlots> slots;
    std::array<double, Bytecode::kMostRegisters> registers;
    std::array<LoopState, Bytecode::kMostLoops> loops;
    CodeResult result;
    // The variables as they were when the slots were filled.
    std::uint64_t globals = 0;
    const Scope* locals = nullptr;
    std::size_t localCount = 0;

    // Looks the variables up. One that there isn't gets a place that holds no number.
    void FillSlots();
    bool AreSlotsValid() const {
        if (Globals.Generation() != globals || Locals.Get() != locals) return false;
        return !Locals || (Locals->InOrder().size() == localCount && !Locals.IsShared());
    }
    // To be called when a script may have run.
    void Refresh() {
        if (!AreSlotsValid()) FillSlots();
    }
    // What stands in the slot of a name that is no variable.
    static Value noVariable;
};

// Whether no flag asks for anything.
inline bool IsQuiet() { return !run.AnySet() && !run.StopFlag; }

inline const Op* OpAt(const Frame& frame, int index) {
    return &frame.code.ops[static_cast<std::size_t>(index)];
}
inline const CodeLine& LineAt(const Frame& frame, int index) {
    return frame.code.lines[static_cast<std::size_t>(index)];
}
inline Value* SlotOf(const Frame& frame, int index) {
    return frame.slots[static_cast<std::size_t>(index)];
}
inline double& RegisterOf(Frame& frame, int index) {
    return frame.registers[static_cast<std::size_t>(index)];
}

// Ends the run.
inline const Op* Stop(Frame& frame, CodeResult::End end, std::int32_t line) {
    frame.result = {end, line};
    return nullptr;
}

// The told rule has run a line and left a flag behind, or none: finds out where to go on. Level by level the
// walk over lines goes on, until a block is behind us as the machine would have left it.
const Op* GoOnBehind(Frame& frame, const CodeLine* line);

// What the walk over a block does at its end, when another one has run within it.
void FinishBlock(const CodeLine& head);

// Runs a line by the told rule.
const Op* RunByRule(const CodeLine& line, Frame& frame);
// Does so for the line of an operation that has met what it doesn't know.
const Op* Decline(const Op& op, Frame& frame);

}  // namespace velm
