// Settings sentences whose target is an object (場所, 背景, 形 from a file, タイトル, マウスカーソル …), the
// mouse pointer of the whole screen, and the icon in the notification area.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/value.h"
#include "objects/object.h"

namespace velm {

void ApplyObjectSetting(std::u16string_view word, const Value& value);
void SetScreenPointer(int pointer);

// 追加 and 消せ of タスクトレイ, and the balloon of 表示.
void AddTrayIcon(Window& window);
void RemoveTrayIcon();
void ShowBalloon(const std::u16string& text, int style);

// Words of a window's properties that have a procedure of their own.
void ApplyInitialState(Window& window);
void ShowWindowAs(Window& window, bool modal, bool onTop);
// kind 0 to 5, see WindowWords.
void ApplyWindowKind(Window& window, std::int32_t kind);
void SetWindowAlpha(Window& window, std::int32_t percent);
void SetTopMost(Window& window, bool isOn);

}  // namespace velm
