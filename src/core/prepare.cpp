// Preparing source.
#include "core/prepare.h"

#include <algorithm>
#include <utility>

#include "core/diagnostics.h"
#include "core/sentence.h"
#include "data/brackets.h"
#include "data/numbers.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr std::u16string_view kMissingCloser = u"）が%1ヶ所不足しています";
constexpr std::u16string_view kMissingOpener = u"（が%1ヶ所不足しています";

void CutComment(std::u16string& line) {
    std::size_t mark = FindOutsideBrackets(line, u"’");
    if (mark == 0) mark = FindOutsideBrackets(line, u"'");
    if (mark != 0) line.resize(mark - 1);
}

// The number of brackets of one kind outside 「 」. Kept: the full-width form is always sought first, so
// that a half-width bracket in front of a later full-width one is passed over.
std::int64_t CountBrackets(std::u16string_view line, char16_t wide, char16_t narrow) {
    BracketScanner scanner(line, kQuotes);
    std::int64_t count = 0;
    std::size_t from = 0;
    std::size_t lastWide = line.rfind(wide);
    while (from < line.size()) {
        const bool wideAhead = lastWide != kNotFound && from <= lastWide;
        const std::size_t hit = line.find(wideAhead ? wide : narrow, from);
        if (hit == kNotFound) break;
        if (!scanner.IsInside(hit)) ++count;
        from = hit + 1;
    }
    return count;
}

// Reports missing brackets of a line; false when there are any.
bool CheckBrackets(std::u16string_view line, std::size_t index) {
    const std::int64_t difference =
        CountBrackets(line, u'（', u'(') - CountBrackets(line, u'）', u')');
    if (difference == 0) return true;
    RaiseMessage(difference > 0 ? kMissingCloser : kMissingOpener, 0, kIconInformation,
                 FormatNumber(static_cast<double>(std::abs(difference))), u"",
                 static_cast<std::int32_t>(index + 1));
    return false;
}

}  // namespace

void NormaliseLines(std::vector<std::u16string>& lines) {
    std::u16string joined;
    std::size_t pending = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::u16string& line = lines[i];
        CutComment(line);
        if (line.ends_with(u'、')) {
            joined.append(line);
            ++pending;
            line.clear();
        } else if (line.ends_with(u'_')) {
            joined.append(line, 0, line.size() - 1).append(kCrLf);
            ++pending;
            line.clear();
        } else if (pending == 0) {
            if (!line.empty() && !CheckBrackets(line, i)) return;
        } else {
            lines[i - pending] = std::exchange(joined, {}) + line;
            pending = 0;
            line.clear();
        }
        const std::u16string_view trimmed = Trim(line);
        if (trimmed.size() != line.size()) line = std::u16string(trimmed);
    }
}

std::vector<StatementPtr> PrepareProgram(std::u16string_view text) {
    std::u16string withoutTabs(text);
    std::erase(withoutTabs, u'\t');
    std::vector<std::u16string> lines;
    for (const std::u16string_view line : SplitLines(withoutTabs)) lines.emplace_back(line);
    withoutTabs = {};
    NormaliseLines(lines);
    std::vector<StatementPtr> statements;
    statements.reserve(lines.size());
    for (std::u16string& line : lines) statements.push_back(ParseStatement(line));
    return statements;
}

std::int32_t AddProgram(std::vector<StatementPtr> statements, std::u16string_view fileName) {
    ProgramPtr program(new Program);
    program->Statements = std::move(statements);
    program->FileName = fileName;
    Programs.push_back(std::move(program));
    return static_cast<std::int32_t>(Programs.size() - 1);
}

}  // namespace velm
