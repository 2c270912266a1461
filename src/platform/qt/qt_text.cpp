// Text between the runtime and the toolkit.
#include "platform/qt/qt_text.h"

namespace velm {

namespace {

constexpr qsizetype kLongestTitle = 1000;

}  // namespace

QString ToQString(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

std::u16string FromQString(const QString& text) {
    return std::u16string(reinterpret_cast<const char16_t*>(text.utf16()),
                          static_cast<std::size_t>(text.size()));
}

QString ToLines(std::u16string_view text) {
    QString lines = ToQString(text);
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return lines.replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

std::u16string FromLines(const QString& text) {
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return FromQString(lines.replace(QLatin1Char('\n'), QStringLiteral("\r\n")));
}

QString ToTitle(std::u16string_view text) {
    QString title = ToLines(text.substr(0, static_cast<std::size_t>(kLongestTitle)));
    title.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return title.replace(QChar(0), QLatin1Char(' '));
}

}  // namespace velm
