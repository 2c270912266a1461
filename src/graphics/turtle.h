// The turtle: how it turns and walks over the drawing surface. Its direction, colour and pen are
// settings (core/settings_state.h). What it draws goes to the surface, and to nothing else.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/word.h"
#include "data/value.h"

namespace velm {

// Turns by degrees counter-clockwise. Throws Failure(6) for a direction that no single can hold, and for
// one that has no picture.
void Turn(double degrees);

// The number of the picture for a direction. Throws Failure(6) beyond 16 bits.
std::int32_t TurtlePictureNumber(float direction);

// Gives the turtle the picture of its direction, unless it has a picture of the script's own.
void RefreshIcon();

// How far a walk in the turtle's direction leads; y grows downward.
struct WalkStep {
    double x = 0;
    double y = 0;
};
WalkStep StepOf(double distance);

// Walks in the turtle's direction, pixels; draws when the pen is down. Pumps events at its end.
void Forward(double distance);

// Moves the turtle to 中央 or to "x,y"; a part that is no number is 0. Pumps events at its end.
void SetPosition(const Word& place);

// Draws a branch that forks depth times, and comes back. Pumps events with each piece; ends early when
// the run is to end.
void Tree(float length, std::int32_t depth, float angle);

// Erases the surface, sets the pen's width to 1 and the turtle into the middle; its direction and colour
// stay. Pumps events at its end.
void ClearDrawing();

// What a settings word of the turtle does beside storing its value: 太さ, 向き, 位置, and 形 with the empty
// value for the built-in picture. False for any other word.
bool ApplyTurtleSetting(std::u16string_view word, const Value& value);

// Reads "x,y", or two other numbers. A part that is missing leaves its target; one that is no number ends
// the reading.
void ReadPair(const Word& pair, float& first, float& second);

}  // namespace velm
