// The text of a script from the bytes of its file. Scripts alone get this treatment: data files are
// read exactly as the script says.
#pragma once

#include <string>
#include <string_view>

namespace velm {

// Text of a script source, its lines ending in CR LF.
//
// The bytes are code page 932, where a lone LF ends no line and stays. They are UTF-8 when they begin
// with its byte-order mark (which is removed) or are well-formed UTF-8 with at least one non-ASCII
// character; then LF alone ends a line too and comes out as CR LF. A first line that begins with
// "#!" comes out empty, so that line numbers hold. Never fails.
std::u16string DecodeScriptSource(std::string_view bytes);

}  // namespace velm
