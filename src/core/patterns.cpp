// Matching with reports.
#include "core/patterns.h"

#include <memory>
#include <string>

#include "core/diagnostics.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "platform/regex.h"

namespace velm {

namespace {

constexpr int kBadPattern = 38;

void CollectMatches(const Regex& regex, std::u16string_view text,
                    std::vector<std::u16string_view>& matches) {
    RegexMatch match;
    std::size_t from = 0;
    while (from <= text.size() && regex.Search(text, from, match)) {
        matches.push_back(match[0].Of(text));
        from = match[0].to + (match[0].IsEmpty() ? 1 : 0);
    }
}

}  // namespace

std::vector<std::u16string_view> RegexMatches(std::u16string_view pattern,
                                              std::u16string_view text) {
    std::vector<std::u16string_view> matches;
    const bool done =
        Attempt([&] { CollectMatches(*CompileRegex(pattern, RegexCase::kIgnore), text, matches); });
    if (!done) {
        matches.clear();
        ReportPattern(PatternReport::kNumber);
    }
    return matches;
}

void ReportPattern(PatternReport form) {
    std::u16string detail = FormatNumber(pendingFailure.number);
    if (form == PatternReport::kNumberAndDescription) {
        detail.append(u":").append(pendingFailure.description);
    }
    RaiseError(kBadPattern, kIconStop, detail, u"", -1);
    pendingFailure.Clear();
}

}  // namespace velm
