// Rich text: the members of texts, and those of the selection.
#include <QKeyEvent>
#include <QRegularExpression>
#include <QSyntaxHighlighter>
#include <QTextEdit>
#include <cmath>

#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_control_classes.h"
#include "platform/qt/qt_fonts.h"
#include "platform/qt/qt_line_members.h"
#include "platform/qt/qt_rich_formats.h"
#include "platform/qt/qt_rtf.h"
#include "platform/qt/qt_text_members.h"

namespace velm {

namespace {

// Shows addresses as links, whatever format their text has.
class AddressPainter : public QSyntaxHighlighter {
  public:
    explicit AddressPainter(QTextDocument* document) : QSyntaxHighlighter(document) {}

  protected:
    void highlightBlock(const QString& text) override {
        static const QRegularExpression addresses(
            QStringLiteral("(?:https?://|ftp://|mailto:|www\\.)[!-~]*[0-9A-Za-z/]"),
            QRegularExpression::CaseInsensitiveOption);
        QTextCharFormat link;
        link.setForeground(QColor(0, 0, 255));
        link.setFontUnderline(true);
        for (auto each = addresses.globalMatch(text); each.hasNext();) {
            const QRegularExpressionMatch match = each.next();
            setFormat(static_cast<int>(match.capturedStart()),
                      static_cast<int>(match.capturedLength()), link);
        }
    }
};

bool IsProtectedAt(const QTextDocument& document, int position) {
    if (position < 0 || position >= document.characterCount() - 1) return false;
    QTextCursor cursor(const_cast<QTextDocument*>(&document));
    cursor.setPosition(position + 1);
    return IsProtected(cursor.charFormat());
}

class RichWidget : public LateTeller<QTextEdit> {
  public:
    using LateTeller::LateTeller;

    QSize minimumSizeHint() const override { return {0, 0}; }
    AddressPainter* addresses = nullptr;  // its document owns it

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!CanTake(*event)) return;
        if (!MakesLine(*this, *event)) QTextEdit::keyPressEvent(event);
    }
    void inputMethodEvent(QInputMethodEvent* event) override {
        if (!CanReplace(0, 0)) return;
        QTextEdit::inputMethodEvent(event);
    }
    bool canInsertFromMimeData(const QMimeData* source) const override {
        return CanReplace(0, 0) && QTextEdit::canInsertFromMimeData(source);
    }
    void insertFromMimeData(const QMimeData* source) override {
        if (CanReplace(0, 0)) QTextEdit::insertFromMimeData(source);
    }

  private:
    // Whether the selection, or that many characters on both sides of the caret, may be replaced. With
    // neither the caret mustn't stand within protected text.
    bool CanReplace(int before, int behind) const {
        const QTextCursor cursor = textCursor();
        int start = cursor.selectionStart();
        int end = cursor.selectionEnd();
        if (start == end && before == 0 && behind == 0) {
            return !IsProtectedAt(*document(), start - 1) || !IsProtectedAt(*document(), start);
        }
        if (start == end) {
            start -= before;
            end += behind;
        }
        for (int i = start; i < end; ++i) {
            if (IsProtectedAt(*document(), i)) return false;
        }
        return true;
    }

    // Keys that only move or copy are always taken.
    bool CanTake(const QKeyEvent& event) const {
        if (event.key() == Qt::Key_Backspace) return CanReplace(1, 0);
        if (event.key() == Qt::Key_Delete) return CanReplace(0, 1);
        const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
        const bool isCut = event.matches(QKeySequence::Cut) || event.matches(QKeySequence::Paste);
        const bool types = !event.text().isEmpty() && event.text().at(0).isPrint();
        return !(isEnter || isCut || types) || CanReplace(0, 0);
    }
};

QTextEdit& Edit(QtSurface& surface) { return surface.As<QTextEdit>(); }

