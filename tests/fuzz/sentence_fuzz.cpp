// Any text as a sentence: analysing and splitting it again gives the same, from the cache as afresh;
// the pieces of a line of several join back to the line.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/names.h"
#include "core/sentence.h"
#include "core/statement.h"
#include "data/brackets.h"
#include "data/text.h"
#include "data/utf.h"
#include "fuzz_input.h"
#include "quiet_engine.h"

namespace {

using velm::Statement;
using velm::Word;
using velm::fuzz::Require;

constexpr std::size_t kLongest = 4096;
constexpr std::size_t kMostWords = 4;

using Particles = std::array<std::u16string_view, kMostWords>;
constexpr Particles kSets[] = {
    {u"を", u"に", u"で", u"から"},
    {u"回", u"に", u"まで", u"から"},
    {u"", u"として", u"へ", u"を"},
    {u"を", u"に", u"で", u"から"},
};

// What a split leaves behind.
struct Outcome {
    std::size_t parts = 0;
    std::array<Word, kMostWords> found;
    Word wo;
    Word he;
    Word verb;
    Word marked;
};

bool Same(const Outcome& a, const Outcome& b) {
    for (std::size_t i = 0; i < kMostWords; ++i) {
        if (a.found[i].Text() != b.found[i].Text()) return false;
    }
    return a.parts == b.parts && a.wo.Text() == b.wo.Text() && a.he.Text() == b.he.Text() &&
           a.verb.Text() == b.verb.Text() && a.marked.Text() == b.marked.Text();
}

Outcome SplitOnce(Statement& statement, const Particles& particles) {
    Outcome outcome;
    outcome.parts = velm::SplitByParticles(statement, particles, outcome.found);
    outcome.wo = statement.WoArg;
    outcome.he = statement.HeArg;
    outcome.verb = statement.Verb;
    outcome.marked = statement.Marked;
    return outcome;
}

// The text without what fencing adds and takes away.
std::u16string Bare(std::u16string text) {
    std::erase(text, velm::kMarker);
    std::erase(text, u'、');
    return text;
}

// One round over the sets, each split compared with that of a copy that has no cache.
std::vector<Outcome> SplitBySets(Statement& statement) {
    std::vector<Outcome> outcomes;
    for (const Particles& particles : kSets) {
        Statement fresh(statement);
        const Outcome expected = SplitOnce(fresh, particles);
        outcomes.push_back(SplitOnce(statement, particles));
        Require(Same(outcomes.back(), expected));
        Require(Bare(statement.Marked.Text()) == Bare(statement.Source));
    }
    return outcomes;
}

void CheckSplits(std::u16string_view line) {
    const velm::StatementPtr statement = velm::ParseStatement(line);
    if (statement->Kind != velm::StatementKind::kCommand || line.empty()) return;
    const velm::StatementPtr analysed = velm::ParseStatement(line);
    const std::vector<Outcome> first = SplitBySets(*statement);
    // Back to what the analysis gave, as a sentence behind なら is put back: now the cache answers.
    statement->fences = 0;
    statement->Marked = analysed->Marked;
    statement->Verb = analysed->Verb;
    statement->WoArg = analysed->WoArg;
    statement->HeArg = analysed->HeArg;
    const std::vector<Outcome> second = SplitBySets(*statement);
    for (std::size_t i = 0; i < first.size(); ++i) Require(Same(first[i], second[i]));
}

void CheckAnalysis(std::u16string_view line) {
    const velm::StatementPtr first = velm::ParseStatement(line);
    const velm::StatementPtr second = velm::ParseStatement(line);
    Require(first->Kind == second->Kind && first->Marked.Text() == second->Marked.Text());
    Require(first->Source == line && first->Verb.Text() == second->Verb.Text());
    Require(first->VerbMark() == second->VerbMark());
}

void CheckSentences(std::u16string_view line) {
    std::u16string joined;
    for (const std::u16string_view sentence : velm::CutSentences(line)) {
        if (!joined.empty() || sentence.data() != line.data()) joined += u'。';
        joined.append(sentence);
    }
    Require(joined == line);
}

void CheckArguments(std::u16string_view line) {
    velm::xxCmdData entry;
    entry.Joshi = {u"から", u"まで", u"へ", u"文字だけ"};
    for (entry.Flags = 0; entry.Flags <= 4; ++entry.Flags) {
        const std::vector<std::u16string> words = velm::SortByParticles(entry, line);
        const std::u16string normalised = velm::NormaliseCommas(line);
        const std::size_t pieces = velm::CutAtCommas(normalised).size();
        Require(words.size() == entry.Joshi.size() || words.size() == pieces);
        Require(velm::SortByParticles(entry, line) == words);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kLongest) return 0;
    velm::fuzz::PrepareEngine();
    std::u16string line = velm::Utf8ToUtf16(velm::fuzz::Bytes(data, size));
    std::erase(line, velm::kMarker);  // never stands in source text
    CheckAnalysis(line);
    CheckSplits(line);
    CheckSentences(line);
    CheckArguments(line);
    return 0;
}
