// The values that settings sentences store (色は 赤). What draws, plays or shows reads them here.
#pragma once

#include <cstdint>
#include <string>

#include "core/word.h"

namespace velm {

struct SettingsState {
    std::int32_t TurtleColor = 0;  // 0xBBGGRR, or a system colour
    float TurtleDirection = 90;    // degrees, counter-clockwise from the x axis
    bool TurtleIconOn = true;      // the built-in picture follows the direction
    bool PenDown = true;
    std::u16string turtlePicture;  // the picture file that 形 named; empty: the built-in one
    std::int32_t backColor = 0xFFFFFF;
    std::u16string position;  // the word of 位置, evaluated by its parts when it is used
    std::u16string canvas;    // the object that 場所 named
    double lineWidth = 1;
    std::int32_t mousePointer = 0;
    std::u16string mousePointerFile;  // a cursor file, for a pointer of one's own
    std::int16_t midiProgram = 0;
    std::int16_t tempo = 120;
    bool jpegProgressive = false;
    std::int16_t jpegQuality = 75;
    std::u16string settingsFile;  // of 設定 and 削除
};

extern SettingsState settings;

// The turtle's direction after a change. Kept: only a negative one is brought back into the circle, and
// loses its fraction; one of 360 or more stays. Throws Failure(6) for one that is beyond a single.
float TurtleDirectionOf(double degrees);

// The values that every run starts with.
void ResetSettings();

}  // namespace velm