// The format of the selection's first character, or of what is typed next.
QTextCharFormat FormatOf(QtSurface& surface) {
    QTextCursor cursor = Edit(surface).textCursor();
    if (!cursor.hasSelection()) return Edit(surface).currentCharFormat();
    const int start = cursor.selectionStart();
    cursor.setPosition(start + 1);
    return cursor.charFormat();
}

void Merge(QtSurface& surface, const QTextCharFormat& format) {
    const QtSurface::Quiet quiet(surface);
    Edit(surface).mergeCurrentCharFormat(format);
}

bool IsBold(QtSurface& surface) { return FormatOf(surface).fontWeight() >= QFont::Bold; }
void SetBold(QtSurface& surface, bool isOn) {
    QTextCharFormat format;
    format.setFontWeight(isOn ? QFont::Bold : QFont::Normal);
    Merge(surface, format);
}

bool IsItalic(QtSurface& surface) { return FormatOf(surface).fontItalic(); }
void SetItalic(QtSurface& surface, bool isOn) {
    QTextCharFormat format;
    format.setFontItalic(isOn);
    Merge(surface, format);
}

bool IsUnderlined(QtSurface& surface) { return FormatOf(surface).fontUnderline(); }
void SetUnderline(QtSurface& surface, bool isOn) {
    QTextCharFormat format;
    format.setFontUnderline(isOn);
    Merge(surface, format);
}

bool IsStruck(QtSurface& surface) { return FormatOf(surface).fontStrikeOut(); }
void SetStruck(QtSurface& surface, bool isOn) {
    QTextCharFormat format;
    format.setFontStrikeOut(isOn);
    Merge(surface, format);
}

int Color(QtSurface& surface) {
    const QTextCharFormat format = FormatOf(surface);
    const bool isOwn = format.hasProperty(QTextFormat::ForegroundBrush);
    return isOwn ? ScriptColor(format.foreground().color()) : surface.foreColor;
}
void SetColor(QtSurface& surface, const MemberValue& value) {
    QTextCharFormat format;
    format.setForeground(ColorOfScript(MemberToColor(value)));
    Merge(surface, format);
}

QString Family(QtSurface& surface) {
    const QString own = FamilyOf(FormatOf(surface));
    return own.isEmpty() ? surface.Widget()->font().families().value(0) : own;
}
void SetFontFamily(QtSurface& surface, const QString& family) {
    QTextCharFormat format;
    SetFormatFamily(format, family);
    Merge(surface, format);
}

double Size(QtSurface& surface) { return PointsOf(FormatOf(surface), surface.fontSize); }
void SetSize(QtSurface& surface, double points) {
    QTextCharFormat format;
    SetPoints(format, points);
    Merge(surface, format);
}

bool IsSelectionProtected(QtSurface& surface) { return IsProtected(FormatOf(surface)); }
void ProtectSelection(QtSurface& surface, bool isOn) {
    QTextCharFormat format;
    SetProtected(format, isOn);
    Merge(surface, format);
}

// Of all paragraphs that the selection touches; lengths are pixels.
QTextBlockFormat BlockFormatOf(QtSurface& surface) {
    QTextCursor cursor = Edit(surface).textCursor();
    cursor.setPosition(cursor.selectionStart());
    return cursor.blockFormat();
}

void MergeBlocks(QtSurface& surface, const QTextBlockFormat& format) {
    const QtSurface::Quiet quiet(surface);
    Edit(surface).textCursor().mergeBlockFormat(format);
}

int Alignment(QtSurface& surface) { return NumberOfAlignment(BlockFormatOf(surface).alignment()); }
void SetAlignment(QtSurface& surface, int number) {
    QTextBlockFormat format;
    format.setAlignment(AlignmentOfNumber(number));
    MergeBlocks(surface, format);
}

double LeftIndent(QtSurface& surface) { return BlockFormatOf(surface).leftMargin(); }
void SetLeftIndent(QtSurface& surface, double pixels) {
    QTextBlockFormat format;
    format.setLeftMargin(pixels);
    MergeBlocks(surface, format);
}

