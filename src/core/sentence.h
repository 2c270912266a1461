// Sentence analysis: what kind of sentence a line is, and which words stand before its particles.
// There is no tokeniser; a sentence is cut from its end by fences that are set round particles.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/names.h"
#include "core/statement.h"
#include "core/word.h"

namespace velm {

// The fence that is set round a particle. It never stands in source text.
inline constexpr char16_t kMarker = u'\x03';

// A handler may ask for this many particles at once; one more is a failure (9).
inline constexpr std::size_t kMostParticles = 11;

// Analyses one prepared line.
StatementPtr ParseStatement(std::u16string_view line);

// Fences the particles in the statement's Marked text, the last occurrence of each outside brackets, and
// gives the word before each one in the order of the list; a particle that the sentence hasn't gives an
// empty word. Sets WoArg, HeArg, Verb and Args. に and へ are one particle. Returns the number of parts
// that the fences cut the sentence into.
std::size_t SplitByParticles(Statement& statement, std::span<const std::u16string_view> particles,
                             std::span<Word> found);

// The words that SplitByParticles will give each time from now on, leaving the statement as it is between two
// runs; nullptr when that isn't known. They hold until the statement is split in another way.
const std::vector<Word>* SettledWords(const Statement& statement,
                                      std::span<const std::u16string_view> particles);

// SplitByParticles, then the words: what the loop does with a row's particles.
const std::vector<Word>& SplitArgs(Statement& statement, const JoshiList& particles);

// The words before the particles, for handlers: auto [by, from] = GetWords(statement, u"で", u"から").
template <class... Particles>
std::array<Word, sizeof...(Particles)> GetWords(Statement& statement, Particles... particles) {
    const std::array<std::u16string_view, sizeof...(Particles)> list = {particles...};
    std::array<Word, sizeof...(Particles)> found;
    SplitByParticles(statement, list, found);
    return found;
}
inline Word GetWord(Statement& statement, std::u16string_view particle) {
    return GetWords(statement, particle)[0];
}

// Like GetWords, but sets no new fences, and leaves the words untrimmed.
std::vector<Word> ReadWords(const Statement& statement,
                            std::span<const std::u16string_view> particles);

// The words of a function or procedure call in word form, in the order of the entry's particles. With
// fewer particles in the text than the entry's Flags ask for, the pieces between the commas.
std::vector<std::u16string> SortByParticles(const xxCmdData& entry, std::u16string_view arguments);

// A word of a text that isn't part of a statement; the words of the last texts are kept.
Word CachedWord(std::u16string_view text);

}  // namespace velm
