// The folders that the desktop's conventions give a purpose: the desktop itself, documents, programs of
// the menu, programs that start at log-in, temporary files.
#pragma once

#include <cstdint>
#include <string>

namespace velm {

enum class SpecialFolder : std::uint8_t {
    kTemporary,  // TMPDIR, or /tmp
    kDesktop,    // the user's own choice, or Desktop in the home folder
    kDocuments,  // the user's own choice, or Documents in the home folder
    kMenu,       // where programs of the user stand that the menu shows
    kAutostart,  // where programs stand that start at log-in
};

// The script path of a folder, which need not be there yet; without a backslash at its end, but for the
// root. Throws Failure(438) where the user has no home folder.
std::u16string FolderOfPurpose(SpecialFolder folder);

}  // namespace velm
