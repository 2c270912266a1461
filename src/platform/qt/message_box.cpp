// The message box.
#include "platform/qt/message_box.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/dialogs.h"
#include "platform/qt/box_icon.h"
#include "platform/qt/qt_dialog_run.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/text_view.h"

namespace velm {

namespace {

constexpr BoxButton kOk = {box::kAnswerOk, u"OK", 0};
constexpr BoxButton kCancel = {box::kAnswerCancel, u"キャンセル", 0};
constexpr BoxButton kAbort = {box::kAnswerAbort, u"中止", u'A'};
constexpr BoxButton kRetry = {box::kAnswerRetry, u"再試行", u'R'};
constexpr BoxButton kIgnore = {box::kAnswerIgnore, u"無視", u'I'};
constexpr BoxButton kYes = {box::kAnswerYes, u"はい", u'Y'};
constexpr BoxButton kNo = {box::kAnswerNo, u"いいえ", u'N'};

constexpr int kGap = 14;
constexpr int kIconSize = 32;
constexpr int kNarrowestBox = 200;
constexpr int kWidestTitle = 480;
// What the title bar needs besides the title.
constexpr int kTitleButtons = 120;

// "はい(&Y)": a Japanese word has no letter to underline.
QString LabelOf(const BoxButton& button) {
    QString label = ToQString(button.word);
    if (button.letter != 0) label += QStringLiteral("(&") + QChar(button.letter) + u')';
    return label;
}

}  // namespace

std::vector<BoxButton> ButtonsOf(int style) {
    switch (style & box::kButtons) {
        case box::kOkCancel: return {kOk, kCancel};
        case box::kAbortRetryIgnore: return {kAbort, kRetry, kIgnore};
        case box::kYesNoCancel: return {kYes, kNo, kCancel};
        case box::kYesNo: return {kYes, kNo};
        case box::kRetryCancel: return {kRetry, kCancel};
        default: return {kOk};
    }
}

MessageBox::MessageBox(const std::u16string& text, int style, const std::u16string& title,
                       QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      buttons_(ButtonsOf(style)) {
    setWindowTitle(ToTitle(title));
    setAccessibleName(windowTitle());
    setWindowModality(Qt::ApplicationModal);
    setWindowFlag(Qt::WindowCloseButtonHint, AnswerOfClosing() != 0);
    auto* upper = new QHBoxLayout;
    upper->setSpacing(kGap);
    AddIcon(style & box::kIcons, *upper);
    view_ = new TextView(ToLines(text), this);
    view_->setAccessibleName(QStringLiteral("メッセージ"));
    upper->addWidget(view_, 1, Qt::AlignLeft | Qt::AlignVCenter);
    auto* lower = new QHBoxLayout;
    AddButtons(*lower);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(kGap, kGap, kGap, kGap);
    whole->setSpacing(kGap);
    whole->setSizeConstraint(QLayout::SetFixedSize);
    const int titleWidth = fontMetrics().horizontalAdvance(windowTitle().left(kWidestTitle));
    whole->addStrut(std::clamp(titleWidth + kTitleButtons, kNarrowestBox, kWidestTitle));
    whole->addLayout(upper);
    whole->addLayout(lower);
}

void MessageBox::AddIcon(int icon, QHBoxLayout& row) {
    const QPixmap picture = BoxIcon(icon, kIconSize, devicePixelRatioF());
    if (picture.isNull()) return;
    auto* label = new QLabel(this);
    label->setPixmap(picture);
    label->setAccessibleName(BoxIconName(icon));
    row.addWidget(label, 0, Qt::AlignTop);
}

// By hand, since the toolkit's own row of buttons would sort them by the habits of the desktop.
void MessageBox::AddButtons(QHBoxLayout& row) {
    row.addStretch();
    for (const BoxButton& button : buttons_) {
        auto* push = new QPushButton(LabelOf(button), this);
        push->setAccessibleName(ToQString(button.word));
        push->setAutoDefault(true);
        row.addWidget(push);
        connect(push, &QPushButton::clicked, this,
                [this, answer = button.answer] { Finish(answer); });
        if (button.answer != buttons_.front().answer) continue;
        push->setDefault(true);
        push->setFocus();
    }
    row.addStretch();
}

int MessageBox::Ask() {
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    RunDialog(*this);
    return answer_;
}

void MessageBox::Finish(int answer) {
    answer_ = answer;
    done(answer);
}

int MessageBox::AnswerOfClosing() const {
    if (buttons_.size() == 1) return buttons_.front().answer;
    return buttons_.back().answer == box::kAnswerCancel ? box::kAnswerCancel : 0;
}

void MessageBox::reject() {
    if (AnswerOfClosing() != 0) Finish(AnswerOfClosing());
}

void MessageBox::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

void MessageBox::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        view_->CopyText();
        return;
    }
    if (view_->ScrollByKey(event->key())) return;
    // The letter alone presses a button too: nothing here can be typed into.
    const bool plain = (event->modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
    for (const BoxButton& button : buttons_) {
        if (plain && button.letter != 0 && event->key() == button.letter) {
            Finish(button.answer);
            return;
        }
    }
    QDialog::keyPressEvent(event);
}

}  // namespace velm
