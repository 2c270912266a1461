// The printer object, on the printer that writes PDF files.
#include "platform/qt/qt_printer.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLabel>
#include <QTemporaryDir>

#include "data/failure.h"
#include "platform/files.h"
#include "platform/picture_target.h"
#include "platform/qt/qt_text.h"

namespace velm {

namespace {

class PrinterObject : public testing::Test {
  protected:
    QTemporaryDir folder;
    std::unique_ptr<MemberSurface> printer;

    // The last printer of the list, with the settings it starts with.
    void SetUp() override {
        printer = MakeQtPrinter();
        printer->Set(u"Index", Number(u"Count") - 1, {});
        printer->Set(u"OutputFile", ScriptPath(File().toStdString()), {});
        printer->Set(u"FontSize", 10.0, {});
        printer->Set(u"Zoom", 100.0, {});
    }
    void TearDown() override { printer->Set(u"OutputFile", std::u16string(), {}); }

    QString File() const { return folder.filePath(QStringLiteral("out.pdf")); }
    double Number(std::u16string_view member) { return MemberToNumber(printer->Get(member, {})); }
    std::u16string Text(std::u16string_view member) {
        return MemberToText(printer->Get(member, {}));
    }
    void Set(std::u16string_view member, const MemberValue& value) {
        printer->Set(member, value, {});
    }
    int FailureOfSetting(std::u16string_view member, const MemberValue& value) {
        try {
            Set(member, value);
        } catch (const Failure& failed) {
            return failed.Number();
        }
        return 0;
    }

