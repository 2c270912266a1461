// Number pictures. A section is read into a layout (its places, scale and exponent) and a list of
// parts; the number, held as decimal digits, is shifted and rounded for the layout, and then laid over
// the parts. Decimal digits throughout, so that 1.005 rounds to 1.01 as its text says.
#include "data/number_pictures.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

#include "data/numbers.h"

namespace velm {

namespace {

constexpr int kGroup = 3;

// ---- the number as digits ----

// 0.DIGITS times 10 to the power of point; zero has no digits.
struct Decimal {
    bool negative = false;
    std::u16string digits;
    std::int64_t point = 0;

    bool IsZero() const { return digits.empty(); }
};

void Normalise(Decimal& decimal) {
    const std::size_t first = decimal.digits.find_first_not_of(u'0');
    if (first == std::u16string::npos) {
        decimal.digits.clear();
        decimal.point = 0;
        return;
    }
    decimal.digits.erase(0, first);
    decimal.point -= static_cast<std::int64_t>(first);
    decimal.digits.erase(decimal.digits.find_last_not_of(u'0') + 1);
}

Decimal DecimalOf(double number) {
    const std::u16string text = FormatNumber(number);
    Decimal decimal;
    const std::size_t letter = std::min(text.find(u'E'), text.size());
    const std::size_t point = std::min(text.find(u'.'), letter);
    for (std::size_t i = 0; i < letter; ++i) {
        if (text[i] == u'-') decimal.negative = true;
        if (text[i] >= u'0' && text[i] <= u'9') decimal.digits.push_back(text[i]);
    }
    decimal.point = static_cast<std::int64_t>(point) - (decimal.negative ? 1 : 0);
    if (letter < text.size()) {
        decimal.point += TryInt32(TextToNumber(text.substr(letter + 1))).value_or(0);
    }
    Normalise(decimal);
    return decimal;
}

// Adds one to the last digit.
void Increase(Decimal& decimal) {
    std::size_t at = decimal.digits.size();
    while (at > 0 && decimal.digits[at - 1] == u'9') decimal.digits[--at] = u'0';
    if (at > 0) {
        ++decimal.digits[at - 1];
        return;
    }
    decimal.digits.insert(decimal.digits.begin(), u'1');
    ++decimal.point;
}

// Keeps so many digits behind the point, a half rounded away from zero.
void Round(Decimal& decimal, std::int64_t places) {
    const std::int64_t keep = decimal.point + places;
    const auto size = static_cast<std::int64_t>(decimal.digits.size());
    if (keep >= size) return;
    if (keep < 0) {
        decimal.digits.clear();
    } else {
        const bool up = decimal.digits[static_cast<std::size_t>(keep)] >= u'5';
        decimal.digits.resize(static_cast<std::size_t>(keep));
        if (up) Increase(decimal);
    }
    Normalise(decimal);
}

// The digit of the power of ten, '0' where none is written.
char16_t DigitAt(const Decimal& decimal, std::int64_t power) {
    const std::int64_t index = decimal.point - 1 - power;
    const bool written = index >= 0 && index < static_cast<std::int64_t>(decimal.digits.size());
    return written ? decimal.digits[static_cast<std::size_t>(index)] : u'0';
}

// ---- the section ----

enum class PartKind { kLiteral, kPlace, kPoint, kDecimalPlace, kExponent };

struct Part {
    PartKind kind;
    char16_t unit;  // the literal, the exponent letter, or 0 or # of a place
};

struct Layout {
    std::vector<Part> parts;
    std::int64_t places = 0;    // in front of the point
    std::int64_t minimum = 0;   // how many of them show a digit always
    std::int64_t decimals = 0;  // behind it
    std::int64_t mustShow = 0;  // the decimals up to the last 0
    std::int64_t shift = 0;     // the power of ten from % and scaling commas
    std::size_t exponentDigits = 0;
    bool grouped = false;
    bool hasPoint = false;
    bool percent = false;
    bool hasExponent = false;
    bool exponentPlus = false;
};

bool IsPlace(const PictureUnit& unit) { return unit.Is(u'0') || unit.Is(u'#'); }

class LayoutReader {
  public:
    explicit LayoutReader(PictureSection section) : section_(section) {
        for (std::size_t i = 0; i < section.size() && !section[i].Is(u'.'); ++i) {
            if (IsPlace(section[i])) lastPlace_ = i;
        }
    }

