// The actions of assignments.
#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "core/action.h"
#include "core/cell_index.h"
#include "core/expression.h"
#include "core/number_node.h"
#include "core/short_roads.h"
#include "core/variables.h"
#include "core/word.h"
#include "core/word_plan.h"
#include "data/numbers.h"

namespace velm {

namespace {

using TargetPtr = std::shared_ptr<const AssignmentTarget>;

// X＝arithmetic.
class AssignSum : public Action {
  public:
    AssignSum(TargetPtr target, const Word& word)
        : target_(std::move(target)), word_(word), sum_(word.Plan().expression->Tree()) {}

    bool Run(Statement& /*statement*/) const override {
        const double number = RoundResult(sum_->Number());
        if (Value* place = FindForChange(target_->symbol)) {
            place->SetHeldNumber(number);
        } else {
            StoreNumber(*target_, number);
        }
        return true;
    }

  private:
    TargetPtr target_;
    Word word_;  // holds the tree
    const NumberNode* sum_;
};

// X＝表（I）, where the cell holds a number.
class AssignCell : public Action {
  public:
    AssignCell(TargetPtr target, const Word& word)
        : target_(std::move(target)), cell_(CompileNumber(word)) {}

    bool Run(Statement& /*statement*/) const override {
        double number = 0;
        Value* place = FindForChange(target_->symbol);
        if (place == nullptr || !cell_->Try(number)) return false;
        place->SetHeldNumber(number);
        return true;
    }

  private:
    TargetPtr target_;
    NumberNodePtr cell_;
};

// X＝Y or a constant, to a variable that exists.
class AssignCopy : public Action {
  public:
    AssignCopy(TargetPtr target, const Word& word) : target_(std::move(target)), word_(word) {}

    bool Run(Statement& /*statement*/) const override {
        Value* place = FindForChange(target_->symbol);
        const Value* value = place == nullptr ? nullptr : TryValue(word_.Plan());
        if (value == nullptr) return false;
        *place = *value;
        return true;
    }

  private:
    TargetPtr target_;
    Word word_;
};

// X＝A＆B…, where the parts are constants, variables, and what is computed.
class AssignJoin : public Action {
  public:
    static constexpr std::size_t kMostParts = 4;

    AssignJoin(TargetPtr target, const Word& word) : target_(std::move(target)), word_(word) {
        for (const Word& part : word.Plan().parts) parts_.emplace_back(part);
    }

    bool Run(Statement& /*statement*/) const override {
        Value* place = FindForChange(target_->symbol);
        if (place == nullptr) return false;
        std::array<const Value*, kMostParts> values;
        std::array<Value, kMostParts> computed;
        for (std::size_t i = 0; i < parts_.size(); ++i) {
            values[i] = parts_[i].Find(computed[i]);
            if (values[i] == nullptr || (values[i] == place && i > 0)) return false;
        }
        // X＝X＆…: the text grows.
        if (values[0] == place) return place->TryAppend({&values[1], parts_.size() - 1});
        return place->TryJoin({values.data(), parts_.size()});
    }

  private:
    class Part {
      public:
        explicit Part(const Word& word) : word_(word), number_(CompileNumber(word)) {}

        // The part's value, kept in place where it is computed; nullptr when something must be run.
        const Value* Find(Value& place) const {
            if (const Value* value = TryValue(word_)) return value;
            double number = 0;
            if (!number_->Try(number)) return nullptr;
            place.SetHeldNumber(number);
            return &place;
        }

      private:
        Word word_;
        NumberNodePtr number_;
    };

    TargetPtr target_;
    Word word_;
    std::vector<Part> parts_;
};

// 表（I）＝number.
class StoreCell : public Action {
  public:
    StoreCell(TargetPtr target, const Word& word)
        : target_(std::move(target)), index_(target_->subscript, 0), number_(CompileNumber(word)) {}

    bool Run(Statement& /*statement*/) const override {
        double number = 0;
        if (!number_->Try(number)) return false;
        Value* table = FindForChange(target_->symbol);
        return table != nullptr && index_.Store(*table, number);
    }

  private:
    TargetPtr target_;
    CellIndex index_;
    NumberNodePtr number_;
};

}  // namespace

ActionPtr CompileAssignment(const TargetPtr& target, const Word& word) {
    if (target->symbol == nullptr || target->unclosed || word.IsEmpty()) return ActionPtr();
    const WordPlan& plan = word.Plan();
    if (!plan.rewritten.empty()) return ActionPtr();
    if (target->indexed) return ActionPtr(new StoreCell(target, word));
    switch (plan.kind) {
        case PlanKind::kArithmetic:
            if (plan.expression->Tree() == nullptr) return ActionPtr();
            return ActionPtr(new AssignSum(target, word));
        case PlanKind::kCall: return ActionPtr(new AssignCell(target, word));
        case PlanKind::kJoin:
            if (plan.parts.size() > AssignJoin::kMostParts) return ActionPtr();
            return ActionPtr(new AssignJoin(target, word));
        case PlanKind::kNumber:
        case PlanKind::kText:
        case PlanKind::kName: return ActionPtr(new AssignCopy(target, word));
        default: return ActionPtr();
    }
}

}  // namespace velm
