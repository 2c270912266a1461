// What the functions share that go through the items of a table: they tell their progress, and some
// show the hourglass while they run.
#pragma once

#include <cstddef>

#include "core/diagnostics.h"
#include "core/hooks.h"
#include "core/run_state.h"

namespace velm {

inline constexpr int kHourglass = 11;
inline constexpr int kPlainPointer = 0;

inline void ShowPointer(int pointer) {
    if (hooks.SetScreenPointer != nullptr) hooks.SetScreenPointer(pointer);
}

// Runs step(i) for each of count items. The procedure of 処理状況 hears of each item, and once more
// of the last one.
template <class Step>
void ForEachItem(std::size_t count, Step&& step) {
    const auto last = static_cast<std::int64_t>(count) - 1;
    for (std::size_t i = 0; i < count; ++i) {
        if (run.ProgressOn) ProgressTick(static_cast<std::int64_t>(i), last);
        step(i);
    }
    if (run.ProgressOn && count != 0) ProgressTick(last, last);
}

}  // namespace velm
