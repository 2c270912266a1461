// See qt_text_positions.h.
#include "platform/qt/qt_text_positions.h"

#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

namespace velm {

int ScriptPosition(const QTextDocument& document, int position) {
    const int place = std::clamp(position, 0, document.characterCount() - 1);
    return place + document.findBlock(place).blockNumber();
}

int DocumentPosition(const QTextDocument& document, int scriptPosition) {
    // The last line that begins at the position or before it.
    int first = 0;
    int behind = document.blockCount();
    while (behind - first > 1) {
        const int middle = first + (behind - first) / 2;
        const int start = document.findBlockByNumber(middle).position() + middle;
        (start <= scriptPosition ? first : behind) = middle;
    }
    const QTextBlock block = document.findBlockByNumber(first);
    const int column = scriptPosition - (block.position() + first);
    return block.position() + std::clamp(column, 0, block.length() - 1);
}

}  // namespace velm
