// Comparing, and the making of compiled comparisons.
#include "core/compiled_comparison.h"

#include <type_traits>
#include <utility>
#include <variant>

#include "core/conditions.h"
#include "core/number_node.h"
#include "core/variables.h"
#include "core/word_plan.h"
#include "data/failure.h"
#include "data/numbers.h"

namespace velm {

std::optional<double> NumberOfSide(const Value& value) {
    double plain = 0;
    if (value.IsPlainNumber(plain)) return plain;
    const std::optional<double> number = value.Number();
    if (number) return RoundToText(*number);
    if (value.IsEmpty()) return 0;
    return std::nullopt;
}

bool AreEqual(const Value& left, const Value& right) {
    const std::optional<double> leftSide = NumberOfSide(left);
    const std::optional<double> rightSide = leftSide ? NumberOfSide(right) : std::nullopt;
    return rightSide ? *leftSide == *rightSide : left.SameText(right);
}

namespace {

// AreEqual; false, with nothing done, when it fails.
[[gnu::noinline]] bool TryAreEqual(const Value& left, const Value& right, bool& equal) {
    const bool done = Attempt([&] { equal = AreEqual(left, right); });
    if (!done) pendingFailure.Clear();
    return done;
}

inline bool TryValues(const Value& left, const Value& right, bool& equal) {
    if (left.IsKnownWord()) {
        equal = left.SameWord(right);
    } else if (right.IsKnownWord()) {
        equal = right.SameWord(left);
    } else {
        return TryAreEqual(left, right, equal);
    }
    return true;
}

// The sides. Each tells its number, if it is held as one and needs nothing run, and the value that it holds.

struct NumberSide {
    double number;
    Value held;

    bool Try(double& result) const {
        result = number;
        return true;
    }
    const Value* Held() const { return &held; }
};

struct TextSide {
    Value text;

    static bool Try(double& /*result*/) { return false; }
    const Value* Held() const { return &text; }
};

struct NameSide {
    const Symbol* symbol;

    bool Try(double& result) const {
        const Value* variable = FindVariable(symbol);
        return variable != nullptr && variable->IsPlainNumber(result);
    }
    const Value* Held() const { return FindVariable(symbol); }
};

struct ComputedSide {
    NumberNodePtr node;

    bool Try(double& result) const { return node->Try(result); }
    static const Value* Held() { return nullptr; }
};

using Side = std::variant<NumberSide, TextSide, NameSide, ComputedSide>;

Side SideOf(const Word& word) {
    const WordPlan& plan = word.Plan();
    double number = 0;
    if (plan.kind == PlanKind::kName && plan.symbol != nullptr) return NameSide{plan.symbol};
    if (plan.kind == PlanKind::kText) return TextSide{plan.constant};
    if (plan.kind != PlanKind::kNumber) return ComputedSide{CompileNumber(word)};
    if (plan.constant.IsPlainNumber(number)) return NumberSide{number, plan.constant};
    return TextSide{plan.constant};
}

inline bool IsForEquality(int code) { return code <= comparison::kNotEqual; }

template <class Left, class Right>
class ComparisonOf : public CompiledComparison {
  public:
    ComparisonOf(int code, Left left, Right right)
        : code_(code), left_(std::move(left)), right_(std::move(right)) {}

    bool Try(bool& result) const override {
        double a = 0;
        double b = 0;
        if (left_.Try(a) && right_.Try(b)) {
            result = CompareNumbers(code_, a, b);
            return true;
        }
        const Value* left = left_.Held();
        const Value* right = right_.Held();
        bool equal = false;
        if (!IsForEquality(code_) || left == nullptr || right == nullptr) return false;
        if (!TryValues(*left, *right, equal)) return false;
        result = equal == (code_ == comparison::kEqual);
        return true;
    }

  private:
    int code_;
    Left left_;
    Right right_;
};

}  // namespace

std::shared_ptr<const CompiledComparison> CompileComparison(int code, const Word& left,
                                                            const Word& right) {
    return std::visit(
        [code](auto&& a, auto&& b) -> std::shared_ptr<const CompiledComparison> {
            using Left = std::decay_t<decltype(a)>;
            using Right = std::decay_t<decltype(b)>;
            return std::make_shared<ComparisonOf<Left, Right>>(code, std::move(a), std::move(b));
        },
        SideOf(left), SideOf(right));
}

}  // namespace velm
