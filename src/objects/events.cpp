// What each class of control makes of the events that the toolkit tells.
#include "objects/events.h"

#include <cmath>
#include <utility>

#include "core/event_data.h"
#include "core/run_state.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "objects/create.h"
#include "objects/menus.h"
#include "objects/window_keys.h"

namespace velm {

namespace {

// Where key events of a control go.
enum class Keys : std::uint8_t {
    kNone,
    kWindow,   // to the window alone
    kControl,  // to the control's own procedures, then to the window
};

enum class Clicks : std::uint8_t { kNone, kPlain, kWhileVisible, kOnMouseUp, kFrame };

// What a class has events for. The empty suffix is none.
struct EventClass {
    std::u16string_view kind;  // the word of the procedures' names
    Clicks clicks = Clicks::kNone;
    bool hasDoubleClick = false;
    std::u16string_view change = {};
    std::u16string_view scroll = {};
    bool hasFocus = false;
    bool hasMouse = false;
    Keys keys = Keys::kNone;
    bool hasDrop = false;
};

constexpr std::u16string_view kClick = u"をクリック";
constexpr std::u16string_view kDoubleClick = u"をダブルクリック";
constexpr std::u16string_view kLeftClick = u"を左クリック";
constexpr std::u16string_view kRightClick = u"を右クリック";
constexpr std::u16string_view kChanges = u"が変化";
constexpr std::u16string_view kMoves = u"を移動";
constexpr std::u16string_view kButtonDown = u"でマウスのボタンを下げる";
constexpr std::u16string_view kButtonUp = u"でマウスのボタンを上げる";
constexpr std::u16string_view kMouseMoves = u"でマウスが動く";
constexpr std::u16string_view kEnters = u"に入る";
constexpr std::u16string_view kLeaves = u"を離れる";
constexpr std::u16string_view kKeyDown = u"でキーボードを押す";
constexpr std::u16string_view kKeyUp = u"でキーボードを離す";
constexpr std::u16string_view kTyped = u"に入力";
constexpr std::u16string_view kDropped = u"にドラッグ＆ドロップ";
constexpr std::u16string_view kResized = u"の大きさが変わる";

constexpr EventClass kButtonEvents = {.kind = u"ボタン",
                                      .clicks = Clicks::kPlain,
                                      .hasFocus = true,
                                      .hasMouse = true,
                                      .keys = Keys::kWindow};
constexpr EventClass kTextEvents = {.kind = u"テキスト",
                                    .clicks = Clicks::kPlain,
                                    .hasDoubleClick = true,
                                    .change = kChanges,
                                    .hasFocus = true,
                                    .hasMouse = true,
                                    .keys = Keys::kControl,
                                    .hasDrop = true};
// Kept: a text of several lines tells nothing of the focus.
constexpr EventClass kLinesEvents = {.kind = u"文章テキスト",
                                     .clicks = Clicks::kPlain,
                                     .hasDoubleClick = true,
                                     .change = kChanges,
                                     .hasMouse = true,
                                     .keys = Keys::kControl,
                                     .hasDrop = true};
constexpr EventClass kCheckEvents = {.kind = u"チェック",
                                     .clicks = Clicks::kWhileVisible,
                                     .hasFocus = true,
                                     .hasMouse = true,
                                     .keys = Keys::kControl};
constexpr EventClass kOptionEvents = {.kind = u"オプション",
                                      .clicks = Clicks::kOnMouseUp,
                                      .hasDoubleClick = true,
                                      .hasFocus = true,
                                      .hasMouse = true,
                                      .keys = Keys::kControl};
constexpr EventClass kDropDownEvents = {.kind = u"選択リスト",
                                        .clicks = Clicks::kPlain,
                                        .hasDoubleClick = true,
                                        .change = kChanges,
                                        .hasFocus = true};
constexpr EventClass kEditableEvents = {.kind = u"入力選択リスト",
                                        .clicks = Clicks::kPlain,
                                        .hasDoubleClick = true,
                                        .change = kChanges,
                                        .keys = Keys::kControl};
constexpr EventClass kListEvents = {.kind = u"リスト",
                                    .clicks = Clicks::kPlain,
                                    .hasDoubleClick = true,
                                    .scroll = kMoves,
                                    .hasMouse = true,
                                    .keys = Keys::kControl,
                                    .hasDrop = true};
constexpr EventClass kFolderEvents = {.kind = u"フォルダリスト",
                                      .clicks = Clicks::kPlain,
                                      .scroll = kMoves,
                                      .hasMouse = true,
                                      .keys = Keys::kControl};
constexpr EventClass kDriveEvents = {
    .kind = u"ドライブリスト", .clicks = Clicks::kPlain, .hasFocus = true};
constexpr EventClass kHorizontalEvents = {.kind = u"横スクロールバー",
                                          .change = kClick,
                                          .scroll = kMoves,
                                          .hasFocus = true,
                                          .keys = Keys::kWindow};
constexpr EventClass kVerticalEvents = {.kind = u"縦スクロールバー",
                                        .change = kClick,
                                        .scroll = kMoves,
                                        .hasFocus = true,
                                        .keys = Keys::kWindow};
constexpr EventClass kLabelEvents = {
    .kind = u"ラベル", .clicks = Clicks::kPlain, .hasDoubleClick = true, .hasMouse = true};
constexpr EventClass kImageEvents = {.kind = u"イメージ",
                                     .clicks = Clicks::kPlain,
                                     .hasDoubleClick = true,
                                     .hasMouse = true,
                                     .hasDrop = true};
constexpr EventClass kPictureEvents = {.kind = u"ピクチャー",
                                       .clicks = Clicks::kPlain,
                                       .hasDoubleClick = true,
                                       .hasMouse = true,
                                       .keys = Keys::kWindow,
                                       .hasDrop = true};
constexpr EventClass kFrameEvents = {
    .kind = u"フレーム", .clicks = Clicks::kFrame, .hasDoubleClick = true, .hasMouse = true};
constexpr EventClass kRichTextEvents = {.kind = u"拡張テキスト",
                                        .clicks = Clicks::kPlain,
                                        .hasDoubleClick = true,
                                        .change = kChanges,
                                        .hasFocus = true,
                                        .hasMouse = true,
                                        .keys = Keys::kControl,
                                        .hasDrop = true};

const EventClass* EventsOf(ControlClass which) {
    switch (which) {
        case ControlClass::kButton:
        case ControlClass::kPictureButton: return &kButtonEvents;
        case ControlClass::kText: return &kTextEvents;
        case ControlClass::kMultiLineText:
        case ControlClass::kWrappedText: return &kLinesEvents;
        case ControlClass::kCheck: return &kCheckEvents;
        case ControlClass::kOption: return &kOptionEvents;
        case ControlClass::kDropDown: return &kDropDownEvents;
        case ControlClass::kEditableDropDown: return &kEditableEvents;
        case ControlClass::kList: return &kListEvents;
        case ControlClass::kFolderList: return &kFolderEvents;
        case ControlClass::kDriveList: return &kDriveEvents;
        case ControlClass::kHorizontalScrollBar: return &kHorizontalEvents;
        case ControlClass::kVerticalScrollBar: return &kVerticalEvents;
        case ControlClass::kLabel: return &kLabelEvents;
        case ControlClass::kImage: return &kImageEvents;
        case ControlClass::kPicture: return &kPictureEvents;
        case ControlClass::kFrame: return &kFrameEvents;
        case ControlClass::kRichText: return &kRichTextEvents;
        default: return nullptr;
    }
}

// Kept: a hidden window's checks and sizes tell nothing.
bool IsVisible(Window& window) {
    bool isVisible = false;
    Attempt([&] { isVisible = window.HasControl() && window.GetBool(u"Visible"); });
    return isVisible;
}

// A point in the unit of the object's own surface, or of what it stands in. Kept: a window's events and
// its controls' overwrite each other's.
void StorePoint(Object& object, const ControlEvent& event) {
    const bool hasSurface = object.Canvas() != nullptr;
    Attempt([&] {
        const double units = hasSurface ? object.OwnUnits() : object.ContainerUnits();
        eventData.EventX = ToInt16(event.x * units);
        eventData.EventY = ToInt16(event.y * units);
    });
}

void StoreButton(const ControlEvent& event) {
    eventData.EventButton = MemberToText(static_cast<double>(event.button));
}

void StoreDrop(const ControlEvent& event) {
    eventData.DroppedFiles.clear();
    for (const std::u16string& file : event.files) {
        if (!eventData.DroppedFiles.empty()) eventData.DroppedFiles += u',';
        eventData.DroppedFiles += file;
    }
    if (event.files.empty()) eventData.DroppedFiles = event.text;
}

// An event of one control that is no window. Each step may end the control or its window: both are held
// here, and a window that was closed has no names any more.
class ControlSender {
  public:
    ControlSender(ObjectPtr object, WindowPtr window, const EventClass& events)
        : object_(std::move(object)), window_(std::move(window)), events_(events) {}

