// See qt_picture.h.
#include "platform/qt/qt_picture.h"

#include <QFrame>
#include <QResizeEvent>

#include "data/failure.h"
#include "platform/qt/qt_canvas_view.h"
#include "platform/qt/qt_members.h"

namespace velm {

// The border, and the canvas inside it.
class QtPictureFrame : public QFrame {
  public:
    explicit QtPictureFrame(QWidget* parent) : QFrame(parent), view(new QtCanvasView(this)) {
        view->setFocusPolicy(Qt::StrongFocus);
        SetBorder(true);
    }

    void SetBorder(bool hasBorder) {
        setFrameStyle(hasBorder ? QFrame::Panel | QFrame::Sunken : QFrame::NoFrame);
        LayOut();
    }
    void LayOut() {
        view->setGeometry(contentsRect());
        view->FitCanvas();
    }

    QtCanvasView* const view;
    bool isSelfSizing = false;

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QFrame::resizeEvent(event);
        LayOut();
    }
};

namespace {

int BorderOf(QtSurface& surface) { return surface.As<QtPictureFrame>().frameWidth() == 0 ? 0 : 1; }
void SetBorderOf(QtSurface& surface, int style) {
    surface.As<QtPictureFrame>().SetBorder(Within(style, 0, 1) == 1);
}

bool IsSelfSizing(QtSurface& surface) { return surface.As<QtPictureFrame>().isSelfSizing; }
void SetSelfSizing(QtSurface& surface, bool isOn) {
    surface.As<QtPictureFrame>().isSelfSizing = isOn;
}

constexpr QtMember kMembers[] = {
    Member<BorderOf, SetBorderOf>(u"BorderStyle"),
    Member<IsSelfSizing, SetSelfSizing>(u"AutoSize"),
};

}  // namespace

QtPicture::QtPicture(QWidget* parent, ControlListener& listener)
    : frame_(new QtPictureFrame(parent)) {
    surface_ = std::make_unique<QtSurface>(
        frame_, listener, std::vector<QtMemberTable>{kMembers, CommonMembers()}, frame_->view);
    surface_->control = this;
    surface_->tellsClicks = true;
    surface_->isPlacedByInner = true;
    frame_->view->onResized = [this] {
        if (frame_->isVisible()) surface_->TellChange(EventKind::kResize);
    };
}

QtPicture::~QtPicture() {
    if (frame_ == nullptr) return;
    frame_->view->onResized = nullptr;
    frame_->view->SetCanvas(nullptr);
}

QtPictureFrame& QtPicture::Frame() const {
    if (frame_ == nullptr) throw Failure(failure::kNothingThere);
    return *frame_;
}

MemberValue QtPicture::Get(std::u16string_view member, const MemberArguments& arguments) {
    return surface_->Get(member, arguments);
}

void QtPicture::Set(std::u16string_view member, const MemberValue& value,
                    const MemberArguments& arguments) {
    surface_->Set(member, value, arguments);
}

MemberValue QtPicture::Call(std::u16string_view member, const MemberArguments& arguments) {
    return surface_->Call(member, arguments);
}

PixelBox QtPicture::Geometry() const { return surface_->Geometry(); }

// A shown one tells of its size within: afterwards it may be gone.
void QtPicture::SetGeometry(const PixelBox& box) {
    const QPointer<QtPictureFrame> frame = &Frame();
    surface_->SetGeometry(box);
    if (frame != nullptr) frame->LayOut();
}

void QtPicture::SetContainer(ToolkitControl& container) { MoveIntoContainer(Frame(), container); }

void QtPicture::SetPicture(const Pixmap&) { throw Failure(failure::kNoSuchMember); }

void QtPicture::SetCanvas(CanvasImage* canvas) {
    if (frame_ != nullptr) frame_->view->SetCanvas(canvas);
}

QWidget* QtPicture::ChildArea() { return frame_ == nullptr ? nullptr : frame_->view; }

}  // namespace velm
