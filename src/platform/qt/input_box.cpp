// The input box.
#include "platform/qt/input_box.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/qt_dialog_run.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/text_view.h"

namespace velm {

namespace {

constexpr int kGap = 14;
constexpr int kNarrowestLine = 320;
// The toolkit's own limit would cut a preset of 32,767 characters without a word.
constexpr int kLongestLine = 1 << 20;

QString OneLine(const std::u16string& text) {
    QString line = ToLines(text);
    return line.replace(u'\n', u' ');
}

QHBoxLayout* ButtonRow(QDialog& box) {
    auto* ok = new QPushButton(QStringLiteral("OK"), &box);
    auto* cancel = new QPushButton(QStringLiteral("キャンセル"), &box);
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, &box, &QDialog::accept);
    QObject::connect(cancel, &QPushButton::clicked, &box, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(ok);
    row->addWidget(cancel);
    return row;
}

}  // namespace

InputBox::InputBox(const std::u16string& prompt, const std::u16string& preset,
                   const std::u16string& title, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowCloseButtonHint) {
    setWindowTitle(ToTitle(title));
    setAccessibleName(windowTitle());
    setWindowModality(Qt::ApplicationModal);
    auto* view = new TextView(ToLines(prompt), this);
    view->setAccessibleName(QStringLiteral("メッセージ"));
    line_ = new QLineEdit(this);
    line_->setMaxLength(kLongestLine);
    line_->setText(OneLine(preset));
    line_->selectAll();
    line_->setMinimumWidth(std::max(kNarrowestLine, view->width()));
    line_->setAccessibleName(ToTitle(prompt));
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(kGap, kGap, kGap, kGap);
    whole->setSpacing(kGap);
    whole->setSizeConstraint(QLayout::SetFixedSize);
    whole->addWidget(view);
    whole->addWidget(line_);
    whole->addLayout(ButtonRow(*this));
    line_->setFocus();
}

std::optional<std::u16string> InputBox::Ask() {
    if (RunDialog(*this) != QDialog::Accepted) return std::nullopt;
    return FromQString(line_->text());
}

}  // namespace velm
