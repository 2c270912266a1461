// Shapes and lines. They are only paint: the mouse goes to what lies below. A thick line lies on both
// sides of the edge, so that the widget is larger than the control.
#include <QPainter>
#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <vector>

#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_control_classes.h"
#include "platform/qt/qt_members.h"

namespace velm {

namespace {

constexpr int kThickest = 8192;  // pixels
constexpr int kRoundedPart = 6;  // of the shorter side that a rounded corner takes
constexpr int kInsideSolid = 6;  // the style whose thick line stays within the edge
constexpr int kTransparentFill = 1;
constexpr Qt::PenStyle kPenStyles[] = {Qt::NoPen,    Qt::SolidLine,   Qt::DashLine,
                                       Qt::DotLine,  Qt::DashDotLine, Qt::DashDotDotLine,
                                       Qt::SolidLine};
constexpr Qt::BrushStyle kBrushStyles[] = {Qt::SolidPattern, Qt::NoBrush,         Qt::HorPattern,
                                           Qt::VerPattern,   Qt::BDiagPattern,    Qt::FDiagPattern,
                                           Qt::CrossPattern, Qt::DiagCrossPattern};

class DrawnWidget : public QWidget {
  public:
    explicit DrawnWidget(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    PixelBox box;
    int borderWidth = 1;
    int borderStyle = 1;
    std::int32_t borderColor = system_color::kWindowText;

    // Covers the box and what the line needs around it.
    void Place() {
        const QRect whole(QPoint(std::min(box.left, box.left + box.width),
                                 std::min(box.top, box.top + box.height)),
                          QSize(std::abs(box.width), std::abs(box.height)));
        const int margin = Margin();
        setGeometry(whole.adjusted(-margin, -margin, margin, margin));
        update();
    }

  protected:
    virtual int Margin() const = 0;

    QPen BorderPen() const {
        QPen pen(ColorOfScript(borderColor));
        // A thick line has no gaps.
        const bool isPlain = borderWidth > 1 && borderStyle != 0;
        pen.setStyle(isPlain ? Qt::SolidLine : kPenStyles[borderStyle]);
        pen.setWidth(borderWidth);
        return pen;
    }
};

class LineWidget : public DrawnWidget {
  public:
    using DrawnWidget::DrawnWidget;

  protected:
    int Margin() const override { return borderWidth / 2 + 1; }

    // The last pixel of a thin line isn't its own.
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        QPen pen = BorderPen();
        pen.setCapStyle(borderWidth > 1 ? Qt::RoundCap : Qt::SquareCap);
        painter.setPen(pen);
        const QPoint start = QPoint(box.left, box.top) - pos();
        const QPoint way(box.width, box.height);
        const int length = std::max(std::abs(way.x()), std::abs(way.y()));
        if (length == 0) return;
        const double part = borderWidth > 1 ? 1 : (length - 1.0) / length;
        painter.drawLine(start, start + way * part);
    }
};

class ShapeWidget : public DrawnWidget {
  public:
    using DrawnWidget::DrawnWidget;

    int shape = 0;
    int fillStyle = kTransparentFill;
    std::int32_t fillColor = 0;
    bool isOpaque = false;

  protected:
    int Margin() const override { return borderStyle == kInsideSolid ? 0 : borderWidth / 2; }

    void paintEvent(QPaintEvent* /*event*/) override {
        const QtSurface* surface = QtSurface::OfWidget(this);
        if (surface == nullptr) return;
        QPainter painter(this);
        const QRect outline = Outline();
        if (isOpaque) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(ColorOfScript(surface->backColor));
            // An outline that isn't drawn belongs to the inside.
            Draw(painter, outline.adjusted(0, 0, 1, 1));
        }
        const QBrush brush(ColorOfScript(fillColor), kBrushStyles[fillStyle]);
        painter.setPen(BorderPen());
        painter.setBrush(brush);
        Draw(painter, borderStyle == 0 ? outline.adjusted(0, 0, 1, 1) : outline);
    }

  private:
    // What the painter draws along: one pixel less than it covers. Squares and circles stand in the
    // middle of the box.
    QRect Outline() const {
        const int margin = Margin();
        QRect all = rect().adjusted(margin, margin, -margin, -margin);
        if (shape % 2 == 1) {
            const int side = std::min(all.width(), all.height());
            all = QRect(all.left() + (all.width() - side) / 2,
                        all.top() + (all.height() - side) / 2, side, side);
        }
        const int inside = borderStyle == kInsideSolid ? borderWidth / 2 : 0;
        all.adjust(inside, inside, -inside, -inside);
        return all.adjusted(0, 0, -1, -1);
    }

