// See qt_cursors.h.
#include "platform/qt/qt_cursors.h"

#include <QImage>
#include <QPixmap>
#include <QVariant>
#include <QWidget>
#include <string_view>

#include "platform/files.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_surface.h"

namespace velm {

namespace {

constexpr Qt::CursorShape kShapes[] = {
    Qt::ArrowCursor,     Qt::ArrowCursor,   Qt::CrossCursor,     Qt::IBeamCursor,
    Qt::ArrowCursor,     Qt::SizeAllCursor, Qt::SizeBDiagCursor, Qt::SizeVerCursor,
    Qt::SizeFDiagCursor, Qt::SizeHorCursor, Qt::UpArrowCursor,   Qt::WaitCursor,
    Qt::ForbiddenCursor, Qt::BusyCursor,    Qt::WhatsThisCursor, Qt::SizeAllCursor,
};
constexpr const char* kCursorOfFile = "velmCursor";

// The hot spot in the directory of a cursor file's first image; the middle of any other picture.
QPoint HotSpot(const std::u16string& path, const QImage& image) {
    constexpr std::size_t kDirectory = 22;
    constexpr char kCursorType = 2;
    const std::string bytes = ReadFileBytes(path).substr(0, kDirectory);
    const auto at = [&bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    if (bytes.size() == kDirectory && at(0) == 0 && at(1) == 0 && bytes[2] == kCursorType) {
        const QPoint spot(at(10) + at(11) * 256, at(12) + at(13) * 256);
        if (image.rect().contains(spot)) return spot;
    }
    return image.rect().center();
}

void ShowCursor(QtSurface& surface, const QCursor& cursor) {
    surface.Widget()->setCursor(cursor);
    if (surface.Inner() != surface.Widget()) surface.Inner()->setCursor(cursor);
}

// What the widget shows by itself.
void ShowOwn(QtSurface& surface) {
    surface.Widget()->unsetCursor();
    if (surface.Widget()->testAttribute(Qt::WA_InputMethodEnabled)) {
        surface.Inner()->setCursor(Qt::IBeamCursor);
    } else if (surface.Inner() != surface.Widget()) {
        surface.Inner()->unsetCursor();
    }
}

}  // namespace

Qt::CursorShape PointerShape(std::int32_t number) {
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < std::size(kShapes) ? kShapes[index] : Qt::ArrowCursor;
}

QCursor LoadCursor(const std::u16string& path) {
    const QImage image = ImageOfPixmap(LoadQtPicture(path));
    const QPoint spot = HotSpot(path, image);
    return QCursor(QPixmap::fromImage(image), spot.x(), spot.y());
}

void ApplyPointer(QtSurface& surface) {
    const QVariant own = surface.Widget()->property(kCursorOfFile);
    if (surface.pointer == 0) {
        ShowOwn(surface);
    } else if (surface.pointer == kOwnPointer && own.isValid()) {
        ShowCursor(surface, own.value<QCursor>());
    } else {
        ShowCursor(surface, PointerShape(surface.pointer));
    }
}

void LoadPointer(QtSurface& surface, const std::u16string& path) {
    QVariant cursor;
    if (!path.empty()) cursor = QVariant::fromValue(LoadCursor(path));
    surface.Widget()->setProperty(kCursorOfFile, cursor);
    surface.pointerFile = path;
    if (surface.pointer == kOwnPointer) ApplyPointer(surface);
}

}  // namespace velm
