// What a word is, worked out once from its text alone and kept with it.
//
// The rules of evaluation are told on the raw text: is it a number, a quoted text, a text with holes,
// a joining, arithmetic, a word in brackets, or a name with or without arguments? None of these
// questions depends on the run, so the answer is a plan. Only the name step is decided at run time,
// each time anew, in the told order: variable, word dictionary, function, property, procedure, the
// word itself (core/eval.cpp). What a plan keeps beside that is bound to the function table and the
// answer words, which never change after the start.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/names.h"
#include "core/word.h"
#include "data/value.h"

namespace velm {

class Arguments;
struct Expression;

enum class PlanKind : std::uint8_t {
    kEmpty,       // nothing but blanks
    kNumber,      // constant, as it was written
    kText,        // constant, the inside of 「 」
    kJoin,        // the parts between ＆
    kHoles,       // literals and parts in turn
    kArithmetic,  // expression
    kBracketed,   // parts[0] within brackets
    kName,        // a name without brackets behind it
    kCall,        // a name with arguments in brackets, which may be none
};

// How a word that names a function calls it.
struct FunctionBinding {
    xxCmdData* function = nullptr;
    std::shared_ptr<const Arguments> arguments;
};

class WordPlan {
  public:
    PlanKind kind = PlanKind::kEmpty;
    // The text that the word is rewritten to when it is evaluated: trimmed, or a number without its
    // brackets. Empty when it stays as it is.
    std::u16string rewritten;
    Value constant;
    std::vector<Word> parts;
    std::vector<std::u16string> literals;  // one more than parts
    std::shared_ptr<const Expression> expression;

    // kName and kCall
    Word name;
    Word whole;  // the word itself, its own value when nothing knows it
    Word arguments;
    Symbol* symbol = nullptr;

    // The function that the name stands for with its arguments, or none; found at the first asking.
    const FunctionBinding& Function() const {
        if (!bound_) Bind();
        return function_;
    }
    // The number of an answer word such as はい; nullptr when the name is none.
    const Value* AnswerWord() const {
        if (!bound_) Bind();
        return isAnswerWord_ ? &answerWord_ : nullptr;
    }

    // Whether nothing but a variable or a procedure can know a name with arguments: it is no function
    // and no answer word, and without の no property.
    bool IsLeftToProcedures() const {
        if (!bound_) Bind();
        return leftToProcedures_;
    }

  private:
    mutable bool bound_ = false;
    mutable bool leftToProcedures_ = false;
    mutable FunctionBinding function_;
    mutable bool isAnswerWord_ = false;
    mutable Value answerWord_;

    void Bind() const;
};

// The plan of a text.
std::shared_ptr<const WordPlan> PlanWord(std::u16string_view text);

// The words of a subscript or an argument list, cut at commas outside brackets and trimmed.
std::vector<Word> CutWords(std::u16string_view text);

}  // namespace velm
