// The members of the printer object.
#include "platform/qt/qt_printer.h"

#include <QFile>
#include <QPageSize>
#include <QPixmap>
#include <QPrinter>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "data/lists.h"
#include "platform/files.h"
#include "platform/picture_target.h"
#include "platform/qt/outside_surface.h"
#include "platform/qt/page_margins.h"
#include "platform/qt/printer_pages.h"
#include "platform/qt/qt_pictures.h"

namespace velm {

namespace {

using Pages = PrinterPages;
using Row = OutsideMember<Pages>;

template <double (Pages::*read)() const>
MemberValue Length(Pages& pages) {
    return (pages.*read)();
}

MemberValue Nothing() { return {}; }

QString TextOf(const MemberArguments& arguments) {
    return arguments.empty() ? QString() : ToLines(MemberToText(arguments[0]));
}

MemberValue DeviceName(Pages& pages) { return FromQString(Pages::Names().at(pages.Index())); }

std::u16string FileOf(Pages& pages) {
    if (!pages.WritesFile() || pages.File().isEmpty()) return {};
    return ScriptPath(QFile::encodeName(pages.File()).toStdString());
}

MemberValue Port(Pages& pages) {
    return pages.WritesFile() ? FileOf(pages) : FromQString(pages.Printer().printerName());
}

void SetFile(Pages& pages, const MemberValue& value) {
    const std::u16string path = MemberToText(value);
    pages.SetFile(path.empty() ? QString() : QFile::decodeName(NativePath(path).c_str()));
}

MemberValue List(Pages&) {
    std::vector<std::u16string> names;
    for (const QString& name : Pages::Names()) names.push_back(FromQString(name));
    return ListOfNames(names);
}

constexpr int kUpright = 1;
constexpr int kAcross = 2;

MemberValue Orientation(Pages& pages) {
    const auto now = pages.Printer().pageLayout().orientation();
    return static_cast<double>(now == QPageLayout::Landscape ? kAcross : kUpright);
}

void SetOrientation(Pages& pages, const MemberValue& value) {
    const std::int32_t number = MemberToInt(value);
    if (number != kUpright && number != kAcross) throw Failure(failure::kBadCall);
    pages.Printer().setPageOrientation(number == kAcross ? QPageLayout::Landscape
                                                         : QPageLayout::Portrait);
}

MemberValue PaperSize(Pages& pages) {
    return static_cast<double>(pages.Printer().pageLayout().pageSize().windowsId());
}

void SetPaperSize(Pages& pages, const MemberValue& value) {
    const QPageSize::PageSizeId id = QPageSize::id(MemberToInt(value));
    if (id == QPageSize::Custom) throw Failure(failure::kBadCall);
    if (!pages.Printer().setPageSize(QPageSize(id))) throw Failure(failure::kBadCall);
}

constexpr int kMono = 1;
constexpr int kColor = 2;

MemberValue ColorMode(Pages& pages) {
    return static_cast<double>(pages.Printer().colorMode() == QPrinter::Color ? kColor : kMono);
}

void SetColorMode(Pages& pages, const MemberValue& value) {
    const std::int32_t number = MemberToInt(value);
    if (number != kMono && number != kColor) throw Failure(failure::kBadCall);
    pages.Printer().setColorMode(number == kColor ? QPrinter::Color : QPrinter::GrayScale);
}

constexpr int kOneSide = 1;
constexpr int kBothAlongLongSide = 2;
constexpr int kBothAlongShortSide = 3;

MemberValue Duplex(Pages& pages) {
    switch (pages.Printer().duplex()) {
        case QPrinter::DuplexLongSide:
        case QPrinter::DuplexAuto: return double{kBothAlongLongSide};
        case QPrinter::DuplexShortSide: return double{kBothAlongShortSide};
        default: return double{kOneSide};
    }
}

void SetDuplex(Pages& pages, const MemberValue& value) {
    switch (MemberToInt(value)) {
        case kOneSide: pages.Printer().setDuplex(QPrinter::DuplexNone); break;
        case kBothAlongLongSide: pages.Printer().setDuplex(QPrinter::DuplexLongSide); break;
        case kBothAlongShortSide: pages.Printer().setDuplex(QPrinter::DuplexShortSide); break;
        default: throw Failure(failure::kBadCall);
    }
}

MemberValue Copies(Pages& pages) { return static_cast<double>(pages.Printer().copyCount()); }

void SetCopies(Pages& pages, const MemberValue& value) {
    constexpr std::int32_t kMostCopies = 9999;
    const std::int32_t count = MemberToInt(value);
    if (count < 1 || count > kMostCopies) throw Failure(failure::kBadCall);
    pages.Printer().setCopyCount(count);
}

MemberValue PrintQuality(Pages& pages) { return static_cast<double>(pages.Printer().resolution()); }

// The classic negative numbers stand for draft, low, medium and high quality.
void SetPrintQuality(Pages& pages, const MemberValue& value) {
    constexpr int kQualities[] = {72, 150, 300, 600};
    constexpr std::int32_t kMostDots = 4800;
    std::int32_t dots = MemberToInt(value);
    if (dots < 0 && dots >= -4) dots = kQualities[-dots - 1];
    if (dots < kQualities[0] || dots > kMostDots) throw Failure(failure::kBadCall);
    pages.Printer().setResolution(dots);
}

MemberValue ForeColor(Pages& pages) {
    return static_cast<double>(pages.color.red() | pages.color.green() << 8 |
                               pages.color.blue() << 16);
}

void SetForeColor(Pages& pages, const MemberValue& value) {
    const std::int32_t color = MemberToInt(value);
    if (color < 0 || color > 0xFFFFFF) throw Failure(failure::kBadCall);
    pages.color = QColor(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
}

void SetPlace(double& place, const MemberValue& value) {
    constexpr double kFarthest = 1e6;
    const double number = MemberToNumber(value);
    if (!(std::abs(number) <= kFarthest)) throw Failure(failure::kOverflow);
    place = number;
}

MemberValue Print(Pages& pages, const MemberArguments& arguments) {
    pages.Print(TextOf(arguments));
    return Nothing();
}

using Fonts = FontMembers<Pages>;

constexpr Row kRows[] = {
    {u"DeviceName", DeviceName},
    {u"Port", Port},
    {u"List", List},
    {u"Count", [](Pages&) -> MemberValue { return static_cast<double>(Pages::Names().size()); }},
    {u"Index", [](Pages& pages) -> MemberValue { return static_cast<double>(pages.Index()); },
     [](Pages& pages, const MemberValue& value) { pages.Select(MemberToInt(value)); }},
    {u"OutputFile", [](Pages& pages) -> MemberValue { return FileOf(pages); }, SetFile},
    {u"Orientation", Orientation, SetOrientation},
    {u"PaperSize", PaperSize, SetPaperSize},
    {u"ColorMode", ColorMode, SetColorMode},
    {u"Duplex", Duplex, SetDuplex},
    {u"Copies", Copies, SetCopies},
    {u"PrintQuality", PrintQuality, SetPrintQuality},
    {u"Zoom", [](Pages& pages) -> MemberValue { return static_cast<double>(pages.Zoom()); },
     [](Pages& pages, const MemberValue& value) { pages.SetZoom(MemberToInt(value)); }},
    {u"PrintMargins", [](Pages& pages) -> MemberValue { return MarginsText(pages.Printer()); },
     [](Pages& pages, const MemberValue& value) {
         SetMargins(pages.Printer(), MemberToText(value));
     }},
    {u"Page", [](Pages& pages) -> MemberValue { return static_cast<double>(pages.Page()); }},
    {u"ForeColor", ForeColor, SetForeColor},
    Fonts::kName,
    Fonts::kSize,
    Fonts::kBold,
    Fonts::kItalic,
    Fonts::kUnderline,
    Fonts::kStruck,
    {u"CurrentX", [](Pages& pages) -> MemberValue { return pages.x; },
     [](Pages& pages, const MemberValue& value) { SetPlace(pages.x, value); }},
    {u"CurrentY", [](Pages& pages) -> MemberValue { return pages.y; },
     [](Pages& pages, const MemberValue& value) { SetPlace(pages.y, value); }},
    {u"ScaleWidth", Length<&Pages::Width>},
    {u"ScaleHeight", Length<&Pages::Height>},
    {u"Print", nullptr, nullptr, Print},
    {u"NewPage", nullptr, nullptr,
     [](Pages& pages, const MemberArguments&) { return pages.NewPage(), Nothing(); }},
    {u"EndDoc", nullptr, nullptr,
     [](Pages& pages, const MemberArguments&) { return pages.EndDocument(), Nothing(); }},
    {u"KillDoc", nullptr, nullptr,
     [](Pages& pages, const MemberArguments&) { return pages.KillDocument(), Nothing(); }},
    {u"TextWidth", nullptr, nullptr,
     [](Pages& pages, const MemberArguments& arguments) -> MemberValue {
         return pages.SizeOf(TextOf(arguments)).width();
     }},
    {u"TextHeight", nullptr, nullptr,
     [](Pages& pages, const MemberArguments& arguments) -> MemberValue {
         return pages.SizeOf(TextOf(arguments)).height();
     }},
};

class Printer : public OutsideSurface<Pages>, public PictureTarget {
  public:
    Printer() : OutsideSurface(ThePrinterPages(), kRows) {}

    void PaintPicture(const Pixmap& picture, double left, double top, double width,
                      double height) override {
        const bool isOwnSize = width == 0 && height == 0;
        ThePrinterPages().Paint(ImageOfPixmap(picture),
                                QRectF(left, top, isOwnSize ? picture.width : width,
                                       isOwnSize ? picture.height : height));
    }
};

}  // namespace

std::unique_ptr<MemberSurface> MakeQtPrinter() { return std::make_unique<Printer>(); }

void PrintWidget(QWidget& widget) {
    Pages& pages = ThePrinterPages();
    pages.EndDocument();
    const QImage image = widget.grab().toImage();
    if (image.isNull()) throw Failure(failure::kOutOfMemory);
    const double shrink =
        std::min({1.0, pages.Width() / widget.width(), pages.Height() / widget.height()});
    pages.Paint(image, QRectF(0, 0, widget.width() * shrink, widget.height() * shrink));
    pages.EndDocument();
}

QPrinter& QtPrinterInForce() {
    Pages& pages = ThePrinterPages();
    pages.EndDocument();
    if (pages.WritesFile()) pages.Printer().setOutputFileName(pages.NextFile());
    return pages.Printer();
}

void TakeQtPrinter() { ThePrinterPages().TakePrinter(); }

}  // namespace velm
