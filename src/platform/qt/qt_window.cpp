// See qt_window.h. A script's procedure may end the window within any Tell: whoever goes on afterwards
// looks whether the surface is still there.
#include "platform/qt/qt_window.h"

#include <QBitmap>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QMenuBar>
#include <QScreen>
#include <QThread>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "data/failure.h"
#include "platform/qt/qt_canvas_view.h"
#include "platform/qt/qt_menus.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_removal.h"
#include "platform/qt/qt_taskbar.h"
#include "platform/qt/qt_wait_watch.h"
#include "platform/qt/qt_wayland.h"
#include "platform/qt/qt_window_frame.h"

namespace velm {

namespace {

constexpr std::int32_t kPlain = 0;
constexpr std::int32_t kMinimised = 1;
constexpr std::int32_t kMaximised = 2;
constexpr std::int32_t kWholeScreen = 5;  // a kind

// The longest side that a display can hold.
constexpr std::int32_t kLongestSide = 32767;

// A new window stands a little below and to the right of the one before, on one of this many places.
constexpr int kCascadeStep = 26;
constexpr int kCascadePlaces = 10;

int Side(std::int64_t length) {
    return static_cast<int>(std::clamp<std::int64_t>(length, 0, kLongestSide));
}

QPoint NextPlace() {
    static int count = 0;
    const int step = kCascadeStep * (1 + count++ % kCascadePlaces);
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QPoint corner = screen == nullptr ? QPoint() : screen->availableGeometry().topLeft();
    return corner + QPoint(step, step);
}

// What the window manager put around the last window, with a caption bar of the usual and of the small
// kind.
QMargins& LastMargins(bool isTool) {
    static QMargins margins[2];
    return margins[isTool ? 1 : 0];
}

// Until the window manager has put its frame around a new window, what is set of its place and size is
// measured without the frame.
void WaitForFrame(const QPointer<QtSurface>& surface) {
    constexpr qint64 kLongestWait = 100;  // milliseconds
    QElapsedTimer timer;
    timer.start();
    while (surface != nullptr && timer.elapsed() < kLongestWait) {
        const QWidget* frame = surface->Widget();
        const QWindow* handle = frame->windowHandle();
        if (handle == nullptr || handle->isExposed()) return;
        if (!frame->isVisible() || frame->isMinimized()) return;
        QThread::msleep(1);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
}

// Most windows show the same picture, and the toolkit keeps the pixels of every icon for a long time.
QIcon IconOf(const Pixmap& picture) {
    static auto* const last = new Pixmap;
    static auto* const icon = new QIcon;
    const bool isSame = picture.width == last->width && picture.pixels == last->pixels;
    if (!isSame) *icon = QIcon(QPixmap::fromImage(ImageOfPixmap(picture)));
    *last = picture;
    return *icon;
}

bool IsTool(const QWidget& frame) { return frame.windowType() == Qt::Tool; }

}  // namespace

QtWindow::QtWindow(ControlListener& listener)
    : frame_(new QtWindowFrame(*this)), client_(new QtCanvasView(frame_)) {
    frame_->setWindowFlags(QtFlagsOf(style_));
    surface_ = std::make_unique<QtSurface>(
        frame_, listener, std::vector<QtMemberTable>{WindowMembers(), CommonMembers()}, client_);
    surface_->control = this;
    surface_->tellsClicks = true;
    surface_->isPlacedByInner = true;  // a menu bar may stand above it
    if (!IsOnWayland()) frame_->move(NextPlace());
    client_->onResized = [this] {
        if (frame_->isVisible() && !surface_->IsQuiet()) surface_->Tell(EventKind::kResize);
    };
}

QtWindow::~QtWindow() {
    if (modal_ != nullptr) modal_->quit();
    client_->onResized = nullptr;
    client_->SetCanvas(nullptr);
    frame_->Forget();
}

QtWindow* QtWindow::Of(QWidget* widget) {
    auto* frame = dynamic_cast<QtWindowFrame*>(widget);
    return frame == nullptr ? nullptr : frame->Owner();
}

MemberValue QtWindow::Get(std::u16string_view member, const MemberArguments& arguments) {
    return surface_->Get(member, arguments);
}

void QtWindow::Set(std::u16string_view member, const MemberValue& value,
                   const MemberArguments& arguments) {
    surface_->Set(member, value, arguments);
}

MemberValue QtWindow::Call(std::u16string_view member, const MemberArguments& arguments) {
    return surface_->Call(member, arguments);
}

// --- Place and size

QMargins QtWindow::Margins() const {
    if (!HasFrame(style_)) return QMargins();
    const QWindow* handle = frame_->windowHandle();
    const bool isThere = handle != nullptr && handle->isExposed();
    return isThere ? handle->frameMargins() : LastMargins(IsTool(*frame_));
}

PixelBox QtWindow::Geometry() const {
    const QMargins around = Margins();
    const QSize outer = wishedFrame_.value_or(frame_->size().grownBy(around));
    return {frame_->x(), frame_->y(), outer.width(), outer.height()};
}

bool QtWindow::IsFullScreen() const { return frame_->windowState() & Qt::WindowFullScreen; }

void QtWindow::SetGeometry(const PixelBox& box) {
    const PixelBox before = Geometry();
    if (box == before) return;
    const QPointer<QtSurface> alive = surface_.get();
    // While it fills the screen a window has neither place nor size to change.
    if (State() == kMaximised) SetState(kPlain);
    if (alive != nullptr && IsFullScreen()) {
        frame_->setWindowState(frame_->windowState() & ~Qt::WindowFullScreen);
    }
    if (alive == nullptr) return;
    const bool isElsewhere = box.left != before.left || box.top != before.top;
    if (isElsewhere && !IsOnWayland()) frame_->move(box.left, box.top);
    SetOuterSize(box, before);
    if (isElsewhere) RefuseOnWayland();
}

void QtWindow::SetOuterSize(const PixelBox& box, const PixelBox& before) {
    if (box.width == before.width && box.height == before.height) return;
    const QSize outer(Side(box.width), Side(box.height));
    const QWindow* handle = frame_->windowHandle();
    const bool isThere = handle != nullptr && handle->isExposed();
    wishedFrame_.reset();
    if (!isThere && HasFrame(style_)) wishedFrame_ = outer;
    Resize(outer.shrunkBy(Margins()));
}

void QtWindow::SetClientSize(std::int32_t width, std::int32_t height) {
    wishedFrame_.reset();
    const int bar = frame_->height() - client_->height();
    Resize({Side(width), Side(std::int64_t{height} + (bar_ == nullptr ? 0 : bar))});
}

std::int32_t QtWindow::ClientWidth() const { return client_->width(); }
std::int32_t QtWindow::ClientHeight() const { return client_->height(); }

void QtWindow::Resize(QSize size) {
    const QPointer<QtSurface> alive = surface_.get();
    frame_->setMinimumSize(0, 0);
    frame_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    // Told last, when the window is as it shall be; a hidden one hears of its size only when it's shown.
    frame_->resize(size.expandedTo(QSize(0, 0)));
    if (alive == nullptr) return;
    FixSize(frame_->size());
    LayOut();
}

// In its plain state a window of a fixed kind keeps its size.
void QtWindow::FixSize(QSize size) {
    const bool isFixed = HasFixedSize(style_) && State() != kMaximised && !IsFullScreen();
    frame_->setMinimumSize(isFixed ? size : QSize(0, 0));
    frame_->setMaximumSize(isFixed ? size : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

void QtWindow::LayOut() {
    int top = 0;
    if (bar_ != nullptr) {
        top = std::min(bar_->heightForWidth(frame_->width()), frame_->height());
        bar_->setGeometry(0, 0, frame_->width(), top);
    }
    QtCanvasView* const client = client_;  // the widget outlives the window, which may end here
    client->setGeometry(0, top, frame_->width(), frame_->height() - top);
    client->FitCanvas();
}

void QtWindow::OnResized() { LayOut(); }

void QtWindow::OnExposed() {
    LastMargins(IsTool(*frame_)) = frame_->windowHandle()->frameMargins();
    const std::optional<QSize> wished = std::exchange(wishedFrame_, std::nullopt);
    if (!wished || State() != kPlain || IsFullScreen()) return;
    const QSize size = wished->shrunkBy(Margins()).expandedTo(QSize(0, 0));
    if (size != frame_->size()) Resize(size);
}

// --- Kind, state and look

void QtWindow::SetStyle(const QtWindowStyle& style) {
    const bool isOtherKind = style.kind != style_.kind || style.isShaped != style_.isShaped;
    const QPointer<QtSurface> alive = surface_.get();
    style_ = style;
    const Qt::WindowFlags flags = QtFlagsOf(style_);
    const bool isSameType =
        (flags & Qt::WindowType_Mask) == (frame_->windowFlags() & Qt::WindowType_Mask);
    if (frame_->windowHandle() == nullptr) {
        frame_->setWindowFlags(flags);
    } else if (isSameType) {
        // The window stays on the screen.
        frame_->overrideWindowFlags(flags);
        frame_->windowHandle()->setFlags(flags);
    } else {
        ApplyStyle();
        if (alive == nullptr) return;
    }
    if (!isOtherKind) return;
    const bool isWhole = style_.kind == kWholeScreen;
    // What it will have again: the window manager takes its time.
    const QSize plain = frame_->normalGeometry().size();
    if (isWhole != IsFullScreen()) {
        frame_->setWindowState(isWhole ? Qt::WindowFullScreen : Qt::WindowNoState);
    }
    if (alive != nullptr) FixSize(plain);
}

// The window manager looks at a window's type when the window appears.
void QtWindow::ApplyStyle() {
    const QPointer<QtSurface> alive = surface_.get();
    const bool wasVisible = frame_->isVisible();
    isChanging_ = true;
    if (wasVisible) frame_->hide();
    if (alive == nullptr) return;
    frame_->overrideWindowFlags(QtFlagsOf(style_));
    frame_->windowHandle()->setFlags(QtFlagsOf(style_));
    if (wasVisible) frame_->show();
    if (alive != nullptr) isChanging_ = false;
}

std::int32_t QtWindow::State() const {
    const Qt::WindowStates state = frame_->windowState();
    if (state & Qt::WindowMinimized) return kMinimised;
    return state & Qt::WindowMaximized ? kMaximised : kPlain;
}

void QtWindow::SetState(std::int32_t state) {
    if (state < kPlain || state > kMaximised) throw Failure(failure::kBadCall);
    if (state == State()) return;
    const QPointer<QtSurface> alive = surface_.get();
    const Qt::WindowStates others = frame_->windowState() & Qt::WindowFullScreen;
    const QSize plain = frame_->normalGeometry().size();
    if (state == kMaximised) {
        frame_->setMinimumSize(0, 0);
        frame_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
    switch (state) {
        case kMinimised: frame_->setWindowState(frame_->windowState() | Qt::WindowMinimized); break;
        case kMaximised: frame_->setWindowState(others | Qt::WindowMaximized); break;
        default: frame_->setWindowState(others); break;
    }
    if (alive != nullptr && state == kPlain) FixSize(plain);
}

void QtWindow::SetContainer(ToolkitControl&) { throw Failure(failure::kNoSuchMember); }

void QtWindow::SetPicture(const Pixmap& picture) {
    if (picture.pixels.empty()) {
        frame_->setWindowIcon(QIcon());
    } else {
        frame_->setWindowIcon(IconOf(picture));
    }
}

void QtWindow::SetCanvas(CanvasImage* canvas) { client_->SetCanvas(canvas); }

void QtWindow::SetShape(const Pixmap& mask) {
    QtWindowStyle style = style_;
    style.isShaped = !mask.pixels.empty();
    if (style.isShaped) {
        RefuseOnWayland();
        const QImage shape = ImageOfPixmap(mask).createAlphaMask();
        QRegion region(QBitmap::fromImage(shape));
        const int top = frame_->height() - client_->height();
        region.translate(0, top);
        if (top > 0) region += QRect(0, 0, frame_->width(), top);
        frame_->setMask(region);
    } else {
        frame_->clearMask();
    }
    SetStyle(style);
}

// --- On and off the screen

void QtWindow::ShowFrame(bool isModal) {
    if (!frame_->isVisible()) {
        frame_->setWindowModality(isModal ? Qt::ApplicationModal : Qt::NonModal);
    }
    const QPointer<QtSurface> alive = surface_.get();
    frame_->show();
    WaitForFrame(alive);
    if (alive == nullptr) return;
    if (frame_->focusWidget() == nullptr) client_->setFocus();
    if (alive != nullptr && !isInTaskbar) Attempt([&] { ShowTaskbarState(); });
}

void QtWindow::Show(bool isModal) {
    if (!isModal) {
        ShowFrame(false);
        return;
    }
    const QPointer<QtSurface> alive = surface_.get();
    if (frame_->isVisible()) Hide();
    if (alive == nullptr) return;
    QEventLoop loop;
    modal_ = &loop;
    ShowFrame(true);
    if (alive == nullptr) return;
    const QtWaitWatch watch([this, &alive] {
        if (alive != nullptr) Hide();
    });
    if (frame_->isVisible()) {
        const ToolkitScope scope;
        loop.exec();
    }
    if (alive == nullptr) return;
    modal_ = nullptr;
    if (!frame_->isVisible()) frame_->setWindowModality(Qt::NonModal);
}

void QtWindow::Hide() { frame_->hide(); }

void QtWindow::OnHidden() {
    if (modal_ != nullptr && !isChanging_) modal_->quit();
}

void QtWindow::Close(bool byUser) {
    // Its own closing procedure may ask again.
    if (isClosing_) return;
    const QPointer<QtSurface> alive = surface_.get();
    isClosing_ = true;
    ControlEvent closing;
    closing.kind = EventKind::kClosing;
    closing.byUser = byUser;
    const bool staysOpen = surface_->Tell(closing);
    if (alive == nullptr) return;
    isClosing_ = false;
    if (staysOpen) return;
    Hide();
    if (alive != nullptr) surface_->Tell(EventKind::kClosed);
}

void QtWindow::SetFocus() {
    frame_->raise();
    frame_->activateWindow();
}

ToolkitControl* QtWindow::ActiveControl() const {
    const QWidget* focused = frame_->isActiveWindow() ? frame_->focusWidget() : nullptr;
    QtSurface* surface = QtSurface::Of(focused);
    return surface == nullptr || surface == surface_.get() ? nullptr : surface->control;
}

QWidget* QtWindow::ChildArea() { return client_; }

void QtWindow::StartMove() {
    QWindow* handle = frame_->windowHandle();
    if (handle == nullptr || !handle->startSystemMove()) throw Failure(failure::kNoSuchMember);
}

void QtWindow::ShowTaskbarState() {
    if (frame_->isVisible()) ShowInTaskbar(*frame_->windowHandle(), isInTaskbar);
}

// --- Menus

void QtWindow::SetMenus(const std::vector<MenuEntry>& menus) {
    if (menus.empty()) {
        if (bar_ == nullptr) return;
        bar_->hide();
        RemoveWhenFree(*bar_, 0);
        bar_ = nullptr;
    } else {
        if (bar_ == nullptr) bar_ = MakeMenuBar(*frame_);
        FillMenus(*bar_, menus, *surface_);
        bar_->show();
    }
    LayOut();
}

std::int32_t QtWindow::PopUpMenu(const MenuEntry& menu, std::int32_t x, std::int32_t y) {
    return AskMenu(menu, *frame_, QPoint(x, y));
}

}  // namespace velm
