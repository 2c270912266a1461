// Numbers. Arguments are read as far as they are numbers, so that ３０度 is 30; each step is done in
// double precision and in the written order, since the results show it.
#include "functions/number_functions.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/arguments.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/tables.h"
#include "core/word.h"
#include "core/word_lists.h"
#include "data/failure.h"
#include "data/hls_colors.h"
#include "data/numbers.h"
#include "data/width.h"

namespace velm {

namespace {

constexpr int kNumberTooLarge = 11;

// Kept: neither is the best value; angles of existing scripts are made with them.
constexpr double kPi = 3.14159;
constexpr double kRadiansInDegree = 0.017453277777777776;

constexpr double kRoundUpAddend = 0.9;
constexpr std::int32_t kHexBase = 16;
constexpr std::uint32_t kColorByteMost = 255;

struct RandomState {
    std::uint64_t value = 0;
};

RandomState randomState;

// ---- arguments and results ----

double NumberArgument(const Arguments& arguments) {
    Word number;
    arguments.SplitRaw(number);
    return EvalNumber(number);
}

struct ValueAndPlace {
    double value;
    double place;
};

ValueAndPlace PlaceArguments(const Arguments& arguments) {
    Word value;
    Word place;
    arguments.SplitRaw(value, place);
    const double number = EvalNumber(value);
    return {number, EvalNumber(place)};
}

struct BitOperands {
    std::int32_t left;
    std::int32_t right;
};

BitOperands BitArguments(const Arguments& arguments) {
    Word left;
    Word right;
    arguments.SplitRaw(left, right);
    const std::int32_t first = ToInt32(EvalNumber(left));
    return {first, ToInt32(EvalNumber(right))};
}

double Finite(double number) {
    if (!std::isfinite(number)) throw Failure(failure::kOverflow);
    return number;
}

double Quotient(double number, double divisor) {
    if (divisor == 0) throw Failure(failure::kDivisionByZero);
    return Finite(number / divisor);
}

double Root(double number) {
    if (number < 0) throw Failure(failure::kBadCall);
    return std::sqrt(number);
}

Value NumberResult(double number) { return Value::OfNumber(Finite(number)); }

// ---- rounding ----

double Scale(double place) { return Finite(std::pow(10.0, place)); }

double TruncateScaled(double value, double addend, double scale) {
    return Quotient(std::trunc(addend + Finite(value * scale)), scale);
}

// The tangent of the angle whose sine is x.
double TangentOfSine(double x) { return Quotient(x, Root(1 - x * x)); }

// ---- number bases ----

std::optional<int> HexDigit(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    const int letter = unit | 0x20;
    if (unit < 0x80 && letter >= 'a' && letter <= 'f') return letter - 'a' + 10;
    return std::nullopt;
}

// The hexadecimal form of the 32 bits, upper case, without zeros in front.
std::u16string HexOfBits(std::uint32_t bits) {
    std::u16string text;
    do {
        text.insert(text.begin(), u"0123456789ABCDEF"[bits % 16]);
        bits /= 16;
    } while (bits != 0);
    return text;
}

// ---- colours ----

std::uint32_t ColorByte(std::int16_t value) {
    if (value < 0) throw Failure(failure::kBadCall);
    return std::min<std::uint32_t>(static_cast<std::uint32_t>(value), kColorByteMost);
}

void CheckHls(std::int16_t value) {
    if (value < 0 || value > kHlsMost) throw Failure(failure::kBadCall);
}

struct ColorArguments {
    std::int16_t first;
    std::int16_t second;
    std::int16_t third;
};

ColorArguments ReadColorArguments(const Arguments& arguments) {
    Word first;
    Word second;
    Word third;
    arguments.SplitRaw(first, second, third);
    ColorArguments read = {};
    read.first = ToInt16(EvalNumber(first));
    read.second = ToInt16(EvalNumber(second));
    read.third = ToInt16(EvalNumber(third));
    return read;
}

}  // namespace

void FnDecimal(Value& result, Arguments& arguments) {
    std::u16string text;
    arguments.Split(text);
    const std::u16string narrow = ToHalfWidth(text);
    std::u16string_view digits = narrow;
    if (ToLower(digits.substr(0, 2)) == u"&h") digits.remove_prefix(2);
    double value = 0;
    for (const char16_t unit : digits) {
        const std::optional<int> digit = HexDigit(unit);
        if (!digit) throw Failure(failure::kTypeMismatch);
        value = value * kHexBase + *digit;
    }
    result = NumberResult(value);
}

void FnHexadecimal(Value& result, Arguments& arguments) {
    std::int32_t rest = ToInt32(NumberArgument(arguments));
    std::u16string text;
    do {
        // Kept: the remainder of a negative number is negative, and stands as its own 32 bits.
        text.insert(0, HexOfBits(static_cast<std::uint32_t>(rest % kHexBase)));
        rest /= kHexBase;
    } while (rest != 0);
    result = Value(std::move(text));
}

void FnTruncate(Value& result, Arguments& arguments) {
    const auto [value, place] = PlaceArguments(arguments);
    result = NumberResult(TruncateScaled(value, 0, Scale(place)));
}

void FnFloor(Value& result, Arguments& arguments) {
    result = NumberResult(std::floor(NumberArgument(arguments)));
}

// Kept: adds 0.9 before it cuts, so that 2.05 is 2 and 2.2 is 3.
void FnRoundUp(Value& result, Arguments& arguments) {
    const auto [value, place] = PlaceArguments(arguments);
    const double scale = Scale(place);
    const double scaled = Finite(value * scale);
    result = NumberResult(Quotient(std::floor(scaled + kRoundUpAddend), scale));
}

// Kept: a place above 0 counts one column less than it does for 切り捨て.
void FnRound(Value& result, Arguments& arguments) {
    auto [value, place] = PlaceArguments(arguments);
    const double addend = value < 0 ? -0.5 : 0.5;
    if (place > 0) place -= 1;
    result = NumberResult(TruncateScaled(value, addend, Scale(place)));
}

void FnAbsolute(Value& result, Arguments& arguments) {
    result = NumberResult(std::abs(NumberArgument(arguments)));
}

void FnSquareRoot(Value& result, Arguments& arguments) {
    result = NumberResult(Root(NumberArgument(arguments)));
}

// Kept: one number, and the base is e.
void FnPower(Value& result, Arguments& arguments) {
    result = NumberResult(std::exp(NumberArgument(arguments)));
}

void FnRandom(Value& result, Arguments& arguments) {
    Word most;
    arguments.SplitRaw(most);
    try {
        const std::int32_t count = ToInt32(EvalNumber(most) + 1);
        result = NumberResult(std::floor(NextRandom() * count));
    } catch (const Failure& failed) {
        if (failed.Number() != failure::kOverflow) throw;
        RaiseError(kNumberTooLarge, kIconStop, u"", u"", -1);
    }
}

void FnLog(Value& result, Arguments& arguments) {
    const double number = NumberArgument(arguments);
    if (number <= 0) throw Failure(failure::kBadCall);
    result = NumberResult(std::log(number));
}

void FnSine(Value& result, Arguments& arguments) {
    result = NumberResult(std::sin(NumberArgument(arguments) * kRadiansInDegree));
}

void FnCosine(Value& result, Arguments& arguments) {
    result = NumberResult(std::cos(NumberArgument(arguments) * kRadiansInDegree));
}

void FnTangent(Value& result, Arguments& arguments) {
    result = NumberResult(std::tan(NumberArgument(arguments) * kRadiansInDegree));
}

void FnArcTangent(Value& result, Arguments& arguments) {
    result = NumberResult(std::atan(NumberArgument(arguments)));
}

void FnArcSine(Value& result, Arguments& arguments) {
    result = NumberResult(std::atan(TangentOfSine(NumberArgument(arguments))));
}

void FnArcCosine(Value& result, Arguments& arguments) {
    const double tangent = TangentOfSine(NumberArgument(arguments));
    result = NumberResult(std::atan(-tangent) + 2 * std::atan(1.0));
}

void FnRadian(Value& result, Arguments& arguments) {
    result = NumberResult(NumberArgument(arguments) * kRadiansInDegree);
}

void FnPi(Value& result, Arguments&) { result = NumberResult(kPi); }

void FnOr(Value& result, Arguments& arguments) {
    const auto [left, right] = BitArguments(arguments);
    result = Value::OfInteger(left | right);
}

void FnAnd(Value& result, Arguments& arguments) {
    const auto [left, right] = BitArguments(arguments);
    result = Value::OfInteger(left & right);
}

void FnXor(Value& result, Arguments& arguments) {
    const auto [left, right] = BitArguments(arguments);
    result = Value::OfInteger(left ^ right);
}

void FnEquivalence(Value& result, Arguments& arguments) {
    const auto [left, right] = BitArguments(arguments);
    result = Value::OfInteger(~(left ^ right));
}

void FnImplication(Value& result, Arguments& arguments) {
    const auto [left, right] = BitArguments(arguments);
    result = Value::OfInteger(~left | right);
}

// A part above 255 counts as 255.
void FnRgb(Value& result, Arguments& arguments) {
    const auto [red, green, blue] = ReadColorArguments(arguments);
    const std::uint32_t color = ColorByte(red) | ColorByte(green) << 8 | ColorByte(blue) << 16;
    result = Value(ColorToText(static_cast<std::int32_t>(color)));
}

void FnHls(Value& result, Arguments& arguments) {
    const auto [hue, luminance, saturation] = ReadColorArguments(arguments);
    for (const std::int16_t part : {hue, luminance, saturation}) CheckHls(part);
    result = Value(ColorToText(ColorOfHls(hue, luminance, saturation)));
}

void SeedRandom(std::uint32_t seed) { randomState.value = seed; }

double NextRandom() {
    constexpr double kOneIn53Bits = 1.0 / 9007199254740992.0;
    randomState.value += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = randomState.value;
    mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EBU;
    mixed ^= mixed >> 31;
    return static_cast<double>(mixed >> 11) * kOneIn53Bits;
}

}  // namespace velm
