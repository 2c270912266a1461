// File associations of the user's desktop: which program opens the files with an extension.
#pragma once

#include <string>
#include <string_view>

namespace velm {

struct DesktopAssociation {
    std::u16string extension;  // without the point
    std::u16string
        command;  // a program, quoted if it holds blanks, and its words; "%1" is the file
    std::u16string description;  // of the file type
    std::u16string icon;         // a picture file, or anything else for none
};

// Makes the program the user's default for the files. Does nothing where that would not be true: the
// command's program isn't there, the extension can't be one, or the user's folders can't be written.
void AssociateOnDesktop(const DesktopAssociation& made);

// Takes back what AssociateOnDesktop made for an extension; nothing when it made nothing.
void EndDesktopAssociation(std::u16string_view extension);

}  // namespace velm
