// Labels and images: what shows a text or a picture and tells of the mouse, without the keyboard.
#include <QEvent>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QShortcutEvent>

#include "platform/qt/qt_caption.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_control_classes.h"
#include "platform/qt/qt_members.h"
#include "platform/qt/qt_pictures.h"

namespace velm {

namespace {

constexpr Qt::Alignment kAlignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};

// The frame of one pixel that both may have.
class FramedWidget : public QWidget {
  public:
    using QWidget::QWidget;

    bool hasBorder = false;

  protected:
    QRect Inside() const {
        const int edge = hasBorder ? 1 : 0;
        return rect().adjusted(edge, edge, -edge, -edge);
    }
    void PaintBorder(QPainter& painter) const {
        if (!hasBorder) return;
        // Filled, since a pen of one pixel would leave a gap at the edge of a fine display.
        const QRect all = rect();
        const QColor color = palette().color(QPalette::Shadow);
        painter.fillRect(QRect(all.topLeft(), QSize(all.width(), 1)), color);
        painter.fillRect(QRect(all.bottomLeft(), QSize(all.width(), 1)), color);
        painter.fillRect(QRect(all.topLeft(), QSize(1, all.height())), color);
        painter.fillRect(QRect(all.topRight(), QSize(1, all.height())), color);
    }
};

class LabelWidget : public FramedWidget {
  public:
    using FramedWidget::FramedWidget;

    QString text;
    int alignment = 0;
    bool isOpaque = true;
    bool sizesItself = false;
    bool wrapsWords = false;
    bool hasMnemonic = true;

    // After a change of the text or of what it looks like.
    void Renew() {
        const Caption caption(text, hasMnemonic);
        if (shortcut_ != 0) releaseShortcut(shortcut_);
        const QKeySequence key = caption.AccessKey();
        shortcut_ = key.isEmpty() ? 0 : grabShortcut(key);
        setAccessibleName(
            QString(caption.Text()).replace(QChar(QChar::LineSeparator), QLatin1Char(' ')));
        Fit();
        update();
    }

    // A label that takes the size of its text grows downwards when it wraps, to the right otherwise.
    void Fit() {
        if (!sizesItself) return;
        const int edges = hasBorder ? 2 : 0;
        const Caption caption(text, hasMnemonic);
        QSize size = caption.SizeOf(font(), wrapsWords ? std::max(1, width() - edges) : 0);
        size += QSize(edges, edges);
        if (wrapsWords) size.setWidth(width());
        resize(size);
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const QtSurface* surface = QtSurface::OfWidget(this);
        if (surface == nullptr) return;
        QPainter painter(this);
        if (isOpaque) painter.fillRect(rect(), ColorOfScript(surface->backColor));
        PaintBorder(painter);
        painter.setPen(isEnabled() ? ColorOfScript(surface->foreColor)
                                   : palette().color(QPalette::Disabled, QPalette::WindowText));
        // Only one that takes the size of its text can have lines longer than itself.
        const bool wraps = wrapsWords || !sizesItself;
        const Qt::Alignment place = kAlignments[alignment] | Qt::AlignTop;
        Caption(text, hasMnemonic).Paint(painter, Inside(), font(), place, wraps);
    }

    void changeEvent(QEvent* event) override {
        if (event->type() == QEvent::FontChange) Fit();
        FramedWidget::changeEvent(event);
    }

    bool event(QEvent* event) override {
        if (event->type() != QEvent::Shortcut) return FramedWidget::event(event);
        if (static_cast<QShortcutEvent*>(event)->shortcutId() == shortcut_) FocusNext();
        return true;
    }

  private:
    int shortcut_ = 0;

    // The access key of a label is that of the control behind it.
    void FocusNext() {
        const QtSurface* own = QtSurface::OfWidget(this);
        QtSurface* next = nullptr;
        for (const QWidget* each : window()->findChildren<QWidget*>()) {
            QtSurface* surface = QtSurface::OfWidget(each);
            const bool isBehind = own != nullptr && surface != nullptr &&
                                  surface->tabOrder > own->tabOrder && TakesFocus(*each);
            if (!isBehind) continue;
            if (next == nullptr || surface->tabOrder < next->tabOrder) next = surface;
        }
        if (next != nullptr) next->Widget()->setFocus(Qt::ShortcutFocusReason);
    }
    static bool TakesFocus(const QWidget& widget) {
        return widget.isVisible() && widget.isEnabled() && widget.focusPolicy() != Qt::NoFocus;
    }
};

class ImageWidget : public FramedWidget {
  public:
    using FramedWidget::FramedWidget;

