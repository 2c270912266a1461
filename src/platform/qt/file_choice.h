// The file and folder dialogs of scripts: filters and flags in their classic forms, kept with the toolkit's
// own dialog.
#pragma once

#include <QFileDialog>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <string>
#include <vector>

namespace velm {

// Flags of the file dialogs that mean something here.
namespace file_flag {
constexpr std::int32_t kAskToOverwrite = 2;
constexpr std::int32_t kSeveral = 512;
constexpr std::int32_t kFolderMustExist = 2048;
constexpr std::int32_t kFileMustExist = 4096;
constexpr std::int32_t kAskToCreate = 8192;
constexpr std::int32_t kNotReadOnly = 0x8000;
constexpr std::int32_t kKeepLinks = 1048576;
}  // namespace file_flag

enum class FileQuestion : std::uint8_t { kOpen, kSave, kFolder };

// What one dialog is asked with. Paths are those of scripts.
struct FileRequest {
    FileQuestion question = FileQuestion::kOpen;
    std::u16string title;   // empty: the usual one
    std::u16string filter;  // "name|mask;mask|name|mask"
    std::u16string start;   // a file to start with, or a folder; empty: the current folder
    std::int32_t flags = 0;
};

// The filters of the toolkit for a classic filter text; empty when it has none. "*.*" matches all names.
QStringList NameFilters(std::u16string_view filter);

// Shows the dialog and waits. The chosen script paths; none when the user cancelled.
std::vector<std::u16string> AskFiles(const FileRequest& request);

}  // namespace velm
