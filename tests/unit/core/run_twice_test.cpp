// Every pure case runs twice in one process and must show the same: a run leaves nothing behind.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "core/velm.h"
#include "data/text.h"
#include "data/utf.h"
#include "unit/recorded_dialogs.h"

namespace velm {
namespace {

// The case files of the language itself, which neither start programs nor look at the clock.
constexpr const char* kCaseFiles[] = {
    "arithmetic",  "binding",      "brackets_check", "branches",       "comments",
    "conditions",  "continuation", "copy_out",       "diagnostics",    "dictionaries",
    "error_modes", "holes",        "if_blocks",      "jumps",          "loops",
    "messages",    "particles",    "procedures",     "sentence_kinds", "settings_words",
    "tables",      "variables",
};

struct Case {
    std::string name;
    std::string script;
    bool pure = true;  // nothing but a script and what it prints
};

std::vector<Case> ReadCases(const std::string& file) {
    const auto folder = std::filesystem::path(__FILE__).parent_path() / "../../cases";
    std::ifstream lines(folder / (file + ".cases"));
    std::vector<Case> cases;
    bool inScript = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("=== ")) {
            cases.push_back({file + ": " + line.substr(4), "", true});
            inScript = false;
        } else if (line.starts_with("--- ")) {
            inScript = line == "--- script";
            const bool known = inScript || line == "--- out" || line.starts_with("--- err");
            if (!cases.empty() && !known) cases.back().pure = false;
        } else if (inScript && !cases.empty()) {
            cases.back().script += line + "\r\n";
        }
    }
    return cases;
}

std::vector<std::u16string> WhatItShows(const std::string& script) {
    RecordedDialogs dialogs;
    TheEngine().Run(Utf8ToUtf16(script), u"", false);
    std::vector<std::u16string> texts;
    for (const RecordedDialogs::Box& box : dialogs.shown) texts.push_back(box.text);
    for (const RecordedDialogs::Box& box : dialogs.reported) texts.push_back(u"! " + box.text);
    return texts;
}

class RunTwiceTest : public testing::TestWithParam<const char*> {
  protected:
    void TearDown() override {
        ResetRunState();
        Programs.assign(1, ProgramPtr(new Program));
        run.Status = RunStatus::kIdle;
    }
};

TEST_P(RunTwiceTest, ShowsTheSame) {
    std::size_t runs = 0;
    for (const Case& one : ReadCases(GetParam())) {
        if (!one.pure) continue;
        ++runs;
        const std::vector<std::u16string> first = WhatItShows(one.script);
        EXPECT_EQ(WhatItShows(one.script), first) << one.name;
    }
    EXPECT_GT(runs, 3U);
}

INSTANTIATE_TEST_SUITE_P(Cases, RunTwiceTest, testing::ValuesIn(kCaseFiles));

}  // namespace
}  // namespace velm
