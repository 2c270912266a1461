// Variables: named values, created by the first store, global unless they were declared local. A name
// may carry an index in brackets: a position in a list or table, or a key of a dictionary.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/counted.h"
#include "core/names.h"
#include "core/word.h"
#include "data/value.h"

namespace velm {

// The local variables of one call. Callers that keep a scope for later share it; a store into a shared
// scope makes a copy first, so that what was kept is as it was.
class Scope {
  public:
    struct Local {
        Local(Symbol* theSymbol, const Word& theName, Value&& theValue) noexcept
            : symbol(theSymbol), name(theName), value(std::move(theValue)) {}
        Symbol* symbol;
        Word name;
        Value value;
    };

    Value* Find(const Symbol* symbol) {
        for (Local& local : locals_) {
            if (local.symbol == symbol) return &local.value;
        }
        return nullptr;
    }
    // Adds a variable; one of that name that is there already stays as it is, and false is returned.
    bool Add(const Word& name, Value&& value) {
        if (name.IsEmpty()) return false;
        Symbol* symbol = name.AsName();
        if (Find(symbol) != nullptr) return false;
        locals_.emplace_back(symbol, name, std::move(value));
        return true;
    }
    // Adds a variable of a name that isn't there yet, and returns its place.
    Value& AddNew(Symbol* symbol, const Word& name, Value&& value) {
        return locals_.emplace_back(symbol, name, std::move(value)).value;
    }
    const std::vector<Local>& InOrder() const { return locals_; }
    void Clear() { locals_.clear(); }

    // An empty scope. Those that nobody owns any more are used again, so that a call needs no memory.
    static CountedPtr<Scope> Make() {
        if (firstSpare == nullptr) return CountedPtr<Scope>(new Scope);
        --spareCount;
        return CountedPtr<Scope>(std::exchange(firstSpare, firstSpare->nextSpare_));
    }
    // Gives up a scope that has no owner any more.
    static void GiveUp(Scope* scope) noexcept;

    std::uint32_t owners = 0;

  private:
    static inline Scope* firstSpare = nullptr;
    static inline std::size_t spareCount = 0;

    std::vector<Local> locals_;
    Scope* nextSpare_ = nullptr;  // of a scope that waits to be used again
};

inline void Destroy(Scope* scope) noexcept { Scope::GiveUp(scope); }
using ScopePtr = CountedPtr<Scope>;

// The local variables in force; null when there are none.
extern ScopePtr Locals;

// The locals, made if there are none, for a change: a scope that somebody keeps is copied.
Scope& LocalsForChange();

// The target of an assignment, cut into its parts once.
struct AssignmentTarget {
    Word name;
    Symbol* symbol = nullptr;
    bool indexed = false;
    bool unclosed = false;  // an opening bracket without a closing one
    std::vector<Word> subscript;
};

std::shared_ptr<const AssignmentTarget> PlanTarget(std::u16string_view name);

// Stores a value under a name, which may carry an index. Reports errors 23 and 37.
void SetVariable(std::u16string_view name, Value value);
void SetVariable(const AssignmentTarget& target, Value value);

// The value of a variable; nullptr when there is none of that name. The pointer holds until the next
// store.
inline const Value* FindVariable(const Symbol* symbol) {
    if (symbol == nullptr) return nullptr;
    if (Locals) {
        if (const Value* local = Locals->Find(symbol)) return local;
    }
    const xxCmdData* entry = symbol->Entry(TableKind::kGlobals);
    return entry == nullptr ? nullptr : &entry->Value;
}

// The variable of a name, to be changed; nullptr when there is none.
inline Value* FindForChange(const Symbol* symbol) {
    if (Locals) {
        Value* local = Locals->Find(symbol);
        if (local != nullptr) return Locals.IsShared() ? LocalsForChange().Find(symbol) : local;
    }
    xxCmdData* entry = symbol->Entry(TableKind::kGlobals);
    return entry == nullptr ? nullptr : &entry->Value;
}

// The value of a variable, or what an index within it gives. found tells whether the variable exists.
Value GetVariable(std::u16string_view name, bool& found, std::u16string_view subscript);
// The indexed value of a variable that was found. Reports error 37.
Value ReadIndexed(const Value& variable, std::u16string_view name,
                  const std::vector<Word>& subscript);

// Stores a number, without making a value of it where there is one already.
void StoreNumber(const AssignmentTarget& target, double number);

// Assigns what a word gives; a text that grows at its end grows in place.
void AssignWord(const AssignmentTarget& target, Word& word);

}  // namespace velm
