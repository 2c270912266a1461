// Compiled numbers: an arithmetic word, a cell of a table or a variable as a tree of nodes that give its
// number. The tree follows from the text alone; what a name stands for is looked up at each use, in the
// told order, so that nothing a script does can make a tree out of date.
#pragma once

#include <memory>

#include "core/word.h"

namespace velm {

struct Expression;

class NumberNode {
  public:
    NumberNode() = default;
    NumberNode(const NumberNode&) = delete;
    NumberNode& operator=(const NumberNode&) = delete;
    virtual ~NumberNode() = default;

    // The number of the word's value, 0 for a text that is none: EvalWord(word).NumberOrZero(). Runs and
    // throws what that does.
    virtual double Number() const = 0;
    // The same for a value that is held as a number and is there without anything being run; else false,
    // with nothing done.
    virtual bool Try(double& number) const = 0;
};

using NumberNodePtr = std::unique_ptr<const NumberNode>;

// The tree of a word. depth: how many compiled words this one lies within.
NumberNodePtr CompileNumber(const Word& word, int depth = 0);

// The tree of a postfix form, whose number isn't rounded yet; nullptr for one in which an operator lacks an
// operand, and for one that is so long that walking its tree could use up the stack.
NumberNodePtr CompileExpression(const Expression& expression);

}  // namespace velm
