// The printer in force and the document begun on it: choosing a printer, its settings, and writing text and
// pictures on pages. One state a process.
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QStringList>
#include <memory>

class QPrinter;

namespace velm {

class PrinterPages {
  public:
    PrinterPages();
    ~PrinterPages();
    PrinterPages(const PrinterPages&) = delete;
    PrinterPages& operator=(const PrinterPages&) = delete;

    QFont font;
    QColor color = Qt::black;
    double x = 0;  // where the next text begins, in 96ths of an inch
    double y = 0;

    // The printers of the system, then the one that writes a PDF file.
    static QStringList Names();
    int Index() const;
    // Makes another printer the one in force, with its own settings. Throws Failure(9) outside the list.
    void Select(int index);
    QPrinter& Printer() { return *printer_; }
    // After settings of the printer were changed from outside, the choice of printer among them.
    void TakePrinter();

    bool WritesFile() const;
    // Native path of the PDF file: the chosen one, of the document begun or the last one, or empty.
    QString File() const;
    // Empty: each document gets a file of its own.
    void SetFile(const QString& path) {
        chosenFile_ = path;
        dialogFile_.clear();
    }
    // The name that the next document will have.
    QString NextFile() const;

    int Zoom() const { return zoom_; }
    void SetZoom(int percent);
    // Page in work, from 1; also before the first text.
    int Page() const { return page_; }

    // Device dots in one unit.
    double Dots() const;
    double Width() const;
    double Height() const;
    // The size of a text of lines, not wrapped.
    QSizeF SizeOf(const QString& text) const;

    // All begin a document where none is begun; they throw Failure(482) when the printer refuses.
    void Print(const QString& text);
    void NewPage();
    void Paint(const QImage& picture, const QRectF& box);
    // Ends the document, if one is begun.
    void EndDocument();
    void KillDocument();

  private:
    std::unique_ptr<QPrinter> printer_;
    QPainter painter_;
    QString chosenFile_;
    QString dialogFile_;  // for one document
    QString lastFile_;
    int zoom_ = 100;
    int page_ = 1;

    void BeginDocument();
    void PrintLine(const QString& line);
    QFont DeviceFont() const;
    double LineHeight() const;
    void Home();
};

// The one of the process, made at the first call. It ends, and with it an unfinished document, before the
// toolkit does.
PrinterPages& ThePrinterPages();

}  // namespace velm
