// See data_file_commands.h.
#include "commands/data_file_commands.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/arguments.h"
#include "core/diagnostics.h"
#include "core/encoded_file.h"
#include "core/eval.h"
#include "core/file_search.h"
#include "core/hooks.h"
#include "core/protection.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "data/brackets.h"
#include "data/code_page_932.h"
#include "data/csv.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"
#include "platform/files.h"
#include "platform/shell.h"

namespace velm {

namespace {

constexpr int kNoSuchLine = 9;
constexpr int kMissingFile = 201;
constexpr int kBadFolderName = 202;
constexpr int kCannotSave = 203;

constexpr std::u16string_view kOf = u"の";
constexpr std::u16string_view kLineMark = u"行目";
constexpr std::u16string_view kBinary = u"バイナリ";
constexpr std::u16string_view kNoLineEnd = u"改行しない";
constexpr std::u16string_view kBadByteList =
    u"バイナリ配列が正しくありません。\\nバイナリ配列は10進数で指定してください。";

// Reports what kept a file from being written, and clears it.
void ReportWriteFailure(const std::u16string& file) {
    const PendingFailure failed = pendingFailure;
    if (failed.number == failure::kBadFileName) {
        RaiseError(kBadFolderName, kIconStop, file, u"", -1);
    } else if (failed.IsSet()) {
        const std::u16string detail = file + std::u16string(kCrLf) + failed.description;
        RaiseError(kCannotSave, kIconStop, detail, file, -1);
    }
    pendingFailure.Clear();
}

// The bytes of a list up to the first item that is none, which is kept as the pending failure.
std::string BytesOfList(std::u16string_view list) {
    std::string bytes;
    Attempt([&] { AppendBytesOfList(list, bytes); });
    return bytes;
}

// What was written before a bad item stays written.
template <class Write>
void WriteByteList(std::u16string_view list, Write&& write) {
    const std::string bytes = BytesOfList(list);
    const PendingFailure badItem = pendingFailure;
    pendingFailure.Clear();
    if (!Attempt([&] { write(bytes); }) || !badItem.IsSet()) return;
    if (badItem.number == failure::kTypeMismatch) {
        RaiseMessage(kBadByteList, 0, kIconStop, u"", u"", -1);
    } else {
        pendingFailure = badItem;
    }
}

void SavePlain(const std::u16string& file, std::u16string_view text) {
    WriteFileBytes(file, EncodeCodePage932(text));
}

void SaveText(const std::u16string& file, std::u16string_view text, EncodingWord encoding) {
    pendingFailure.Clear();
    Attempt([&] {
        switch (encoding) {
            case EncodingWord::kNone: return SavePlain(file, text);
            case EncodingWord::kEuc: return WriteEncodedFile(file, EncodedKind::kEuc, text);
            case EncodingWord::kJis: return WriteEncodedFile(file, EncodedKind::kJis, text);
            case EncodingWord::kUtf8: return WriteEncodedFile(file, EncodedKind::kUtf8, text);
            case EncodingWord::kBinary:
                // Kept: like the encodings, and unlike plain text, bytes leave a longer file its tail.
                return WriteByteList(text, [&](std::string_view bytes) {
                    WriteFileBytes(file, bytes, WriteMode::kKeepTail);
                });
            case EncodingWord::kOther: return;
        }
    });
    ReportWriteFailure(file);
}

// Where 追加保存 adds: a file, and a word for the place in it, empty for the end.
struct Destination {
    std::u16string file;
    std::u16string place;
};

Destination ReadDestination(const Word& word) {
    const std::u16string_view text = word;
    const std::size_t cut = FindOutsideBrackets(text, kOf);
    if (cut == 0) return {EvalWord(word).Text(), {}};
    return {EvalText(text.substr(0, cut - 1)).Text(), std::u16string(text.substr(cut))};
}

std::vector<std::u16string> LinesOf(std::u16string_view content) {
    std::vector<std::u16string> lines;
    if (content.empty()) return lines;
    for (const std::u16string_view line : SplitLines(content)) lines.emplace_back(line);
    return lines;
}

// The content of a file with a text put behind a line, which counts from 1.
std::u16string InsertBehindLine(std::u16string_view content, std::int32_t line,
                                std::u16string_view text, std::u16string_view separator) {
    std::vector<std::u16string> lines = LinesOf(content);
    const auto index = static_cast<std::size_t>(line) - 1;
    if (lines.empty()) {
        lines.push_back(std::u16string(text).append(separator));
    } else if (index < lines.size()) {
        lines[index].append(separator).append(text);
    } else {
        // Kept: behind the last line it becomes a line of its own, 改行しない or not.
        lines.back().append(kCrLf).append(text);
    }
    std::u16string whole = Join(lines, kCrLf);
    if (whole.ends_with(kCrLf)) whole.resize(whole.size() - kCrLf.size());
    return whole;
}

void Insert(const Destination& to, std::u16string_view text, bool lineEnd) {
    const std::u16string_view number = TrimRight(std::u16string_view(to.place), kLineMark.size());
    const std::int32_t line = ToInt32(ToDouble(EvalText(number)));
    if (line <= 0) {
        RaiseError(kNoSuchLine, kIconWarning, FormatNumber(line), u"", -1);
        return;
    }
    std::u16string content;
    Attempt([&] { content = ReadTextFile(to.file); });
    const int failed = pendingFailure.number;
    const bool missing = failed == failure::kFileNotFound || failed == failure::kPathNotFound;
    // A file that is there and can't be read must not be taken for an empty one.
    if (failed != 0 && !missing) return;
    pendingFailure.Clear();
    SavePlain(to.file, InsertBehindLine(content, line, text, lineEnd ? kCrLf : u""));
}

void Append(const std::u16string& file, std::u16string_view text, std::u16string_view form) {
    if (form == kBinary) {
        WriteByteList(text, [&](std::string_view bytes) { AppendFileBytes(file, bytes); });
        return;
    }
    std::string bytes = EncodeCodePage932(text);
    if (form != kNoLineEnd) bytes += "\r\n";
    AppendFileBytes(file, bytes);
}

// Copies a file of the list unless the copy is as new; its folder is made when its parent is there.
void BackUpFile(const std::u16string& from, const std::u16string& to) {
    const std::u16string_view folder = FolderOf(to);
    if (!IsFolder(folder)) MakeFolder(folder);
    const std::optional<FileInfo> copy = StatFile(to);
    if (copy && StatFileOrFail(from).modified <= copy->modified) return;
    CopyFileTo(from, to);
}

}  // namespace

void CmdSave(Statement& statement, Context& /*context*/) {
    if (!CheckProtection(Protected::kFiles)) return;
    statement.DeArg = GetWord(statement, u"で");
    const std::u16string file = EvalWord(statement.HeArg).Text();
    if (hooks.SavePicture != nullptr && hooks.SavePicture(statement.WoArg, file)) return;
    std::u16string text = EvalWord(statement.WoArg).Text();
    if (IsCsvName(file)) text = ListToCsv(text);
    SaveText(file, text, ReadEncodingWord(EvalWord(statement.DeArg).Text()));
}

void CmdAppend(Statement& statement, Context& /*context*/) {
    if (!CheckProtection(Protected::kFiles)) return;
    statement.DeArg = GetWord(statement, u"で");
    std::u16string text = EvalWord(statement.WoArg).Text();
    const Destination to = ReadDestination(statement.HeArg);
    if (IsCsvName(to.file)) text = UnescapeItem(text);
    const std::u16string form = statement.DeArg.Text();
    pendingFailure.Clear();
    Attempt([&] {
        if (Contains(to.place, kLineMark)) {
            Insert(to, text, form != kNoLineEnd);
        } else {
            Append(to.file, text, form);
        }
    });
    ReportWriteFailure(to.file);
}

void CmdOpen(Statement& statement, Context& /*context*/) {
    const Word by = GetWord(statement, u"で");
    const std::u16string verb = by.IsEmpty() ? std::u16string(u"Open") : EvalWord(by).Text();
    const std::u16string file = EvalWord(statement.WoArg).Text();
    int result = ShellExecute(verb, file);
    const bool hasDrive = file.size() > 1 && file[1] == u':';
    if (result == shell::kNotFound && !hasDrive) {
        result = ShellExecute(verb, WithBackslash(CurrentFolder()) + file);
    }
    if (result == shell::kNotFound) RaiseError(kMissingFile, kIconStop, file, u"", -1);
}

void CmdBackUp(Statement& statement, Context& /*context*/) {
    if (!CheckProtection(Protected::kFiles)) return;
    const std::u16string pattern = EvalWord(statement.WoArg).Text();
    const std::u16string to = WithBackslash(EvalWord(statement.HeArg).Text());
    const std::u16string from(FolderOf(pattern));
    std::vector<std::u16string> names;
    Attempt([&] { names = FindByPattern(pattern, SearchFor::kFiles, SearchIn::kTree); });
    const auto last = static_cast<std::int64_t>(names.size()) - 1;
    for (std::size_t i = 0; i < names.size() && !run.StopFlag; ++i) {
        Attempt([&] { BackUpFile(from + names[i], to + names[i]); });
        ProgressTick(static_cast<std::int64_t>(i), last);
    }
    pendingFailure.Clear();
}

void CmdRestore(Statement& statement, Context& /*context*/) {
    if (!CheckProtection(Protected::kFiles)) return;
    const std::u16string text = EvalWord(statement.WoArg).Text();
    RestoreBase64File(EvalWord(statement.HeArg).Text(), text);
}

}  // namespace velm