    QByteArray Written() const {
        QFile file(File());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    qsizetype PagesWritten() const { return Written().count("/Type /Page\n"); }
};

TEST_F(PrinterObject, APageOfTextIsWritten) {
    printer->Call(u"Print", {u"こんにちは\r\n二行目"});
    EXPECT_GT(Number(u"CurrentY"), 20);
    EXPECT_EQ(Number(u"CurrentX"), 0);
    printer->Call(u"EndDoc", {});
    EXPECT_TRUE(Written().startsWith("%PDF"));
    EXPECT_EQ(PagesWritten(), 1);
    EXPECT_EQ(Number(u"CurrentY"), 0);
    EXPECT_EQ(Text(u"Port"), ScriptPath(File().toStdString()));
}

TEST_F(PrinterObject, NewPageAndLongTextsMakePages) {
    printer->Call(u"Print", {u"一"});
    printer->Call(u"NewPage", {});
    EXPECT_EQ(Number(u"Page"), 2);
    EXPECT_EQ(Number(u"CurrentY"), 0);
    std::u16string lines;
    for (int i = 0; i < 100; ++i) lines += u"行\r\n";
    printer->Call(u"Print", {lines});
    const double last = Number(u"Page");
    EXPECT_GE(last, 3);
    printer->Call(u"EndDoc", {});
    EXPECT_EQ(PagesWritten(), static_cast<qsizetype>(last));
    EXPECT_EQ(Number(u"Page"), 1);
}

TEST_F(PrinterObject, LongLinesAreWrapped) {
    printer->Call(u"Print", {u"短い"});
    const double one = Number(u"CurrentY");
    printer->Call(u"Print", {std::u16string(400, u'あ')});
    EXPECT_GT(Number(u"CurrentY"), one * 4);
    printer->Call(u"KillDoc", {});
}

TEST_F(PrinterObject, LengthsAre96thsOfAnInchBeforeTheZoom) {
    // A4 less 15 mm on each side; the margins are whole points.
    EXPECT_NEAR(Number(u"ScaleWidth"), 180 / 25.4 * 96, 3);
    EXPECT_NEAR(Number(u"ScaleHeight"), 267 / 25.4 * 96, 3);
    const double plain = MemberToNumber(printer->Call(u"TextWidth", {u"漢字漢字"}));
    EXPECT_NEAR(plain, 4 * 10 * 96 / 72.0, 3);
    Set(u"FontSize", 20.0);
    EXPECT_NEAR(MemberToNumber(printer->Call(u"TextWidth", {u"漢字漢字"})), plain * 2, 3);
    Set(u"Zoom", 50.0);
    EXPECT_NEAR(Number(u"ScaleWidth"), 360 / 25.4 * 96, 6);
}

TEST_F(PrinterObject, SettingsReadBack) {
    for (const double size : {1.0, 8.0, 9.0, 11.0, 12.0, 13.0}) {
        Set(u"PaperSize", size);
        EXPECT_EQ(Number(u"PaperSize"), size);
    }
    Set(u"PaperSize", 9.0);
    Set(u"Orientation", 2.0);
    EXPECT_EQ(Number(u"Orientation"), 2);
    EXPECT_GT(Number(u"ScaleWidth"), Number(u"ScaleHeight"));
    Set(u"Orientation", 1.0);
    Set(u"Copies", 3.0);
    EXPECT_EQ(Number(u"Copies"), 3);
    // A file has no other side.
    Set(u"Duplex", 2.0);
    EXPECT_EQ(Number(u"Duplex"), 1);
    EXPECT_EQ(FailureOfSetting(u"Duplex", 4.0), failure::kBadCall);
    Set(u"PrintQuality", 300.0);
    EXPECT_EQ(Number(u"PrintQuality"), 300);
    Set(u"ColorMode", 1.0);
    EXPECT_EQ(Number(u"ColorMode"), 1);
    Set(u"PrintMargins", u"1000,2000,1500,2500");
    EXPECT_EQ(Text(u"PrintMargins"), u"1000,2000,1500,2500");
    Set(u"FontBold", true);
    EXPECT_EQ(MemberToBool(printer->Get(u"fontbold", {})), true);
    Set(u"FontBold", false);
}

TEST_F(PrinterObject, BadSettingsFail) {
    EXPECT_EQ(FailureOfSetting(u"Index", 99.0), failure::kSubscript);
    EXPECT_EQ(FailureOfSetting(u"Index", -1.0), failure::kSubscript);
    EXPECT_EQ(FailureOfSetting(u"PaperSize", 9999.0), failure::kBadCall);
    EXPECT_EQ(FailureOfSetting(u"Orientation", 7.0), failure::kBadCall);
    EXPECT_EQ(FailureOfSetting(u"Copies", 0.0), failure::kBadCall);
    EXPECT_EQ(FailureOfSetting(u"PrintMargins", u"1,2,3"), failure::kBadCall);
    EXPECT_EQ(FailureOfSetting(u"DeviceName", u"x"), failure::kNoSuchMember);
    EXPECT_EQ(FailureOfSetting(u"Nonsense", 1.0), failure::kNoSuchMember);
}

TEST_F(PrinterObject, TheListHoldsTheOneInForce) {
    const std::u16string name = Text(u"DeviceName");
    EXPECT_FALSE(name.empty());
    EXPECT_TRUE(Text(u"List").ends_with(name));
}

TEST_F(PrinterObject, AFolderThatIsMissingFails) {
    Set(u"OutputFile", ScriptPath(folder.filePath(QStringLiteral("no/out.pdf")).toStdString()));
    try {
        printer->Call(u"Print", {u"x"});
        printer->Call(u"EndDoc", {});
        FAIL() << "printed nowhere";
    } catch (const Failure& failed) {
        EXPECT_EQ(failed.Number(), 482);
    }
}

TEST_F(PrinterObject, PicturesAndWidgetsArePrinted) {
    auto* target = dynamic_cast<PictureTarget*>(printer.get());
    ASSERT_NE(target, nullptr);
    target->PaintPicture(Pixmap(40, 30, 0x0000FF), 10, 10, 0, 0);
    printer->Call(u"EndDoc", {});
    EXPECT_TRUE(Written().contains("/Subtype /Image"));
    QLabel label(QStringLiteral("印刷される窓"));
    label.resize(2000, 100);
    PrintWidget(label);
    EXPECT_TRUE(Written().contains("/Subtype /Image"));
    EXPECT_EQ(PagesWritten(), 1);
}

TEST_F(PrinterObject, NothingPrintedWritesNothing) {
    printer->Call(u"EndDoc", {});
    EXPECT_FALSE(QFile::exists(File()));
}

TEST_F(PrinterObject, WithoutANameTheFileIsAmongTheDocuments) {
    const QByteArray home = qgetenv("HOME");
    const QByteArray config = qgetenv("XDG_CONFIG_HOME");
    qputenv("HOME", folder.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", folder.filePath(QStringLiteral("config")).toUtf8());
    Set(u"OutputFile", u"");
    printer->Call(u"Print", {u"名前なし"});
    printer->Call(u"EndDoc", {});
    qputenv("HOME", home);
    config.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", config);
    const QString path = QFile::decodeName(NativePath(Text(u"Port")).c_str());
    EXPECT_TRUE(path.startsWith(folder.path())) << path.toStdString();
    EXPECT_TRUE(path.contains(QStringLiteral("印刷 "))) << path.toStdString();
    EXPECT_TRUE(QFile::exists(path));
}

}  // namespace

}  // namespace velm
