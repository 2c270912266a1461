// See recording_toolkit.h.
#include "unit/objects/recording_toolkit.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/hooks.h"
#include "core/run_state.h"
#include "core/velm.h"
#include "data/failure.h"
#include "data/width.h"
#include "graphics/colors.h"
#include "objects/create.h"
#include "objects/object_system.h"
#include "unit/objects/recorded_classes.h"

namespace velm {

namespace {

RecordingToolkit* inForce = nullptr;

Toolkit* Start() { return inForce; }

bool IsListClass(ControlClass which) {
    return which == ControlClass::kList || which == ControlClass::kDropDown ||
           which == ControlClass::kEditableDropDown;
}

std::u16string TextOf(std::int32_t number) { return MemberToText(static_cast<double>(number)); }

template <class Thing>
void Forget(std::vector<Thing*>& things, const Thing* gone) {
    things.erase(std::remove(things.begin(), things.end(), gone), things.end());
}

}  // namespace

RecordedMembers::RecordedMembers(RecordingToolkit& toolkit, ControlClass itsClass,
                                 std::u16string itsLabel)
    : which(itsClass),
      label(std::move(itsLabel)),
      members(RecordedDefaults(itsClass)),
      toolkit_(toolkit),
      hasItems_(IsListClass(itsClass)) {}

void RecordedMembers::Note(std::u16string_view what) {
    toolkit_.notes.push_back(label + u"." + std::u16string(what));
}

void RecordedMembers::FailIfAsked(const std::u16string& member) const {
    const auto asked = failures.find(member);
    if (asked != failures.end()) throw Failure(asked->second);
}

void RecordedMembers::CheckKnown(const std::u16string& member) const {
    if (!members.contains(member)) throw Failure(failure::kNoSuchMember);
}

MemberValue RecordedMembers::ItemAt(const MemberArguments& arguments) const {
    const std::int32_t at = arguments.empty() ? 0 : MemberToInt(arguments[0]);
    const bool isThere = at >= 0 && static_cast<std::size_t>(at) < items.size();
    return isThere ? items[static_cast<std::size_t>(at)] : std::u16string();
}

MemberValue RecordedMembers::Get(std::u16string_view member, const MemberArguments& arguments) {
    const std::u16string name = ToUpper(member);
    CheckKnown(name);
    if (hasItems_ && name == u"LISTCOUNT") return static_cast<double>(items.size());
    if (hasItems_ && name == u"LIST") return ItemAt(arguments);
    if (arguments.empty()) return members[name];
    const auto element = members.find(name + u"(" + MemberToText(arguments[0]) + u")");
    return element != members.end() ? element->second : members[name];
}

void RecordedMembers::SelectItem(const MemberValue& value) {
    const std::int32_t at = MemberToInt(value);
    if (at < -1 || at >= static_cast<std::int32_t>(items.size())) {
        throw Failure(failure::kBadCall);
    }
    members[u"TEXT"] = at < 0 ? std::u16string() : items[static_cast<std::size_t>(at)];
}

void RecordedMembers::Set(std::u16string_view member, const MemberValue& value,
                          const MemberArguments& arguments) {
    std::u16string name = ToUpper(member);
    FailIfAsked(name);
    CheckKnown(name);
    if (hasItems_ && name == u"LISTINDEX") SelectItem(value);
    const MemberValue& old = members[name];
    if (!arguments.empty()) name += u"(" + MemberToText(arguments[0]) + u")";
    MemberValue stored = value;
    if (std::holds_alternative<bool>(old)) {
        stored = MemberToBool(value);
    } else if (std::holds_alternative<double>(old)) {
        stored = MemberToNumber(value);
    } else {
        stored = MemberToText(value);
    }
    members[name] = stored;
    Note(std::u16string(member) + u"=" + MemberToText(stored));
}

bool RecordedMembers::CallOfList(const std::u16string& member, const MemberArguments& arguments) {
    if (!hasItems_) return false;
    if (member == u"CLEAR") {
        items.clear();
        members[u"LISTINDEX"] = -1.0;
    } else if (member == u"ADDITEM") {
        const auto count = static_cast<std::int32_t>(items.size());
        const std::int32_t at = arguments.size() > 1 ? MemberToInt(arguments[1]) : count;
        if (at < 0 || at > count) throw Failure(failure::kBadCall);
        items.insert(items.begin() + at, MemberToText(arguments.at(0)));
    } else if (member == u"REMOVEITEM") {
        const std::int32_t at = MemberToInt(arguments.at(0));
        if (at < 0 || at >= static_cast<std::int32_t>(items.size())) {
            throw Failure(failure::kBadCall);
        }
        items.erase(items.begin() + at);
    } else {
        return false;
    }
    return true;
}

MemberValue RecordedMembers::Call(std::u16string_view member, const MemberArguments& arguments) {
    const std::u16string name = ToUpper(member);
    FailIfAsked(name);
    if (!IsRecordedCall(which, name)) throw Failure(failure::kNoSuchMember);
    CallOfList(name, arguments);
    std::u16string note(member);
    for (const MemberValue& argument : arguments) note += u" " + MemberToText(argument);
    Note(note);
    if (name == u"SHOW" || name == u"HIDE") members[u"VISIBLE"] = name == u"SHOW";
    if (toolkit_.whenCalled != nullptr) toolkit_.whenCalled(*this, member);
    return {};
}

RecordedControl::~RecordedControl() {
    toolkit_.notes.push_back(u"end " + label);
    Forget(toolkit_.controls, this);
}

RecordedWindow::~RecordedWindow() {
    toolkit_.notes.push_back(u"end " + label);
    Forget(toolkit_.windows, this);
    if (toolkit_.activeWindow == this) toolkit_.activeWindow = nullptr;
}

void RecordedWindow::SetClientSize(std::int32_t width, std::int32_t height) {
    box.width = width + kFrameWidth;
    box.height = height + kFrameHeight;
    ResizeCanvas();
    Note(u"SetClientSize " + TextOf(width) + u"," + TextOf(height));
    ControlEvent event;
    event.kind = EventKind::kResize;
    listener->OnEvent(event);
}

void RecordedWindow::SetShape(const Pixmap& mask) {
    shape = mask;
    Note(u"SetShape");
}

void RecordedWindow::SetMenus(const std::vector<MenuEntry>& to) {
    menus = to;
    Note(u"SetMenus");
}

std::int32_t RecordedWindow::PopUpMenu(const MenuEntry& menu, std::int32_t x, std::int32_t y) {
    poppedUp.push_back(menu);
    popUpPlace = {x, y, 0, 0};
    Note(u"PopUpMenu " + TextOf(x) + u"," + TextOf(y));
    return popUpAnswer;
}

void RecordedPrinter::PaintPicture(const Pixmap& picture, double left, double top, double width,
                                   double height) {
    Note(u"PaintPicture " + TextOf(picture.width) + u"x" + TextOf(picture.height) + u" " +
         MemberToText(left) + u"," + MemberToText(top) + u"," + MemberToText(width) + u"," +
         MemberToText(height));
}

std::u16string RecordingToolkit::NextLabel(std::u16string_view className) {
    std::u16string label(className);
    return label + TextOf(++counts_[label]);
}

bool RecordingToolkit::HasNote(std::u16string_view note) const {
    return std::find(notes.begin(), notes.end(), note) != notes.end();
}

std::unique_ptr<ToolkitWindow> RecordingToolkit::MakeWindow(ControlListener& listener) {
    auto window = std::make_unique<RecordedWindow>(*this, ControlClass::kWindow,
                                                   NextLabel(u"Window"), listener);
    window->box = {0, 0, 400 + RecordedWindow::kFrameWidth, 300 + RecordedWindow::kFrameHeight};
    notes.push_back(u"make " + window->label);
    windows.push_back(window.get());
    return window;
}

std::unique_ptr<ToolkitControl> RecordingToolkit::MakeControl(ControlClass which,
                                                              ToolkitWindow& window,
                                                              ControlListener& listener) {
    auto control = std::make_unique<RecordedControl>(*this, which,
                                                     NextLabel(RecordedClassName(which)), listener);
    control->container = &window;
    notes.push_back(u"make " + control->label);
    controls.push_back(control.get());
    return control;
}

std::unique_ptr<MemberSurface> RecordingToolkit::MakeDialogs() {
    auto surface =
        std::make_unique<RecordedSurface>(*this, ControlClass::kDialogs, NextLabel(u"Dialogs"));
    dialogs = surface.get();
    return surface;
}

std::unique_ptr<MemberSurface> RecordingToolkit::MakePrinter() {
    auto surface =
        std::make_unique<RecordedPrinter>(*this, ControlClass::kPrinter, NextLabel(u"Printer"));
    printer = surface.get();
    return surface;
}

Pixmap RecordingToolkit::LoadPicture(const std::u16string& path) {
    notes.push_back(u"LoadPicture " + path);
    const auto found = pictures.find(path);
    if (found == pictures.end()) throw Failure(pictureFailure);
    return found->second;
}

Pixmap RecordingToolkit::LoadIcon(const std::u16string& path, std::int32_t index, bool isSmall) {
    notes.push_back(u"LoadIcon " + path + u"," + TextOf(index) + (isSmall ? u",small" : u",large"));
    const auto found = pictures.find(path);
    if (found == pictures.end()) throw Failure(pictureFailure);
    return found->second;
}

std::uint32_t RecordingToolkit::SystemColor(std::int32_t number) {
    const auto own = systemColors.find(number);
    if (own != systemColors.end()) return own->second;
    return PixelOfColor(std::numeric_limits<std::int32_t>::min() + number);
}

void RecordingToolkit::Pump() {
    ++pumps;
    if (atPump.empty()) return;
    void (*const next)() = atPump.front();
    atPump.erase(atPump.begin());
    next();
}

void RecordingToolkit::Show(const Pixmap& /*icon*/, const std::u16string& tip) {
    hasTrayIcon = true;
    trayTip = tip;
    notes.push_back(u"Tray.Show " + tip);
}

void RecordingToolkit::SetIcon(const Pixmap& /*icon*/) { notes.push_back(u"Tray.SetIcon"); }

void RecordingToolkit::SetTip(const std::u16string& tip) {
    trayTip = tip;
    notes.push_back(u"Tray.SetTip " + tip);
}

void RecordingToolkit::ShowBalloon(const std::u16string& title, const std::u16string& text,
                                   std::int32_t icon) {
    balloon = text;
    notes.push_back(u"Tray.ShowBalloon " + title + u"/" + text + u"/" + TextOf(icon));
}

void RecordingToolkit::Hide() {
    hasTrayIcon = false;
    notes.push_back(u"Tray.Hide");
}

InstallRecordingToolkit::InstallRecordingToolkit() {
    TheEngine();
    InstallObjectSystem();
    inForce = &toolkit;
    SetToolkitStarter(Start);
    Programs.assign(1, ProgramPtr(new Program));
    ResetRunState();
    pendingFailure.Clear();
}

// What the test made must go before its toolkit does.
InstallRecordingToolkit::~InstallRecordingToolkit() {
    ResetRunState();
    objects.FirstWindow->Unload();
    SetToolkitStarter(nullptr);
    InitObjectSystem();
    inForce = nullptr;
    hooks = Hooks();
    Programs.clear();
    run.Status = RunStatus::kIdle;
    pendingFailure.Clear();
}

RecordedControl& Recorded(Object& object) {
    return dynamic_cast<RecordedControl&>(object.Control());
}

RecordedWindow& Recorded(Window& window) { return dynamic_cast<RecordedWindow&>(window.Control()); }

bool Fire(Object& object, const ControlEvent& event) {
    ControlListener* listener = object.IsWindow() ? Recorded(static_cast<Window&>(object)).listener
                                                  : Recorded(object).listener;
    return listener->OnEvent(event);
}

bool Fire(Object& object, EventKind kind) {
    ControlEvent event;
    event.kind = kind;
    return Fire(object, event);
}

void RunLines(std::u16string_view source) { TheEngine().Run(source, u"", true); }

}  // namespace velm