    Layout Read() {
        while (at_ < section_.size()) ReadUnit();
        if (layout_.percent) layout_.shift += 2;
        return std::move(layout_);
    }

  private:
    void ReadUnit() {
        const PictureUnit& unit = section_[at_];
        if (IsPlace(unit)) {
            AddPlace(unit.unit);
        } else if (unit.Is(u'.') && !layout_.hasPoint && !layout_.hasExponent) {
            layout_.hasPoint = true;
            layout_.parts.push_back({PartKind::kPoint, u'.'});
        } else if (unit.Is(u',') && TakeComma()) {
            ++at_;
            return;
        } else if (AtExponent()) {
            ReadExponent();
            return;
        } else {
            layout_.percent = layout_.percent || unit.Is(u'%');
            layout_.parts.push_back({PartKind::kLiteral, unit.unit});
        }
        ++at_;
    }

    void AddPlace(char16_t unit) {
        if (layout_.hasExponent) {
            layout_.parts.push_back({PartKind::kLiteral, unit});
        } else if (layout_.hasPoint) {
            layout_.parts.push_back({PartKind::kDecimalPlace, unit});
            ++layout_.decimals;
            if (unit == u'0') layout_.mustShow = layout_.decimals;
        } else {
            layout_.parts.push_back({PartKind::kPlace, unit});
            ++layout_.places;
            if (unit == u'0' || layout_.minimum > 0) ++layout_.minimum;
        }
    }

    // A comma between places groups, one behind the last place in front of the point scales.
    bool TakeComma() {
        const bool hasPlaces = layout_.places > 0 || layout_.decimals > 0;
        if (!hasPlaces || layout_.hasExponent) return false;
        if (layout_.hasPoint) return true;
        if (at_ < lastPlace_) {
            layout_.grouped = true;
        } else {
            layout_.shift -= kGroup;
        }
        return true;
    }

    bool AtExponent() const {
        const PictureUnit& unit = section_[at_];
        const bool hasPlaces = layout_.places > 0 || layout_.decimals > 0;
        if (!hasPlaces || layout_.hasExponent || !(unit.Is(u'E') || unit.Is(u'e'))) return false;
        if (at_ + 2 >= section_.size() || !IsPlace(section_[at_ + 2])) return false;
        return section_[at_ + 1].Is(u'+') || section_[at_ + 1].Is(u'-');
    }

    void ReadExponent() {
        layout_.hasExponent = true;
        layout_.exponentPlus = section_[at_ + 1].Is(u'+');
        layout_.parts.push_back({PartKind::kExponent, section_[at_].unit});
        at_ += 2;
        for (; at_ < section_.size() && IsPlace(section_[at_]); ++at_) {
            if (section_[at_].Is(u'0')) ++layout_.exponentDigits;
        }
    }

    PictureSection section_;
    std::size_t at_ = 0;
    std::size_t lastPlace_ = 0;  // in front of the point
    Layout layout_;
};

// ---- both together ----

// A decimal made ready for a layout.
struct Fitted {
    Decimal decimal;
    std::int64_t exponent = 0;
};

Fitted Fit(Decimal decimal, const Layout& layout) {
    Fitted fitted;
    if (!decimal.IsZero()) decimal.point += layout.shift;
    if (layout.hasExponent && !decimal.IsZero()) {
        fitted.exponent = decimal.point - layout.places;
        decimal.point = layout.places;
        Round(decimal, layout.decimals);
        // 9.99 that became 10.0 has a digit too many for its places.
        fitted.exponent += decimal.point - layout.places;
        decimal.point = layout.places;
    } else if (layout.places + layout.decimals > 0) {
        Round(decimal, layout.decimals);
    }
    fitted.decimal = std::move(decimal);
    return fitted;
}

class Writer {
  public:
    Writer(const Fitted& fitted, const Layout& layout)
        : decimal_(fitted.decimal), exponent_(fitted.exponent), layout_(layout) {
        const std::int64_t written =
            decimal_.IsZero() ? 0 : std::max<std::int64_t>(decimal_.point, 0);
        integerDigits_ = std::max(written, layout.minimum);
        const auto size = static_cast<std::int64_t>(decimal_.digits.size());
        shownDecimals_ = std::max(layout.mustShow, size - decimal_.point);
    }

