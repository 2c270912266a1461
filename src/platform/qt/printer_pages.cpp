// Writing pages.
#include "platform/qt/printer_pages.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFontMetricsF>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTextLayout>

#include "data/failure.h"
#include "platform/files.h"
#include "platform/special_folders.h"

namespace velm {

namespace {

constexpr int kPrinterFailed = 482;
constexpr double kUnitsPerInch = 96;
constexpr double kDefaultMargin = 15;  // millimetres
constexpr int kTabColumns = 8;
constexpr int kPercent = 100;

[[noreturn]] void FailPrinter() {
    throw Failure(kPrinterFailed, u"プリンタが受け付けませんでした。");
}

QString FileSystemPath(const std::u16string& scriptPath) {
    return QFile::decodeName(NativePath(scriptPath).c_str());
}

// A name that is not taken yet, in the folder of documents, which is made if it is missing.
QString FileInDocuments() {
    const QDir folder(FileSystemPath(FolderOfPurpose(SpecialFolder::kDocuments)));
    if (!folder.mkpath(QStringLiteral("."))) FailPrinter();
    const QString name = QStringLiteral("印刷 ") +
                         QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString path = folder.filePath(name + QStringLiteral(".pdf"));
    for (int i = 2; QFile::exists(path); ++i)
        path = folder.filePath(name + u'-' + QString::number(i) + QStringLiteral(".pdf"));
    return path;
}

std::unique_ptr<PrinterPages>& Instance() {
    static std::unique_ptr<PrinterPages> pages;
    return pages;
}

}  // namespace

PrinterPages::PrinterPages() : font(QApplication::font()) {
    const int usual = static_cast<int>(Names().indexOf(QPrinterInfo::defaultPrinterName()));
    Select(usual >= 0 ? usual : 0);
}

PrinterPages::~PrinterPages() {
    Attempt([this] { EndDocument(); });
}

QStringList PrinterPages::Names() {
    return QPrinterInfo::availablePrinterNames() << QStringLiteral("PDFファイル");
}

int PrinterPages::Index() const {
    const QStringList names = Names();
    const auto known = names.indexOf(printer_->printerName());
    return static_cast<int>(WritesFile() || known < 0 ? names.size() - 1 : known);
}

void PrinterPages::Select(int index) {
    const QStringList names = Names();
    if (index < 0 || index >= names.size()) throw Failure(failure::kSubscript);
    if (printer_ != nullptr) EndDocument();
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (index == names.size() - 1) {
        printer_->setOutputFormat(QPrinter::PdfFormat);
        printer_->setPageSize(QPageSize(QPageSize::A4));
    } else {
        printer_->setPrinterName(names[index]);
    }
    printer_->setPageMargins(
        QMarginsF(kDefaultMargin, kDefaultMargin, kDefaultMargin, kDefaultMargin),
        QPageLayout::Millimeter);
}

void PrinterPages::TakePrinter() {
    if (WritesFile()) dialogFile_ = printer_->outputFileName();
}

bool PrinterPages::WritesFile() const { return printer_->outputFormat() == QPrinter::PdfFormat; }

QString PrinterPages::File() const { return chosenFile_.isEmpty() ? lastFile_ : chosenFile_; }

QString PrinterPages::NextFile() const {
    if (!dialogFile_.isEmpty()) return dialogFile_;
    return chosenFile_.isEmpty() ? FileInDocuments() : chosenFile_;
}

void PrinterPages::SetZoom(int percent) {
    constexpr int kMostZoom = 1000;
    if (percent < 1 || percent > kMostZoom) throw Failure(failure::kBadCall);
    zoom_ = percent;
}

double PrinterPages::Dots() const {
    return printer_->resolution() / kUnitsPerInch * zoom_ / kPercent;
}

double PrinterPages::Width() const {
    return printer_->pageRect(QPrinter::DevicePixel).width() / Dots();
}

double PrinterPages::Height() const {
    return printer_->pageRect(QPrinter::DevicePixel).height() / Dots();
}

QFont PrinterPages::DeviceFont() const {
    QFont scaled(font);
    scaled.setPointSizeF(font.pointSizeF() * zoom_ / kPercent);
    return QFont(scaled, printer_.get());
}

double PrinterPages::LineHeight() const {
    return QFontMetricsF(DeviceFont(), printer_.get()).lineSpacing() / Dots();
}

QSizeF PrinterPages::SizeOf(const QString& text) const {
    const QFontMetricsF metrics(DeviceFont(), printer_.get());
    QSizeF size(0, 0);
    for (const QString& line : text.split(u'\n')) {
        size.setWidth(std::max(size.width(), metrics.horizontalAdvance(line)));
        size.setHeight(size.height() + metrics.lineSpacing());
    }
    return size / Dots();
}

void PrinterPages::Home() { x = y = 0; }

void PrinterPages::BeginDocument() {
    if (painter_.isActive()) return;
    if (WritesFile()) {
        lastFile_ = NextFile();
        printer_->setOutputFileName(lastFile_);
        dialogFile_.clear();
    }
    if (!painter_.begin(printer_.get())) FailPrinter();
    page_ = 1;
}

void PrinterPages::Print(const QString& text) {
    BeginDocument();
    for (const QString& line : text.split(u'\n')) PrintLine(line);
}

// One line of the text, broken at the right edge.
void PrinterPages::PrintLine(const QString& line) {
    QTextLayout layout(line, DeviceFont(), printer_.get());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTabStopDistance(kTabColumns *
                              QFontMetricsF(DeviceFont(), printer_.get()).horizontalAdvance(u' '));
    layout.setTextOption(option);
    layout.beginLayout();
    double lineX = x;
    for (QTextLine row = layout.createLine(); row.isValid(); row = layout.createLine()) {
        row.setLineWidth(std::max(1.0, (Width() - lineX) * Dots()));
        row.setPosition(QPointF(lineX * Dots(), 0));
        lineX = 0;
    }
    layout.endLayout();
    painter_.setPen(color);
    for (int i = 0; i < layout.lineCount(); ++i) {
        const double height = std::max(layout.lineAt(i).height() / Dots(), LineHeight());
        if (y > 0 && y + height > Height()) NewPage();
        layout.lineAt(i).draw(&painter_, QPointF(0, y * Dots()));
        y += height;
    }
    x = 0;
}

void PrinterPages::NewPage() {
    BeginDocument();
    if (!printer_->newPage()) FailPrinter();
    ++page_;
    Home();
}

void PrinterPages::Paint(const QImage& picture, const QRectF& box) {
    BeginDocument();
    painter_.drawImage(
        QRectF(box.x() * Dots(), box.y() * Dots(), box.width() * Dots(), box.height() * Dots()),
        picture);
}

void PrinterPages::EndDocument() {
    Home();
    page_ = 1;
    if (!painter_.isActive()) return;
    const bool ended = painter_.end();
    if (!ended || printer_->printerState() == QPrinter::Error) FailPrinter();
}

void PrinterPages::KillDocument() {
    Home();
    page_ = 1;
    if (!painter_.isActive()) return;
    printer_->abort();
    painter_.end();
}

PrinterPages& ThePrinterPages() {
    if (Instance() == nullptr) {
        Instance() = std::make_unique<PrinterPages>();
        qAddPostRoutine([] { Instance().reset(); });
    }
    return *Instance();
}

}  // namespace velm
