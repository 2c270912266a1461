// Compiled statements. What a statement says is worked out at its first run; from then on an action does the
// same in fewer steps, beside the told rule, which the statement's handler follows. Nothing that an action
// keeps depends on the run: names are looked up at each use, in the told order.
#pragma once

#include <cstdint>
#include <memory>

#include "core/counted.h"

namespace velm {

struct AssignmentTarget;
struct Statement;
class Word;

class Action {
  public:
    Action() = default;
    Action(const Action&) = delete;
    Action& operator=(const Action&) = delete;
    virtual ~Action() = default;

    // Runs the statement; false, with nothing done, when the told rule is to be followed. Throws Failure.
    virtual bool Run(Statement& statement) const = 0;

    mutable std::uint32_t owners = 0;
};

inline void Destroy(const Action* action) noexcept { delete action; }

using ActionPtr = CountedPtr<const Action>;

// The action of an assignment; none for one that has no short road.
ActionPtr CompileAssignment(const std::shared_ptr<const AssignmentTarget>& target,
                            const Word& word);

// What the handlers of other sentences give theirs.
ActionPtr CompileIf(Statement& statement);
ActionPtr CompileLeave(Statement& statement);
ActionPtr CompileCall(Statement& statement);

}  // namespace velm
