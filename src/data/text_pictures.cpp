// Text pictures.
#include "data/text_pictures.h"

#include <algorithm>
#include <cstddef>

#include "data/width.h"

namespace velm {

namespace {

struct TextLayout {
    std::size_t places = 0;
    bool fromLeft = false;
    char16_t letterCase = 0;
};

bool IsPlace(const PictureUnit& unit) { return unit.Is(u'@') || unit.Is(u'&'); }

bool IsSwitch(const PictureUnit& unit) { return unit.Is(u'<') || unit.Is(u'>') || unit.Is(u'!'); }

TextLayout ReadLayout(PictureSection section) {
    TextLayout layout;
    for (const PictureUnit& unit : section) {
        if (IsPlace(unit)) ++layout.places;
        if (unit.Is(u'!')) layout.fromLeft = true;
        if (unit.Is(u'<') || unit.Is(u'>')) layout.letterCase = unit.unit;
    }
    return layout;
}

std::u16string InCase(std::u16string_view text, char16_t letterCase) {
    if (letterCase == u'<') return ToLower(text);
    if (letterCase == u'>') return ToUpper(text);
    return std::u16string(text);
}

// Where the units of the text that belong to one place begin and end.
struct Range {
    std::size_t begin;
    std::size_t end;
};

Range RangeOfPlace(std::size_t place, std::size_t size, const TextLayout& layout) {
    if (layout.fromLeft) {
        const bool isLast = place + 1 == layout.places;
        return {std::min(place, size), isLast ? size : std::min(place + 1, size)};
    }
    const std::size_t missing = layout.places - std::min(layout.places, size);
    if (place < missing) return {0, 0};
    const std::size_t end = size - (layout.places - 1 - place);
    return {place == 0 ? 0 : end - 1, end};
}

}  // namespace

std::u16string FormatTextPicture(std::u16string_view text, const PictureUnits& picture) {
    const std::vector<PictureSection> sections = SplitSections(picture);
    const bool forEmpty = text.empty() && sections.size() > 1 && !sections[1].empty();
    const PictureSection section = sections[forEmpty ? 1 : 0];
    const TextLayout layout = ReadLayout(section);
    const std::u16string value = InCase(text, layout.letterCase);
    std::u16string result;
    std::size_t place = 0;
    bool standsWhole = layout.places == 0;
    for (const PictureUnit& unit : section) {
        if (IsPlace(unit)) {
            const Range range = RangeOfPlace(place++, value.size(), layout);
            result.append(value, range.begin, range.end - range.begin);
            if (range.begin == range.end && unit.Is(u'@')) result.push_back(u' ');
        } else if (!IsSwitch(unit)) {
            result.push_back(unit.unit);
        } else if (standsWhole) {
            result.append(value);
            standsWhole = false;
        }
    }
    return result;
}

}  // namespace velm
