// What tests of single controls share: sentences run one by one against a recording toolkit, and what the
// control's members hold afterwards.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/execute.h"
#include "core/run_state.h"
#include "data/width.h"
#include "objects/create.h"
#include "objects/resolve.h"
#include "unit/objects/recording_toolkit.h"

namespace velm {

class ControlTest : public testing::Test {
  protected:
    // One row of a property table: what a sentence assigns, what the member holds then, and what a read
    // answers.
    struct Row {
        std::u16string_view word;
        std::u16string_view value;  // as written in the sentence
        std::u16string_view member;
        std::u16string_view stored;
        std::u16string_view read;
    };

    // Runs sentences, each with a fresh error register.
    static void Do(std::u16string_view sentence) {
        run.ErrorNumber = 0;
        run.ErrorText.clear();
        RunComnd(sentence);
    }
    static std::u16string Read(std::u16string_view word) { return EvalText(word).Text(); }
    static ObjectPtr Find(std::u16string_view name) {
        return FindControl(*objects.CurrentWindow, name);
    }
    static RecordedControl& Of(std::u16string_view name) { return Recorded(*Find(name)); }
    static std::u16string Member(std::u16string_view name, std::u16string_view member) {
        return MemberToText(Of(name).members.at(ToUpper(member)));
    }
    static void Put(std::u16string_view name, std::u16string_view member, MemberValue value) {
        Of(name).members[ToUpper(member)] = std::move(value);
    }
    void ShowWindow() { Recorded(*objects.CurrentWindow).members[u"VISIBLE"] = true; }

    // Assigns and reads each row of an object.
    static void CheckRows(std::u16string_view name, const std::vector<Row>& rows) {
        for (const Row& row : rows) {
            const std::u16string path = std::u16string(name) + u"の" + std::u16string(row.word);
            SCOPED_TRACE(testing::PrintToString(path));
            Do(path + u"は、" + std::u16string(row.value));
            EXPECT_EQ(run.ErrorNumber, 0);
            EXPECT_EQ(Member(name, row.member), row.stored);
            EXPECT_EQ(Read(path), row.read);
        }
    }
    // Whether the words can't be assigned, or read, and say so.
    static void CheckReadOnly(std::u16string_view name, std::u16string_view word) {
        const std::u16string path = std::u16string(name) + u"の" + std::u16string(word);
        Do(path + u"は、1");
        EXPECT_EQ(run.ErrorNumber, 99) << testing::PrintToString(path);
        EXPECT_NE(run.ErrorText.find(u"取得のみ可能"), run.ErrorText.npos);
    }
    static void CheckWriteOnly(std::u16string_view name, std::u16string_view word) {
        run.ErrorNumber = 0;
        const std::u16string path = std::u16string(name) + u"の" + std::u16string(word);
        EXPECT_EQ(Read(path), u"");
        EXPECT_EQ(run.ErrorNumber, 99) << testing::PrintToString(path);
        EXPECT_NE(run.ErrorText.find(u"設定のみ可能"), run.ErrorText.npos);
    }

    InstallRecordingToolkit installed;
    RecordingToolkit& toolkit = installed.toolkit;
};

}  // namespace velm
