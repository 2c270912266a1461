// See turtle.h.
#include "graphics/turtle.h"

#include <cmath>

#include "core/arguments.h"
#include "core/hooks.h"
#include "core/run_state.h"
#include "core/settings_state.h"
#include "core/stack_guard.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "graphics/drawing_surface.h"
#include "graphics/turtle_pictures.h"

namespace velm {

DrawingState drawing;

namespace {

constexpr std::u16string_view kCentreWord = u"中央";

// Kept: a little less than the true one, so that a walk straight up drifts by a millionth.
constexpr double kRadiansInDegree = 0.017453277777777776;

float ToSingle(double number) {
    const auto single = static_cast<float>(number);
    if (!std::isfinite(single)) throw Failure(failure::kOverflow);
    return single;
}

void CentreTurtleOn(float x, float y) {
    if (drawing.TurtleObject == nullptr) return;
    TurtleSprite& turtle = *drawing.TurtleObject;
    turtle.Move(x - turtle.Width() / 2, y - turtle.Height() / 2);
}

// Kept: on a window the point is set in the main window, whichever window is drawn on; on another
// surface the turtle itself stays where it is.
void MoveTurtleTo(float x, float y) {
    DrawingSurface* surface = drawing.DrawTarget;
    if (surface != nullptr && surface->IsWindow()) {
        CentreTurtleOn(x, y);
        surface = drawing.MainWindow;
    }
    if (surface != nullptr) {
        surface->CurrentX = x;
        surface->CurrentY = y;
    }
    PumpEvents();
}

void SetDrawWidth(const Value& value) {
    const std::int16_t width = ToInt16(value.NumberOrZero());
    if (width < 1) throw Failure(failure::kBadCall);
    if (drawing.DrawTarget != nullptr) drawing.DrawTarget->DrawWidth = width;
}

void ShowBuiltInTurtle() {
    if (drawing.TurtleObject != nullptr) {
        drawing.TurtleObject->SetPicture(TurtlePicture(kTurtleFacingUp));
    }
    RefreshIcon();
}

void Branches(float length, std::int32_t depth, float angle) {
    const float shorter = 2 * length / 3;
    Turn(angle / 2);
    Tree(shorter, depth - 1, angle);
    Turn(-angle);
    Tree(shorter, depth - 1, angle);
}

}  // namespace

void Turn(double degrees) {
    settings.TurtleDirection = TurtleDirectionOf(settings.TurtleDirection + degrees);
    RefreshIcon();
}

std::int32_t TurtlePictureNumber(float direction) {
    constexpr int kStep = 15;
    constexpr int kQuarter = 90;
    constexpr int kCircle = 360;
    int angle = ToInt16(ToInt16(-direction) / kStep * kStep + kQuarter);
    if (angle < 0) angle = std::abs(angle % kCircle + kCircle);
    if (angle == 0 || angle == kCircle) return kTurtleFacingUp;
    return kTurtleFirstAngle + angle;
}

void RefreshIcon() {
    if (!settings.TurtleIconOn || drawing.TurtleObject == nullptr) return;
    const std::int32_t number = TurtlePictureNumber(settings.TurtleDirection);
    drawing.TurtleObject->SetPicture(TurtlePicture(number));
}

WalkStep StepOf(double distance) {
    const double angle = settings.TurtleDirection * kRadiansInDegree;
    return {distance * std::cos(angle), -distance * std::sin(angle)};
}

void Forward(double distance) {
    if (drawing.DrawTarget == nullptr) return;
    DrawingSurface& surface = *drawing.DrawTarget;
    const WalkStep step = StepOf(distance);
    const float x = ToSingle(surface.CurrentX + step.x);
    const float y = ToSingle(surface.CurrentY + step.y);
    if (settings.PenDown) {
        surface.Line(x, y, settings.TurtleColor);
    } else {
        surface.CurrentX = x;
        surface.CurrentY = y;
    }
    CentreTurtleOn(x, y);
    PumpEvents();
}

void SetPosition(const Word& place) {
    float x = 0;
    float y = 0;
    if (place.Text() != kCentreWord) {
        ReadPair(place, x, y);
    } else if (drawing.DrawTarget != nullptr) {
        x = drawing.DrawTarget->ScaleWidth() / 2;
        y = drawing.DrawTarget->ScaleHeight() / 2;
    }
    MoveTurtleTo(x, y);
}

void Tree(float length, std::int32_t depth, float angle) {
    const NestingGuard guard;
    if (guard.Exhausted() || run.StopFlag || drawing.DrawTarget == nullptr) return;
    const float x = drawing.DrawTarget->CurrentX;
    const float y = drawing.DrawTarget->CurrentY;
    const float direction = settings.TurtleDirection;
    Forward(double{length} * 2 / 3);
    if (depth != 0) Branches(length, depth, angle);
    settings.TurtleDirection = direction;
    // Events have been pumped: the surface may be another one, or gone.
    if (drawing.DrawTarget == nullptr) return;
    drawing.DrawTarget->CurrentX = x;
    drawing.DrawTarget->CurrentY = y;
}

void ClearDrawing() {
    if (drawing.DrawTarget == nullptr) return;
    DrawingSurface& surface = *drawing.DrawTarget;
    surface.RemovePicture();
    surface.Cls();
    surface.DrawWidth = 1;
    surface.Refresh();
    MoveTurtleTo(surface.ScaleWidth() / 2, surface.ScaleHeight() / 2);
}

bool ApplyTurtleSetting(std::u16string_view word, const Value& value) {
    if (word == u"太さ" || word == u"ふとさ") {
        SetDrawWidth(value);
    } else if (word == u"向き" || word == u"むき") {
        RefreshIcon();
    } else if (word == u"位置" || word == u"いち") {
        SetPosition(Word(value.Text()));
    } else if ((word == u"形" || word == u"かたち") && settings.TurtleIconOn) {
        ShowBuiltInTurtle();
    } else {
        return false;
    }
    return true;
}

void ReadPair(const Word& pair, float& first, float& second) {
    Attempt([&] { Arguments(pair.Text()).Split(first, second); });
}

}  // namespace velm
