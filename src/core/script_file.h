// Script sources from files: plain ones and packed ones. Callers: the start of a run, 実行, 参照. Data
// files are read by core/encoded_file.h.
#pragma once

#include <string>
#include <string_view>

namespace velm {

// The text of a script file, its lines ending in CR LF. Throws Failure: 53 where no file has the name (a
// folder is none), or the number of what else went wrong.
std::u16string ReadScriptFile(std::u16string_view path);

// The text of a packed script (".vlx"), which is consumed: the file is gone afterwards. A file that can't
// be read is reported (201), and the text is empty.
std::u16string ReadPackedFile(std::u16string_view path);

// The bytes of a packed file unscrambled: reversed, those at even places complemented. Kept: the result is
// one byte longer than the packed length, which counts in whole groups of four; a byte that the file
// hasn't counts as 0, so a file of whole groups gives FF in front.
std::string UnpackBytes(std::string_view packed);

// The source text of unscrambled text: lines that stand reversed between control characters, in which
// frequent words are control characters too.
std::u16string ExpandPackedText(std::u16string_view text);

}  // namespace velm
