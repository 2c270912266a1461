// The icon in the notification area: one a process. Its properties can be set before it is there, and
// count once it is.
#include <string>
#include <string_view>

#include "core/diagnostics.h"
#include "core/run_state.h"
#include "data/failure.h"
#include "objects/object_canvas.h"
#include "objects/object_settings.h"
#include "objects/properties.h"

namespace velm {

namespace {

constexpr std::u16string_view kIconWord = u"アイコン";
constexpr std::u16string_view kTipWord = u"説明";

// The most units that fit, the last place being taken by the end mark.
constexpr std::size_t kLongestTip = 127;
constexpr std::size_t kLongestBalloon = 255;
constexpr std::size_t kLongestTitle = 63;

struct TrayState {
    bool isThere = false;
    std::u16string iconFile;
    std::u16string tip;
};
TrayState tray;

std::u16string Shortened(std::u16string_view text, std::size_t longest) {
    std::u16string_view head = text.substr(0, longest);
    const bool isCutInPair =
        head.size() < text.size() && !head.empty() && (head.back() & 0xFC00) == 0xD800;
    if (isCutInPair) head.remove_suffix(1);
    return std::u16string(head);
}

void SetTrayIcon(const PropertyRecord& record) {
    const PictureWord word(record);
    const Pixmap icon = TheToolkit().LoadIcon(word.file, word.index, true);
    tray.iconFile = word.file;
    if (tray.isThere) TheToolkit().Tray().SetIcon(icon);
}

void SetTrayTip(std::u16string_view tip) {
    tray.tip = Shortened(tip, kLongestTip);
    if (tray.isThere) TheToolkit().Tray().SetTip(tray.tip);
}

std::int32_t BalloonIcon(int style) {
    if (style == kIconWarning) return 2;
    return style == kIconStop ? 3 : 1;
}

}  // namespace

Value TrayProperty(bool isGet, const PropertyRecord& record) {
    if (record.Name == kIconWord) {
        if (isGet) return Value(tray.iconFile);
        SetTrayIcon(record);
    } else if (record.Name == kTipWord) {
        if (isGet) return Value(tray.tip);
        SetTrayTip(record.Text.Text());
    } else {
        throw Failure(failure::kNoSuchMember);
    }
    return Value();
}

void AddTrayIcon(Window& window) {
    tray.tip = Shortened(window.GetText(u"Caption"), kLongestTip);
    TheToolkit().Tray().Show(window.Picture(), tray.tip);
    tray.isThere = true;
}

void RemoveTrayIcon() {
    const bool wasThere = tray.isThere;
    tray = TrayState();
    if (wasThere) TheToolkit().Tray().Hide();
}

void ShowBalloon(const std::u16string& text, int style) {
    if (!tray.isThere) return;
    TheToolkit().Tray().ShowBalloon(Shortened(run.ProgramTitle, kLongestTitle),
                                    Shortened(text, kLongestBalloon), BalloonIcon(style));
}

}  // namespace velm
