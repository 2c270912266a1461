// See qt_picture.h.
#include "platform/qt/qt_picture.h"

#include <QEvent>
#include <QFrame>
#include <QResizeEvent>
#include <algorithm>

#include "data/failure.h"
#include "platform/qt/qt_canvas_view.h"
#include "platform/qt/qt_members.h"

namespace velm {

namespace {

// The sides of a container that a picture may keep to, by the number of the member Align.
constexpr int kNoSide = 0;
constexpr int kTopSide = 1;
constexpr int kBottomSide = 2;
constexpr int kLeftSide = 3;
constexpr int kRightSide = 4;

// Cuts a strip off one side of the room that is left, and returns it.
QRect CutStrip(QRect& room, int side, QSize size) {
    QRect strip = room;
    if (side == kTopSide || side == kBottomSide) {
        const int height = std::min(size.height(), room.height());
        strip.setHeight(height);
        if (side == kTopSide) {
            room.setTop(room.top() + height);
        } else {
            room.setHeight(room.height() - height);
            strip.moveTop(room.top() + room.height());
        }
        return strip;
    }
    const int width = std::min(size.width(), room.width());
    strip.setWidth(width);
    if (side == kLeftSide) {
        room.setLeft(room.left() + width);
    } else {
        room.setWidth(room.width() - width);
        strip.moveLeft(room.left() + room.width());
    }
    return strip;
}

}  // namespace

// The border, and the canvas inside it.
class QtPictureFrame : public QFrame {
  public:
    explicit QtPictureFrame(QWidget* parent) : QFrame(parent), view(new QtCanvasView(this)) {
        view->setFocusPolicy(Qt::StrongFocus);
        SetBorder(true);
        parent->installEventFilter(this);
    }

    int Side() const { return side_; }
    void SetSide(int side) {
        side_ = side;
        DockAll();
    }

    // Puts the pictures that keep to a side of the same container where they belong: those of the upper
    // and the lower side first, over the whole width.
    void DockAll() {
        QRect room = parentWidget()->rect();
        Dock(room, kTopSide, kBottomSide);
        Dock(room, kLeftSide, kRightSide);
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

    bool event(QEvent* event) override {
        const QEvent::Type type = event->type();
        if (type == QEvent::ParentAboutToChange) parentWidget()->removeEventFilter(this);
        if (type == QEvent::ParentChange) parentWidget()->installEventFilter(this);
        const bool shows = type == QEvent::ShowToParent || type == QEvent::HideToParent;
        if (side_ != kNoSide && (shows || type == QEvent::ParentChange)) DockAll();
        return QFrame::event(event);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (side_ != kNoSide && event->type() == QEvent::Resize) DockAll();
        return QFrame::eventFilter(watched, event);
    }

  private:
    int side_ = kNoSide;

    // A picture that is told its new size may run a script, so that the list is one of its own.
    void Dock(QRect& room, int first, int second) {
        QList<QPointer<QtPictureFrame>> pictures;
        for (QObject* each : parentWidget()->children()) {
            if (auto* picture = dynamic_cast<QtPictureFrame*>(each)) pictures += picture;
        }
        for (const QPointer<QtPictureFrame>& picture : pictures) {
            if (picture == nullptr || picture->isHidden()) continue;
            if (picture->side_ != first && picture->side_ != second) continue;
            picture->setGeometry(CutStrip(room, picture->side_, picture->size()));
        }
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

int Align(QtSurface& surface) { return surface.As<QtPictureFrame>().Side(); }
void SetAlign(QtSurface& surface, int side) {
    surface.As<QtPictureFrame>().SetSide(Within(side, kNoSide, kRightSide));
}

constexpr QtMember kMembers[] = {
    Member<Align, SetAlign>(u"Align"),
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
    if (frame != nullptr && frame->Side() != kNoSide) frame->DockAll();
}

void QtPicture::SetContainer(ToolkitControl& container) { MoveIntoContainer(Frame(), container); }

void QtPicture::SetPicture(const Pixmap&) { throw Failure(failure::kNoSuchMember); }

void QtPicture::SetCanvas(CanvasImage* canvas) {
    if (frame_ != nullptr) frame_->view->SetCanvas(canvas);
}

QWidget* QtPicture::ChildArea() { return frame_ == nullptr ? nullptr : frame_->view; }

}  // namespace velm