    QPixmap picture;
    bool isStretched = false;

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        if (!picture.isNull() && isStretched) {
            painter.drawPixmap(Inside(), picture);
        } else if (!picture.isNull()) {
            painter.drawPixmap(Inside().topLeft(), picture);
        }
        PaintBorder(painter);
    }
};

int BorderStyle(QtSurface& surface) { return surface.As<FramedWidget>().hasBorder ? 1 : 0; }
void SetImageBorder(QtSurface& surface, int style) {
    surface.As<FramedWidget>().hasBorder = Within(style, 0, 1) == 1;
    surface.Widget()->update();
}

std::u16string GetCaption(QtSurface& surface) { return FromLines(surface.As<LabelWidget>().text); }
void SetCaption(QtSurface& surface, const std::u16string& text) {
    auto& label = surface.As<LabelWidget>();
    QString lines = ToLines(text);
    if (label.text == lines) return;
    label.text = std::move(lines);
    label.Renew();
}

int Alignment(QtSurface& surface) { return surface.As<LabelWidget>().alignment; }
void SetAlignment(QtSurface& surface, int alignment) {
    auto& label = surface.As<LabelWidget>();
    label.alignment = Within(alignment, 0, 2);
    label.update();
}

int BackStyle(QtSurface& surface) { return surface.As<LabelWidget>().isOpaque ? 1 : 0; }
void SetBackStyle(QtSurface& surface, int style) {
    auto& label = surface.As<LabelWidget>();
    label.isOpaque = Within(style, 0, 1) == 1;
    label.update();
}

void SetLabelBorder(QtSurface& surface, int style) {
    SetImageBorder(surface, style);
    surface.As<LabelWidget>().Fit();
}

template <bool LabelWidget::*kFlag>
bool GetFlag(QtSurface& surface) {
    return surface.As<LabelWidget>().*kFlag;
}
template <bool LabelWidget::*kFlag>
void SetFlag(QtSurface& surface, bool isOn) {
    auto& label = surface.As<LabelWidget>();
    label.*kFlag = isOn;
    label.Renew();
}
template <bool LabelWidget::*kFlag>
constexpr QtMember FlagMember(std::u16string_view name) {
    return Member<GetFlag<kFlag>, SetFlag<kFlag>>(name);
}

constexpr QtMember kLabelMembers[] = {
    Member<GetCaption, SetCaption>(u"Caption"),
    Member<Alignment, SetAlignment>(u"Alignment"),
    Member<BackStyle, SetBackStyle>(u"BackStyle"),
    Member<BorderStyle, SetLabelBorder>(u"BorderStyle"),
    FlagMember<&LabelWidget::sizesItself>(u"AutoSize"),
    FlagMember<&LabelWidget::wrapsWords>(u"WordWrap"),
    FlagMember<&LabelWidget::hasMnemonic>(u"UseMnemonic"),
};

void SetLabelGeometry(QtSurface& surface, const PixelBox& box) {
    surface.SetGeometry(box);
    surface.As<LabelWidget>().Fit();
}

bool IsStretched(QtSurface& surface) { return surface.As<ImageWidget>().isStretched; }
void SetStretched(QtSurface& surface, bool isOn) {
    auto& image = surface.As<ImageWidget>();
    image.isStretched = isOn;
    image.update();
}

constexpr QtMember kImageMembers[] = {
    Member<IsStretched, SetStretched>(u"Stretch"),
    Member<BorderStyle, SetImageBorder>(u"BorderStyle"),
};

void SetImagePicture(QtSurface& surface, const Pixmap& picture) {
    auto& image = surface.As<ImageWidget>();
    image.picture = QPixmap::fromImage(ImageOfPixmap(picture));
    image.update();
}

template <class Widget>
QWidget* Make(QWidget* parent) {
    return new Widget(parent);
}

// As new windows are, so that a label doesn't stand out.
constexpr std::int32_t kWindowWhite = 0xFFFFFF;

void StartClicks(QtSurface& surface) { surface.tellsClicks = true; }

}  // namespace

const QtControlClass kLabelClass = {.make = Make<LabelWidget>,
                                    .start = StartClicks,
                                    .members = kLabelMembers,
                                    .geometry = nullptr,
                                    .setGeometry = SetLabelGeometry,
                                    .backColor = kWindowWhite};
const QtControlClass kImageClass = {.make = Make<ImageWidget>,
                                    .start = StartClicks,
                                    .members = kImageMembers,
                                    .setPicture = SetImagePicture};

}  // namespace velm
