// Margins of a page.
#include "platform/qt/page_margins.h"

#include <QPrinter>
#include <array>
#include <cmath>
#include <vector>

#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"

namespace velm {

namespace {

constexpr double kHundredths = 100;  // in a millimetre

}  // namespace

std::u16string MarginsText(const QPrinter& printer) {
    const QMarginsF margins = printer.pageLayout().margins(QPageLayout::Millimeter);
    std::u16string text;
    for (const double side : {margins.left(), margins.top(), margins.right(), margins.bottom()}) {
        if (!text.empty()) text += u',';
        AppendNumber(text, std::round(side * kHundredths));
    }
    return text;
}

void SetMargins(QPrinter& printer, std::u16string_view text) {
    const std::vector<std::u16string> items = ParseList(text);
    std::array<double, 4> sides = {};
    if (items.size() != sides.size()) throw Failure(failure::kBadCall);
    for (std::size_t i = 0; i < sides.size(); ++i) {
        const auto number = ParseNumber(items[i]);
        if (!number) throw Failure(failure::kTypeMismatch);
        if (*number < 0) throw Failure(failure::kBadCall);
        sides[i] = *number / kHundredths;
    }
    const QMarginsF margins(sides[0], sides[1], sides[2], sides[3]);
    if (!printer.setPageMargins(margins, QPageLayout::Millimeter)) throw Failure(failure::kBadCall);
}

}  // namespace velm
