// Measuring and showing the text of a box.
#include "platform/qt/text_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScreen>
#include <QScrollBar>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace velm {

namespace {

// In logical pixels: the toolkit multiplies them for fine screens.
constexpr int kWidestText = 640;
constexpr double kShareOfScreen = 0.6;
// A text beyond this isn't measured: it fills the largest view anyway.
constexpr qsizetype kLongestMeasured = 6000;
// The toolkit lays a paragraph out as a whole, which takes seconds for millions of characters: only
// for display such a paragraph is broken into parts of this length.
constexpr qsizetype kLongestParagraph = 10000;

QSize LargestText() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QSize room = screen != nullptr ? screen->availableSize() : QSize(800, 600);
    return {std::min(kWidestText, static_cast<int>(room.width() * kShareOfScreen)),
            static_cast<int>(room.height() * kShareOfScreen)};
}

// Adds one paragraph's lines, broken as the view breaks them.
void AddParagraph(const QString& paragraph, const QFont& font, double widest, QSizeF& size) {
    QTextLayout layout(paragraph, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(widest);
        size.setWidth(std::max(size.width(), line.naturalTextWidth()));
        size.setHeight(size.height() + line.height());
    }
    layout.endLayout();
}

QSizeF MeasureText(const QString& text, const QFont& font, const QSize& largest) {
    QSizeF size(0, 0);
    for (const QStringView paragraph : QStringView(text).split(u'\n')) {
        AddParagraph(paragraph.toString(), font, largest.width(), size);
        if (size.height() > largest.height()) break;
    }
    return size;
}

// The next place to cut, not between the halves of a surrogate pair.
qsizetype CutBehind(const QString& text, qsizetype start) {
    const qsizetype end = std::min(start + kLongestParagraph, text.size());
    return end < text.size() && text[end].isLowSurrogate() ? end - 1 : end;
}

QString BreakLongParagraphs(const QString& text) {
    if (text.size() <= kLongestParagraph) return text;
    QString out;
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype lineEnd = text.indexOf(u'\n', start);
        const qsizetype cut = CutBehind(text, start);
        if (lineEnd >= 0 && lineEnd < cut) {
            out += QStringView(text).mid(start, lineEnd + 1 - start);
            start = lineEnd + 1;
            continue;
        }
        out += QStringView(text).mid(start, cut - start);
        if (cut < text.size() && text[cut] != u'\n') out += u'\n';
        start = cut;
    }
    return out;
}

}  // namespace

TextView::TextView(const QString& text, QWidget* parent) : QPlainTextEdit(parent), text_(text) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document()->setDocumentMargin(0);
    QPalette colors = palette();
    colors.setColor(QPalette::Base, colors.color(QPalette::Window));
    colors.setColor(QPalette::Text, colors.color(QPalette::WindowText));
    setPalette(colors);
    setPlainText(BreakLongParagraphs(text));
    FitToText();
    // Reading with Tab and the arrow keys makes sense only where something is hidden; a text that
    // fits must not take the keys of the buttons.
    setFocusPolicy(scrollable_ ? Qt::StrongFocus : Qt::ClickFocus);
    setTabChangesFocus(true);
}

void TextView::FitToText() {
    const QSize largest = LargestText();
    scrollable_ = text_.size() > kLongestMeasured;
    QSizeF size = largest;
    if (!scrollable_) {
        size = MeasureText(text_, font(), largest);
        scrollable_ = size.height() > largest.height();
    }
    if (scrollable_) {
        setFrameShape(QFrame::StyledPanel);
        setFixedWidth(largest.width() + verticalScrollBar()->sizeHint().width() + 2 * frameWidth());
        setFixedHeight(largest.height());
        return;
    }
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // One pixel more than measured, so that rounding never breaks the longest line.
    setFixedSize(static_cast<int>(std::ceil(size.width())) + 1,
                 static_cast<int>(std::ceil(size.height())) + 1);
}

bool TextView::ScrollByKey(int key) {
    if (!scrollable_) return false;
    QScrollBar* bar = verticalScrollBar();
    switch (key) {
        case Qt::Key_PageDown: bar->triggerAction(QScrollBar::SliderPageStepAdd); return true;
        case Qt::Key_PageUp: bar->triggerAction(QScrollBar::SliderPageStepSub); return true;
        case Qt::Key_Home: bar->triggerAction(QScrollBar::SliderToMinimum); return true;
        case Qt::Key_End: bar->triggerAction(QScrollBar::SliderToMaximum); return true;
        default: return false;
    }
}

void TextView::CopyText() {
    if (textCursor().hasSelection()) {
        copy();
    } else {
        QGuiApplication::clipboard()->setText(text_);
    }
}

}  // namespace velm
