// See qt_line_members.h.
#include "platform/qt/qt_line_members.h"

#include <QProxyStyle>
#include <QVariant>
#include <climits>

#include "platform/qt/qt_members.h"
#include "platform/qt/qt_text_members.h"

namespace velm {

namespace {

constexpr const char* kPasswordProperty = "velmPassword";
constexpr const char* kInputModeProperty = "velmInputMode";

// The toolkit asks the style for the sign that stands for the characters of a password.
class PasswordStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        if (hint == SH_LineEdit_PasswordCharacter && widget != nullptr) {
            const int sign = widget->property(kPasswordProperty).toInt();
            if (sign != 0) return sign;
        }
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

// Made with the first password; the application's style lives on without it.
QStyle* StyleOfPasswords() {
    static auto* const style = new PasswordStyle;
    return style;
}

QLineEdit& Line(QtSurface& surface) { return *static_cast<QLineEdit*>(surface.Inner()); }

std::u16string Text(QtSurface& surface) { return FromQString(Line(surface).text()); }
void SetText(QtSurface& surface, const QString& text) { Line(surface).setText(text); }

int Start(QtSurface& surface) {
    const QLineEdit& line = Line(surface);
    return line.hasSelectedText() ? line.selectionStart() : line.cursorPosition();
}
void SetStart(QtSurface& surface, int start) {
    QLineEdit& line = Line(surface);
    line.deselect();
    const int end = static_cast<int>(line.text().size());
    line.setCursorPosition(std::min(Within(start, 0, INT_MAX), end));
}

int Length(QtSurface& surface) { return static_cast<int>(Line(surface).selectedText().size()); }
void SetLength(QtSurface& surface, int length) {
    QLineEdit& line = Line(surface);
    const int start = Start(surface);
    const int room = static_cast<int>(line.text().size()) - start;
    line.deselect();
    line.setCursorPosition(start);
    line.setSelection(start, std::min(Within(length, 0, INT_MAX), room));
}

QString Selected(QtSurface& surface) { return Line(surface).selectedText(); }
void SetSelected(QtSurface& surface, const QString& text) { Line(surface).insert(text); }

std::u16string Password(QtSurface& surface) {
    const int sign = Line(surface).property(kPasswordProperty).toInt();
    return sign == 0 ? std::u16string() : std::u16string(1, static_cast<char16_t>(sign));
}
// Its first character; the empty text shows what is typed.
void SetPassword(QtSurface& surface, const std::u16string& text) {
    QLineEdit& line = Line(surface);
    line.setProperty(kPasswordProperty, text.empty() ? 0 : static_cast<int>(text.front()));
    line.setStyle(text.empty() ? nullptr : StyleOfPasswords());
    line.setEchoMode(text.empty() ? QLineEdit::Normal : QLineEdit::Password);
    line.update();
}

bool IsReadOnly(QtSurface& surface) { return Line(surface).isReadOnly(); }
void SetReadOnly(QtSurface& surface, bool isOn) { Line(surface).setReadOnly(isOn); }

int Limit(QtSurface& surface) { return MaxLength(surface); }
// What is beyond the new limit goes.
void SetLimit(QtSurface& surface, int length) {
    SetMaxLength(surface, length);
    Line(surface).setMaxLength(length == 0 ? INT_MAX : length);
}

int Alignment(QtSurface& surface) { return NumberOfAlignment(Line(surface).alignment()); }
void SetAlignment(QtSurface& surface, int number) {
    Line(surface).setAlignment(AlignmentOfNumber(number) | Qt::AlignVCenter);
}

void UndoLine(QtSurface& surface) { Line(surface).undo(); }

}  // namespace

const QtMember kLineMembers[10] = {
    Member<Text, SetText>(u"Text"),
    Member<Start, SetStart>(u"SelStart"),
    Member<Length, SetLength>(u"SelLength"),
    Member<Selected, SetSelected>(u"SelText"),
    Member<Password, SetPassword>(u"PasswordChar"),
    Member<IsReadOnly, SetReadOnly>(u"Locked"),
    Member<Limit, SetLimit>(u"MaxLength"),
    Member<InputMode, SetInputMode>(u"IMEMode"),
    Member<Alignment, SetAlignment>(u"Alignment"),
    Action<UndoLine>(u"Undo"),
};

void SetUpLine(QLineEdit& line) {
    // The text may use the height of the frame too: its font is as high as the smallest box.
    constexpr int kFrame = 3;
    line.setMaxLength(INT_MAX);
    line.setTextMargins(0, -kFrame, 0, -kFrame);
}

void TellLineChanges(QtSurface& surface, QLineEdit& line) {
    QObject::connect(&line, &QLineEdit::textChanged, &surface,
                     [&surface] { surface.TellChange(EventKind::kChange); });
}

Qt::Alignment AlignmentOfNumber(int number) {
    constexpr Qt::AlignmentFlag kAlignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    return kAlignments[Within(number, 0, 2)];
}

int NumberOfAlignment(Qt::Alignment alignment) {
    if (alignment.testFlag(Qt::AlignRight)) return 1;
    return alignment.testFlag(Qt::AlignHCenter) ? 2 : 0;
}

void ApplyInputMode(QWidget& widget, int mode) {
    constexpr int kNone = 3;
    Qt::InputMethodHints hints = widget.inputMethodHints();
    hints.setFlag(Qt::ImhPreferLatin, mode == 2 || mode == 7 || mode == 8);
    hints.setFlag(Qt::ImhLatinOnly, mode == 8);
    widget.setInputMethodHints(hints);
    widget.setAttribute(Qt::WA_InputMethodEnabled, mode != kNone);
}

int InputMode(QtSurface& surface) { return surface.Widget()->property(kInputModeProperty).toInt(); }

void SetInputMode(QtSurface& surface, int mode) {
    surface.Widget()->setProperty(kInputModeProperty, Within(mode, 0, 8));
    ApplyInputMode(*surface.Widget(), mode);
    if (surface.Inner() != surface.Widget()) ApplyInputMode(*surface.Inner(), mode);
}

int MaxLength(QtSurface& surface) { return surface.Widget()->property(kMaxLengthProperty).toInt(); }

void SetMaxLength(QtSurface& surface, int length) {
    surface.Widget()->setProperty(kMaxLengthProperty, Within(length, 0, INT_MAX));
}

}  // namespace velm
