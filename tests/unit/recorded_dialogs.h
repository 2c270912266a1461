// A face for tests: notes what it is shown and answers as told. It is in force while it lives.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace velm {

class RecordedDialogs : public Dialogs {
  public:
    RecordedDialogs() { SetDialogs(this); }
    RecordedDialogs(const RecordedDialogs&) = delete;
    RecordedDialogs& operator=(const RecordedDialogs&) = delete;
    ~RecordedDialogs() override { SetDialogs(nullptr); }

    struct Box {
        std::u16string text;
        int style;
    };

    void ShowText(const std::u16string& text, int style, const std::u16string&) override {
        shown.push_back({text, style});
    }
    int Ask(const std::u16string& text, int style, const std::u16string&) override {
        asked.push_back({text, style});
        return agrees ? box::kAnswerYes : box::kAnswerNo;
    }
    int Report(const std::u16string& text, int style, const std::u16string&) override {
        reported.push_back({text, style});
        return box::kAnswerOk;
    }
    std::optional<std::u16string> AskText(const std::u16string&, const std::u16string&,
                                          const std::u16string&) override {
        return std::nullopt;
    }
    bool ShowFileProgress(const std::u16string& name, std::int64_t, std::int64_t) override {
        progress.push_back(name);
        return !stops;
    }

    bool agrees = false;
    bool stops = false;
    std::vector<Box> shown;
    std::vector<Box> asked;
    std::vector<Box> reported;
    std::vector<std::u16string> progress;
};

}  // namespace velm
