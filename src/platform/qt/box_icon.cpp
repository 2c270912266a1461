// Drawing the pictures of a message box.
#include "platform/qt/box_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace velm {

namespace {

constexpr int kStop = 16;
constexpr int kQuestion = 32;
constexpr int kWarning = 48;
constexpr int kInformation = 64;

// All shapes are drawn on a square of this many units.
constexpr double kUnits = 32;
constexpr double kStroke = 3.6;

const QColor kRed(0xC6, 0x28, 0x28);
const QColor kBlue(0x15, 0x65, 0xC0);
const QColor kYellow(0xF9, 0xC5, 0x2A);
const QColor kDark(0x33, 0x2B, 0x12);

QPen Stroke(const QColor& color) {
    return QPen(color, kStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void DrawDisc(QPainter& painter, const QColor& color) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QRectF(1, 1, 30, 30));
    painter.setBrush(Qt::NoBrush);
}

void DrawDot(QPainter& painter, const QPointF& centre, const QColor& color) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(centre, 2.2, 2.2);
}

void DrawStop(QPainter& painter) {
    DrawDisc(painter, kRed);
    painter.setPen(Stroke(Qt::white));
    painter.drawLine(QPointF(10.5, 10.5), QPointF(21.5, 21.5));
    painter.drawLine(QPointF(21.5, 10.5), QPointF(10.5, 21.5));
}

void DrawQuestion(QPainter& painter) {
    DrawDisc(painter, kBlue);
    QPainterPath hook(QPointF(11.5, 12));
    hook.cubicTo(11.5, 5, 20.5, 5, 20.5, 11.5);
    hook.cubicTo(20.5, 15, 16, 15, 16, 19);
    painter.setPen(Stroke(Qt::white));
    painter.drawPath(hook);
    DrawDot(painter, QPointF(16, 24.6), Qt::white);
}

void DrawWarning(QPainter& painter) {
    painter.setPen(QPen(kYellow, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(kYellow);
    painter.drawPolygon(QPolygonF({QPointF(16, 3.5), QPointF(29.5, 27.5), QPointF(2.5, 27.5)}));
    painter.setPen(Stroke(kDark));
    painter.drawLine(QPointF(16, 11.5), QPointF(16, 18.5));
    DrawDot(painter, QPointF(16, 24.2), kDark);
}

void DrawInformation(QPainter& painter) {
    DrawDisc(painter, kBlue);
    DrawDot(painter, QPointF(16, 8.8), Qt::white);
    painter.setPen(Stroke(Qt::white));
    painter.drawLine(QPointF(16, 15), QPointF(16, 23.5));
}

struct Picture {
    int icon;
    void (*draw)(QPainter&);
    const char16_t* name;
};

constexpr Picture kPictures[] = {
    {kStop, DrawStop, u"禁止"},
    {kQuestion, DrawQuestion, u"質問"},
    {kWarning, DrawWarning, u"警告"},
    {kInformation, DrawInformation, u"情報"},
};

const Picture* PictureOf(int icon) {
    for (const Picture& picture : kPictures) {
        if (picture.icon == icon) return &picture;
    }
    return nullptr;
}

}  // namespace

QPixmap BoxIcon(int icon, int size, double ratio) {
    const Picture* picture = PictureOf(icon);
    if (picture == nullptr) return {};
    const int pixels = static_cast<int>(std::lround(size * ratio));
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixels / kUnits, pixels / kUnits);
    picture->draw(painter);
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

QString BoxIconName(int icon) {
    const Picture* picture = PictureOf(icon);
    return picture == nullptr ? QString() : QString::fromUtf16(picture->name);
}

}  // namespace velm
