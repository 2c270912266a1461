// Procedures: the commands and functions that a script defines. Called from a sentence a procedure acts
// as a command, called from a word as a function whose value is Response. Events enter here too.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/names.h"
#include "core/number_node.h"
#include "core/run_state.h"
#include "core/word.h"

namespace velm {

// The parameter list of a procedure, read from its head.
class Scope;

struct ParameterSpec {
    bool positional = false;
    bool refused = false;                   // two bracketed parameters without a particle
    bool copiesOut = false;                 // what the parameters hold at the end is written back
    std::vector<std::u16string> particles;  // one a parameter; unless positional
    std::vector<std::u16string_view> particleViews;
    std::vector<Word> names;
    bool distinct = false;  // all have names, and no two the same
    xxCmdData byParticle;   // Joshi and Flags, for calls in word form
};

// Enters the procedures of a program. A later definition of a name replaces the earlier one.
void RegisterProcedures(const Program& program, std::int32_t index);

// Calls the procedure of a name from a sentence. False only when there is no such procedure.
// withSource: the sentence holds words for it (its verb is the name), else it is the name itself.
bool CallProcedureAsCommand(Symbol* name, bool withSource, Statement& statement);
// Calls it from a word; its value is then in run.Response.
bool CallProcedureAsWord(Symbol* name, const Word& arguments);
// Runs a procedure's body with no argument binding, for events. False when there is no such procedure.
bool CallEventProcedure(std::u16string_view name);
// Calls the procedure of a name without words, as a sentence would.
bool CallProcedureByName(std::u16string_view name);

// Where the object system notes the sender of an event while a body runs; see RunEventBody.
void RunEventBody(const xxCmdData& entry);

// The words of a compiled call.
class CallWords {
  public:
    // depth: how many compiled words these lie within.
    explicit CallWords(const std::vector<Word>& words, int depth = 0);

    // Calls a procedure that doesn't copy out with these words; see CallProcedureAsWord.
    void Call(const xxCmdData& entry) const;

  private:
    struct Argument {
        Argument(const Word& theWord, int depth);

        Word word;
        Symbol* name = nullptr;           // none: the word is empty
        const Value* constant = nullptr;  // of a word that is one
        NumberNodePtr number;
        bool isSum = false;  // an arithmetic word

        Value Bind() const;
    };
    std::vector<Argument> arguments_;

    void BindTo(const ParameterSpec& spec, Scope& locals) const;
};

// A compiled word that nothing but a procedure knows.
class WordCall {
  public:
    explicit WordCall(const WordPlan& plan, int depth = 0);

    // CallProcedureAsWord for a procedure that takes its words by position, and doesn't copy out. false, with
    // nothing done, for any other.
    bool Run() const;

  private:
    Symbol* name_;
    CallWords words_;
    // The procedure, and Procedures.Generation() when it was found.
    mutable const xxCmdData* entry_ = nullptr;
    mutable std::uint64_t generation_ = 0;
};

}  // namespace velm