    std::u16string Write() {
        std::int64_t place = layout_.places;
        std::int64_t decimal = 0;
        for (const Part& part : layout_.parts) {
            switch (part.kind) {
                case PartKind::kLiteral: text_.push_back(part.unit); break;
                case PartKind::kPlace: AddPlace(--place); break;
                case PartKind::kPoint: AddPoint(); break;
                case PartKind::kDecimalPlace: AddDecimal(decimal++); break;
                case PartKind::kExponent: AddExponent(part.unit); break;
            }
        }
        return std::move(text_);
    }

  private:
    // The first place takes the digits that have no place of their own, too.
    void AddPlace(std::int64_t power) {
        const std::int64_t highest = power + 1 == layout_.places ? integerDigits_ - 1 : power;
        for (std::int64_t at = highest; at >= power; --at) {
            if (at < integerDigits_) AddDigit(at);
        }
    }

    void AddDigit(std::int64_t power) {
        text_.push_back(DigitAt(decimal_, power));
        if (layout_.grouped && power > 0 && power % kGroup == 0) text_.push_back(u',');
    }

    void AddPoint() {
        if (layout_.places == 0) {
            for (std::int64_t at = integerDigits_ - 1; at >= 0; --at) AddDigit(at);
        }
        text_.push_back(u'.');
    }

    void AddDecimal(std::int64_t index) {
        if (index < shownDecimals_) text_.push_back(DigitAt(decimal_, -1 - index));
    }

    void AddExponent(char16_t letter) {
        text_.push_back(letter);
        if (exponent_ < 0) {
            text_.push_back(u'-');
        } else if (layout_.exponentPlus) {
            text_.push_back(u'+');
        }
        const std::u16string digits = FormatNumber(static_cast<double>(std::abs(exponent_)));
        if (digits.size() < layout_.exponentDigits) {
            text_.append(layout_.exponentDigits - digits.size(), u'0');
        }
        text_.append(digits);
    }

    const Decimal& decimal_;
    std::int64_t exponent_;
    const Layout& layout_;
    std::int64_t integerDigits_ = 0;
    std::int64_t shownDecimals_ = 0;
    std::u16string text_;
};

enum SectionIndex : std::size_t { kPositive, kNegative, kZero };

bool HasSection(const std::vector<PictureSection>& sections, std::size_t index) {
    return index < sections.size() && !sections[index].empty();
}

}  // namespace

std::u16string FormatNumberPicture(double number, const PictureUnits& picture) {
    const std::vector<PictureSection> sections = SplitSections(picture);
    const Decimal decimal = DecimalOf(number);
    const bool ownNegative = decimal.negative && HasSection(sections, kNegative);
    Layout layout = LayoutReader(sections[ownNegative ? kNegative : kPositive]).Read();
    Fitted fitted = Fit(decimal, layout);
    const bool hasPlaces = layout.places + layout.decimals > 0;
    const bool isZero = hasPlaces ? fitted.decimal.IsZero() : decimal.IsZero();
    if (isZero && HasSection(sections, kZero)) {
        layout = LayoutReader(sections[kZero]).Read();
        fitted = Fit(Decimal(), layout);
    }
    const bool signedFront = decimal.negative && !ownNegative && !isZero;
    return (signedFront ? u"-" : u"") + Writer(fitted, layout).Write();
}

std::u16string FormatNumberPicture(double number, std::u16string_view picture) {
    return FormatNumberPicture(number, ReadPicture(picture));
}

}  // namespace velm
