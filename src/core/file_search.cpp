// The walk through folders.
#include "core/file_search.h"

#include <algorithm>
#include <utility>

#include "data/failure.h"
#include "data/shell_pattern.h"
#include "data/text.h"
#include "data/width.h"
#include "platform/files.h"
#include "platform/links.h"

namespace velm {

namespace {

class Search {
  public:
    Search(std::u16string_view pattern, SearchFor wanted)
        : root_(FolderOf(pattern)),
          mask_(ToLower(FileNameOf(pattern))),
          alternatives_(velm::Split(mask_, u";")),
          wanted_(wanted) {
        if (root_.empty()) root_ = u".\\";
    }
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    std::vector<std::u16string> InFolder() {
        for (const FolderEntry& entry : ListFolder(root_)) Note(entry, u"");
        return std::move(found_);
    }

    // The folders that are still to do wait in a list of their own: a tree may be of any depth.
    std::vector<std::u16string> InTree() {
        std::vector<Waiting> waiting;
        PushEntries(ListFolder(root_), u"", waiting);
        while (!waiting.empty()) {
            const Waiting next = std::move(waiting.back());
            waiting.pop_back();
            Note(next.entry, next.place);
            if (next.entry.info.kind == EntryKind::kFolder) Enter(next, waiting);
        }
        return std::move(found_);
    }

  private:
    struct Waiting {
        std::u16string place;  // the folder's path from the root, with "\" at its end
        FolderEntry entry;
    };

    static void PushEntries(std::vector<FolderEntry> entries, const std::u16string& place,
                            std::vector<Waiting>& waiting) {
        std::reverse(entries.begin(), entries.end());
        for (FolderEntry& entry : entries) waiting.push_back({place, std::move(entry)});
    }

    void Enter(const Waiting& folder, std::vector<Waiting>& waiting) const {
        const std::u16string place = folder.place + folder.entry.name + u"\\";
        const std::u16string path = root_ + place;
        if (IsLink(path)) return;
        std::vector<FolderEntry> entries;
        if (!Attempt([&] { entries = ListFolder(path); })) pendingFailure.Clear();
        PushEntries(std::move(entries), place, waiting);
    }

    void Note(const FolderEntry& entry, std::u16string_view place) {
        const bool isFolder = entry.info.kind == EntryKind::kFolder;
        if (isFolder != (wanted_ == SearchFor::kFolders)) return;
        std::size_t matches = mask_.empty() ? 1 : 0;
        const std::u16string lowered = ToLower(entry.name);
        for (const std::u16string_view alternative : alternatives_) {
            if (MatchesShellPattern(lowered, alternative)) ++matches;
        }
        std::u16string path = std::u16string(place) + entry.name;
        if (isFolder) path += u'\\';
        found_.insert(found_.end(), matches, path);
    }

    std::u16string root_;
    std::u16string mask_;
    std::vector<std::u16string_view> alternatives_;
    SearchFor wanted_;
    std::vector<std::u16string> found_;
};

}  // namespace

std::vector<std::u16string> FindByPattern(std::u16string_view pattern, SearchFor wanted,
                                          SearchIn extent) {
    Search search(pattern, wanted);
    return extent == SearchIn::kTree ? search.InTree() : search.InFolder();
}

}  // namespace velm
