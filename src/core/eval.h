// Turning words into values. Callers: every handler, the conditions and blocks, the procedures.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>

#include "core/names.h"
#include "core/word.h"
#include "data/value.h"

namespace velm {

class WordPlan;

// The value of a word. The first form may rewrite the word: trimmed, or a number freed of its brackets.
Value EvalWord(Word& word);
Value EvalWord(const Word& word);
// The same for a word that most often is a call of a function, by a shorter road. The caller holds the word.
Value EvalCall(const Word& word);
// The same for text that is no word of a sentence. Its plan is kept for a while.
Value EvalText(std::u16string_view text);

// The parts of a joining from one on, put together.
Value EvalJoin(const WordPlan& plan, std::size_t first);

// TextToNumber of the word's value.
double EvalNumber(const Word& word);
// TextToNumber of a value.
double NumberOf(const Value& value);

// Calls a built-in function or answer word by its exact name; found tells whether there is one.
Value CallFunction(std::u16string_view name, bool& found, std::u16string_view arguments);

// The words that count as names beside variables while one word is evaluated, or from 利用 on: from
// name to value, first entry of a name wins.
using WordDictionary = std::unordered_map<const Symbol*, Value>;

// The dictionary in force; nullptr when there is none.
extern const WordDictionary* wordDictionary;

// Asks the dictionary in force. found tells whether it knows the word.
Value TryWord(std::u16string_view word, bool& found);

// Evaluates a word with the keys of a text resource as words; numbers in the texts stay as written.
Value EvalWithWords(int resource, const Word& word);

}  // namespace velm
