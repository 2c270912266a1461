// The table behind data/width.h, one unit at a time. Only data/width.cpp calls it.
#pragma once

namespace velm {

/// A half-width form: one unit, or a katakana letter and its voicing mark. `mark` is 0 where there
/// is none.
struct HalfForm {
    char16_t letter;
    char16_t mark;
};

/// The full-width form of one unit; the unit itself where it has none. Voicing marks stand alone
/// here: a pair is joined with VoicedLetter.
char16_t FullFormOf(char16_t unit);

/// The half-width form of one unit; the unit itself where it has none.
HalfForm HalfFormOf(char16_t unit);

/// The voiced letter of a full-width katakana letter and a voicing mark of either width; 0 where
/// the letter does not take the mark.
char16_t VoicedLetter(char16_t letter, char16_t mark);

}  // namespace velm
