// Any text as a pattern: what the rewriting lets through must compile or be refused in order, and a
// match must lie within the text. The input's first line is the pattern, the next the text, the rest the
// replacement.
#include <cstddef>
#include <cstdint>
#include <string>

#include "data/failure.h"
#include "data/pattern_syntax.h"
#include "data/text.h"
#include "fuzz_input.h"
#include "platform/regex.h"

namespace {

using velm::fuzz::Require;

constexpr std::size_t kLongestText = 64;

std::u16string_view TakeLine(std::u16string_view& rest) {
    const std::size_t end = rest.find(u'\n');
    const std::u16string_view line = rest.substr(0, end);
    rest = end == velm::kNotFound ? std::u16string_view() : rest.substr(end + 1);
    return line;
}

void CheckMatch(std::u16string_view text, const velm::RegexMatch& match) {
    Require(!match.empty() && match[0].IsSet());
    for (const velm::RegexSpan& span : match) {
        if (span.IsSet()) Require(span.from <= text.size() && span.to <= text.size());
    }
    Require(match[0].from <= match[0].to);
}

void Check(std::u16string_view input) {
    const std::u16string_view pattern = TakeLine(input);
    const std::u16string_view text = TakeLine(input).substr(0, kLongestText);
    try {
        Require(velm::RewritePattern(pattern).size() <= pattern.size() * 80 + 8);
        const auto regex = velm::CompileRegex(pattern, velm::RegexCase::kIgnore);
        velm::RegexMatch match;
        if (!regex->Search(text, 0, match)) return;
        CheckMatch(text, match);
        std::u16string out;
        velm::AppendReplacement(out, input, text, match);
    } catch (const velm::Failure& failed) {
        Require(failed.Number() == velm::failure::kOutOfStack ||
                (failed.Number() >= velm::pattern_error::kSyntax &&
                 failed.Number() <= velm::pattern_error::kRange));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Check(velm::fuzz::Units(velm::fuzz::Bytes(data, size)));
    Check(std::u16string(data, data + size));
    return 0;
}
