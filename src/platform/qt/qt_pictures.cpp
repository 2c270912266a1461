// Reading image and icon files.
#include "platform/qt/qt_pictures.h"

#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QtEndian>
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "data/failure.h"
#include "platform/files.h"

namespace velm {

namespace {

// As many pixels as a canvas has.
constexpr qint64 kMostPixels = qint64{1} << 26;
// In megabytes. The toolkit's own limit is less than what these pixels need.
constexpr int kMostMegabytes = 1024;
constexpr int kHalfOpaque = 128;
constexpr int kSmallIcon = 16;
constexpr int kLargeIcon = 32;

// One row of the directory of an icon file.
struct IconEntry {
    int number = 0;  // in the file
    int width = 0;
    int bits = 0;  // a pixel
};

[[noreturn]] void FailBadPicture() {
    throw Failure(kBadPicture, u"絵のファイルとして読み取れません。");
}

// Once a process.
void SetUpReading() {
    static const bool done = [] {
        QImageReader::setAllocationLimit(kMostMegabytes);
        return true;
    }();
    static_cast<void>(done);
}

// An open file. Folders count as no such file.
void OpenFile(QFile& file, const std::u16string& path) {
    if (!IsPlainFile(path)) throw Failure(failure::kFileNotFound);
    file.setFileName(QFile::decodeName(NativePath(path).c_str()));
    if (!file.open(QIODevice::ReadOnly)) throw Failure(failure::kPathFileAccess);
}

// The reader of png files prints what it thinks of one that breaks off: such a file isn't given to it.
// Files of other kinds count as whole.
bool IsWholeIfPng(QFile& file) {
    constexpr qsizetype kChunkFrame = 12;  // length, name and sum
    const QByteArray signature = QByteArrayLiteral("\x89PNG\r\n\x1A\n");
    if (file.peek(signature.size()) != signature) return true;
    const QByteArray bytes = file.peek(file.size());
    qsizetype place = signature.size();
    bool hasData = false;
    while (bytes.size() - place >= kChunkFrame) {
        const auto length = qFromBigEndian<quint32>(bytes.constData() + place);
        const QByteArray name = bytes.mid(place + 4, 4);
        if (length > bytes.size() - place - kChunkFrame) return false;
        hasData = hasData || name == "IDAT";
        if (name == "IEND") return hasData;
        place += kChunkFrame + static_cast<qsizetype>(length);
    }
    return false;
}

Pixmap Decode(QImageReader& reader) {
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    if (qint64{size.width()} * size.height() > kMostPixels) throw Failure(failure::kOutOfMemory);
    const QImage image = reader.read();
    if (image.isNull()) FailBadPicture();
    return PixmapOfImage(image);
}

// The directory of an icon or cursor file; empty for a file of another kind. A row that a broken file
// lacks is left out.
std::vector<IconEntry> IconDirectory(QFile& file) {
    constexpr qint64 kHeader = 6;
    constexpr qint64 kRow = 16;
    constexpr int kIconKind = 1;
    constexpr int kCursorKind = 2;
    std::vector<IconEntry> entries;
    const QByteArray header = file.peek(kHeader);
    if (header.size() < kHeader || qFromLittleEndian<quint16>(header.constData()) != 0) return {};
    const int kind = qFromLittleEndian<quint16>(header.constData() + 2);
    if (kind != kIconKind && kind != kCursorKind) return {};
    const int count = qFromLittleEndian<quint16>(header.constData() + 4);
    const QByteArray rows = file.peek(kHeader + count * kRow).mid(kHeader);
    for (int i = 0; i < count && (i + 1) * kRow <= rows.size(); ++i) {
        const char* row = rows.constData() + i * kRow;
        const int width = static_cast<unsigned char>(row[0]);
        // Of a cursor this is a place instead, which tells nothing.
        const int bits = kind == kIconKind ? qFromLittleEndian<quint16>(row + 6) : 0;
        entries.push_back({i, width == 0 ? 256 : width, bits});
    }
    return entries;
}

// The images that a size stands for, in the order of the file.
std::vector<IconEntry> ImagesOfSize(const std::vector<IconEntry>& entries, int wanted) {
    const IconEntry& best = *std::min_element(
        entries.begin(), entries.end(), [wanted](const IconEntry& one, const IconEntry& other) {
            const int near = std::abs(one.width - wanted);
            const int far = std::abs(other.width - wanted);
            if (near != far) return near < far;
            if (one.width != other.width) return one.width > other.width;
            return one.bits > other.bits;
        });
    std::vector<IconEntry> found;
    std::copy_if(
        entries.begin(), entries.end(), std::back_inserter(found),
        [&best](const IconEntry& one) { return one.width == best.width && one.bits == best.bits; });
    return found;
}

Pixmap LoadIconImage(QFile& file, const std::vector<IconEntry>& entries, std::int32_t index,
                     int wanted) {
    const std::vector<IconEntry> images = ImagesOfSize(entries, wanted);
    if (index < 0 || static_cast<std::size_t>(index) >= images.size())
        throw Failure(failure::kNoSuchElement);
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    if (!reader.jumpToImage(images[static_cast<std::size_t>(index)].number)) FailBadPicture();
    return Decode(reader);
}

}  // namespace

Pixmap PixmapOfImage(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_ARGB32);
    if (plain.isNull() && !image.isNull()) throw Failure(failure::kOutOfMemory);
    Pixmap pixmap(plain.width(), plain.height(), kTransparentPixel);
    for (int y = 0; y < plain.height(); ++y) {
        const auto* source = reinterpret_cast<const QRgb*>(plain.constScanLine(y));
        std::transform(source, source + plain.width(), pixmap.Row(y), [](QRgb pixel) {
            if (qAlpha(pixel) < kHalfOpaque) return kTransparentPixel;
            return static_cast<std::uint32_t>(qRed(pixel) | qGreen(pixel) << 8 |
                                              qBlue(pixel) << 16);
        });
    }
    return pixmap;
}

QImage ImageOfPixmap(const Pixmap& pixmap) {
    QImage image(pixmap.width, pixmap.height, QImage::Format_ARGB32);
    if (image.isNull() && !pixmap.pixels.empty()) throw Failure(failure::kOutOfMemory);
    for (int y = 0; y < image.height(); ++y) {
        const std::uint32_t* source = pixmap.Row(y);
        std::transform(source, source + pixmap.width, reinterpret_cast<QRgb*>(image.scanLine(y)),
                       [](std::uint32_t pixel) {
                           if (pixel == kTransparentPixel) return qRgba(0, 0, 0, 0);
                           return qRgb(static_cast<int>(pixel & 0xFF),
                                       static_cast<int>(pixel >> 8 & 0xFF),
                                       static_cast<int>(pixel >> 16 & 0xFF));
                       });
    }
    return image;
}

Pixmap LoadQtPicture(const std::u16string& path) { return LoadQtIcon(path, 0, false); }

Pixmap LoadQtIcon(const std::u16string& path, std::int32_t index, bool isSmall) {
    SetUpReading();
    QFile file;
    OpenFile(file, path);
    const std::vector<IconEntry> entries = IconDirectory(file);
    if (!entries.empty())
        return LoadIconImage(file, entries, index, isSmall ? kSmallIcon : kLargeIcon);
    if (index != 0) throw Failure(failure::kNoSuchElement);
    if (!IsWholeIfPng(file)) FailBadPicture();
    QImageReader reader(&file);
    return Decode(reader);
}

}  // namespace velm
