// Buttons with and without a picture, check boxes and option buttons. They paint their captions
// themselves, since these must fit into controls of the classic sizes.
#include <QCheckBox>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

#include "platform/qt/qt_caption.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_control_classes.h"
#include "platform/qt/qt_dialog_keys.h"
#include "platform/qt/qt_members.h"
#include "platform/qt/qt_pictures.h"

namespace velm {

namespace {

constexpr int kIndicator = 13;
constexpr int kGap = 3;
constexpr int kEdge = 2;

QPen TextPen(const QWidget& widget, std::int32_t color) {
    if (!widget.isEnabled()) {
        return widget.palette().color(QPalette::Disabled, QPalette::ButtonText);
    }
    return ColorOfScript(color);
}

class ButtonWidget : public QPushButton {
  public:
    using QPushButton::QPushButton;

    // Only of one that shows pictures.
    bool showsFace = false;
    Pixmap picture;

    void ReloadPicture() {
        const QtSurface* surface = QtSurface::OfWidget(this);
        Pixmap shown = picture;
        if (surface != nullptr && surface->useMaskColor) {
            const auto mask =
                static_cast<std::uint32_t>(ScriptColor(ColorOfScript(surface->maskColor)));
            std::replace(shown.pixels.begin(), shown.pixels.end(), mask, kTransparentPixel);
        }
        face_ = QPixmap::fromImage(ImageOfPixmap(shown));
        update();
    }

    QSize minimumSizeHint() const override { return {0, 0}; }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const QtSurface* surface = QtSurface::OfWidget(this);
        if (surface == nullptr) return;
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        if (HasDialogKey(*this, DialogKey::kEnter)) {
            option.features |= QStyleOptionButton::DefaultButton;
        }
        painter.drawControl(QStyle::CE_PushButtonBevel, option);
        if (showsFace && surface->backColor != system_color::kButtonFace) {
            painter.fillRect(rect().adjusted(kEdge, kEdge, -kEdge, -kEdge),
                             ColorOfScript(surface->backColor).darker(isDown() ? 110 : 100));
        }
        PaintInside(painter, *surface);
        if (option.state.testFlag(QStyle::State_HasFocus)) PaintFocus(painter, option);
    }

  private:
    QPixmap face_;

    // The picture above the caption, both in the middle.
    void PaintInside(QPainter& painter, const QtSurface& surface) {
        const Caption caption(text());
        QRect box = rect().adjusted(kEdge, kEdge, -kEdge, -kEdge);
        if (isDown()) box.translate(1, 1);
        painter.setPen(TextPen(*this, surface.foreColor));
        if (!face_.isNull()) {
            const int width = box.width();
            const int lines = text().isEmpty() ? 0 : caption.SizeOf(font(), width).height();
            const int top = box.top() + (box.height() - face_.height() - lines) / 2;
            const int left = box.left() + (width - face_.width()) / 2;
            painter.setClipRect(rect().adjusted(kEdge, kEdge, -kEdge, -kEdge));
            painter.drawPixmap(left, top, face_);
            box = QRect(box.left(), top + face_.height(), width, lines);
        }
        caption.Paint(painter, box, font(), Qt::AlignCenter, true);
    }

    void PaintFocus(QStylePainter& painter, const QStyleOptionButton& button) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(button);
        focus.rect = rect().adjusted(kEdge + 1, kEdge + 1, -kEdge - 1, -kEdge - 1);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
};

// A check box or option button: the mark and the caption on a background of one colour.
template <class Base, QStyle::PrimitiveElement kMark>
class MarkWidget : public Base {
  public:
    using Base::Base;

    QSize minimumSizeHint() const override { return {0, 0}; }
    bool isRightAligned = false;

