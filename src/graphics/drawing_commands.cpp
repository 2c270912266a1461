// The handlers of the drawing commands. A word that is no number counts as 0, a colour that there isn't
// leaves the turtle's: the drawing goes on.
#include "graphics/drawing_commands.h"

#include <string>

#include "core/arguments.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/sentence.h"
#include "core/settings_state.h"
#include "core/word_lists.h"
#include "data/failure.h"
#include "graphics/drawing_surface.h"
#include "graphics/turtle.h"

namespace velm {

namespace {

constexpr int kMissingNumber = 36;
constexpr std::u16string_view kFilledWord = u"塗りつぶ";

struct Pair {
    float x = 0;
    float y = 0;
};

Pair PairOf(const Word& word) {
    Pair pair;
    ReadPair(word, pair.x, pair.y);
    return pair;
}

// The number of the を word, which must be there. Returns whether it is.
bool ReadNeededNumber(Statement& statement, double& number) {
    if (statement.WoArg.IsEmpty()) {
        RaiseError(kMissingNumber, kIconInformation, u"", u"", -1);
        return false;
    }
    number = EvalNumber(statement.WoArg);
    return true;
}

void TakeColor(const Word& word) {
    Attempt([&] { settings.TurtleColor = ParseColor(word); });
}

// Moves the current point to where から says. A word may call a procedure of the script: the surface is
// asked for only after its words have their values.
void StartAt(const Word& from) {
    if (from.IsEmpty()) return;
    const Pair start = PairOf(from);
    if (drawing.DrawTarget == nullptr) return;
    drawing.DrawTarget->CurrentX = start.x;
    drawing.DrawTarget->CurrentY = start.y;
}

void RefreshUnlessLocked(DrawingSurface& surface) {
    if (!drawing.DrawLock) surface.Refresh();
}

void SetTurtleVisible(bool isVisible) {
    if (drawing.TurtleObject != nullptr) drawing.TurtleObject->SetVisible(isVisible);
}

std::u16string TextToPrint(const Word& word) {
    std::u16string text = EvalWord(word).Text();
    std::erase(text, u'\n');
    return text;
}

// Kept: text without a line end leaves the point behind it on the line; with one, where printing ended.
void Print(DrawingSurface& surface, const std::u16string& text) {
    const float x = surface.CurrentX;
    const float y = surface.CurrentY;
    const std::int32_t color = surface.ForeColor;
    surface.ForeColor = settings.TurtleColor;
    surface.Print(text);
    surface.ForeColor = color;
    if (text.find(u'\r') != std::u16string::npos) return;
    surface.CurrentX = x + surface.TextWidth(text);
    surface.CurrentY = y;
}

// Draws the turtle's picture by its factors of size; without a place about the current point.
void StampAt(const Word& place, Pair factors) {
    const Pair given = PairOf(place);
    if (drawing.DrawTarget == nullptr || drawing.TurtleObject == nullptr) return;
    DrawingSurface& surface = *drawing.DrawTarget;
    const TurtleSprite& turtle = *drawing.TurtleObject;
    const float units = surface.UnitsInPixel();
    const float width = static_cast<float>(turtle.Picture().width) * units;
    const float height = static_cast<float>(turtle.Picture().height) * units;
    // Kept: half of the size that the picture has without the factors.
    const Pair corner =
        place.IsEmpty() ? Pair{surface.CurrentX - width / 2, surface.CurrentY - height / 2} : given;
    surface.PaintPicture(turtle.Picture(), corner.x, corner.y, width * factors.x,
                         height * factors.y);
}

}  // namespace

void CmdTurnRight(Statement& statement, Context& /*context*/) {
    double degrees = 0;
    if (ReadNeededNumber(statement, degrees)) Turn(-degrees);
}

void CmdTurnLeft(Statement& statement, Context& /*context*/) {
    double degrees = 0;
    if (ReadNeededNumber(statement, degrees)) Turn(degrees);
}

void CmdForward(Statement& statement, Context& /*context*/) {
    double distance = 0;
    if (ReadNeededNumber(statement, distance)) Forward(distance);
}

void CmdBack(Statement& statement, Context& /*context*/) {
    double distance = 0;
    if (ReadNeededNumber(statement, distance)) Forward(-distance);
}

void CmdTree(Statement& statement, Context& /*context*/) {
    float length = 0;
    std::int32_t depth = 0;
    float angle = 0;
    const Word by = GetWord(statement, u"で");
    Attempt([&] { Arguments(by.Text()).Split(length, depth, angle); });
    Tree(length, depth, angle);
}

void CmdShowTurtle(Statement& /*statement*/, Context& /*context*/) { SetTurtleVisible(true); }
void CmdHideTurtle(Statement& /*statement*/, Context& /*context*/) { SetTurtleVisible(false); }
void CmdPenUp(Statement& /*statement*/, Context& /*context*/) { settings.PenDown = false; }
void CmdPenDown(Statement& /*statement*/, Context& /*context*/) { settings.PenDown = true; }

void CmdEllipse(Statement& statement, Context& /*context*/) {
    const auto [by, from, style] = GetWords(statement, u"で", u"から", u"して");
    StartAt(from);
    const Pair size = PairOf(by);
    if (drawing.DrawTarget == nullptr) return;
    DrawingSurface& surface = *drawing.DrawTarget;
    if (style.Text() == kFilledWord) {
        surface.FillStyle = FillStyles::kSolid;
        surface.FillColor = settings.TurtleColor;
    }
    surface.ForeColor = settings.TurtleColor;
    surface.Ellipse(surface.CurrentX, surface.CurrentY, surface.CurrentX + size.x,
                    surface.CurrentY + size.y);
    RefreshUnlessLocked(surface);
    surface.FillStyle = FillStyles::kTransparent;
}

void CmdLine(Statement& statement, Context& /*context*/) {
    const auto [to, from] = GetWords(statement, u"で", u"から");
    StartAt(from);
    const Pair end = PairOf(to);
    if (drawing.DrawTarget == nullptr) return;
    drawing.DrawTarget->Line(end.x, end.y, settings.TurtleColor);
}

// Kept: a corner that へ names counts, whatever size で names.
void CmdBox(Statement& statement, Context& /*context*/) {
    const auto [by, from, style] = GetWords(statement, u"で", u"から", u"して");
    StartAt(from);
    const Pair size = PairOf(by);
    const Pair given = PairOf(statement.HeArg);
    if (drawing.DrawTarget == nullptr) return;
    DrawingSurface& surface = *drawing.DrawTarget;
    Pair corner = {surface.CurrentX + size.x, surface.CurrentY + size.y};
    if (!statement.HeArg.IsEmpty()) corner = given;
    surface.Box(corner.x, corner.y, settings.TurtleColor, style.Text() == kFilledWord);
}

// Kept: a lone で word is the place, not the colour; and the colour stays set afterwards.
void CmdDot(Statement& statement, Context& /*context*/) {
    const Word by = GetWord(statement, u"で");
    const bool hasPlace = !statement.HeArg.IsEmpty();
    if (hasPlace && !by.IsEmpty()) TakeColor(by);
    const Word place = hasPlace ? statement.HeArg : by;
    if (!place.IsEmpty()) SetPosition(place);
    if (drawing.DrawTarget == nullptr) return;
    DrawingSurface& surface = *drawing.DrawTarget;
    surface.PSet(surface.CurrentX, surface.CurrentY, settings.TurtleColor);
}

void CmdWrite(Statement& statement, Context& /*context*/) {
    const Word color = GetWord(statement, u"で");
    if (!color.IsEmpty()) TakeColor(color);
    if (!statement.HeArg.IsEmpty()) SetPosition(statement.HeArg);
    const std::u16string text = TextToPrint(statement.WoArg);
    if (drawing.DrawTarget != nullptr) Print(*drawing.DrawTarget, text);
    PumpEvents();
}

void CmdStamp(Statement& statement, Context& /*context*/) { StampAt(statement.HeArg, {1, 1}); }

void CmdScaledStamp(Statement& statement, Context& /*context*/) {
    const Word by = GetWord(statement, u"で");
    StampAt(statement.HeArg, PairOf(by));
}

void CmdFill(Statement& statement, Context& /*context*/) {
    const Word by = GetWord(statement, u"で");
    const Pair given = PairOf(statement.HeArg);
    std::int32_t color = settings.TurtleColor;
    if (!by.IsEmpty()) Attempt([&] { color = ParseColor(by); });
    if (drawing.DrawTarget == nullptr) return;
    DrawingSurface& surface = *drawing.DrawTarget;
    const Pair seed = statement.HeArg.IsEmpty() ? Pair{surface.CurrentX, surface.CurrentY} : given;
    surface.FillStyle = FillStyles::kSolid;
    surface.FillColor = color;
    surface.ExtFloodFill(seed.x, seed.y, surface.Point(seed.x, seed.y), 1);
    RefreshUnlessLocked(surface);
    surface.FillStyle = FillStyles::kTransparent;
}

}  // namespace velm
