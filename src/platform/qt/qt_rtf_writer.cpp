// Rich text written as RTF; see qt_rtf.h.
#include <QTextBlock>
#include <QTextDocument>
#include <cmath>

#include "platform/qt/qt_fonts.h"
#include "platform/qt/qt_rich_formats.h"
#include "platform/qt/qt_rtf.h"
#include "platform/qt/qt_text.h"

namespace velm {

namespace {

constexpr int kTwipsPerPixel = 15;

class RtfWriter {
  public:
    RtfWriter(const QTextDocument& document, double points)
        : document_(document), points_(points) {}

    QString Write() {
        FontIndex(document_.defaultFont().families().value(0));
        for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
            if (block.blockNumber() != 0) body_ += QLatin1String("\\par\r\n");
            WriteBlock(block);
        }
        return Head() + body_ + QLatin1String("}\r\n");
    }

  private:
    const QTextDocument& document_;
    double points_;
    QString body_;
    QStringList fonts_;
    QList<QColor> colors_;

    qsizetype FontIndex(const QString& family) {
        if (!fonts_.contains(family)) fonts_ += family;
        return fonts_.indexOf(family);
    }

    qsizetype ColorIndex(const QColor& color) {
        if (!colors_.contains(color)) colors_ += color;
        return colors_.indexOf(color) + 1;
    }

    static QString Number(const char* word, double value) {
        return QStringLiteral("\\%1%2").arg(QLatin1String(word)).arg(std::lround(value));
    }

    QString Head() const {
        QString head = QStringLiteral("{\\rtf1\\ansi\\ansicpg932\\uc1\\deff0{\\fonttbl");
        for (qsizetype i = 0; i < fonts_.size(); ++i) {
            head +=
                QStringLiteral("{\\f%1\\fnil\\fcharset128 %2;}").arg(i).arg(Escaped(fonts_.at(i)));
        }
        head += QLatin1String("}\r\n");
        if (colors_.isEmpty()) return head;
        head += QLatin1String("{\\colortbl ;");
        for (const QColor& color : colors_) {
            head += QStringLiteral("\\red%1\\green%2\\blue%3;")
                        .arg(color.red())
                        .arg(color.green())
                        .arg(color.blue());
        }
        return head + QLatin1String("}\r\n");
    }

    static QString Escaped(const QString& text) {
        QString escaped;
        for (const QChar unit : text) {
            const char16_t code = unit.unicode();
            if (code == u'\\' || code == u'{' || code == u'}') {
                escaped += QLatin1Char('\\');
                escaped += unit;
            } else if (code == u'\t') {
                escaped += QLatin1String("\\tab ");
            } else if (code == QChar::LineSeparator) {
                escaped += QLatin1String("\\line ");
            } else if (code >= 0x20 && code < 0x7F) {
                escaped += unit;
            } else {
                escaped += QStringLiteral("\\u%1?").arg(static_cast<qint16>(code));
            }
        }
        return escaped;
    }

    void WriteBlock(const QTextBlock& block) {
        const QTextBlockFormat format = block.blockFormat();
        body_ += QLatin1String("\\pard");
        if (format.alignment().testFlag(Qt::AlignRight)) body_ += QLatin1String("\\qr");
        if (format.alignment().testFlag(Qt::AlignHCenter)) body_ += QLatin1String("\\qc");
        const auto indent = [this](const char* word, double pixels) {
            if (pixels != 0) body_ += Number(word, pixels * kTwipsPerPixel);
        };
        indent("li", format.leftMargin());
        indent("ri", format.rightMargin());
        indent("fi", format.textIndent());
        body_ += QLatin1Char(' ');
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            WriteFragment(part.fragment().text(), part.fragment().charFormat());
        }
    }

    void WriteFragment(const QString& text, const QTextCharFormat& format) {
        QString words = QStringLiteral("{");
        const QString family = FamilyOf(format);
        words += Number("f", static_cast<double>(family.isEmpty() ? 0 : FontIndex(family)));
        words += Number("fs", PointsOf(format, points_) * 2);
        if (format.fontWeight() >= QFont::Bold) words += QLatin1String("\\b");
        if (format.fontItalic()) words += QLatin1String("\\i");
        if (format.fontUnderline()) words += QLatin1String("\\ul");
        if (format.fontStrikeOut()) words += QLatin1String("\\strike");
        if (IsProtected(format)) words += QLatin1String("\\protect");
        if (format.hasProperty(QTextFormat::ForegroundBrush)) {
            words += Number("cf", static_cast<double>(ColorIndex(format.foreground().color())));
        }
        body_ += words + QLatin1Char(' ') + Escaped(text) + QLatin1Char('}');
    }
};

}  // namespace

std::u16string WriteRtf(const QTextDocument& document, double points) {
    return FromQString(RtfWriter(document, points).Write());
}

}  // namespace velm
