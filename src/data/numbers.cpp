// Numbers to and from text. Reading: a tight loop for plain short numbers, a scanner for the rest.
// Writing: integers at once, other numbers by 15 decimal digits that are rounded exactly.
#include "data/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>

#include "data/failure.h"

namespace velm {
namespace {

constexpr int kDigits = 15;
constexpr int kSingleDigits = 7;
constexpr double kIntegerLimit = 1e15;
constexpr int kLowestPlainExponent = -4;

// Every power of ten that a double holds exactly.
constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

double PowerOfTen(int exponent) { return kPowersOfTen[static_cast<std::size_t>(exponent)]; }

// ---- reading ----

bool IsBlank(char16_t unit) { return unit == u' ' || unit == u'\u3000'; }

char16_t Narrowed(char16_t unit) {
    return unit >= u'！' && unit <= u'～' ? static_cast<char16_t>(unit - (u'！' - u'!')) : unit;
}

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

std::u16string_view WithoutBlanksInFront(std::u16string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    return text;
}

std::u16string_view WithoutBlanksBehind(std::u16string_view text) {
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

// Reads ASCII digits with at most a sign and a point. The digits and the power of ten are exact as
// doubles then, so that one division rounds correctly. False: not of this form, or too long for it.
bool ReadShortNumber(std::u16string_view text, double& number) {
    if (text.empty() || text.size() > kDigits + 2) return false;
    const bool negative = text.front() == u'-';
    std::uint64_t value = 0;
    int digits = 0;
    int digitsBeforePoint = -1;
    for (std::size_t at = negative || text.front() == u'+' ? 1 : 0; at < text.size(); ++at) {
        if (IsDigit(text[at])) {
            value = value * 10 + (text[at] - u'0');
            ++digits;
        } else if (text[at] == u'.' && digitsBeforePoint < 0) {
            digitsBeforePoint = digits;
        } else {
            return false;
        }
    }
    if (digits == 0 || digits > kDigits) return false;
    number = static_cast<double>(value);
    if (digitsBeforePoint >= 0) number /= PowerOfTen(digits - digitsBeforePoint);
    if (negative && value != 0) number = -number;
    return true;
}

// Whether a decimal text that no double can hold is too small (and not too large) for one: whether
// its first significant digit stands behind the point.
bool IsTooSmall(std::string_view plain) {
    const std::size_t letter = std::min(plain.find('e'), plain.size());
    const std::string_view mantissa = plain.substr(0, letter);
    std::int64_t exponent = 0;
    if (letter < plain.size()) {
        const bool negative = plain[letter + 1] == '-';
        const char* const end = plain.data() + plain.size();
        const auto result = std::from_chars(plain.data() + letter + 1, end, exponent);
        if (result.ec == std::errc::result_out_of_range) return negative;
    }
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    return exponent < first - point;
}

// Collects the number at the beginning of a text in the plain form that the library reads.
class NumberScanner {
  public:
    explicit NumberScanner(std::u16string_view text) : text_(text) {}

    // False where there is no number, or where commas do not group it.
    bool Scan(bool withCommas) {
        const char16_t sign = Peek();
        if (sign == u'+' || sign == u'-') ++at_;
        if (sign == u'-') plain_.push_back('-');
        std::size_t digits = TakeDigits();
        if (withCommas && digits >= 1 && digits <= 3 && !TakeGroups()) return false;
        if (Peek() == u'.') {
            ++at_;
            plain_.push_back('.');
            digits += TakeDigits();
        }
        if (digits > 0) TakeExponent();
        return digits > 0;
    }

    bool AtEnd() const { return at_ == text_.size(); }

    std::optional<double> Number() const {
        double number = 0;
        const char* const end = plain_.data() + plain_.size();
        const std::errc error = std::from_chars(plain_.data(), end, number).ec;
        if (error == std::errc::result_out_of_range) {
            if (!IsTooSmall(plain_)) return std::nullopt;
            return 0.0;
        }
        if (!std::isfinite(number)) return std::nullopt;
        return number + 0.0;  // -0 becomes 0
    }

  private:
    char16_t Peek() const { return AtEnd() ? char16_t{0} : Narrowed(text_[at_]); }

    std::size_t TakeDigits() {
        const std::size_t begin = at_;
        for (; IsDigit(Peek()); ++at_) plain_.push_back(static_cast<char>(Peek()));
        return at_ - begin;
    }

    // Only the ASCII comma groups: the full-width one always separates items.
    bool TakeGroups() {
        while (!AtEnd() && text_[at_] == u',') {
            ++at_;
            if (TakeDigits() != 3) return false;
        }
        return true;
    }

    // An exponent letter without digits behind it belongs to what follows the number.
    void TakeExponent() {
        const char16_t letter = Peek() | 0x20;
        if (letter != u'e' && letter != u'd') return;
        const std::size_t atBefore = at_++;
        const std::size_t sizeBefore = plain_.size();
        const char16_t sign = Peek();
        const bool hasSign = sign == u'+' || sign == u'-';
        if (hasSign) ++at_;
        plain_.append(sign == u'-' ? "e-" : "e");
        if (TakeDigits() > 0) return;
        at_ = atBefore;
        plain_.resize(sizeBefore);
    }

    std::u16string_view text_;
    std::size_t at_ = 0;
    std::string plain_;
};

bool MayBeginNumber(char16_t unit) {
    const char16_t narrow = Narrowed(unit);
    return IsDigit(narrow) || narrow == u'-' || narrow == u'+' || narrow == u'.' || narrow == u'(';
}

// Cuts the accountant's brackets, of one width both, off a text that has them around digits.
bool CutBrackets(std::u16string_view& text) {
    if (text.size() < 3) return false;
    const bool half = text.front() == u'(' && text.back() == u')';
    const bool full = text.front() == u'（' && text.back() == u'）';
    const char16_t first = Narrowed(text[1]);
    if ((!half && !full) || first == u'-' || first == u'+') return false;
    text = text.substr(1, text.size() - 2);
    return true;
}

// ---- writing ----

// A number as digits without trailing zeros and the power of ten of the first digit.
struct Decimal {
    bool negative = false;
    int exponent = 0;
    std::size_t size = 0;
    std::array<char, kDigits + 1> digits{};
};

// number * scale, rounded to the nearest integer as if the product had no rounding of its own. The
// product and its error are both known exactly, so that a near tie is decided rightly.
double RoundedProduct(double number, double scale) {
    const double product = number * scale;
    const double error = std::fma(number, scale, -product);
    const double rounded = std::nearbyint(product);
    const double rest = product - rounded;
    if (rest == 0.5 && error > 0) return rounded + 1;
    if (rest == -0.5 && error < 0) return rounded - 1;
    // From 2^52 on the product is whole, and the tie is in the error.
    if (std::abs(error) == 0.5 && std::fmod(rounded, 2) != 0) return rounded + 2 * error;
    return rounded;
}

// The 15 significant digits of a number as an integer, with the number of places behind the point.
struct Scaled {
    double digits;
    int places;
};

// Only where the scale is an exact power of ten.
bool CanScale(double magnitude) { return magnitude >= 1e-7 && magnitude < kIntegerLimit; }

Scaled ScaleToDigits(double magnitude) {
    constexpr double kLog10Of2 = 0.30102999566398119;
    // At most one too low: the first digit's power of ten from the power of two.
    const int exponent = static_cast<int>(std::floor(std::ilogb(magnitude) * kLog10Of2));
    int places = kDigits - 1 - exponent;
    if (magnitude * PowerOfTen(places) >= kIntegerLimit) --places;
    return {RoundedProduct(magnitude, PowerOfTen(places)), places};
}

void TakeDigits(Decimal& decimal, const char* begin, const char* end) {
    for (const char* at = begin; at != end && decimal.size < decimal.digits.size(); ++at) {
        if (*at != '.') decimal.digits[decimal.size++] = *at;
    }
    while (decimal.size > 1 && decimal.digits[decimal.size - 1] == '0') --decimal.size;
}

Decimal DecimalByLibrary(double magnitude, int digits) {
    std::array<char, 40> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                      std::chars_format::scientific, digits - 1);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(result.ptr - &buffer[0]));
    const std::size_t letter = text.find('e');
    Decimal decimal;
    TakeDigits(decimal, text.data(), text.data() + letter);
    const std::size_t exponentAt = letter + (text[letter + 1] == '+' ? 2 : 1);
    std::from_chars(text.data() + exponentAt, text.data() + text.size(), decimal.exponent);
    return decimal;
}

Decimal DecimalByScale(double magnitude) {
    const Scaled scaled = ScaleToDigits(magnitude);
    std::array<char, 20> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                      static_cast<std::uint64_t>(scaled.digits));
    Decimal decimal;
    decimal.exponent = static_cast<int>(result.ptr - buffer.data()) - 1 - scaled.places;
    TakeDigits(decimal, buffer.data(), result.ptr);
    return decimal;
}

