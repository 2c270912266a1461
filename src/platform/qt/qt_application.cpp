// The toolkit's start.
#include "platform/qt/qt_application.h"

#include <time.h>

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLocale>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "platform/qt/japanese_texts.h"

namespace velm {

namespace {

constexpr int kStatusNoDisplay = 2;
constexpr const char* kFontLanguage = "FC_LANG";
constexpr QLatin1String kGenericFont("Sans Serif");
// The first that is there.
constexpr QLatin1String kJapaneseFonts[] = {
    QLatin1String("Noto Sans CJK JP"), QLatin1String("Noto Sans JP"), QLatin1String("IPAGothic"),
    QLatin1String("VL PGothic"),       QLatin1String("TakaoPGothic"),
};

// Only while the toolkit starts: it tells of a missing display by a fatal message, after some warnings
// that would bury ours, and would then abort.
void OnStartMessage(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    std::fputs(
        "velmscript: 画面（ディスプレイ）に接続できません。環境変数 DISPLAY または "
        "WAYLAND_DISPLAY を確認してください。端末で実行するには velmconsole を使ってください。\n",
        stderr);
    std::_Exit(kStatusNoDisplay);
}

// Many characters have one code but a Chinese and a Japanese shape. Which font stands in for a missing
// one is decided by the language; it is read once, with the first font, and must not reach the
// programs that a script starts.
class JapaneseFontsAtStart {
  public:
    JapaneseFontsAtStart() : wasSet_(qEnvironmentVariableIsSet(kFontLanguage)) {
        if (!wasSet_) qputenv(kFontLanguage, "ja");
    }
    ~JapaneseFontsAtStart() {
        if (!wasSet_) qunsetenv(kFontLanguage);
    }
    JapaneseFontsAtStart(const JapaneseFontsAtStart&) = delete;
    JapaneseFontsAtStart& operator=(const JapaneseFontsAtStart&) = delete;

  private:
    bool wasSet_;
};

// Without a desktop the toolkit's font is a generic one, which would take only kana and kanji from a
// Japanese font and cut every ○, → and ’ from a Latin one. A font that the user chose stays first.
void ChooseJapaneseFont() {
    QFont font = QApplication::font();
    if (QFontDatabase::writingSystems(QFontInfo(font).family()).contains(QFontDatabase::Japanese)) {
        return;
    }
    const auto* family = std::find_if(std::begin(kJapaneseFonts), std::end(kJapaneseFonts),
                                      [](auto name) { return QFontDatabase::hasFamily(name); });
    if (family == std::end(kJapaneseFonts)) return;
    QStringList families = font.families();
    families.insert(families.value(0) == kGenericFont ? 0 : families.size(), *family);
    font.setFamilies(families);
    QApplication::setFont(font);
}

}  // namespace

void ApplicationDeleter::operator()(QApplication* application) const { delete application; }

ApplicationPointer StartApplication() {
    // The toolkit keeps references to both for as long as it lives.
    static int count = 1;
    static char name[] = "velmscript";
    static char* words[] = {name, nullptr};
    const JapaneseFontsAtStart fonts;
    const QtMessageHandler usual = qInstallMessageHandler(OnStartMessage);
    ApplicationPointer application(new QApplication(count, words));
    qInstallMessageHandler(usual);
    ChooseJapaneseFont();
    // The toolkit took over the user's locale, decimal comma included.
    std::setlocale(LC_NUMERIC, "C");
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    // A closed box must not leave a wish to quit behind for the next one.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setDesktopFileName(QStringLiteral("velmscript"));
    InstallJapaneseTexts(*application);
    return application;
}

void PumpApplication() {
    static timespec last = {};
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    if (now.tv_nsec == last.tv_nsec && now.tv_sec == last.tv_sec) return;
    last = now;
    QCoreApplication::processEvents();
}

}  // namespace velm
