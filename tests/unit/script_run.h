// A fixture that runs scripts and tells what they show.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "core/run_state.h"
#include "core/velm.h"
#include "data/text.h"
#include "data/utf.h"
#include "unit/recorded_dialogs.h"

namespace velm {

class ScriptRun : public testing::Test {
  protected:
    void TearDown() override {
        ResetRunState();
        Programs.assign(1, ProgramPtr(new Program));
        run.Status = RunStatus::kIdle;
    }

    // Runs the lines of a UTF-8 text; the first one, behind the opening bracket, is none of them.
    void Run(std::string_view lines) {
        const std::u16string source = Utf8ToUtf16(lines.substr(1));
        TheEngine().Run(ReplaceAll(source, u"\n", kCrLf), u"", false);
    }
    // The texts that were shown, with line ends between them.
    std::string Shown() const {
        std::string texts;
        for (const RecordedDialogs::Box& box : dialogs_.shown) {
            if (&box != &dialogs_.shown.front()) texts += '\n';
            texts += Utf16ToUtf8(box.text);
        }
        return texts;
    }
    // How many errors were heard.
    std::size_t Reports() const { return dialogs_.reported.size(); }

  private:
    RecordedDialogs dialogs_;
};

}  // namespace velm
