// Surfaces: their widgets, members and listeners. What the filter does is in qt_surface_events.cpp.
#include "platform/qt/qt_surface.h"

#include <QHash>
#include <algorithm>
#include <utility>

#include "data/failure.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_fonts.h"
#include "platform/qt/qt_removal.h"

namespace velm {

namespace {

char16_t Lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 0x20) : unit;
}

bool IsSameName(std::u16string_view left, std::u16string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char16_t a, char16_t b) { return Lower(a) == Lower(b); });
}

QHash<const QWidget*, QtSurface*>& Surfaces() {
    static QHash<const QWidget*, QtSurface*> surfaces;
    return surfaces;
}

std::uint64_t NextTabOrder() {
    static std::uint64_t order = 0;
    return ++order;
}

}  // namespace

int QtSurface::ending_ = 0;

QtSurface::QtSurface(QWidget* widget, ControlListener& listener, std::vector<QtMemberTable> tables,
                     QWidget* inner)
    : tabOrder(NextTabOrder()),
      widget_(widget),
      inner_(inner != nullptr ? inner : widget),
      listener_(&listener),
      tables_(std::move(tables)),
      key_(widget),
      birth_(LastToolkitScope()) {
    Surfaces().insert(key_, this);
    widget->installEventFilter(this);
    if (inner_ != widget_) inner_->installEventFilter(this);
    widget->setMouseTracking(true);
    inner_->setMouseTracking(true);
    SetDropMode(dropMode);
    // What the inner widget doesn't want would be told again by the outer one, and what a control doesn't
    // want is no business of the window below it.
    if (inner_ != widget_) inner_->setAttribute(Qt::WA_NoMousePropagation);
    if (widget->isWindow()) return;
    widget->setAttribute(Qt::WA_NoMousePropagation);
    widget->setFont(ControlFont());
    widget->hide();
}

QtSurface::~QtSurface() {
    listener_ = nullptr;
    Surfaces().remove(key_);
    RemoveWidget();
}

void QtSurface::RemoveWidget() {
    if (widget_ == nullptr) return;
    widget_->removeEventFilter(this);
    if (inner_ != nullptr) inner_->removeEventFilter(this);
    ++ending_;
    widget_->hide();
    --ending_;
    if (widget_ != nullptr) RemoveWhenFree(*widget_, birth_);
}

QtSurface* QtSurface::OfWidget(const QWidget* widget) { return Surfaces().value(widget, nullptr); }

QtSurface* QtSurface::Of(const QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        if (QtSurface* surface = OfWidget(widget)) return surface;
    }
    return nullptr;
}

const QtMember* QtSurface::Find(std::u16string_view member) const {
    if (widget_ == nullptr) throw Failure(failure::kNothingThere);
    for (const QtMemberTable& table : tables_) {
        const auto row = std::find_if(table.begin(), table.end(), [member](const QtMember& each) {
            return IsSameName(each.name, member);
        });
        if (row != table.end()) return &*row;
    }
    throw Failure(failure::kNoSuchMember);
}

MemberValue QtSurface::Get(std::u16string_view member, const MemberArguments& arguments) {
    const QtMember* row = Find(member);
    if (row->get == nullptr) throw Failure(failure::kNoSuchMember);
    return row->get(*this, arguments);
}

void QtSurface::Set(std::u16string_view member, const MemberValue& value,
                    const MemberArguments& arguments) {
    const QtMember* row = Find(member);
    if (row->set == nullptr) throw Failure(failure::kNoSuchMember);
    row->set(*this, value, arguments);
}

MemberValue QtSurface::Call(std::u16string_view member, const MemberArguments& arguments) {
    const QtMember* row = Find(member);
    if (row->call == nullptr) throw Failure(failure::kNoSuchMember);
    return row->call(*this, arguments);
}

bool QtSurface::Tell(const ControlEvent& event) {
    if (listener_ == nullptr) return false;
    const ToolkitScope scope;
    return listener_->OnEvent(event);
}

bool QtSurface::Tell(EventKind kind) {
    ControlEvent event;
    event.kind = kind;
    return Tell(event);
}

void QtSurface::TellChange(EventKind kind) {
    if (!IsQuiet()) Tell(kind);
}

PixelBox QtSurface::Geometry() const {
    if (widget_ == nullptr) return {};
    const QRect box = widget_->isWindow() ? widget_->frameGeometry() : widget_->geometry();
    return {box.x(), box.y(), box.width(), box.height()};
}

void QtSurface::SetGeometry(const PixelBox& box) {
    if (widget_ == nullptr) return;
    QSize frame(0, 0);
    if (widget_->isWindow()) frame = widget_->frameGeometry().size() - widget_->size();
    const QSize size = QSize(box.width, box.height) - frame;
    widget_->move(box.left, box.top);
    widget_->resize(size.expandedTo(QSize(0, 0)));
}

void QtSurface::UsePalette(QPalette::ColorRole foreground, QPalette::ColorRole background) {
    foreground_ = foreground;
    background_ = background;
}

void QtSurface::SetColors(std::int32_t foreground, std::int32_t background) {
    foreColor = foreground;
    backColor = background;
    if (widget_ == nullptr) return;
    if (foreground_ == QPalette::NoRole) {
        widget_->update();
        return;
    }
    QPalette palette;
    palette.setColor(QPalette::Active, foreground_, ColorOfScript(foreColor));
    palette.setColor(QPalette::Inactive, foreground_, ColorOfScript(foreColor));
    palette.setColor(background_, ColorOfScript(backColor));
    widget_->setPalette(palette);
}

// What the inner widget refuses would be offered to the outer one.
void QtSurface::SetDropMode(std::int32_t mode) {
    dropMode = mode;
    if (inner_ == nullptr) return;
    if (inner_ != widget_) widget_->setAcceptDrops(false);
    inner_->setAcceptDrops(mode != 0);
}

}  // namespace velm
