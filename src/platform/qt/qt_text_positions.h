// Positions in a text of lines: a script counts each line end as two units, the toolkit as one.
#pragma once

class QTextDocument;

namespace velm {

// From 0. A position beyond the end is the end; one between the two units of a line end is before it.
int ScriptPosition(const QTextDocument& document, int position);
int DocumentPosition(const QTextDocument& document, int scriptPosition);

}  // namespace velm