class NumberText {
  public:
    NumberText(double number, int digits) {
        if (!std::isfinite(number)) number = 0;
        if (std::abs(number) < PowerOfTen(digits) && number == std::trunc(number)) {
            AddInteger(static_cast<std::int64_t>(number));
            return;
        }
        const double magnitude = std::abs(number);
        const bool byScale = digits == kDigits && CanScale(magnitude);
        const Decimal decimal =
            byScale ? DecimalByScale(magnitude) : DecimalByLibrary(magnitude, digits);
        if (number < 0) Add('-');
        if (decimal.exponent >= digits || decimal.exponent < kLowestPlainExponent) {
            AddExponentForm(decimal);
        } else {
            AddPlainForm(decimal);
        }
    }

    const char* begin() const { return buffer_.data(); }
    const char* end() const { return buffer_.data() + size_; }

  private:
    void Add(char unit) { buffer_[size_++] = unit; }

    void AddInteger(std::int64_t integer) {
        char* const at = buffer_.data() + size_;
        const auto result = std::to_chars(at, buffer_.data() + buffer_.size(), integer);
        size_ += static_cast<std::size_t>(result.ptr - at);
    }

    void AddDigits(const Decimal& decimal, std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) Add(i < decimal.size ? decimal.digits[i] : '0');
    }

    void AddExponentForm(const Decimal& decimal) {
        Add(decimal.digits[0]);
        if (decimal.size > 1) Add('.');
        AddDigits(decimal, 1, decimal.size);
        Add('E');
        Add(decimal.exponent < 0 ? '-' : '+');
        const int exponent = std::abs(decimal.exponent);
        if (exponent < 10) Add('0');
        AddInteger(exponent);
    }

    void AddPlainForm(const Decimal& decimal) {
        std::size_t whole = 0;
        if (decimal.exponent < 0) {
            Add('0');
        } else {
            whole = static_cast<std::size_t>(decimal.exponent) + 1;
            AddDigits(decimal, 0, whole);
        }
        if (whole >= decimal.size) return;
        Add('.');
        for (int i = decimal.exponent; i < -1; ++i) Add('0');
        AddDigits(decimal, whole, decimal.size);
    }

    std::array<char, 32> buffer_;
    std::size_t size_ = 0;
};