  protected:
    bool hitButton(const QPoint& position) const override {
        return this->rect().contains(position);
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        const QtSurface* surface = QtSurface::OfWidget(this);
        if (surface == nullptr) return;
        QStylePainter painter(this);
        painter.fillRect(this->rect(), ColorOfScript(surface->backColor));
        QStyleOptionButton option;
        this->initStyleOption(&option);
        const int left = isRightAligned ? this->width() - kIndicator : 0;
        option.rect = QRect(left, (this->height() - kIndicator) / 2, kIndicator, kIndicator);
        painter.drawPrimitive(kMark, option);
        const int indent = kIndicator + kGap;
        const QRect box = isRightAligned ? this->rect().adjusted(0, 0, -indent, 0)
                                         : this->rect().adjusted(indent, 0, 0, 0);
        painter.setPen(TextPen(*this, surface->foreColor));
        Caption(this->text())
            .Paint(painter, box, this->font(), Qt::AlignLeft | Qt::AlignVCenter, true);
        if (!option.state.testFlag(QStyle::State_HasFocus)) return;
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = box;
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
};

using CheckWidget = MarkWidget<QCheckBox, QStyle::PE_IndicatorCheckBox>;

// One of those that stand in the same container is on. The toolkit's own groups would take in those of
// containers within it too.
class OptionWidget : public MarkWidget<QRadioButton, QStyle::PE_IndicatorRadioButton> {
  public:
    explicit OptionWidget(QWidget* parent)
        : MarkWidget<QRadioButton, QStyle::PE_IndicatorRadioButton>(parent) {
        setAutoExclusive(false);
    }

    void TurnOn() {
        for (OptionWidget* each : Group()) {
            if (each != this) each->setChecked(false);
        }
        setChecked(true);
    }

  protected:
    void nextCheckState() override { TurnOn(); }

    void keyPressEvent(QKeyEvent* event) override {
        const int key = event->key();
        const bool isBack = key == Qt::Key_Left || key == Qt::Key_Up;
        if (isBack || key == Qt::Key_Right || key == Qt::Key_Down) {
            PressNext(isBack);
        } else {
            MarkWidget::keyPressEvent(event);
        }
    }

  private:
    QList<OptionWidget*> Group() const {
        QList<OptionWidget*> group;
        for (QObject* each : parent()->children()) {
            auto* option = dynamic_cast<OptionWidget*>(each);
            if (option != nullptr && QtSurface::OfWidget(option) != nullptr) group += option;
        }
        return group;
    }

