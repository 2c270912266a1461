// Bracket-aware searches, each in one pass.
#include "data/brackets.h"

#include <algorithm>

namespace velm {

namespace {

// Openers less closers of one pair up to some point.
struct PairCounts {
    static constexpr std::size_t kMaxPairs = 4;
    std::ptrdiff_t difference[kMaxPairs] = {};

    void Add(char16_t unit, BracketSet set, std::ptrdiff_t step) {
        for (std::size_t i = 0; i < set.openers.size(); ++i) {
            if (unit == set.openers[i]) difference[i] += step;
            if (unit == set.closers[i]) difference[i] -= step;
        }
    }

    // Whether a position with these counts is inside, given the counts of the whole text.
    bool InsideOf(const PairCounts& whole, std::size_t pairs) const {
        for (std::size_t i = 0; i < pairs; ++i) {
            if (whole.difference[i] == 0 && difference[i] != 0) return true;
        }
        return false;
    }
};

PairCounts CountPairs(std::u16string_view text, BracketSet set) {
    PairCounts counts;
    for (const char16_t unit : text) counts.Add(unit, set, 1);
    return counts;
}

}  // namespace

BracketScanner::BracketScanner(std::u16string_view text, BracketSet set) : text_(text), set_(set) {}

// The whole text is counted only when a position with an open pair is asked for: most texts have
// none, and of long ones often only the beginning is looked at.
bool BracketScanner::IsBalanced(std::size_t pair) {
    if (!counted_) {
        const PairCounts whole = CountPairs(text_, set_);
        for (std::size_t i = 0; i < set_.openers.size(); ++i) {
            balanced_[i] = whole.difference[i] == 0;
        }
        counted_ = true;
    }
    return balanced_[pair];
}

bool BracketScanner::IsInside(std::size_t offset) {
    for (; next_ <= offset && next_ < text_.size(); ++next_) {
        for (std::size_t i = 0; i < set_.openers.size(); ++i) {
            if (text_[next_] == set_.openers[i]) ++difference_[i];
            if (text_[next_] == set_.closers[i]) --difference_[i];
        }
    }
    for (std::size_t i = 0; i < set_.openers.size(); ++i) {
        if (difference_[i] != 0 && IsBalanced(i)) return true;
    }
    return false;
}

bool IsInsideBrackets(std::u16string_view text, std::size_t position, BracketSet set) {
    if (position == 0) return false;
    return BracketScanner(text, set).IsInside(position - 1);
}

std::size_t FindOutsideBrackets(std::u16string_view text, std::u16string_view needle,
                                std::size_t start, BracketSet set) {
    if (needle.empty() || start == 0) return 0;
    std::size_t hit = text.find(needle, start - 1);
    if (hit == kNotFound) return 0;
    BracketScanner scanner(text, set);
    while (hit != kNotFound) {
        if (!scanner.IsInside(hit)) return hit + 1;
        hit = text.find(needle, hit + 1);
    }
    return 0;
}

std::size_t FindLastOutsideBrackets(std::u16string_view text, std::u16string_view needle,
                                    std::ptrdiff_t start, BracketSet set) {
    if (needle.empty() || start == 0) return 0;
    std::size_t hit =
        text.rfind(needle, start < 0 ? kNotFound : static_cast<std::size_t>(start - 1));
    if (hit == kNotFound) return 0;
    const PairCounts whole = CountPairs(text, set);
    PairCounts counts = CountPairs(text.substr(0, hit + 1), set);
    while (true) {
        if (!counts.InsideOf(whole, set.openers.size())) return hit + 1;
        if (hit == 0) return 0;
        const std::size_t before = text.rfind(needle, hit - 1);
        if (before == kNotFound) return 0;
        for (; hit > before; --hit) counts.Add(text[hit], set, -1);
    }
}

std::size_t NextComma(std::u16string_view text, std::size_t start, bool normalise) {
    BracketScanner scanner(text, kQuotesAndWide);
    for (std::size_t i = start; i < text.size(); ++i) {
        const bool comma = normalise ? IsAnyComma(text[i]) : text[i] == u',';
        if (comma && !scanner.IsInside(i)) return i + 1;
    }
    return 0;
}

std::u16string NormaliseCommas(std::u16string_view text) {
    std::u16string out(text);
    std::replace_if(out.begin(), out.end(), IsAnyComma, u',');
    return out;
}

std::vector<std::u16string_view> CutAtCommas(std::u16string_view normalised) {
    std::vector<std::u16string_view> pieces;
    BracketScanner scanner(normalised, kQuotesAndWide);
    std::size_t from = 0;
    for (std::size_t i = 1; i < normalised.size(); ++i) {
        if (normalised[i] != u',' || scanner.IsInside(i)) continue;
        pieces.push_back(normalised.substr(from, i - from));
        from = i + 1;
    }
    pieces.push_back(normalised.substr(from));
    return pieces;
}

std::vector<std::u16string_view> CutSentences(std::u16string_view line) {
    constexpr BracketSet set = kAllBrackets;
    std::vector<std::u16string_view> sentences;
    PairCounts whole = CountPairs(line, set);
    PairCounts counts = whole;
    std::u16string_view rest = line;
    for (std::size_t i = line.size(); i-- > 0;) {
        if (line[i] == u'。' && !counts.InsideOf(whole, set.openers.size())) {
            sentences.push_back(rest.substr(i + 1));
            rest = rest.substr(0, i);
            whole = counts;
        }
        counts.Add(line[i], set, -1);
    }
    sentences.push_back(rest);
    std::reverse(sentences.begin(), sentences.end());
    return sentences;
}

std::vector<std::u16string_view> CutAtMark(std::u16string_view text, char16_t mark,
                                           BracketSet set) {
    std::vector<std::u16string_view> pieces;
    PairCounts whole = CountPairs(text, set);
    PairCounts counts;
    std::size_t from = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        counts.Add(text[i], set, 1);
        if (text[i] != mark || counts.InsideOf(whole, set.openers.size())) continue;
        pieces.push_back(text.substr(from, i - from));
        from = i + 1;
        for (std::size_t pair = 0; pair < set.openers.size(); ++pair) {
            whole.difference[pair] -= counts.difference[pair];
        }
        counts = PairCounts();
    }
    pieces.push_back(text.substr(from));
    return pieces;
}

std::u16string_view BetweenOutsideBrackets(std::u16string_view text, std::u16string_view from,
                                           std::u16string_view to, std::size_t start) {
    const std::size_t first = FindOutsideBrackets(text, from, start);
    if (first == 0) return {};
    const std::size_t inner = first - 1 + from.size();
    const std::size_t last = FindOutsideBrackets(text, to, inner + 1);
    return last == 0 ? text.substr(inner) : text.substr(inner, last - 1 - inner);
}

}  // namespace velm
