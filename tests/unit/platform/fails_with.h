// The number of the failure that a step ends with, 0 when it doesn't.
#pragma once

#include <utility>

#include "data/failure.h"

namespace velm {

template <class Step>
int FailureOf(Step&& step) {
    try {
        std::forward<Step>(step)();
    } catch (const Failure& failed) {
        return failed.Number();
    }
    return 0;
}

}  // namespace velm
