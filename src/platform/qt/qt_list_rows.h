// Rows of lists and drop-downs.
#pragma once

#include <QString>

#include "data/failure.h"

namespace velm {

// The row, or Failure(5) when it isn't there.
inline int CheckedRow(int row, int count) {
    if (row < 0 || row >= count) throw Failure(failure::kBadCall);
    return row;
}

// Where a text belongs among sorted rows, behind those that are equal. Letter case doesn't count. at
// tells the text of a row.
template <class At>
int SortedRow(const QString& text, int count, const At& at) {
    int low = 0;
    int high = count;
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (QString::compare(at(middle), text, Qt::CaseInsensitive) > 0) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    return low;
}

}  // namespace velm