std::u16string ToText(const NumberText& text) { return {text.begin(), text.end()}; }

// Texts of single digits to fifteen, without a sign that would be lost and zeros in front.
bool IsCanonicalInteger(std::u16string_view text) {
    if (text == u"0") return true;
    if (text.front() == u'-') text.remove_prefix(1);
    if (text.empty() || text.size() > kDigits || text.front() == u'0') return false;
    for (const char16_t unit : text) {
        if (!IsDigit(unit)) return false;
    }
    return true;
}

template <typename Integer>
std::optional<Integer> NearestInteger(double number) {
    constexpr double kLowest = std::numeric_limits<Integer>::min();
    constexpr double kHighest = std::numeric_limits<Integer>::max();
    // Most numbers are whole.
    const bool inRange = number >= kLowest && number <= kHighest;
    if (inRange && static_cast<Integer>(number) == number) return static_cast<Integer>(number);
    const double rounded = std::nearbyint(number);
    if (!(rounded >= kLowest && rounded <= kHighest)) return std::nullopt;
    return static_cast<Integer>(rounded);
}

template <typename Integer>
Integer NearestOrFailure(double number) {
    const std::optional<Integer> integer = NearestInteger<Integer>(number);
    if (!integer) throw Failure(failure::kOverflow);
    return *integer;
}

std::optional<std::uint32_t> HexDigit(char16_t unit) {
    if (IsDigit(unit)) return unit - u'0';
    const char16_t lower = unit | 0x20;
    if (lower >= u'a' && lower <= u'f') return lower - u'a' + 10;
    return std::nullopt;
}

std::optional<std::int32_t> ReadHex(std::u16string_view digits) {
    if (digits.size() > 8) return std::nullopt;
    std::uint32_t value = 0;
    for (const char16_t unit : digits) {
        const std::optional<std::uint32_t> digit = HexDigit(unit);
        if (!digit) return std::nullopt;
        value = value * 16 + *digit;
    }
    return static_cast<std::int32_t>(value);
}

}  // namespace

std::optional<double> ParseNumber(std::u16string_view text) {
    double number = 0;
    if (ReadShortNumber(text, number)) return number;
    text = WithoutBlanksInFront(text);
    if (text.empty() || !MayBeginNumber(text.front())) return std::nullopt;
    text = WithoutBlanksBehind(text);
    const bool negative = CutBrackets(text);
    NumberScanner scanner(text);
    if (!scanner.Scan(true) || !scanner.AtEnd()) return std::nullopt;
    const std::optional<double> parsed = scanner.Number();
    if (negative && parsed) return 0.0 - *parsed;
    return parsed;
}

