// The toolkit's start.
#include "platform/qt/qt_application.h"

#include <time.h>
#include <unistd.h>

#include <QApplication>
#include <QFontDatabase>
#include <QLocale>
#include <QLoggingCategory>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "platform/qt/japanese_texts.h"
#include "platform/qt/qt_frames.h"
#include "platform/qt/qt_removal.h"

namespace velm {

namespace {

constexpr int kStatusNoDisplay = 2;
constexpr const char* kPlatformVariable = "QT_QPA_PLATFORM";
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

bool WritesJapanese(const QString& family) {
    return QFontDatabase::writingSystems(family).contains(QFontDatabase::Japanese);
}

// A Japanese family of this machine; empty when there is none.
QString JapaneseFamily() {
    const auto* known = std::find_if(std::begin(kJapaneseFonts), std::end(kJapaneseFonts),
                                     [](auto name) { return QFontDatabase::hasFamily(name); });
    if (known != std::end(kJapaneseFonts)) return *known;
    return QFontDatabase::families(QFontDatabase::Japanese).value(0);
}

// Many characters have one code but a Chinese and a Japanese shape, so what stands in for a missing
// glyph mustn't be left to chance. A font that the user chose stays first; the generic one of a
// machine without a desktop gives way, since it would cut every ○, → and ’ from a Latin font.
void ChooseJapaneseFont() {
    QFont font = QApplication::font();
    QStringList families = font.families();
    const bool generic = families.value(0) == kGenericFont;
    if (!generic && WritesJapanese(families.value(0))) return;
    const QString family = JapaneseFamily();
    if (family.isEmpty()) return;
    families.insert(generic ? 0 : families.size(), family);
    font.setFamilies(families);
    QApplication::setFont(font);
}

// A broken picture is a failure of the script's step, not something to print; how full the toolkit's queue
// is, and what can't be done without a display, is no news to who runs a script.
void QuietMessages() {
    QString rules = QStringLiteral("qt.gui.imageio*=false\nqt.qpa.events.reader=false\n");
    if (QApplication::platformName() == QLatin1String("offscreen")) {
        rules += QStringLiteral("default.warning=false\n");
    }
    QLoggingCategory::setFilterRules(rules);
}

// The toolkit ends the process by itself, from within its events, when the display has gone. The objects of
// the script are in use then, and can't be taken apart as at the end of main.
void EndWithinEvents(int status, void* /*data*/) {
    if (!IsToolkitAtWork()) return;
    std::fflush(nullptr);
    _exit(status);
}

ApplicationPointer MakeApplication(QtMessageHandler onMessage) {
    // The toolkit keeps references to both for as long as it lives.
    static int count = 1;
    static char name[] = "velmscript";
    static char* words[] = {name, nullptr};
    const QtMessageHandler usual = qInstallMessageHandler(onMessage);
    ApplicationPointer application(new QApplication(count, words));
    qInstallMessageHandler(usual);
    QuietMessages();
    ChooseJapaneseFont();
    // The toolkit took over the user's locale, decimal comma included.
    std::setlocale(LC_NUMERIC, "C");
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    // A closed box must not leave a wish to quit behind for the next one.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setDesktopFileName(QStringLiteral("velmscript"));
    InstallJapaneseTexts(*application);
    StartFrames();
    on_exit(EndWithinEvents, nullptr);
    return application;
}

// The displays to try in their order; the last one is always there.
QByteArray DisplaysToTry() {
    const bool prefersWayland = qgetenv("XDG_SESSION_TYPE") == "wayland";
    QByteArrayList displays;
    if (qEnvironmentVariableIsSet("DISPLAY")) displays += "xcb";
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) {
        displays.insert(prefersWayland ? 0 : displays.size(), "wayland");
    }
    displays += "offscreen";
    return displays.join(';');
}

}  // namespace

void ApplicationDeleter::operator()(QApplication* application) const { delete application; }

ApplicationPointer StartApplication() { return MakeApplication(OnStartMessage); }

ApplicationPointer StartApplicationAnywhere() {
    const auto ignore = [](QtMsgType, const QMessageLogContext&, const QString&) {};
    if (qEnvironmentVariableIsSet(kPlatformVariable)) return MakeApplication(ignore);
    qputenv(kPlatformVariable, DisplaysToTry());
    ApplicationPointer application = MakeApplication(ignore);
    // Programs that the script starts choose for themselves.
    qunsetenv(kPlatformVariable);
    return application;
}

void PumpApplication() {
    static timespec last = {};
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    if (now.tv_nsec == last.tv_nsec && now.tv_sec == last.tv_sec) return;
    last = now;
    DeleteWhatIsFree();
    {
        const ToolkitScope scope;
        QCoreApplication::processEvents();
    }
    ShowDueFrame();
}

}  // namespace velm
