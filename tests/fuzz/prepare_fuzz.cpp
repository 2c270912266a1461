// Any text as a source: every physical line keeps its place, and what a line says is what it says
// when it is analysed by itself.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/blocks.h"
#include "core/prepare.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "data/text.h"
#include "data/utf.h"
#include "fuzz_input.h"
#include "quiet_engine.h"

namespace {

using velm::fuzz::Require;

constexpr std::size_t kLongest = 4096;

void CheckLines(const std::u16string& text) {
    std::vector<std::u16string> lines;
    std::size_t units = 0;
    for (const std::u16string_view line : velm::SplitLines(text)) {
        lines.emplace_back(line);
        units += line.size() + 2;
    }
    const std::size_t count = lines.size();
    velm::NormaliseLines(lines);
    Require(lines.size() == count);
    std::size_t left = 0;
    for (const std::u16string& line : lines) left += line.size();
    Require(left <= units);
}

void CheckStatements(const std::u16string& text) {
    velm::Program program;
    program.Statements = velm::PrepareProgram(text);
    // The check of the brackets ends the preparation; a continued sentence isn't trimmed.
    const bool untrimmed = !velm::fuzz::TheQuietDialogs().heard.empty() ||
                           velm::Contains(text, u"、") || velm::Contains(text, u"_");
    std::size_t lines = velm::SplitLines(text).size();
    Require(program.Statements.size() == lines);
    for (const velm::StatementPtr& statement : program.Statements) {
        const std::u16string& source = statement->Source;
        Require(source.find(u'\t') == velm::kNotFound);
        Require(untrimmed || source == velm::Trim(source));
        const velm::StatementPtr again = velm::ParseStatement(source);
        Require(again->Kind == statement->Kind && again->mark == statement->mark);
        Require(again->Verb.Text() == statement->Verb.Text());
    }
    velm::ScanBlocks(program);
    Require(program.Depth.size() == lines);
    for (const std::int32_t depth : program.Depth) {
        Require(depth >= 0 && static_cast<std::size_t>(depth) <= lines);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kLongest) return 0;
    velm::fuzz::PrepareBareRun();
    const std::u16string text = velm::Utf8ToUtf16(velm::fuzz::Bytes(data, size));
    // Line feeds are easily found by chance, pairs of them with a carriage return are not.
    const std::u16string source = velm::ReplaceAll(text, u"\n", velm::kCrLf);
    CheckStatements(source);
    velm::fuzz::PrepareBareRun();
    CheckLines(source);
    return 0;
}
