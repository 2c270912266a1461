// Image and icon files as pixels.
#include "platform/qt/qt_pictures.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QtEndian>

#include "data/failure.h"
#include "platform/files.h"

namespace velm {

namespace {

constexpr std::uint32_t kRed = 0x0000FF;
constexpr std::uint32_t kBlue = 0xFF0000;

class Pictures : public testing::Test {
  protected:
    QTemporaryDir folder;

    std::u16string PathOf(const QString& name) const {
        return ScriptPath(folder.filePath(name).toStdString());
    }
    std::u16string Write(const QString& name, const QByteArray& bytes) const {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return PathOf(name);
    }
};

QByteArray Encoded(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format, 100)) << format;
    return bytes;
}

// Red on the left, blue on the right.
QImage TwoColors(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, x < width / 2 ? qRgb(255, 0, 0) : qRgb(0, 0, 255));
    }
    return image;
}

QByteArray Little16(int number) {
    QByteArray bytes(2, 0);
    qToLittleEndian(static_cast<quint16>(number), bytes.data());
    return bytes;
}

QByteArray Little32(qsizetype number) {
    QByteArray bytes(4, 0);
    qToLittleEndian(static_cast<quint32>(number), bytes.data());
    return bytes;
}

struct IconImage {
    int size;
    QRgb color;
};

// An icon file whose images have one colour each.
QByteArray IconFile(const std::vector<IconImage>& images) {
    QByteArray directory = Little16(0) + Little16(1) + Little16(static_cast<int>(images.size()));
    QByteArray contents;
    for (const IconImage& one : images) {
        QImage image(one.size, one.size, QImage::Format_ARGB32);
        image.fill(one.color);
        const QByteArray png = Encoded(image, "png");
        const auto size = static_cast<char>(one.size == 256 ? 0 : one.size);
        directory += QByteArray(1, size) + QByteArray(1, size) + Little16(0) + Little16(1) +
                     Little16(32) + Little32(png.size()) +
                     Little32(6 + 16 * static_cast<qsizetype>(images.size()) + contents.size());
        contents += png;
    }
    return directory + contents;
}

template <class Load>
int FailureOf(const Load& load) {
    try {
        load();
    } catch (const Failure& failed) {
        return failed.Number();
    }
    return 0;
}

TEST_F(Pictures, EveryFormatHasItsColours) {
    for (const char* format : {"png", "bmp", "xpm", "ppm", "jpg"}) {
        const auto path = Write(QString::fromLatin1(format), Encoded(TwoColors(24, 16), format));
        const Pixmap pixmap = LoadQtPicture(path);
        ASSERT_EQ(pixmap.width, 24) << format;
        ASSERT_EQ(pixmap.height, 16) << format;
        const std::uint32_t left = pixmap.At(2, 8);
        const std::uint32_t right = pixmap.At(21, 8);
        // One of them loses a little.
        EXPECT_LT((left >> 16 & 0xFF) + (left >> 8 & 0xFF) + (255 - (left & 0xFF)), 12u) << format;
        EXPECT_LT((right & 0xFF) + (right >> 8 & 0xFF) + (255 - (right >> 16)), 12u) << format;
    }
}

TEST_F(Pictures, GifWithATransparentColour) {
    // Two pixels: the first transparent, the second red.
    const QByteArray gif = QByteArray::fromHex(
        "474946383961020001008000000000FFFF000021F90401000000002C0000000002000100000202440A003B");
    const Pixmap pixmap = LoadQtPicture(Write(QStringLiteral("a.gif"), gif));
    ASSERT_EQ(pixmap.width, 2);
    EXPECT_EQ(pixmap.At(0, 0), kTransparentPixel);
    EXPECT_EQ(pixmap.At(1, 0), kRed);
}

TEST_F(Pictures, HalfOpaqueIsOpaque) {
    QImage image(3, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(255, 0, 0, 128));
    image.setPixel(1, 0, qRgba(255, 0, 0, 127));
    image.setPixel(2, 0, qRgba(0, 0, 255, 255));
    const Pixmap pixmap = LoadQtPicture(Write(QStringLiteral("a.png"), Encoded(image, "png")));
    EXPECT_EQ(pixmap.pixels, (std::vector<std::uint32_t>{kRed, kTransparentPixel, kBlue}));
    EXPECT_EQ(PixmapOfImage(ImageOfPixmap(pixmap)).pixels, pixmap.pixels);
}

