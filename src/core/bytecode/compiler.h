// From the lines of a program to bytecode: what the parts of the compiler share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "core/bytecode/bytecode.h"
#include "core/bytecode/ops.h"
#include "core/expression.h"
#include "core/if_blocks.h"
#include "core/temporary_sentence.h"
#include "core/word_plan.h"

namespace velm {

// Whether a line may end a block.
bool EndsBlock(Statement& statement);

// What an operation takes: a slot, a register, or a number.
struct CodeOperand {
    OperandMode mode = OperandMode::kConstant;
    int index = 0;
    double number = 0;
};

// A line that no operations can be found for is left to the told rule.
struct NotCompiled {};

class Compiler {
  public:
    Compiler(Bytecode& code, const Program& program) : code_(code), program_(program) {}

    // The code of a procedure's body, and that of a loop; each once.
    void Body(std::int32_t first);
    void Loop(std::int32_t first, const LoopPlan& plan);

  private:
    // Deeper blocks are left to the told rule, so that no program uses up the stack.
    static constexpr int kDeepest = 200;

    Bytecode& code_;
    const Program& program_;
    bool isProcedure_ = false;
    int usedRegisters_ = 0;
    int loops_ = 0;
    int depth_ = 0;  // of blocks within one another

    Statement& At(std::int32_t line) const {
        return *program_.Statements[static_cast<std::size_t>(line)];
    }
    std::int32_t Size() const { return static_cast<std::int32_t>(program_.Statements.size()); }
    int Here() const { return static_cast<int>(code_.ops.size()); }
    CodeLine& LineOf(int line) { return code_.lines[static_cast<std::size_t>(line)]; }
    CodeLevel& LevelOf(int level) { return code_.levels[static_cast<std::size_t>(level)]; }
    Op& OpAt(int index) { return code_.ops[static_cast<std::size_t>(index)]; }

    Op& Emit(OpHandler handler, int line);
    OpData& AddData(Op& op);
    int AddLevel(CodeLevel::Kind kind, int parent, int head, std::int32_t first);
    int AddLine(std::int32_t number, std::int32_t last, int level);
    int Slot(Symbol* symbol);
    int Register();

    // The last line of the block that a line heads, if it is well formed; the line itself when it heads none.
    std::int32_t LastLine(std::int32_t head) const;
    std::int32_t LastOfCases(std::int32_t head) const;

    // Compiles lines up to the first that may end a block, and returns that one.
    std::int32_t Lines(std::int32_t first, int level);
    // Compiles a line with all that it heads; returns the next one.
    std::int32_t Line(std::int32_t number, int level);
    // Compiles what a line says; where that can't be, nothing is left of the try, and the line is left to the
    // told rule.
    template <class Step>
    void OrByRule(int line, Step step) {
        const std::size_t ops = code_.ops.size();
        const std::size_t lines = code_.lines.size();
        const std::size_t levels = code_.levels.size();
        const int loops = loops_;
        const int depth = depth_;
        try {
            step();
        } catch (const NotCompiled&) {
            code_.ops.resize(ops);
            code_.lines.resize(lines);
            code_.levels.resize(levels);
            loops_ = loops;
            depth_ = depth;
            Emit(ops::RunLine(), line);
        }
    }

    void Sentence(int line);
    void Command(Statement& statement, int line);
    void Assignment(Statement& statement, int line);
    void AssignSum(const std::shared_ptr<const AssignmentTarget>& target, const WordPlan& plan,
                   int line);
    void StoreToCell(const AssignmentTarget& target, const Word& word, int line);

    void If(Statement& statement, int line);
    void Branch(TemporarySentence& sentence, int line);
    void CheckBinding(int line);
    void Block(const IfPlan& plan, std::int32_t number, int line);
    // Falls through where the condition holds; the operations that go elsewhere are added to whenFalse.
    void Condition(const IfPlan& plan, std::int32_t number, int line, std::vector<int>& whenFalse);
    void Comparisons(const IfPlan& plan, std::int32_t number, int line,
                     std::vector<int>& whenFalse);
    void Patch(const std::vector<int>& jumps);

    void Leave(Statement& statement, int line);
    int LoopLeftBy(int line) const;
    void ReturnWith(const Word& word, Statement& statement, int line);
    void NestedLoop(Statement& statement, int line);
    void LoopBody(int level, std::int32_t first);

    // Whether a word gives its number with nothing run, as far as can be told beforehand.
    static bool IsPure(const Word& word, int depth);
    static bool IsPureSum(const Expression& expression, int depth);
    // The operand for such a word, or for such a sum, which isn't rounded yet. The last operation of a sum
    // stores to a slot if there is one.
    CodeOperand Pure(const Word& word, int line);
    CodeOperand PureSum(const Expression& expression, int line, std::optional<int> slot = {});
    CodeOperand Cell(const WordPlan& plan, int line);
    // The operand for any word, or any sum.
    CodeOperand Load(const Word& word, int line, const StatementPtr& statement);
    CodeOperand AnySum(const Expression& expression, int line, StatementPtr statement);

    template <class Operands>
    CodeOperand Sum(const Expression& expression, int line, std::optional<int> slot,
                    Operands operandOf);
    CodeOperand InRegister(CodeOperand operand, int line);
    CodeOperand Rounded(CodeOperand operand, int line);
};

}  // namespace velm
