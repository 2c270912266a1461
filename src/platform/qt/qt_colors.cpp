// See qt_colors.h.
#include "platform/qt/qt_colors.h"

#include <QGuiApplication>
#include <QPalette>

namespace velm {

namespace {

constexpr std::uint32_t kNumberBits = 0x7FFFFFFF;

struct SystemColor {
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
};

constexpr SystemColor kRoles[kSystemColors] = {
    {QPalette::Active, QPalette::Window},             // scroll bar
    {QPalette::Active, QPalette::Dark},               // desktop
    {QPalette::Active, QPalette::Highlight},          // title of the active window
    {QPalette::Inactive, QPalette::Dark},             // title of another window
    {QPalette::Active, QPalette::Window},             // menu
    {QPalette::Active, QPalette::Base},               // window
    {QPalette::Active, QPalette::Shadow},             // window frame
    {QPalette::Active, QPalette::WindowText},         // text in menus
    {QPalette::Active, QPalette::Text},               // text in windows
    {QPalette::Active, QPalette::HighlightedText},    // text in the active title
    {QPalette::Active, QPalette::Window},             // border of the active window
    {QPalette::Inactive, QPalette::Window},           // border of another window
    {QPalette::Active, QPalette::Mid},                // workspace
    {QPalette::Active, QPalette::Highlight},          // selection
    {QPalette::Active, QPalette::HighlightedText},    // selected text
    {QPalette::Active, QPalette::Button},             // face of buttons
    {QPalette::Active, QPalette::Dark},               // shadow of buttons
    {QPalette::Disabled, QPalette::Text},             // disabled text
    {QPalette::Active, QPalette::ButtonText},         // text on buttons
    {QPalette::Inactive, QPalette::HighlightedText},  // text in another title
    {QPalette::Active, QPalette::Light},              // light edge of buttons
    {QPalette::Active, QPalette::Shadow},             // dark edge
    {QPalette::Active, QPalette::Midlight},           // half-light edge
    {QPalette::Active, QPalette::ToolTipText},        // text of tips
    {QPalette::Active, QPalette::ToolTipBase},        // background of tips
};

}  // namespace

QColor ColorOfScript(std::int32_t color) {
    const auto bits = static_cast<std::uint32_t>(color);
    if (color >= 0) {
        return QColor(static_cast<int>(bits & 0xFF), static_cast<int>((bits >> 8) & 0xFF),
                      static_cast<int>((bits >> 16) & 0xFF));
    }
    const std::uint32_t number = bits & kNumberBits;
    if (number >= kSystemColors) return Qt::black;
    return QGuiApplication::palette().color(kRoles[number].group, kRoles[number].role);
}

std::int32_t ScriptColor(const QColor& color) {
    return color.red() | color.green() << 8 | color.blue() << 16;
}

std::uint32_t SystemPixel(std::int32_t number) {
    return static_cast<std::uint32_t>(ScriptColor(ColorOfScript(INT32_MIN + number)));
}

std::int32_t MemberToColor(const MemberValue& value) {
    constexpr double kSigned = 0x80000000;
    const double number = MemberToNumber(value);
    if (number >= kSigned && number < 2 * kSigned) {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
    }
    return MemberToInt(value);
}

}  // namespace velm
