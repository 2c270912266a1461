// Cutting a text into fields.
#include "data/fields.h"

#include "data/brackets.h"
#include "data/text.h"

namespace velm {

namespace {

// The first separator of fields outside brackets at or behind the offset.
// Kept: the wide commas end the first field only.
std::size_t FindSeparator(std::u16string_view text, std::size_t offset, bool first,
                          BracketScanner& brackets) {
    for (std::size_t i = offset; i < text.size(); ++i) {
        const bool separator = first ? IsAnyComma(text[i]) : text[i] == u',';
        if (separator && !brackets.IsInside(i)) return i;
    }
    return kNotFound;
}

}  // namespace

// Kept: the search for the end of a field begins at its second character, so that a comma at the
// beginning of a text, or right behind a comma, is part of the field.
std::u16string_view FieldOf(std::u16string_view text, std::size_t n) {
    BracketScanner brackets(text, kQuotesAndWide);
    std::size_t from = 0;
    for (std::size_t field = 1;; ++field) {
        const std::size_t comma = FindSeparator(text, from + 1, field == 1, brackets);
        if (field == n) return text.substr(from, comma == kNotFound ? comma : comma - from);
        if (comma == kNotFound) return {};
        from = comma + 1;
    }
}

std::vector<std::uint32_t> FindFields(std::u16string_view text) {
    std::vector<std::uint32_t> starts = {0};
    BracketScanner brackets(text, kQuotesAndWide);
    while (starts.size() <= kLastField) {
        const std::size_t comma =
            FindSeparator(text, starts.back() + 1, starts.size() == 1, brackets);
        if (comma == kNotFound) break;
        starts.push_back(static_cast<std::uint32_t>(comma + 1));
    }
    return starts;
}

std::u16string_view FieldAt(std::u16string_view text, const std::vector<std::uint32_t>& starts,
                            std::size_t n) {
    if (n > starts.size()) return {};
    const std::size_t from = starts[n - 1];
    return text.substr(from, n < starts.size() ? starts[n] - 1 - from : kNotFound);
}

}  // namespace velm