TEST_F(Pictures, TheContentTellsTheFormat) {
    const auto path = Write(QStringLiteral("a.bmp"), Encoded(TwoColors(4, 4), "png"));
    EXPECT_EQ(LoadQtPicture(path).width, 4);
}

TEST_F(Pictures, AnIconHasTheNearestSize) {
    const QRgb blue = qRgb(0, 0, 255);
    const auto path = Write(QStringLiteral("a.ico"), IconFile({{16, qRgb(255, 0, 0)},
                                                               {48, qRgb(0, 255, 0)},
                                                               {32, blue},
                                                               {32, qRgb(255, 0, 255)},
                                                               {256, qRgb(9, 9, 9)}}));
    EXPECT_EQ(LoadQtIcon(path, 0, true).width, 16);
    EXPECT_EQ(LoadQtIcon(path, 0, true).At(3, 3), kRed);
    EXPECT_EQ(LoadQtIcon(path, 0, false).width, 32);
    EXPECT_EQ(LoadQtIcon(path, 0, false).At(3, 3), kBlue);
    EXPECT_EQ(LoadQtIcon(path, 1, false).At(3, 3), 0xFF00FFu);
    EXPECT_EQ(LoadQtPicture(path).At(3, 3), kBlue);
    EXPECT_EQ(FailureOf([&] { LoadQtIcon(path, 2, false); }), failure::kNoSuchElement);
    EXPECT_EQ(FailureOf([&] { LoadQtIcon(path, -1, false); }), failure::kNoSuchElement);
    const auto large = Write(QStringLiteral("b.ico"), IconFile({{256, blue}}));
    EXPECT_EQ(LoadQtIcon(large, 0, true).width, 256);
}

TEST_F(Pictures, MissingAndBrokenFilesFail) {
    EXPECT_EQ(FailureOf([&] { LoadQtPicture(PathOf(QStringLiteral("no.png"))); }),
              failure::kFileNotFound);
    EXPECT_EQ(FailureOf([&] { LoadQtPicture(PathOf(QString())); }), failure::kFileNotFound);
    const auto text = Write(QStringLiteral("text.png"), "no picture at all");
    EXPECT_EQ(FailureOf([&] { LoadQtPicture(text); }), kBadPicture);
    const auto empty = Write(QStringLiteral("empty.png"), "");
    EXPECT_EQ(FailureOf([&] { LoadQtPicture(empty); }), kBadPicture);
}

TEST_F(Pictures, CutFilesNeverCrash) {
    const QList<QByteArray> files = {
        Encoded(TwoColors(64, 64), "png"), Encoded(TwoColors(64, 64), "bmp"),
        Encoded(TwoColors(64, 64), "jpg"), IconFile({{16, qRgb(1, 2, 3)}, {32, qRgb(4, 5, 6)}})};
    for (const QByteArray& whole : files) {
        for (qsizetype length = 0; length < whole.size(); length += 61) {
            const auto path = Write(QStringLiteral("cut"), whole.left(length));
            const int failed = FailureOf([&] { LoadQtPicture(path); });
            EXPECT_TRUE(failed == 0 || failed == kBadPicture) << failed;
        }
        EXPECT_EQ(FailureOf([&] { LoadQtPicture(Write(QStringLiteral("whole"), whole)); }), 0);
    }
}

TEST_F(Pictures, HugeSizesAreRefused) {
    // Headers that claim many pixels, without any.
    QByteArray bmp = Encoded(TwoColors(2, 2), "bmp");
    bmp.replace(18, 4, Little32(60000)).replace(22, 4, Little32(60000));
    const auto broken = Write(QStringLiteral("huge.bmp"), bmp);
    EXPECT_EQ(FailureOf([&] { LoadQtPicture(broken); }), kBadPicture);
    const auto path = Write(QStringLiteral("huge.ppm"), "P6\n30000 30000\n255\n");
    EXPECT_EQ(FailureOf([&] { LoadQtPicture(path); }), failure::kOutOfMemory);
}

}  // namespace

}  // namespace velm
