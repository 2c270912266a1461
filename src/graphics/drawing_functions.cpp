// 色, 場所 and the turtle's place. The turtle's colour is in functions/turtle_functions.cpp.
#include "graphics/drawing_functions.h"

#include "core/hooks.h"
#include "core/word_lists.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "graphics/drawing_surface.h"

namespace velm {

namespace {

DrawingSurface& Surface() {
    if (drawing.DrawTarget == nullptr) throw Failure(failure::kNothingThere);
    return *drawing.DrawTarget;
}

// Keeps the turtle off the surface for as long as it lives, so that it doesn't read itself. The events
// that are pumped may end the turtle, or put another in its place.
class HiddenTurtle {
  public:
    HiddenTurtle() : turtle_(drawing.TurtleObject) {
        if (turtle_ == nullptr || !turtle_->Visible()) {
            turtle_ = nullptr;
            return;
        }
        turtle_->SetVisible(false);
        PumpEvents();
    }
    HiddenTurtle(const HiddenTurtle&) = delete;
    HiddenTurtle& operator=(const HiddenTurtle&) = delete;
    ~HiddenTurtle() {
        if (turtle_ != nullptr && turtle_ == drawing.TurtleObject) turtle_->SetVisible(true);
    }

  private:
    TurtleSprite* turtle_;
};

}  // namespace

void FnPixelColor(Value& result, Arguments& arguments) {
    float x = Surface().CurrentX;
    float y = Surface().CurrentY;
    if (arguments.Count() > 0) {
        x = 0;
        y = 0;
        arguments.Split(x, y);
    }
    const HiddenTurtle hidden;
    result = Value(ColorToText(Surface().Point(x, y)));
}

void FnTurtleX(Value& result, Arguments& /*arguments*/) {
    result = Value(FormatSingle(Surface().CurrentX));
}

void FnTurtleY(Value& result, Arguments& /*arguments*/) {
    result = Value(FormatSingle(Surface().CurrentY));
}

void FnSurfaceName(Value& result, Arguments& /*arguments*/) {
    result = Value(Surface().ObjectName());
}

}  // namespace velm
