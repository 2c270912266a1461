// Reading the variable that a word names.
#include "commands/variable_words.h"

#include <memory>

#include "core/variables.h"

namespace velm {

Value ReadVariableWord(const Word& word, bool& found) {
    found = false;
    if (word.IsEmpty()) return Value();
    if (const Value* variable = FindVariable(word.AsName())) {
        found = true;
        return *variable;
    }
    const std::shared_ptr<const AssignmentTarget> target = PlanTarget(word.Text());
    if (!target->indexed) return Value();
    const Value* table = FindVariable(target->symbol);
    if (table == nullptr) return Value();
    found = true;
    return ReadIndexed(*table, target->name, target->subscript);
}

}  // namespace velm
