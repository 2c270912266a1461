// The operations that the compiler chooses from.
#pragma once

#include <cstdint>

#include "core/bytecode/bytecode.h"
#include "core/operators.h"

namespace velm {

// Where an operand is: a slot (a variable), a register, or the number of the operation.
enum class OperandMode : std::uint8_t { kSlot, kRegister, kConstant };

// What the operations do. a, b and c are members of Op: slots and registers, or operations to go on at. An
// operation on numbers that meets anything else hands its line over to the told rule.
namespace ops {

// register c = a op b; slot c = a op b, rounded as the result of an assignment.
OpHandler Arithmetic(Operator op, OperandMode a, OperandMode b);
OpHandler ArithmeticToSlot(Operator op, OperandMode a, OperandMode b);
// register c = a; slot c = a, a number as values hold it; slot c = *constant; slot c = slot a, whatever it
// holds.
OpHandler Load(OperandMode a);
OpHandler Store(OperandMode a);
OpHandler CopyConstant();
OpHandler CopySlot();
// register c = register a, rounded as the value of an arithmetic word.
OpHandler Round();
// Goes on at c unless a and b compare so. What isn't two numbers is compared as TestConditions does.
OpHandler CompareNumbers(int code, OperandMode a, OperandMode b);
// Goes on at data->onTrue or data->onFalse, as the conditions of data->condition tell.
OpHandler TestConditions();
// register c = a cell of the table in slot b, and the store of c to one. The index is a; that of a row, where
// there is one, is data->onTrue.
OpHandler ReadCell(OperandMode index);
OpHandler ReadRowCell(OperandMode row, OperandMode column);
OpHandler StoreCell(OperandMode index, OperandMode value);
OpHandler StoreRowCell(OperandMode row, OperandMode column);
// register c = the number of data->word, which may run anything; slot b is looked at before, unless it is -1.
OpHandler LoadWord();
// The same for a word that most often is a call of a procedure.
OpHandler CallWord();
// The variable of data->target, which is slot c, = register a, rounded, also where there is no such variable
// yet: the end of a line that ran words.
OpHandler StoreByRule();
// The variable of data->target = data->word, whatever it is; data->action is tried before. b: whether the word
// has arguments.
OpHandler AssignWord();
OpHandler Jump();
// Runs the line by the told rule.
OpHandler RunLine();
// Does so when commands or procedures have been added; else clears Response, as looking the verb up does.
OpHandler CheckBinding();
// The loop of level a: its beginning, leaving it, and what stands between two passes: its state is that of
// number c, its body begins d operations before, and the counter is slot b, or none or one for the told rule.
inline constexpr int kNoCounter = -1;
inline constexpr int kCounterByRule = -2;
OpHandler BeginLoop();
OpHandler EndPass();
OpHandler LeaveLoop();
// 抜ける out of the procedure, with register a (a number as values hold it), slot a, *constant, data->word, or nothing.
OpHandler ReturnRegister();
OpHandler ReturnSum();  // register a, to be rounded
OpHandler ReturnSlot();
OpHandler ReturnConstant();
OpHandler ReturnWord();
OpHandler ReturnNothing();
// The end of a procedure's body; the walk goes on at line a.
OpHandler End();

}  // namespace ops

}  // namespace velm
