// See qt_caption.h.
#include "platform/qt/qt_caption.h"

#include <QPainter>
#include <QTextCharFormat>
#include <QTextLayout>
#include <QTextOption>
#include <cmath>

#include "platform/qt/qt_fonts.h"

namespace velm {

namespace {

constexpr double kNoLimit = 1e6;

// Breaks the layout's text into lines and returns the width of the longest.
double LayOut(QTextLayout& layout, double width, bool wraps) {
    QTextOption option;
    option.setWrapMode(wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    layout.setTextOption(option);
    double longest = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(wraps ? width : kNoLimit);
        longest = std::max(longest, line.naturalTextWidth());
    }
    layout.endLayout();
    return longest;
}

// A text of one line where there is no room for two: a font that is too wide for it by a little gets
// narrower, since the classic fonts were.
QFont FittingFont(const QString& text, const QFont& font, const QRect& box) {
    constexpr double kNarrowest = 0.85;
    constexpr double kUnstretched = QFont::Unstretched;
    QTextLayout layout(text, font);
    const double ratio = box.width() / std::max(LayOut(layout, 0, false), 1.0);
    if (ratio >= 1 || ratio < kNarrowest) return font;
    QFont narrow = font;
    narrow.setStretch(static_cast<int>(ratio * kUnstretched));
    return narrow;
}

}  // namespace

Caption::Caption(const QString& text, bool hasMnemonic) {
    text_.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isMark = hasMnemonic && text.at(i) == QLatin1Char('&') && i + 1 < text.size();
        if (isMark) {
            ++i;
            if (text.at(i) != QLatin1Char('&')) mnemonic_ = static_cast<int>(text_.size());
        }
        text_ += text.at(i) == QLatin1Char('\n') ? QChar(QChar::LineSeparator) : text.at(i);
    }
}

QKeySequence Caption::AccessKey() const {
    if (mnemonic_ < 0 || text_.at(mnemonic_).isSpace()) return {};
    return QKeySequence(QStringLiteral("Alt+") + text_.at(mnemonic_).toUpper());
}

QSize Caption::SizeOf(const QFont& font, int width) const {
    QTextLayout layout(text_, font);
    const double longest = LayOut(layout, width, width > 0);
    return {static_cast<int>(std::ceil(longest)), layout.lineCount() * LinePitch(font)};
}

void Caption::Paint(QPainter& painter, const QRect& box, const QFont& font, Qt::Alignment alignment,
                    bool wraps) const {
    if (text_.isEmpty()) return;
    const int pitch = LinePitch(font);
    const bool isLine = box.height() < 2 * pitch;
    QTextLayout layout(text_, isLine ? FittingFont(text_, font, box) : font);
    if (mnemonic_ >= 0) {
        QTextCharFormat underlined;
        underlined.setFontUnderline(true);
        layout.setFormats({{mnemonic_, 1, underlined}});
    }
    LayOut(layout, box.width(), wraps && !isLine);
    double top = box.top();
    if (alignment.testFlag(Qt::AlignVCenter)) {
        top += std::floor((box.height() - pitch * layout.lineCount()) / 2.0);
    }
    painter.save();
    painter.setClipRect(box, Qt::IntersectClip);
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const double room = box.width() - line.naturalTextWidth();
        double left = box.left();
        if (alignment.testFlag(Qt::AlignHCenter)) left += std::floor(room / 2);
        if (alignment.testFlag(Qt::AlignRight)) left += room;
        const double base = top + pitch * i + LineBase(font);
        // The layout's own places are those of lines as high as the leading wants.
        line.draw(&painter, QPointF(left, base - line.y() - line.ascent()));
    }
    painter.restore();
}

}  // namespace velm
