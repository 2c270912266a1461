// Functions of numbers: rounding, roots and angles, random numbers, bits, number bases and colours.
#pragma once

#include <cstdint>

#include "core/names.h"

namespace velm {

void FnDecimal(Value& result, Arguments& arguments);
void FnHexadecimal(Value& result, Arguments& arguments);
void FnTruncate(Value& result, Arguments& arguments);
void FnFloor(Value& result, Arguments& arguments);
void FnRoundUp(Value& result, Arguments& arguments);
void FnRound(Value& result, Arguments& arguments);
void FnAbsolute(Value& result, Arguments& arguments);
void FnSquareRoot(Value& result, Arguments& arguments);
void FnPower(Value& result, Arguments& arguments);
void FnRandom(Value& result, Arguments& arguments);
void FnLog(Value& result, Arguments& arguments);
void FnSine(Value& result, Arguments& arguments);
void FnCosine(Value& result, Arguments& arguments);
void FnTangent(Value& result, Arguments& arguments);
void FnArcTangent(Value& result, Arguments& arguments);
void FnArcSine(Value& result, Arguments& arguments);
void FnArcCosine(Value& result, Arguments& arguments);
void FnRadian(Value& result, Arguments& arguments);
void FnPi(Value& result, Arguments& arguments);
void FnOr(Value& result, Arguments& arguments);
void FnAnd(Value& result, Arguments& arguments);
void FnXor(Value& result, Arguments& arguments);
void FnEquivalence(Value& result, Arguments& arguments);
void FnImplication(Value& result, Arguments& arguments);
void FnRgb(Value& result, Arguments& arguments);
void FnHls(Value& result, Arguments& arguments);

/// The next random number, at least 0 and below 1, with 53 random bits. SeedRandom (core/tables.h)
/// starts the numbers anew; the same seed gives the same ones. The generator is SplitMix64 (Steele,
/// Lea, Flood: "Fast Splittable Pseudorandom Number Generators", 2014).
double NextRandom();

}  // namespace velm
