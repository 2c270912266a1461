// Replacing by a regular expression.
#include "functions/pattern_functions.h"

#include <string>
#include <utility>

#include "core/arguments.h"
#include "core/patterns.h"
#include "data/failure.h"
#include "data/pattern_syntax.h"
#include "data/value.h"
#include "platform/regex.h"

namespace velm {

namespace {

// Kept: only the first match is replaced.
Value ReplaceFirst(const Value& subject, std::u16string_view pattern,
                   std::u16string_view replacement) {
    const std::u16string_view text = subject.Text();
    RegexMatch match;
    if (!CompileRegex(pattern, RegexCase::kIgnore)->Search(text, 0, match)) return subject;
    std::u16string out(text.substr(0, match[0].from));
    AppendReplacement(out, replacement, text, match);
    out.append(text.substr(match[0].to));
    return Value(std::move(out));
}

}  // namespace

void FnPatternReplace(Value& result, Arguments& arguments) {
    Value text;
    std::u16string pattern;
    std::u16string replacement;
    arguments.Split(text, pattern, replacement);
    const bool done = Attempt([&] { result = ReplaceFirst(text, pattern, replacement); });
    if (!done) ReportPattern(PatternReport::kNumber);
}

}  // namespace velm
