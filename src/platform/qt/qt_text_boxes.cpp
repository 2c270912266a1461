// Text boxes: one line, several lines with both scroll bars, several lines that wrap.
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVariant>

#include "platform/qt/qt_control_classes.h"
#include "platform/qt/qt_line_members.h"
#include "platform/qt/qt_text_members.h"

namespace velm {

namespace {

constexpr int kScrollBoth = 3;
constexpr int kScrollVertical = 2;

class LinesWidget : public LateTeller<QPlainTextEdit> {
  public:
    using LateTeller::LateTeller;

    QSize minimumSizeHint() const override { return {0, 0}; }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!MakesLine(*this, *event)) QPlainTextEdit::keyPressEvent(event);
    }
};

bool IsMultiLine(QtSurface& /*surface*/) { return true; }

int ScrollBars(QtSurface& surface) {
    const bool wraps = surface.As<LinesWidget>().lineWrapMode() == QPlainTextEdit::WidgetWidth;
    return wraps ? kScrollVertical : kScrollBoth;
}

bool HasBorder(QtSurface& surface) { return surface.As<QFrame>().frameShape() != QFrame::NoFrame; }
int BorderStyle(QtSurface& surface) { return HasBorder(surface) ? 1 : 0; }
void SetBorderStyle(QtSurface& surface, int style) {
    surface.As<QFrame>().setFrameShape(Within(style, 0, 1) == 0 ? QFrame::NoFrame
                                                                : QFrame::StyledPanel);
}

// 0 left, 1 right, 2 middle.
int Alignment(QtSurface& surface) {
    return NumberOfAlignment(surface.As<LinesWidget>().document()->defaultTextOption().alignment());
}
void SetAlignment(QtSurface& surface, int number) {
    QTextDocument& document = *surface.As<LinesWidget>().document();
    QTextOption option = document.defaultTextOption();
    option.setAlignment(AlignmentOfNumber(number));
    document.setDefaultTextOption(option);
}

// Several lines always show what is typed.
constexpr const char* kUnusedPassword = "velmUnusedPassword";
QString LinesPassword(QtSurface& surface) {
    return surface.Widget()->property(kUnusedPassword).toString();
}
void SetLinesPassword(QtSurface& surface, const QString& sign) {
    surface.Widget()->setProperty(kUnusedPassword, sign.left(1));
}

constexpr QtMember kLinesMembers[] = {
    Member<LinesPassword, SetLinesPassword>(u"PasswordChar"),
    ReadOnlyMember<IsMultiLine>(u"MultiLine"),
    ReadOnlyMember<ScrollBars>(u"ScrollBars"),
    Member<BorderStyle, SetBorderStyle>(u"BorderStyle"),
    Member<Alignment, SetAlignment>(u"Alignment"),
};

bool IsOneLine(QtSurface& /*surface*/) { return false; }
int LineBorder(QtSurface& surface) { return surface.As<QLineEdit>().hasFrame() ? 1 : 0; }
void SetLineBorder(QtSurface& surface, int style) {
    surface.As<QLineEdit>().setFrame(Within(style, 0, 1) == 1);
}

constexpr QtMember kBoxMembers[] = {
    ReadOnlyMember<IsOneLine>(u"MultiLine"),
    Member<LineBorder, SetLineBorder>(u"BorderStyle"),
};

QWidget* MakeLine(QWidget* parent) {
    auto* line = new QLineEdit(parent);
    SetUpLine(*line);
    return line;
}

template <QPlainTextEdit::LineWrapMode kWrap>
QWidget* MakeLines(QWidget* parent) {
    auto* lines = new LinesWidget(parent);
    lines->setLineWrapMode(kWrap);
    lines->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    lines->setHorizontalScrollBarPolicy(kWrap == QPlainTextEdit::NoWrap ? Qt::ScrollBarAsNeeded
                                                                        : Qt::ScrollBarAlwaysOff);
    lines->document()->setDocumentMargin(1);
    return lines;
}

QWidget* Viewport(QWidget& widget) { return static_cast<QAbstractScrollArea&>(widget).viewport(); }

void StartLine(QtSurface& surface) {
    surface.tellsClicks = true;
    surface.UsePalette(QPalette::Text, QPalette::Base);
    TellLineChanges(surface, surface.As<QLineEdit>());
}

void StartLines(QtSurface& surface) {
    surface.tellsClicks = true;
    surface.UsePalette(QPalette::Text, QPalette::Base);
    TellChanges<LinesWidget>(surface);
}

}  // namespace

const QtControlClass kTextClass = {.make = MakeLine,
                                   .start = StartLine,
                                   .members = kLineMembers,
                                   .foreColor = system_color::kWindowText,
                                   .backColor = system_color::kWindow,
                                   .moreMembers = kBoxMembers};
const QtControlClass kMultiLineTextClass = {.make = MakeLines<QPlainTextEdit::NoWrap>,
                                            .start = StartLines,
                                            .members = kDocumentMembers<QPlainTextEdit>,
                                            .inner = Viewport,
                                            .foreColor = system_color::kWindowText,
                                            .backColor = system_color::kWindow,
                                            .moreMembers = kLinesMembers};
const QtControlClass kWrappedTextClass = {.make = MakeLines<QPlainTextEdit::WidgetWidth>,
                                          .start = StartLines,
                                          .members = kDocumentMembers<QPlainTextEdit>,
                                          .inner = Viewport,
                                          .foreColor = system_color::kWindowText,
                                          .backColor = system_color::kWindow,
                                          .moreMembers = kLinesMembers};

}  // namespace velm