double RightIndent(QtSurface& surface) { return BlockFormatOf(surface).rightMargin(); }
void SetRightIndent(QtSurface& surface, double pixels) {
    QTextBlockFormat format;
    format.setRightMargin(pixels);
    MergeBlocks(surface, format);
}

// How much further the lines behind the first begin.
double HangingIndent(QtSurface& surface) { return -BlockFormatOf(surface).textIndent() + 0.0; }
void SetHangingIndent(QtSurface& surface, double pixels) {
    QTextBlockFormat format;
    format.setTextIndent(-pixels);
    MergeBlocks(surface, format);
}

std::u16string Rtf(QtSurface& surface) {
    return WriteRtf(*Edit(surface).document(), surface.fontSize);
}
// A text that isn't RTF is a plain one.
void SetRtf(QtSurface& surface, const std::u16string& text) {
    if (!IsRtf(text)) {
        SetDocumentText<QTextEdit>(surface, text);
        return;
    }
    {
        const QtSurface::Quiet quiet(surface);
        ReadRtf(*Edit(surface).document(), text);
    }
    surface.TellChange(EventKind::kChange);
}

bool Wraps(QtSurface& surface) { return Edit(surface).lineWrapMode() == QTextEdit::WidgetWidth; }
void SetWraps(QtSurface& surface, bool isOn) {
    Edit(surface).setLineWrapMode(isOn ? QTextEdit::WidgetWidth : QTextEdit::NoWrap);
}

bool ColorsAddresses(QtSurface& surface) { return surface.As<RichWidget>().addresses != nullptr; }
void ColorAddresses(QtSurface& surface, bool isOn) {
    if (isOn == ColorsAddresses(surface)) return;
    const QtSurface::Quiet quiet(surface);
    auto& edit = surface.As<RichWidget>();
    if (isOn) {
        edit.addresses = new AddressPainter(edit.document());
        edit.addresses->rehighlight();
    } else {
        delete edit.addresses;
        edit.addresses = nullptr;
    }
}

constexpr QtMember kRichMembers[] = {
    Member<IsBold, SetBold>(u"SelBold"),
    Member<IsItalic, SetItalic>(u"SelItalic"),
    Member<IsUnderlined, SetUnderline>(u"SelUnderline"),
    Member<IsStruck, SetStruck>(u"SelStrikeThru"),
    Member<Color, SetColor>(u"SelColor"),
    Member<Family, SetFontFamily>(u"SelFontName"),
    Member<Size, SetSize>(u"SelFontSize"),
    Member<IsSelectionProtected, ProtectSelection>(u"SelProtected"),
    Member<Alignment, SetAlignment>(u"SelAlignment"),
    Member<LeftIndent, SetLeftIndent>(u"SelIndent"),
    Member<RightIndent, SetRightIndent>(u"SelRightIndent"),
    Member<HangingIndent, SetHangingIndent>(u"SelHangingIndent"),
    Member<Rtf, SetRtf>(u"TextRTF"),
    Member<Wraps, SetWraps>(u"WordWrap"),
    Member<ColorsAddresses, ColorAddresses>(u"AutoUrl"),
};

QWidget* Make(QWidget* parent) {
    auto* edit = new RichWidget(parent);
    edit->setAcceptRichText(true);
    edit->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    edit->document()->setDocumentMargin(1);
    return edit;
}

QWidget* Viewport(QWidget& widget) { return static_cast<QTextEdit&>(widget).viewport(); }

void Start(QtSurface& surface) {
    surface.tellsClicks = true;
    surface.UsePalette(QPalette::Text, QPalette::Base);
    TellChanges<RichWidget>(surface);
}

}  // namespace

const QtControlClass kRichTextClass = {.make = Make,
                                       .start = Start,
                                       .members = kDocumentMembers<QTextEdit>,
                                       .inner = Viewport,
                                       .foreColor = system_color::kWindowText,
                                       .backColor = system_color::kWindow,
                                       .moreMembers = kRichMembers};

}  // namespace velm