bool IsNumeric(std::u16string_view text) { return ParseNumber(text).has_value(); }

double TextToNumber(std::u16string_view text) {
    const std::optional<double> number = ParseNumber(text);
    return number ? *number : NumericPrefix(text);
}

double NumericPrefix(std::u16string_view text) {
    text = WithoutBlanksInFront(text);
    if (text.empty() || !MayBeginNumber(text.front())) return 0;
    NumberScanner scanner(text);
    if (!scanner.Scan(false)) return 0;
    const std::optional<double> number = scanner.Number();
    if (!number) throw Failure(failure::kOverflow);
    return *number;
}

std::u16string FormatSingle(float number) {
    return ToText(NumberText(static_cast<double>(number), kSingleDigits));
}

namespace {

// The digits of 0 to 99.
constexpr std::array<char16_t, 200> kDigitPairs = [] {
    std::array<char16_t, 200> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const std::size_t number = i / 2;
        pairs[i] = static_cast<char16_t>(u'0' + (i % 2 == 0 ? number / 10 : number % 10));
    }
    return pairs;
}();

// The common case of WriteNumber, told by pairs of digits from the last one.
char16_t* WriteShortInteger(char16_t* at, double number) {
    auto rest = static_cast<std::uint64_t>(std::abs(number));
    if (number < 0) *at++ = u'-';
    char16_t* end = at + 1;
    for (std::uint64_t limit = 10; rest >= limit; limit *= 10) ++end;
    char16_t* digit = end;
    for (; rest >= 10; rest /= 100) {
        digit -= 2;
        std::copy_n(&kDigitPairs[rest % 100 * 2], 2, digit);
    }
    if (digit != at) *at = static_cast<char16_t>(u'0' + rest);
    return end;
}

}  // namespace

char16_t* WriteNumber(char16_t* at, double number) {
    if (IsShortInteger(number)) return WriteShortInteger(at, number);
    const NumberText digits(number, kDigits);
    return std::copy(digits.begin(), digits.end(), at);
}

void AppendNumber(std::u16string& text, double number) {
    char16_t digits[kLongestNumber];
    text.append(digits, static_cast<std::size_t>(WriteNumber(digits, number) - digits));
}

std::u16string FormatNumber(double number) {
    std::u16string text;
    AppendNumber(text, number);
    return text;
}

double RoundFraction(double number) {
    const double magnitude = std::abs(number);
    if (CanScale(magnitude)) {
        const Scaled scaled = ScaleToDigits(magnitude);
        return std::copysign(scaled.digits / PowerOfTen(scaled.places), number) + 0.0;
    }
    if (!std::isfinite(number)) return number;
    const NumberText text(number, kDigits);
    double rounded = number;
    // Beyond the largest double the target stays untouched, which is the number itself.
    std::from_chars(text.begin(), text.end(), rounded);
    return std::isfinite(rounded) ? rounded + 0.0 : number;
}

bool IsCanonicalNumber(std::u16string_view text, double& number) {
    if (text.empty() || !(IsDigit(text.front()) || text.front() == u'-')) return false;
    if (IsCanonicalInteger(text)) return ReadShortNumber(text, number);
    if (text.size() > kLongestNumber) return false;
    const std::optional<double> parsed = ParseNumber(text);
    if (!parsed) return false;
    const NumberText canonical(*parsed, kDigits);
    const bool same = std::equal(text.begin(), text.end(), canonical.begin(), canonical.end(),
                                 [](char16_t unit, char digit) { return unit == char16_t(digit); });
    if (same) number = *parsed;
    return same;
}

double RoundPlacesOfFraction(double number) {
    constexpr double kFirstWithoutPlaces = 8;
    if (!(std::abs(number) < kFirstWithoutPlaces)) return number;
    return RoundedProduct(number, kIntegerLimit) / kIntegerLimit + 0.0;
}

std::int32_t ToInt32(double number) { return NearestOrFailure<std::int32_t>(number); }

std::int16_t ToInt16(double number) { return NearestOrFailure<std::int16_t>(number); }

std::optional<std::int32_t> TryInt32(double number) { return NearestInteger<std::int32_t>(number); }

std::optional<std::int32_t> ParseInt32(std::u16string_view text) {
    const bool isHex = text.size() >= 2 && text[0] == u'&' && (text[1] | 0x20) == u'h';
    if (isHex) return ReadHex(text.substr(2));
    const std::optional<double> number = ParseNumber(text);
    return number ? TryInt32(*number) : std::nullopt;
}

}  // namespace velm
