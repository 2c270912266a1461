// Rich text as RTF, in both directions: plain text, fonts and their sizes, bold, italic, underline,
// strike-out, colours, alignment and indents of paragraphs. Of what else an RTF text holds the words
// are skipped and the text is kept, but for pictures and what the format lets a reader ignore.
#pragma once

#include <string>
#include <string_view>

class QTextDocument;

namespace velm {

// Whether a text is RTF by its beginning.
bool IsRtf(std::u16string_view text);

// points: the size of text that has none of its own.
std::u16string WriteRtf(const QTextDocument& document, double points);
// Replaces the whole document.
void ReadRtf(QTextDocument& document, std::u16string_view rtf);

}  // namespace velm
