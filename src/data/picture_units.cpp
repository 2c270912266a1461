// Quotes, backslashes and semicolons of pictures.
#include "data/picture_units.h"

#include <cstddef>

namespace velm {

PictureUnits ReadPicture(std::u16string_view picture) {
    PictureUnits units;
    units.reserve(picture.size());
    bool quoted = false;
    for (std::size_t i = 0; i < picture.size(); ++i) {
        if (picture[i] == u'"') {
            quoted = !quoted;
        } else if (!quoted && picture[i] == u'\\' && i + 1 < picture.size()) {
            units.push_back({picture[++i], true});
        } else {
            // A backslash at the end has nothing to protect and stands for itself.
            units.push_back({picture[i], quoted || picture[i] == u'\\'});
        }
    }
    return units;
}

std::vector<PictureSection> SplitSections(const PictureUnits& units) {
    std::vector<PictureSection> sections;
    const PictureSection all(units);
    std::size_t from = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!all[i].Is(u';')) continue;
        sections.push_back(all.subspan(from, i - from));
        from = i + 1;
    }
    sections.push_back(all.subspan(from));
    return sections;
}

}  // namespace velm