    void Dispatch(const ControlEvent& event);

  private:
    ObjectPtr object_;
    WindowPtr window_;
    const EventClass& events_;

    bool Run(std::u16string_view suffix) {
        if (suffix.empty() || window_->IsUnloaded()) return false;
        if (object_->Class() == ControlClass::kRichText) {
            return RunEventEx(*window_, events_.kind, suffix, object_);
        }
        return RunEvent(*window_, events_.kind, object_->Index(), suffix, object_);
    }
    void Click();
    void MouseUp(const ControlEvent& event);
    void Key(const ControlEvent& event, bool isDown);
    void KeyPress(const ControlEvent& event);
    void Mouse(const ControlEvent& event);
    void Drop(const ControlEvent& event);
};

void ControlSender::Click() {
    switch (events_.clicks) {
        case Clicks::kPlain: Run(kClick); break;
        case Clicks::kWhileVisible:
            if (IsVisible(*window_)) Run(kClick);
            break;
        case Clicks::kFrame:
            Run(kClick);
            Run(kLeftClick);
            break;
        default: break;
    }
}

// An option button tells its clicks here, and a frame its left ones with the click.
void ControlSender::MouseUp(const ControlEvent& event) {
    const bool isOption = events_.clicks == Clicks::kOnMouseUp;
    if (event.button == mouse_button::kRight) Run(kRightClick);
    if (event.button == mouse_button::kLeft && events_.clicks != Clicks::kFrame) {
        Run(isOption ? kClick : kLeftClick);
    }
    Run(kButtonUp);
}

void ControlSender::Mouse(const ControlEvent& event) {
    if (!events_.hasMouse || (event.kind == EventKind::kMouseMove && run.StopFlag)) return;
    StorePoint(*object_, event);
    if (event.kind == EventKind::kMouseMove) {
        Run(kMouseMoves);
        return;
    }
    StoreButton(event);
    if (event.kind == EventKind::kMouseDown) {
        Run(kButtonDown);
    } else {
        MouseUp(event);
    }
}

void ControlSender::Key(const ControlEvent& event, bool isDown) {
    if (events_.keys == Keys::kNone) return;
    eventData.EventKey = KeyName(event.code, event.shift);
    if (events_.keys == Keys::kControl) Run(isDown ? kKeyDown : kKeyUp);
    if (window_->IsUnloaded()) return;
    if (isDown) {
        Form_KeyDown(*window_, event.code, event.shift);
    } else {
        Form_KeyUp(*window_, event.code, event.shift);
    }
}

void ControlSender::KeyPress(const ControlEvent& event) {
    if (events_.keys != Keys::kControl) return;
    eventData.EventKey = event.text;
    Run(u"に" + event.text + u"を入力");
    Run(kTyped);
}

void ControlSender::Drop(const ControlEvent& event) {
    if (!events_.hasDrop) return;
    StoreDrop(event);
    if (object_->Class() == ControlClass::kRichText) {
        DeferDrop(object_);
    } else {
        Run(kDropped);
    }
}

void ControlSender::Dispatch(const ControlEvent& event) {
    switch (event.kind) {
        case EventKind::kClick: Click(); break;
        case EventKind::kDoubleClick:
            if (events_.hasDoubleClick) Run(kDoubleClick);
            break;
        case EventKind::kChange: Run(events_.change); break;
        case EventKind::kScroll: Run(events_.scroll); break;
        case EventKind::kMouseDown:
        case EventKind::kMouseMove:
        case EventKind::kMouseUp: Mouse(event); break;
        case EventKind::kKeyDown: Key(event, true); break;
        case EventKind::kKeyUp: Key(event, false); break;
        case EventKind::kKeyPress: KeyPress(event); break;
        case EventKind::kFocusIn:
            if (events_.hasFocus) Run(kEnters);
            break;
        case EventKind::kFocusOut:
            if (events_.hasFocus) Run(kLeaves);
            break;
        case EventKind::kResize:
            if (object_->Class() == ControlClass::kPicture) Run(kResized);
            break;
        case EventKind::kDrop: Drop(event); break;
        default: break;
    }
}

// Kept: a timer that fires within its own procedure is passed over, but only until another one has ended.
void RunTimer(const WindowPtr& window, std::int32_t index) {
    if (index != 0 && window->TimerInEvent == index) return;
    window->TimerInEvent = static_cast<std::int16_t>(index);
    const StatementPtr statement = run.CurrentStatement;
    const std::u16string kind = u"タイマー" + MemberToText(static_cast<double>(index));
    RunEvent(*window, kind, 0, u"が時間になった", window);
    run.CurrentStatement = statement;
    window->TimerInEvent = 0;
}

void WindowMouse(Window& window, const ControlEvent& event) {
    StorePoint(window, event);
    if (event.kind == EventKind::kMouseMove) {
        WindowEvent(window, kMouseMoves);
        return;
    }
    StoreButton(event);
    if (event.kind == EventKind::kMouseDown) {
        WindowEvent(window, kButtonDown);
        return;
    }
    if (event.button == mouse_button::kLeft) WindowEvent(window, kLeftClick);
    if (event.button == mouse_button::kRight) WindowEvent(window, kRightClick);
    WindowEvent(window, kButtonUp);
}

// Kept: only when no other procedure took the drop, the list of the files is made.
void WindowDrop(const WindowPtr& window, const ControlEvent& event) {
    if (!event.files.empty()) eventData.DroppedFiles = event.files.front();
    const bool plain = CallObjectProcedure(u"ドラッグ＆ドロップされた", window);
    const bool told = WindowEvent(*window, u"にドラッグ＆ドロップされた");
    if (plain || told) return;
    StoreDrop(event);
    WindowEvent(*window, kDropped);
}

// Whether the window stays open.
bool StaysOpen(const WindowPtr& window, const ControlEvent& event) {
    CloseWindow(window, event.byUser);
    return !window->IsUnloaded();
}

bool DispatchToWindow(const WindowPtr& window, const ControlEvent& event) {
    switch (event.kind) {
        case EventKind::kClick: WindowEvent(*window, kClick); break;
        case EventKind::kDoubleClick: WindowEvent(*window, kDoubleClick); break;
        case EventKind::kMouseDown:
        case EventKind::kMouseMove:
        case EventKind::kMouseUp: WindowMouse(*window, event); break;
        case EventKind::kKeyDown:
            eventData.EventKey = KeyName(event.code, event.shift);
            Form_KeyDown(*window, event.code, event.shift);
            break;
        case EventKind::kKeyUp:
            eventData.EventKey = KeyName(event.code, event.shift);
            Form_KeyUp(*window, event.code, event.shift);
            break;
        case EventKind::kResize:
            if (IsVisible(*window)) WindowEvent(*window, kResized);
            break;
        case EventKind::kDragOver: return true;
        case EventKind::kDrop: WindowDrop(window, event); break;
        case EventKind::kClosing: return StaysOpen(window, event);
        case EventKind::kMenu: MenuClick(event.code, *window); break;
        default: break;
    }
    return false;
}

void DispatchToTurtle(const ObjectPtr& turtle, const ControlEvent& event) {
    if (event.kind == EventKind::kClick) CallObjectProcedure(u"クリック", turtle);
    if (event.kind == EventKind::kDoubleClick) CallObjectProcedure(u"ダブルクリック", turtle);
}

}  // namespace

bool DispatchEvent(const ObjectPtr& object, const ControlEvent& event) {
    if (object->IsWindow())
        return DispatchToWindow(std::static_pointer_cast<Window>(object), event);
    const WindowPtr window = object->Owner();
    if (window == nullptr) return false;
    if (object->Class() == ControlClass::kTurtle) {
        DispatchToTurtle(object, event);
        return false;
    }
    if (object->Class() == ControlClass::kTimer) {
        if (event.kind == EventKind::kTimer) RunTimer(window, object->Index());
        return false;
    }
    const EventClass* events = EventsOf(object->Class());
    if (events == nullptr) return false;
    if (event.kind == EventKind::kDragOver) return events->hasDrop;
    ControlSender(object, window, *events).Dispatch(event);
    return false;
}

}  // namespace velm
