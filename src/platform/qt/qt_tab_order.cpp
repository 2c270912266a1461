// See qt_tab_order.h.
#include "platform/qt/qt_tab_order.h"

#include <QWidget>
#include <algorithm>
#include <vector>

#include "data/failure.h"
#include "platform/qt/qt_surface.h"

namespace velm {

namespace {

std::vector<QtSurface*> SurfacesInOrder(const QWidget& window) {
    std::vector<QtSurface*> surfaces;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (QtSurface* surface = QtSurface::OfWidget(widget)) surfaces.push_back(surface);
    }
    std::sort(surfaces.begin(), surfaces.end(), [](const QtSurface* left, const QtSurface* right) {
        return left->tabOrder < right->tabOrder;
    });
    return surfaces;
}

// The toolkit chains those that can have the keyboard.
void Chain(const std::vector<QtSurface*>& surfaces) {
    QWidget* before = nullptr;
    for (const QtSurface* surface : surfaces) {
        QWidget* widget = surface->Widget();
        if (widget->focusPolicy() == Qt::NoFocus) continue;
        if (before != nullptr) QWidget::setTabOrder(before, widget);
        before = widget;
    }
}

}  // namespace

std::int32_t TabIndexOf(const QtSurface& surface) {
    const std::vector<QtSurface*> surfaces = SurfacesInOrder(*surface.Widget()->window());
    const auto place = std::find(surfaces.begin(), surfaces.end(), &surface);
    if (place == surfaces.end()) throw Failure(failure::kNoSuchMember);
    return static_cast<std::int32_t>(place - surfaces.begin());
}

void MoveInTabOrder(QtSurface& surface, std::int32_t index) {
    if (index < 0) throw Failure(failure::kBadCall);
    std::vector<QtSurface*> surfaces = SurfacesInOrder(*surface.Widget()->window());
    const auto place = std::find(surfaces.begin(), surfaces.end(), &surface);
    if (place == surfaces.end()) throw Failure(failure::kNoSuchMember);
    // The numbers stay those that they are, in another hand: a later control still comes last.
    std::vector<std::uint64_t> numbers;
    for (const QtSurface* each : surfaces) numbers.push_back(each->tabOrder);
    surfaces.erase(place);
    const auto target = std::min(static_cast<std::size_t>(index), surfaces.size());
    surfaces.insert(surfaces.begin() + static_cast<std::ptrdiff_t>(target), &surface);
    for (std::size_t i = 0; i < surfaces.size(); ++i) surfaces[i]->tabOrder = numbers[i];
    Chain(surfaces);
}

}  // namespace velm
