// Members that texts of several lines have in common, plain or rich: W is the toolkit's class.
#pragma once

#include <QPointer>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <functional>
#include <string>
#include <utility>

#include "platform/qt/qt_members.h"
#include "platform/qt/qt_text_positions.h"

namespace velm {

// Whether the input method is wanted, and in which form, by the number of the member IMEMode: 0 plain, 1
// on, 2 off, 3 not at all, 4 hiragana, 5 katakana, 6 half-width katakana, 7 wide letters, 8 letters.
void ApplyInputMode(QWidget& widget, int mode);
int InputMode(QtSurface& surface);
void SetInputMode(QtSurface& surface, int mode);
// Throws Failure(5) for a length below 0; 0 stands for no limit.
int MaxLength(QtSurface& surface);
void SetMaxLength(QtSurface& surface, int length);

// Members that need no class of the toolkit.
inline constexpr const char* kMaxLengthProperty = "velmMaxLength";

template <class W>
std::u16string DocumentText(QtSurface& surface) {
    return FromLines(surface.As<W>().toPlainText());
}

// Tells of one change, however many steps the toolkit takes.
template <class W>
void SetDocumentText(QtSurface& surface, const std::u16string& text) {
    const QString lines = ToLines(text);
    W& edit = surface.As<W>();
    if (edit.toPlainText() == lines) return;
    {
        const QtSurface::Quiet quiet(surface);
        edit.setPlainText(lines);
    }
    surface.TellChange(EventKind::kChange);
}

template <class W>
int SelectionStart(QtSurface& surface) {
    W& edit = surface.As<W>();
    return ScriptPosition(*edit.document(), edit.textCursor().selectionStart());
}

// Between two positions of the script.
template <class W>
void Select(W& edit, int start, int end) {
    const QTextDocument& document = *edit.document();
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(DocumentPosition(document, start));
    cursor.setPosition(DocumentPosition(document, end), QTextCursor::KeepAnchor);
    edit.setTextCursor(cursor);
}

// The selection is gone afterwards.
template <class W>
void SetSelectionStart(QtSurface& surface, int start) {
    Within(start, 0, INT32_MAX);
    Select(surface.As<W>(), start, start);
}

template <class W>
int SelectionLength(QtSurface& surface) {
    W& edit = surface.As<W>();
    const int end = ScriptPosition(*edit.document(), edit.textCursor().selectionEnd());
    return end - SelectionStart<W>(surface);
}
template <class W>
void SetSelectionLength(QtSurface& surface, int length) {
    const int start = SelectionStart<W>(surface);
    const int room = INT32_MAX - start;
    Select(surface.As<W>(), start, start + std::min(Within(length, 0, INT32_MAX), room));
}

template <class W>
std::u16string SelectedText(QtSurface& surface) {
    QString text = surface.As<W>().textCursor().selectedText();
    text.replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
    text.replace(QChar(QChar::LineSeparator), QLatin1Char('\n'));
    return FromLines(text);
}
// The caret stands behind what was put in.
template <class W>
void SetSelectedText(QtSurface& surface, const std::u16string& text) {
    const QPointer<QtSurface> self(&surface);
    {
        const QtSurface::Quiet quiet(surface);
        W& edit = surface.As<W>();
        QTextCursor cursor = edit.textCursor();
        cursor.insertText(ToLines(text));
        edit.setTextCursor(cursor);
    }
    if (self != nullptr) surface.TellChange(EventKind::kChange);
}

template <class W>
bool IsLocked(QtSurface& surface) {
    return surface.As<W>().isReadOnly();
}
// A locked text still has a caret and can be copied.
template <class W>
void SetLocked(QtSurface& surface, bool isOn) {
    W& edit = surface.As<W>();
    edit.setReadOnly(isOn);
    if (isOn) {
        edit.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    }
}

template <class W>
void Undo(QtSurface& surface) {
    surface.As<W>().undo();
}

// Takes away what stands beyond the limit, at the place where it came in.
template <class W>
void KeepWithinLimit(W& edit, int limit, int place, int added) {
    if (limit <= 0 || added <= 0) return;
    QTextDocument& document = *edit.document();
    const int length = ScriptPosition(document, document.characterCount() - 1);
    if (length <= limit) return;
    const int start = ScriptPosition(document, place);
    const int end = ScriptPosition(document, place + added);
    const int keep = std::max(start, end - (length - limit));
    QTextCursor cursor(&document);
    cursor.setPosition(DocumentPosition(document, keep));
    cursor.setPosition(DocumentPosition(document, end), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

// A text whose changes are told at the end of the event that made them: a script may do anything to the
// text then, which the toolkit wouldn't bear in the middle of its own work on it.
template <class W>
class LateTeller : public W {
  public:
    using W::W;

    std::function<void()> tellChange;
    void NoteChange() {
        hasChanged_ = true;
        if (depth_ == 0) TellNoted();
    }

  protected:
    bool event(QEvent* event) override {
        return Within([&] { return W::event(event); });
    }
    bool viewportEvent(QEvent* event) override {
        return Within([&] { return W::viewportEvent(event); });
    }

  private:
    int depth_ = 0;
    bool hasChanged_ = false;

    template <class Step>
    bool Within(Step&& step) {
        const QPointer<QObject> alive(this);
        ++depth_;
        const bool isTaken = step();
        if (alive == nullptr) return isTaken;
        if (--depth_ == 0) TellNoted();
        return isTaken;
    }
    void TellNoted() {
        if (std::exchange(hasChanged_, false) && tellChange) tellChange();
    }
};

// Tells of every change, after the limit was kept. W is a LateTeller.
template <class W>
void TellChanges(QtSurface& surface) {
    W& edit = surface.As<W>();
    struct Insertion {
        int place = 0;
        int added = 0;
    };
    const auto last = std::make_shared<Insertion>();
    QObject::connect(edit.document(), &QTextDocument::contentsChange, &surface,
                     [last](int place, int /*removed*/, int added) {
                         *last = {place, added};
                     });
    QObject::connect(&edit, &W::textChanged, &surface, [&surface, &edit, last] {
        if (surface.IsQuiet()) return;
        {
            const QtSurface::Quiet quiet(surface);
            KeepWithinLimit(edit, MaxLength(surface), last->place, last->added);
        }
        edit.NoteChange();
    });
    edit.tellChange = [alive = QPointer<QtSurface>(&surface)] {
        if (alive != nullptr) alive->TellChange(EventKind::kChange);
    };
}

// Control with Enter makes a line also where Enter presses a button of the window.
template <class W>
bool MakesLine(W& edit, const QKeyEvent& event) {
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (!isEnter || !event.modifiers().testFlag(Qt::ControlModifier) || edit.isReadOnly())
        return false;
    edit.textCursor().insertBlock();
    edit.ensureCursorVisible();
    return true;
}

template <class W>
constexpr QtMember kDocumentMembers[] = {
    Member<DocumentText<W>, SetDocumentText<W>>(u"Text"),
    Member<SelectionStart<W>, SetSelectionStart<W>>(u"SelStart"),
    Member<SelectionLength<W>, SetSelectionLength<W>>(u"SelLength"),
    Member<SelectedText<W>, SetSelectedText<W>>(u"SelText"),
    Member<IsLocked<W>, SetLocked<W>>(u"Locked"),
    Member<MaxLength, SetMaxLength>(u"MaxLength"),
    Member<InputMode, SetInputMode>(u"IMEMode"),
    Action<Undo<W>>(u"Undo"),
};

}  // namespace velm