    void PressNext(bool isBack) {
        QList<OptionWidget*> group = Group();
        group.removeIf([](OptionWidget* each) { return each->isHidden() || !each->isEnabled(); });
        const qsizetype step = isBack ? group.size() - 1 : 1;
        OptionWidget* next = group.value((group.indexOf(this) + step) % group.size());
        const QPointer<OptionWidget> alive(next);
        next->setFocus(Qt::TabFocusReason);
        if (alive != nullptr && QtSurface::OfWidget(next) != nullptr) next->click();
    }
};

std::u16string GetCaption(QtSurface& surface) {
    return FromLines(surface.As<QAbstractButton>().text());
}
// The toolkit takes the access key out of it and gives it to readers of the screen as the name.
void SetCaption(QtSurface& surface, const std::u16string& text) {
    surface.As<QAbstractButton>().setText(ToLines(text));
    QString name = Caption(ToLines(text)).Text();
    surface.Widget()->setAccessibleName(
        name.replace(QChar(QChar::LineSeparator), QLatin1Char(' ')));
}

bool IsDefault(QtSurface& surface) {
    return HasDialogKey(surface.As<QAbstractButton>(), DialogKey::kEnter);
}
void SetDefault(QtSurface& surface, bool isOn) {
    SetDialogKey(surface.As<QAbstractButton>(), DialogKey::kEnter, isOn);
}
bool IsCancel(QtSurface& surface) {
    return HasDialogKey(surface.As<QAbstractButton>(), DialogKey::kEscape);
}
void SetCancel(QtSurface& surface, bool isOn) {
    SetDialogKey(surface.As<QAbstractButton>(), DialogKey::kEscape, isOn);
}

// A button's value is a press that is over at once.
bool IsButtonPressed(QtSurface& surface) { return surface.As<QAbstractButton>().isDown(); }
void PressButton(QtSurface& surface, bool isOn) {
    if (isOn) surface.Tell(EventKind::kClick);
}

int MaskColor(QtSurface& surface) { return surface.maskColor; }
void SetMaskColor(QtSurface& surface, const MemberValue& value) {
    surface.maskColor = MemberToColor(value);
    surface.As<ButtonWidget>().ReloadPicture();
}
bool UsesMaskColor(QtSurface& surface) { return surface.useMaskColor; }
void UseMaskColor(QtSurface& surface, bool isOn) {
    surface.useMaskColor = isOn;
    surface.As<ButtonWidget>().ReloadPicture();
}

void SetButtonPicture(QtSurface& surface, const Pixmap& picture) {
    auto& button = surface.As<ButtonWidget>();
    button.picture = picture;
    button.ReloadPicture();
}

constexpr QtMember kButtonMembers[] = {
    Member<GetCaption, SetCaption>(u"Caption"),
    Member<IsDefault, SetDefault>(u"Default"),
    Member<IsCancel, SetCancel>(u"Cancel"),
    Member<IsButtonPressed, PressButton>(u"Value"),
};
constexpr QtMember kPictureButtonMembers[] = {
    Member<MaskColor, SetMaskColor>(u"MaskColor"),
    Member<UsesMaskColor, UseMaskColor>(u"UseMaskColor"),
};

// 0 off, 1 on, 2 neither. What changes it tells of a click, whoever does it.
int CheckValue(QtSurface& surface) {
    switch (surface.As<CheckWidget>().checkState()) {
        case Qt::Unchecked: return 0;
        case Qt::Checked: return 1;
        default: return 2;
    }
}
void SetCheckValue(QtSurface& surface, const MemberValue& value) {
    const bool* flag = std::get_if<bool>(&value);
    const int number = flag != nullptr ? static_cast<int>(*flag) : MemberToInt(value);
    if (Within(number, 0, 2) == CheckValue(surface)) return;
    constexpr Qt::CheckState kStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
    surface.As<CheckWidget>().setCheckState(kStates[number]);
    surface.TellChange(EventKind::kClick);
}

bool OptionValue(QtSurface& surface) { return surface.As<OptionWidget>().isChecked(); }
void SetOptionValue(QtSurface& surface, bool isOn) {
    auto& option = surface.As<OptionWidget>();
    if (option.isChecked() == isOn) return;
    if (isOn) {
        option.TurnOn();
    } else {
        option.setChecked(false);
    }
    if (isOn) surface.TellChange(EventKind::kClick);
}

template <class Widget>
int Alignment(QtSurface& surface) {
    return surface.As<Widget>().isRightAligned ? 1 : 0;
}
template <class Widget>
void SetAlignment(QtSurface& surface, int alignment) {
    surface.As<Widget>().isRightAligned = Within(alignment, 0, 1) == 1;
    surface.Widget()->update();
}

constexpr QtMember kCheckMembers[] = {
    Member<GetCaption, SetCaption>(u"Caption"),
    Member<CheckValue, SetCheckValue>(u"Value"),
    Member<Alignment<CheckWidget>, SetAlignment<CheckWidget>>(u"Alignment"),
};
constexpr QtMember kOptionMembers[] = {
    Member<GetCaption, SetCaption>(u"Caption"),
    Member<OptionValue, SetOptionValue>(u"Value"),
    Member<Alignment<OptionWidget>, SetAlignment<OptionWidget>>(u"Alignment"),
};

template <class Widget>
QWidget* Make(QWidget* parent) {
    return new Widget(parent);
}

QWidget* MakePictureButton(QWidget* parent) {
    auto* button = new ButtonWidget(parent);
    button->showsFace = true;
    return button;
}

void StartButton(QtSurface& surface) {
    auto& button = surface.As<QAbstractButton>();
    surface.tellsDoubleClicks = false;
    button.setFocusPolicy(Qt::StrongFocus);
    QObject::connect(&button, &QAbstractButton::clicked, &surface,
                     [&surface] { surface.TellChange(EventKind::kClick); });
}

// The second press of an option button is a double click, and no click.
void StartOption(QtSurface& surface) {
    StartButton(surface);
    surface.tellsDoubleClicks = true;
    surface.beforeRelease = [](QtSurface& pressed) { pressed.As<OptionWidget>().TurnOn(); };
}

}  // namespace

const QtControlClass kButtonClass = {
    .make = Make<ButtonWidget>, .start = StartButton, .members = kButtonMembers};
const QtControlClass kPictureButtonClass = {.make = MakePictureButton,
                                            .start = StartButton,
                                            .members = kButtonMembers,
                                            .setPicture = SetButtonPicture,
                                            .moreMembers = kPictureButtonMembers};
const QtControlClass kCheckClass = {
    .make = Make<CheckWidget>, .start = StartButton, .members = kCheckMembers};
const QtControlClass kOptionClass = {
    .make = Make<OptionWidget>, .start = StartOption, .members = kOptionMembers};

}  // namespace velm
