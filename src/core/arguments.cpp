// Reading the arguments of function calls.
#include "core/arguments.h"

#include <cmath>
#include <limits>
#include <optional>

#include "core/eval.h"
#include "core/short_roads.h"
#include "core/word_plan.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/numbers.h"

namespace velm {

Arguments::Arguments(std::u16string_view joined) : text_(joined) {
    if (!joined.empty()) words_ = CutWords(joined);
}

void Arguments::CheckCount(std::size_t targets) const {
    if (words_.size() > targets) throw Failure(failure::kSubscript);
}

void Arguments::ReadRaw(std::size_t index, Word& target) const {
    if (index < words_.size()) target = words_[index];
}

void Arguments::Read(std::size_t index, Value& target) const {
    if (!Has(index)) return;
    if (const Value* value = TryValue(words_[index])) {
        target = *value;
    } else {
        target = EvalWord(words_[index]);
    }
}

void Arguments::Read(std::size_t index, std::u16string& target) const {
    if (Has(index)) target = EvalWord(words_[index]).Text();
}

void Arguments::Read(std::size_t index, std::int16_t& target) const {
    if (Has(index)) target = ToInt16(NumberAt(index));
}

void Arguments::Read(std::size_t index, std::int32_t& target) const {
    if (Has(index)) target = ToInt32(NumberAt(index));
}

void Arguments::Read(std::size_t index, float& target) const {
    if (Has(index)) target = ToFloat(NumberAt(index));
}

void Arguments::Read(std::size_t index, double& target) const {
    if (Has(index)) target = NumberAt(index);
}

bool Arguments::TryNumber(std::size_t index, double& number) const {
    if (!kShortRoads) return false;
    if (numbers_.empty()) {
        for (const Word& word : words_) numbers_.push_back(CompileNumber(word));
    }
    return numbers_[index]->Try(number);
}

double Arguments::NumberAt(std::size_t index) const {
    double number = 0;
    return TryNumber(index, number) ? number : ToDouble(EvalWord(words_[index]));
}

double ToDouble(const Value& value) {
    const std::optional<double> number = value.Number();
    if (!number) throw Failure(failure::kTypeMismatch);
    return *number;
}

float ToFloat(double number) {
    constexpr auto kLargest = static_cast<double>(std::numeric_limits<float>::max());
    if (!(std::abs(number) <= kLargest)) throw Failure(failure::kOverflow);
    return static_cast<float>(number);
}

}  // namespace velm