    void Draw(QPainter& painter, const QRect& outline) const {
        switch (shape) {
            case 0:
            case 1: painter.drawRect(outline); break;
            case 2:
            case 3: painter.drawEllipse(outline); break;
            default: {
                const int radius = std::min(outline.width(), outline.height()) / kRoundedPart;
                painter.drawRoundedRect(outline, radius, radius);
            }
        }
    }
};

int BorderWidth(QtSurface& surface) { return surface.As<DrawnWidget>().borderWidth; }
void SetBorderWidth(QtSurface& surface, int width) {
    auto& drawn = surface.As<DrawnWidget>();
    drawn.borderWidth = Within(width, 1, kThickest);
    drawn.Place();
}
int BorderStyle(QtSurface& surface) { return surface.As<DrawnWidget>().borderStyle; }
void SetBorderStyle(QtSurface& surface, int style) {
    auto& drawn = surface.As<DrawnWidget>();
    drawn.borderStyle = Within(style, 0, static_cast<int>(std::size(kPenStyles)) - 1);
    drawn.Place();
}
int BorderColor(QtSurface& surface) { return surface.As<DrawnWidget>().borderColor; }
void SetBorderColor(QtSurface& surface, const MemberValue& value) {
    auto& drawn = surface.As<DrawnWidget>();
    drawn.borderColor = MemberToColor(value);
    drawn.update();
}

int Shape(QtSurface& surface) { return surface.As<ShapeWidget>().shape; }
void SetShape(QtSurface& surface, int number) {
    auto& shape = surface.As<ShapeWidget>();
    shape.shape = Within(number, 0, 5);
    shape.update();
}
int FillStyle(QtSurface& surface) { return surface.As<ShapeWidget>().fillStyle; }
void SetFillStyle(QtSurface& surface, int style) {
    auto& shape = surface.As<ShapeWidget>();
    shape.fillStyle = Within(style, 0, static_cast<int>(std::size(kBrushStyles)) - 1);
    shape.update();
}
int FillColor(QtSurface& surface) { return surface.As<ShapeWidget>().fillColor; }
void SetFillColor(QtSurface& surface, const MemberValue& value) {
    auto& shape = surface.As<ShapeWidget>();
    shape.fillColor = MemberToColor(value);
    shape.update();
}
int BackStyle(QtSurface& surface) { return surface.As<ShapeWidget>().isOpaque ? 1 : 0; }
void SetBackStyle(QtSurface& surface, int style) {
    auto& shape = surface.As<ShapeWidget>();
    shape.isOpaque = Within(style, 0, 1) == 1;
    shape.update();
}
int BackColor(QtSurface& surface) { return surface.backColor; }
void SetBackColor(QtSurface& surface, const MemberValue& value) {
    surface.SetColors(surface.foreColor, MemberToColor(value));
}

constexpr QtMember kLineMembers[] = {
    Member<BorderWidth, SetBorderWidth>(u"BorderWidth"),
    Member<BorderStyle, SetBorderStyle>(u"BorderStyle"),
    Member<BorderColor, SetBorderColor>(u"BorderColor"),
};
constexpr QtMember kShapeMembers[] = {
    Member<BorderWidth, SetBorderWidth>(u"BorderWidth"),
    Member<BorderStyle, SetBorderStyle>(u"BorderStyle"),
    Member<BorderColor, SetBorderColor>(u"BorderColor"),
    Member<Shape, SetShape>(u"Shape"),
    Member<FillStyle, SetFillStyle>(u"FillStyle"),
    Member<FillColor, SetFillColor>(u"FillColor"),
    Member<BackStyle, SetBackStyle>(u"BackStyle"),
    Member<BackColor, SetBackColor>(u"BackColor"),
};

// Of the common members those that paint alone has.
QtMemberTable PaintMembers() {
    static const std::vector<QtMember> members = [] {
        constexpr std::u16string_view kNames[] = {u"Visible", u"Tag", u"ZOrder", u"Refresh"};
        std::vector<QtMember> some;
        std::copy_if(CommonMembers().begin(), CommonMembers().end(), std::back_inserter(some),
                     [&](const QtMember& member) {
                         return std::find(std::begin(kNames), std::end(kNames), member.name) !=
                                std::end(kNames);
                     });
        return some;
    }();
    return members;
}

PixelBox Geometry(const QtSurface& surface) { return surface.As<DrawnWidget>().box; }
void SetGeometry(QtSurface& surface, const PixelBox& box) {
    auto& drawn = surface.As<DrawnWidget>();
    drawn.box = box;
    drawn.Place();
}
void SetShapeGeometry(QtSurface& surface, const PixelBox& box) {
    SetGeometry(surface, {box.left, box.top, std::max(box.width, 0), std::max(box.height, 0)});
}

template <class Widget>
QWidget* Make(QWidget* parent) {
    return new Widget(parent);
}

}  // namespace

const QtControlClass kShapeClass = {.make = Make<ShapeWidget>,
                                    .start = nullptr,
                                    .members = kShapeMembers,
                                    .hasCommonMembers = false,
                                    .geometry = Geometry,
                                    .setGeometry = SetShapeGeometry,
                                    .backColor = system_color::kWindow,
                                    .moreMembers = PaintMembers()};
const QtControlClass kLineClass = {.make = Make<LineWidget>,
                                   .start = nullptr,
                                   .members = kLineMembers,
                                   .hasCommonMembers = false,
                                   .geometry = Geometry,
                                   .setGeometry = SetGeometry,
                                   .moreMembers = PaintMembers()};

}  // namespace velm
