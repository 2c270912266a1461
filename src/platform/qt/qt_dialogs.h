// What the runtime asks a person, as windows. The window face puts it in force; the boxes themselves
// are in message_box.h and input_box.h.
#pragma once

#include "platform/dialogs.h"

namespace velm {

class QtDialogs : public Dialogs {
  public:
    void ShowText(const std::u16string& text, int style, const std::u16string& title) override;
    int Ask(const std::u16string& text, int style, const std::u16string& title) override;
    int Report(const std::u16string& text, int style, const std::u16string& title) override;
    std::optional<std::u16string> AskText(const std::u16string& prompt,
                                          const std::u16string& preset,
                                          const std::u16string& title) override;
    // A window that comes up once the work has lasted half a second, and goes when it is done or when
    // nothing more is heard of it.
    bool ShowFileProgress(const std::u16string& name, std::int64_t done,
                          std::int64_t total) override;
};

// How the dialog that opens a file ended.
struct FileChoice {
    enum class End { kChosen, kCancelled, kFailed };
    End end = End::kFailed;  // kFailed: no dialog came up
    std::string nativePath;
};

// Asks for a file to open. `masks` are as in "*.vlm *.txt", `kind` is the word for such files.
FileChoice AskFile(const std::u16string& title, const std::u16string& kind,
                   const std::u16string& masks);

}  // namespace velm
