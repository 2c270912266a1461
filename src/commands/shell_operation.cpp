// See shell_operation.h.
#include "commands/shell_operation.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "core/diagnostics.h"
#include "core/run_state.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/text.h"
#include "platform/dialogs.h"
#include "platform/file_tree.h"
#include "platform/files.h"

namespace velm {

namespace {

constexpr int kQuestionStyle = box::kYesNo | kIconQuestion;

bool Confirms(const std::u16string& text) {
    return TheDialogs().Confirm(text, kQuestionStyle, run.ProgramTitle);
}

bool EndsInSeparator(std::u16string_view path) {
    return path.ends_with(u'\\') || path.ends_with(u'/');
}

// The part up to and with the last separator of either kind.
std::u16string FolderPart(std::u16string_view path) {
    return std::u16string(path.substr(0, path.size() - FileNameOf(path).size()));
}

class Operation {
  public:
    explicit Operation(const FileOperation& order) : order_(order) {}

    // Throws Failure for what goes wrong.
    void Run() {
        const bool mask = IsMask(order_.pFrom);
        sources_ = Sources(mask);
        switch (order_.wFunc) {
            case FileDeed::kDelete: return Delete();
            case FileDeed::kRename: return Rename();
            case FileDeed::kMove:
            case FileDeed::kCopy: return Transfer(mask);
        }
    }

    // The name of what was at work last.
    const std::u16string& Current() const { return current_; }

  private:
    const FileOperation& order_;
    std::vector<std::u16string> sources_;
    std::u16string current_;
    std::size_t done_ = 0;

    bool Has(int flag) const { return (order_.fFlags & flag) != 0; }
    bool MayAsk() const { return !Has(file_flag::kNoConfirmation); }

    std::vector<std::u16string> Sources(bool mask) {
        current_ = order_.pFrom;
        if (!mask) return {order_.pFrom};
        std::vector<std::u16string> sources;
        const std::u16string folder = FolderPart(order_.pFrom);
        for (const FolderEntry& entry : ListMatches(order_.pFrom)) {
            sources.push_back(folder + entry.name);
        }
        return sources;
    }

    // False when the user ends the operation.
    bool GoOn(const std::u16string& path) {
        current_ = path;
        if (Has(file_flag::kSilent)) return true;
        return TheDialogs().ShowFileProgress(path, static_cast<std::int64_t>(done_),
                                             static_cast<std::int64_t>(sources_.size()));
    }

    bool AgreesToDelete() const {
        if (!MayAsk() || sources_.empty()) return true;
        const std::u16string what =
            sources_.size() == 1
                ? u"「" + std::u16string(FileNameOf(sources_[0])) + u"」"
                : u"これらの" + FormatNumber(static_cast<double>(sources_.size())) + u"個の項目";
        const std::u16string_view deed =
            Has(file_flag::kAllowUndo) ? u"をごみ箱に移しますか？" : u"を完全に削除しますか？";
        return Confirms(what + std::u16string(deed));
    }

    void Delete() {
        if (!AgreesToDelete()) return;
        for (const std::u16string& source : sources_) {
            if (!GoOn(source)) return;
            if (Has(file_flag::kAllowUndo)) {
                MoveToTrash(source);
            } else {
                RemoveTree(source);
            }
            ++done_;
        }
    }

    void Rename() {
        // Several can't have one name.
        if (sources_.size() != 1) throw Failure(failure::kFileExists);
        RenameEntry(sources_[0], order_.pTo);
    }

    // Makes a folder and those above it; false when the user would rather not.
    bool MakeTargetFolder(const std::u16string& folder) {
        if (folder.empty() || IsFolder(folder)) return true;
        const bool asks = MayAsk() && !Has(file_flag::kNoConfirmFolder);
        if (asks && !Confirms(u"フォルダ「" + folder + u"」はありません。作りますか？"))
            return false;
        MakeFolders(folder);
        return true;
    }

    void MakeFolders(std::u16string_view folder) {
        while (EndsInSeparator(folder)) folder.remove_suffix(1);
        if (folder.empty() || IsFolder(folder)) return;
        MakeFolders(FolderPart(folder));
        current_ = folder;
        MakeFolder(folder);
    }

    void Transfer(bool mask) {
        const std::u16string to = order_.pTo.empty() ? CurrentFolder() : order_.pTo;
        const bool intoFolder = mask || EndsInSeparator(to) || IsFolder(to);
        if (!MakeTargetFolder(intoFolder ? to : FolderPart(to))) return;
        for (const std::u16string& source : sources_) {
            const std::u16string_view name = FileNameOf(source);
            const std::u16string folder = EndsInSeparator(to) ? to : to + u'\\';
            if (!TransferOne(source, intoFolder ? folder + std::u16string(name) : to)) return;
            ++done_;
        }
    }

    bool TransferOne(const std::u16string& from, const std::u16string& to) {
        TreeQuestions questions;
        questions.goOn = [this](const std::u16string& path) { return GoOn(path); };
        if (MayAsk()) {
            questions.mayReplace = [](const std::u16string& path) {
                return Confirms(u"「" + path + u"」はすでにあります。置き換えますか？");
            };
        }
        current_ = from;
        return order_.wFunc == FileDeed::kCopy ? CopyTree(from, to, questions)
                                               : MoveTree(from, to, questions);
    }
};

std::u16string_view NameOf(FileDeed deed) {
    switch (deed) {
        case FileDeed::kMove: return u"移動";
        case FileDeed::kCopy: return u"コピー";
        case FileDeed::kDelete: return u"削除";
        case FileDeed::kRename: break;
    }
    return u"変更";
}

}  // namespace

void SHFileOperation(const FileOperation& operation) {
    Operation work(operation);
    try {
        work.Run();
    } catch (const Failure& failed) {
        std::u16string text = u"「" + work.Current() + u"」の";
        text.append(NameOf(operation.wFunc)).append(u"ができません。").append(kCrLf);
        text.append(failed.Description());
        TheDialogs().Report(text, box::kOk | kIconStop, run.ProgramTitle);
    }
}

}  // namespace velm
