// See file_commands.h.
#include "commands/file_commands.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "commands/removal.h"
#include "commands/shell_operation.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/protection.h"
#include "core/sentence.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/resources.h"
#include "data/text.h"
#include "data/width.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/shell.h"

namespace velm {

namespace {

constexpr int kNotGiven = 40;
constexpr int kCannotMakeObject = 103;
constexpr int kMissingFile = 201;
constexpr int kNoShortcut = 212;

constexpr std::u16string_view kAtOnce = u"すぐ";
constexpr std::u16string_view kTrashWord = u"ごみ箱";
constexpr std::u16string_view kFolder = u"フォルダ";
constexpr std::u16string_view kListBehindFolder = u"リスト";
constexpr std::u16string_view kShortcut = u"ショートカット";
constexpr std::u16string_view kArchive = u"自己解凍書庫";
constexpr std::u16string_view kLinkEnding = u".lnk";

std::u16string InCurrentFolder(const std::u16string& path) {
    return FolderOf(path).empty() ? WithBackslash(CurrentFolder()) + path : path;
}

// Deletes the files that a path or mask finds by itself, neither hidden nor the system's; false when
// there is none, and what it means is a folder.
bool DeleteFilesDirectly(const std::u16string& from) {
    constexpr int kUnseen = attribute::kHidden | attribute::kSystem;
    bool found = false;
    const std::u16string folder(from.substr(0, from.size() - FileNameOf(from).size()));
    for (const FolderEntry& entry : ListMatches(from)) {
        if (entry.info.kind == EntryKind::kFolder || (entry.info.attributes & kUnseen) != 0)
            continue;
        found = true;
        RemoveFile(folder + entry.name);
    }
    return found;
}

FileOperation Order(FileDeed deed, const std::u16string& from, const std::u16string& to,
                    int flags) {
    FileOperation order = {deed, from, to, flags};
    switch (deed) {
        case FileDeed::kCopy:
            order.fFlags |= file_flag::kAllowUndo | file_flag::kNoConfirmFolder;
            order.pTo = InCurrentFolder(to);
            break;
        case FileDeed::kMove:
            order.fFlags |= file_flag::kAllowUndo;
            if (to == kTrashWord) {
                order.wFunc = FileDeed::kDelete;
                order.pTo.assign(1, u'\0');
            }
            break;
        case FileDeed::kDelete:
            if (flags == 0) order.fFlags |= file_flag::kAllowUndo;
            break;
        case FileDeed::kRename:
            order.fFlags |= file_flag::kAllowUndo;
            // A rename never moves a file.
            order.pTo = std::u16string(FolderOf(from)).append(FileNameOf(to));
            break;
    }
    return order;
}

void ShellFileOperation(Statement& statement, FileDeed deed, const Word& fromWord,
                        const Word& toWord) {
    if (!CheckProtection(Protected::kFiles)) return;
    if (toWord.Text() == kAtOnce) {
        RaiseMessage(u"「すぐに%1」を「すぐ%1」へ変更してください。", 0, kIconWarning,
                     statement.Verb, u"", -1);
        return;
    }
    const bool atOnce = Contains(statement.Verb, kAtOnce);
    const std::u16string name = EvalWord(fromWord).Text();
    const std::u16string from = InCurrentFolder(name);
    const std::u16string to = EvalWord(toWord).Text();
    // An empty name would be the current folder.
    if (name.empty() || !PathExists(from)) {
        RaiseError(kMissingFile, kIconStop, name.empty() ? name : from, u"", -1);
        return;
    }
    const int flags = atOnce ? file_flag::kSilent | file_flag::kNoConfirmation : 0;
    if (deed == FileDeed::kDelete && atOnce && DeleteFilesDirectly(from)) return;
    SHFileOperation(Order(deed, from, to, flags));
}

// The words of ショートカット: before the name stands its kind, and the words to start with stand before
// で in front of it, or behind it before を.
struct ShortcutWords {
    std::u16string name;
    std::u16string arguments;
};

ShortcutWords ReadShortcutWords(Statement& statement) {
    statement.DeArg = GetWord(statement, u"で");
    const std::u16string wo = statement.WoArg.Text();
    const std::u16string de = statement.DeArg.Text();
    if (wo.starts_with(kShortcut)) return {wo.substr(kShortcut.size()), de};
    const std::size_t at = de.rfind(kShortcut);
    if (at == kNotFound) throw Failure(failure::kBadCall);
    return {de.substr(at + kShortcut.size()), wo};
}

void MakeShortcut(Statement& statement, const Word& targetWord) {
    const bool made = Attempt([&] {
        const ShortcutWords words = ReadShortcutWords(statement);
        std::u16string link = EvalText(words.name).Text();
        if (!link.empty() && !ToLower(link).ends_with(kLinkEnding)) link += kLinkEnding;
        WriteShortcut(link, EvalWord(targetWord).Text(), words.arguments);
    });
    if (!made) RaiseError(kNoShortcut, kIconStop, u"", u"", -1);
    pendingFailure.Clear();
}

void MakeObject(Statement& statement) {
    if (hooks.MakeObject != nullptr) {
        hooks.MakeObject(statement);
    } else {
        RaiseError(kCannotMakeObject, kIconStop, statement.WoArg, u"", -1);
    }
}

// The number of an attribute word; nothing for one that stands for none.
std::optional<std::int16_t> AttributesOfWord(const Word& word) {
    if (word.Text() == u"0") return std::int16_t{0};
    const std::optional<double> number = EvalWithWords(kAttributeWords, word).Number();
    if (!number) return std::nullopt;
    const std::int16_t attributes = ToInt16(*number);
    return attributes == -1 ? std::nullopt : std::optional(attributes);
}

}  // namespace

void CmdMake(Statement& statement, Context& /*context*/) {
    const std::u16string word = statement.WoArg.Text();
    if (word.starts_with(kFolder) && !word.substr(kFolder.size()).starts_with(kListBehindFolder)) {
        Attempt([&] { MakeFolder(EvalText(word.substr(kFolder.size())).Text()); });
        pendingFailure.Clear();
        return;
    }
    const Word of = GetWord(statement, u"の");
    if (statement.WoArg.Text().starts_with(kShortcut)) return MakeShortcut(statement, of);
    if (statement.WoArg.Text().starts_with(kArchive)) return;
    MakeObject(statement);
}

void CmdMove(Statement& statement, Context& /*context*/) {
    ShellFileOperation(statement, FileDeed::kMove, statement.WoArg, statement.HeArg);
}

void CmdCopy(Statement& statement, Context& /*context*/) {
    if (statement.HeArg.IsEmpty()) {
        TheDesktop().SetClipboardText(EvalWord(statement.WoArg).Text());
        return;
    }
    ShellFileOperation(statement, FileDeed::kCopy, statement.WoArg, statement.HeArg);
}

void CmdDelete(Statement& statement, Context& /*context*/) {
    if (RemoveByForm(statement)) return;
    ShellFileOperation(statement, FileDeed::kDelete, statement.WoArg, statement.HeArg);
}

void CmdSetAttributes(Statement& statement, Context& /*context*/) {
    const std::optional<std::int16_t> attributes = AttributesOfWord(statement.HeArg);
    if (!attributes) {
        RaiseError(kNotGiven, kIconStop, u"取得したい属性", statement.HeArg, -1);
        return;
    }
    SetFileAttributes(EvalWord(statement.WoArg).Text(), *attributes);
}

void CmdRename(Statement& statement, Context& /*context*/) {
    ShellFileOperation(statement, FileDeed::kRename, statement.WoArg, statement.HeArg);
}

}  // namespace velm
