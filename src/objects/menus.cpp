// See menus.h. The toolkit gets each window's menus as a whole, when something of them has changed.
#include "objects/menus.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/sentence.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/text.h"
#include "objects/events.h"
#include "objects/resolve.h"
#include "platform/desktop.h"

namespace velm {

namespace {

constexpr std::u16string_view kOf = u"の";
constexpr std::u16string_view kSeparator = u"-";
constexpr std::u16string_view kNoItemText = u"メニューの項目を指定してください。";
constexpr std::u16string_view kAdviceText =
    u"メニューの手順には、必ずウィンドウ名をつけてください。\\n例:%1";
constexpr int kNoItemNumber = 64;
constexpr int kNoSuchProperty = 102;
constexpr int kNoSuchItem = 108;

// Kept: entries from here on are shown, but their choice isn't told.
constexpr std::int32_t kMostMenuIds = 200;
// The ids of sub-menus lie beyond those of entries.
constexpr std::int32_t kFirstSubMenuId = 100000;

bool hasChanges = false;

void NoteChange(Window& window) {
    window.hasChangedMenus = true;
    hasChanges = true;
}

bool IsUp(char16_t unit) { return unit == u'<' || unit == u'＜'; }
bool IsDown(char16_t unit) { return unit == u'>' || unit == u'＞'; }

xxMenuCls& Add(Window& window, std::u16string text, bool isSubMenu) {
    xxMenuCls entry;
    const auto place = static_cast<std::int32_t>(window.MenuInfo.size());
    entry.Id = isSubMenu ? kFirstSubMenuId + place : place;
    entry.parent = window.openMenus.empty() ? -1 : window.openMenus.back();
    entry.Caption = text.substr(0, text.find(u'\t'));
    entry.isSubMenu = isSubMenu;
    entry.isSeparator = !isSubMenu && text == kSeparator;
    entry.text = std::move(text);
    if (entry.parent >= 0) {
        entry.Key = window.MenuInfo[static_cast<std::size_t>(entry.parent)].Key;
        entry.Key += kOf;
    }
    entry.Key += entry.Caption;
    window.MenuInfo.push_back(std::move(entry));
    NoteChange(window);
    return window.MenuInfo.back();
}

void AddLevel(Window& window, std::u16string text) {
    Add(window, std::move(text), true);
    window.openMenus.push_back(static_cast<std::int32_t>(window.MenuInfo.size()) - 1);
}

MenuEntry EntryOf(const Window& window, std::size_t place) {
    const xxMenuCls& info = window.MenuInfo[place];
    MenuEntry entry;
    entry.id = info.Id;
    entry.text = info.text;
    entry.isSeparator = info.isSeparator;
    entry.isChecked = info.Checked;
    entry.isEnabled = info.Enabled;
    entry.isVisible = info.Visible;
    for (std::size_t i = place + 1; i < window.MenuInfo.size(); ++i) {
        if (window.MenuInfo[i].parent != static_cast<std::int32_t>(place)) continue;
        entry.children.push_back(EntryOf(window, i));
    }
    return entry;
}

std::vector<MenuEntry> MenusOf(const Window& window) {
    std::vector<MenuEntry> menus;
    for (std::size_t i = 0; i < window.MenuInfo.size(); ++i) {
        if (window.MenuInfo[i].parent < 0) menus.push_back(EntryOf(window, i));
    }
    return menus;
}

xxMenuCls* FindByKey(Window& window, std::u16string_view key) {
    const std::u16string wanted = ObjectKey(key);
    const auto found =
        std::find_if(window.MenuInfo.begin(), window.MenuInfo.end(),
                     [&wanted](const xxMenuCls& entry) { return ObjectKey(entry.Key) == wanted; });
    return found == window.MenuInfo.end() ? nullptr : &*found;
}

// The number under which the platform knows an entry.
Value IdOf(const xxMenuCls& entry) { return Value::OfInteger(entry.Id); }

bool* FlagOf(xxMenuCls& entry, std::u16string_view word) {
    if (word == u"チェック") return &entry.Checked;
    if (word == u"有効") return &entry.Enabled;
    if (word == u"表示") return &entry.Visible;
    return nullptr;
}

// Kept: the path of an entry with a new name stays what it was.
void Rename(xxMenuCls& entry, const std::u16string& text) {
    entry.text = text;
    entry.Caption = text.substr(0, text.find(u'\t'));
}

ScreenPoint PopUpPlace(const Word& place) {
    if (place.IsEmpty()) return TheDesktop().MousePosition();
    PropertyRecord record;
    record.Value = place;
    record.Text = NextComma(place, 1, true) == 0 ? EvalWord(place) : Value(place.Text());
    double point[2] = {0, 0};
    SplitCoordinates(record, point);
    return {static_cast<std::int32_t>(point[0]), static_cast<std::int32_t>(point[1])};
}

}  // namespace

void AddMenu(std::u16string_view text) {
    const WindowPtr window = objects.CurrentWindow;
    if (window == nullptr) return;
    const std::u16string caption = EvalText(text).Text();
    if (!window->hasMenuBar) {
        window->hasMenuBar = true;
        ++objects.MenuCount;
    }
    window->openMenus.clear();
    AddLevel(*window, caption);
}

void AddSubMenu(std::u16string_view text) {
    const WindowPtr window = objects.CurrentWindow;
    const std::u16string_view trimmed = Trim(text);
    if (window == nullptr || window->openMenus.empty()) return;
    if (!trimmed.empty() && IsUp(trimmed.front())) {
        for (std::size_t i = 0; i < trimmed.size() && IsUp(trimmed[i]); ++i) {
            if (!window->openMenus.empty()) window->openMenus.pop_back();
        }
        return;
    }
    const bool isLevel = !trimmed.empty() && IsDown(trimmed.front());
    std::u16string caption = EvalText(trimmed.substr(isLevel ? 1 : 0)).Text();
    if (isLevel) {
        AddLevel(*window, std::move(caption));
    } else {
        Add(*window, std::move(caption), false);
    }
}

Value MenuProperty(bool isGet, const PropertyRecord& record) {
    std::u16string_view key;
    std::u16string_view word;
    if (!CutAtLastOf(record.Name, key, word)) {
        RaiseMessage(kNoItemText, kNoItemNumber, kIconInformation, u"", u"", -1);
        return Value();
    }
    const WindowPtr window = objects.CurrentWindow;
    xxMenuCls* entry = window == nullptr ? nullptr : FindByKey(*window, Trim(key));
    if (entry == nullptr) {
        RaiseError(kNoSuchItem, kIconWarning, key, u"", -1);
        return Value();
    }
    bool* flag = FlagOf(*entry, Trim(word));
    if (flag == nullptr && Trim(word) != u"名前") {
        const std::u16string detail = u"「" + entry->Key + u"」に「" + std::u16string(word) + u"」";
        RaiseError(kNoSuchProperty, kIconWarning, detail, u"", -1);
        return Value();
    }
    if (isGet) return flag != nullptr ? Value(BoolText(*flag)) : IdOf(*entry);
    if (flag != nullptr) {
        *flag = NumberOf(record.Text) != 0;
    } else {
        Rename(*entry, record.Text.Text());
    }
    NoteChange(*window);
    return Value();
}

void MenuClick(std::int32_t id, Window& window) {
    const WindowPtr held = window.Self();
    const auto place = static_cast<std::size_t>(id);
    if (id < 0 || id >= kMostMenuIds || place >= window.MenuInfo.size()) return;
    const std::u16string key = window.MenuInfo[place].Key;
    const std::u16string full = window.tag + u"の" + key + u"をクリック";
    if (CallObjectProcedure(full, held) || objects.MenuCount != 1) return;
    if (!CallObjectProcedure(key + u"をクリック", held)) return;
    RaiseMessage(kAdviceText, 0, kIconWarning, full, u"", -1);
}

void RefreshMenus() {
    if (!hasChanges) return;
    hasChanges = false;
    const std::vector<WindowPtr> windows = objects.Windows;
    for (const WindowPtr& window : windows) {
        if (!std::exchange(window->hasChangedMenus, false)) continue;
        Attempt([&] { window->Frame().SetMenus(MenusOf(*window)); });
    }
}

void ResetMenus() { hasChanges = false; }

void CmdPopUpMenu(Statement& statement, Context& /*context*/) {
    const Word place = GetWord(statement, u"で");
    const WindowPtr window = objects.CurrentWindow;
    const std::u16string key(StripPair(statement.WoArg.Text(), u"「", u"」"));
    const xxMenuCls* entry = window == nullptr ? nullptr : FindByKey(*window, key);
    if (entry == nullptr) {
        RaiseError(kNoSuchItem, kIconWarning, key, u"", -1);
        return;
    }
    if (!entry->isSubMenu) return;
    const auto index = static_cast<std::size_t>(entry - window->MenuInfo.data());
    const ScreenPoint point = PopUpPlace(place);
    const MenuEntry menu = EntryOf(*window, index);
    const std::int32_t chosen = window->Frame().PopUpMenu(menu, point.x, point.y);
    if (chosen >= 0) MenuClick(chosen, *window);
}

}  // namespace velm
