// Operators on rounded integers.
#include "core/operators.h"

#include <optional>

#include "data/numbers.h"

namespace velm {

double ApplyRounded(Operator op, double left, double right) {
    const std::optional<std::int32_t> a = TryInt32(left);
    const std::optional<std::int32_t> b = TryInt32(right);
    if (!a || !b || *b == 0) return left;
    const std::int64_t wideLeft = *a;
    return static_cast<double>(op == Operator::kRemainder ? wideLeft % *b : wideLeft / *b);
}

}  // namespace velm
