// Text between the runtime and the toolkit. Both sides are UTF-16, so nothing is lost, lone
// surrogates included. Only line ends differ: CR LF in the runtime, LF in the toolkit.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace velm {

// As it is, for values that have no lines.
QString ToQString(std::u16string_view text);
std::u16string FromQString(const QString& text);

// A text of lines as a text widget wants it.
QString ToLines(std::u16string_view text);
// And back: line ends become CR LF.
std::u16string FromLines(const QString& text);

// A text for one line of chrome, such as a window title: line ends become blanks, and what no title bar
// could show is cut off, since a property of a window has a limit in the display's protocol.
QString ToTitle(std::u16string_view text);

}  // namespace velm
