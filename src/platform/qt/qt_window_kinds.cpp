// The kinds of windows as the toolkit's flags.
#include "platform/qt/qt_window.h"

namespace velm {

namespace {

constexpr std::int32_t kFixed = 1;
constexpr std::int32_t kFrameless = 2;
constexpr std::int32_t kTool = 3;
constexpr std::int32_t kFixedTool = 4;
constexpr std::int32_t kWholeScreen = 5;

bool IsTool(std::int32_t kind) { return kind == kTool || kind == kFixedTool; }

}  // namespace

bool HasFixedSize(const QtWindowStyle& style) {
    return style.kind == kFixed || style.kind == kFixedTool;
}

bool HasFrame(const QtWindowStyle& style) {
    return style.kind != kFrameless && style.kind != kWholeScreen && !style.isShaped;
}

Qt::WindowFlags QtFlagsOf(const QtWindowStyle& style) {
    Qt::WindowFlags flags = IsTool(style.kind) ? Qt::Tool : Qt::Window;
    flags |= Qt::CustomizeWindowHint;
    if (style.isTopMost) flags |= Qt::WindowStaysOnTopHint;
    if (!HasFrame(style)) return flags | Qt::FramelessWindowHint;
    flags |= Qt::WindowTitleHint;
    if (!style.hasControlBox) return flags;
    flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (IsTool(style.kind)) return flags;
    if (style.hasMinButton) flags |= Qt::WindowMinimizeButtonHint;
    if (style.hasMaxButton && !HasFixedSize(style)) flags |= Qt::WindowMaximizeButtonHint;
    return flags;
}

}  // namespace velm
