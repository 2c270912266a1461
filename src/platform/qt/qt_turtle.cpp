// See qt_turtle.h. A walking turtle moves thousands of times a second; what is on the screen follows once
// a frame.
#include "platform/qt/qt_turtle.h"

#include <QBitmap>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>

#include "data/failure.h"
#include "platform/qt/qt_control.h"
#include "platform/qt/qt_frames.h"
#include "platform/qt/qt_pictures.h"

namespace velm {

// Its transparent places let the mouse through, for they are no part of it.
class QtTurtleView : public QWidget, public FrameClient {
  public:
    explicit QtTurtleView(QWidget* parent) : QWidget(parent) { setMouseTracking(true); }

    PixelBox box;

    void SetImage(const QImage& image) {
        next_ = image;
        isNew_ = true;
        box.width = image.width();
        box.height = image.height();
    }

    // Another child that came later, or was brought to the front, lies over it.
    bool HasNews() override { return isNew_ || Place() != geometry() || IsCovered(); }

    void ShowNews() override {
        if (isNew_) {
            isNew_ = false;
            image_ = next_;
            setMask(QBitmap::fromImage(image_.createAlphaMask()));
            update();
        }
        setGeometry(Place());
        if (IsCovered()) raise();
    }

  protected:
    void showEvent(QShowEvent* event) override {
        QWidget::showEvent(event);
        ShowNews();
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawImage(0, 0, image_);
    }

    // Clicks are the turtle's own; what lies below feels the mouse pass.
    void mousePressEvent(QMouseEvent* event) override { event->accept(); }
    void mouseReleaseEvent(QMouseEvent* event) override { event->accept(); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { event->accept(); }
    void mouseMoveEvent(QMouseEvent* event) override { event->ignore(); }

  private:
    QImage image_;
    QImage next_;
    bool isNew_ = false;

    // Two turtles don't fight for the place above.
    bool IsCovered() const {
        const QObjectList& siblings = parentWidget()->children();
        for (auto each = siblings.rbegin(); *each != this; ++each) {
            if (dynamic_cast<const QtTurtleView*>(*each) == nullptr) return true;
        }
        return false;
    }

    QRect Place() const { return QRect(box.left, box.top, box.width, box.height); }
};

QtTurtle::QtTurtle(QWidget* parent, ControlListener& listener) : view_(new QtTurtleView(parent)) {
    surface_ =
        std::make_unique<QtSurface>(view_, listener, std::vector<QtMemberTable>{CommonMembers()});
    surface_->control = this;
    surface_->tellsClicks = true;
    view_->setAttribute(Qt::WA_NoMousePropagation, false);
}

QtTurtle::~QtTurtle() = default;

MemberValue QtTurtle::Get(std::u16string_view member, const MemberArguments& arguments) {
    return surface_->Get(member, arguments);
}

void QtTurtle::Set(std::u16string_view member, const MemberValue& value,
                   const MemberArguments& arguments) {
    surface_->Set(member, value, arguments);
}

MemberValue QtTurtle::Call(std::u16string_view member, const MemberArguments& arguments) {
    return surface_->Call(member, arguments);
}

PixelBox QtTurtle::Geometry() const { return view_->box; }

void QtTurtle::SetGeometry(const PixelBox& box) { view_->box = box; }

void QtTurtle::SetContainer(ToolkitControl& container) { MoveIntoContainer(*view_, container); }

void QtTurtle::SetPicture(const Pixmap& picture) { view_->SetImage(ImageOfPixmap(picture)); }

void QtTurtle::SetCanvas(CanvasImage* canvas) {
    if (canvas != nullptr) throw Failure(failure::kNoSuchMember);
}

}  // namespace velm
