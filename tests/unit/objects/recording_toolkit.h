// A toolkit without a display: windows and controls hold their members in a map, know which members
// their class has, note what is asked of them, and let a test tell of events.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/failure.h"
#include "objects/object.h"
#include "platform/picture_target.h"
#include "platform/toolkit.h"
#include "unit/recorded_dialogs.h"

namespace velm {

class RecordingToolkit;

// The members of one recorded object. Names are kept in upper case.
class RecordedMembers {
  public:
    RecordedMembers(RecordingToolkit& toolkit, ControlClass which, std::u16string label);

    MemberValue Get(std::u16string_view member, const MemberArguments& arguments);
    void Set(std::u16string_view member, const MemberValue& value,
             const MemberArguments& arguments);
    MemberValue Call(std::u16string_view member, const MemberArguments& arguments);
    // Adds a line to the toolkit's notes: the label, then what was done.
    void Note(std::u16string_view what);

    const ControlClass which;
    // The class and the number of its creation: Window1, Button2.
    const std::u16string label;
    std::map<std::u16string, MemberValue> members;
    std::vector<std::u16string> items;  // of a list or drop-down
    // Members that fail with this number when they are set or called.
    std::map<std::u16string, int> failures;

  protected:
    RecordingToolkit& toolkit_;

  private:
    bool hasItems_;

    void FailIfAsked(const std::u16string& member) const;
    void CheckKnown(const std::u16string& member) const;
    bool CallOfList(const std::u16string& member, const MemberArguments& arguments);
    MemberValue ItemAt(const MemberArguments& arguments) const;
    void SelectItem(const MemberValue& value);
};

// What windows and controls have in common; Base is the interface.
template <class Base>
class RecordedBase : public Base, public RecordedMembers {
  public:
    RecordedBase(RecordingToolkit& toolkit, ControlClass itsClass, std::u16string name,
                 ControlListener& itsListener)
        : RecordedMembers(toolkit, itsClass, std::move(name)), listener(&itsListener) {}

    MemberValue Get(std::u16string_view member, const MemberArguments& arguments) override {
        return RecordedMembers::Get(member, arguments);
    }
    void Set(std::u16string_view member, const MemberValue& value,
             const MemberArguments& arguments) override {
        RecordedMembers::Set(member, value, arguments);
    }
    MemberValue Call(std::u16string_view member, const MemberArguments& arguments) override {
        return RecordedMembers::Call(member, arguments);
    }
    PixelBox Geometry() const override { return box; }
    void SetGeometry(const PixelBox& to) override;
    void SetContainer(ToolkitControl& to) override {
        container = &to;
        Note(u"SetContainer");
    }
    void SetPicture(const Pixmap& to) override;
    void SetCanvas(CanvasImage* to) override {
        canvas = to;
        if (canvas != nullptr) ResizeCanvas();
    }
    // As a toolkit does when the object has another size.
    virtual void ResizeCanvas() {
        if (canvas != nullptr) canvas->Resize(box.width, box.height);
    }

    ControlListener* listener;
    PixelBox box;
    ToolkitControl* container = nullptr;
    Pixmap picture;
    CanvasImage* canvas = nullptr;
};

class RecordedControl : public RecordedBase<ToolkitControl> {
  public:
    using RecordedBase::RecordedBase;
    ~RecordedControl() override;
};

class RecordedWindow : public RecordedBase<ToolkitWindow> {
  public:
    using RecordedBase::RecordedBase;
    ~RecordedWindow() override;

    // The frame adds 4 pixels at the left, right and bottom and 24 at the top.
    static constexpr std::int32_t kFrameWidth = 8;
    static constexpr std::int32_t kFrameHeight = 28;

    std::int32_t ClientWidth() const override { return box.width - kFrameWidth; }
    std::int32_t ClientHeight() const override { return box.height - kFrameHeight; }
    void SetClientSize(std::int32_t width, std::int32_t height) override;
    void ResizeCanvas() override {
        if (canvas != nullptr) canvas->Resize(ClientWidth(), ClientHeight());
    }
    void SetShape(const Pixmap& mask) override;
    void SetMenus(const std::vector<MenuEntry>& to) override;
    std::int32_t PopUpMenu(const MenuEntry& menu, std::int32_t x, std::int32_t y) override;
    ToolkitControl* ActiveControl() const override { return activeControl; }

    Pixmap shape;
    std::vector<MenuEntry> menus;
    std::vector<MenuEntry> poppedUp;
    PixelBox popUpPlace;
    std::int32_t popUpAnswer = -1;
    ToolkitControl* activeControl = nullptr;
};

class RecordedSurface : public MemberSurface, public RecordedMembers {
  public:
    using RecordedMembers::RecordedMembers;

    MemberValue Get(std::u16string_view member, const MemberArguments& arguments) override {
        return RecordedMembers::Get(member, arguments);
    }
    void Set(std::u16string_view member, const MemberValue& value,
             const MemberArguments& arguments) override {
        RecordedMembers::Set(member, value, arguments);
    }
    MemberValue Call(std::u16string_view member, const MemberArguments& arguments) override {
        return RecordedMembers::Call(member, arguments);
    }
};

class RecordedPrinter : public RecordedSurface, public PictureTarget {
  public:
    using RecordedSurface::RecordedSurface;

    void PaintPicture(const Pixmap& picture, double left, double top, double width,
                      double height) override;
};

class RecordingToolkit : public Toolkit, public TrayIcon {
  public:
    std::unique_ptr<ToolkitWindow> MakeWindow(ControlListener& listener) override;
    std::unique_ptr<ToolkitControl> MakeControl(ControlClass which, ToolkitWindow& window,
                                                ControlListener& listener) override;
    std::unique_ptr<MemberSurface> MakeDialogs() override;
    std::unique_ptr<MemberSurface> MakePrinter() override;
    TrayIcon& Tray() override { return *this; }
    ToolkitWindow* ActiveWindow() override { return activeWindow; }
    PixelBox WorkArea() override { return workArea; }
    std::uint32_t SystemColor(std::int32_t number) override;
    Pixmap LoadPicture(const std::u16string& path) override;
    Pixmap LoadIcon(const std::u16string& path, std::int32_t index, bool isSmall) override;
    void Pump() override;

    void Show(const Pixmap& icon, const std::u16string& tip) override;
    void SetIcon(const Pixmap& icon) override;
    void SetTip(const std::u16string& tip) override;
    void ShowBalloon(const std::u16string& title, const std::u16string& text,
                     std::int32_t icon) override;
    void Hide() override;

    // The next label of a class.
    std::u16string NextLabel(std::u16string_view className);
    // Forgets the notes and the numbers of the labels.
    void StartNotes() {
        notes.clear();
        counts_.clear();
    }
    // Whether a note of exactly this text is there.
    bool HasNote(std::u16string_view note) const;

    // What was asked, in order: "make Button1", "Button1.Caption=Start", "Button1.SetFocus",
    // "Button1.Move 10,20,65,25", "end Button1".
    std::vector<std::u16string> notes;
    // What is there now, in the order of creation.
    std::vector<RecordedWindow*> windows;
    std::vector<RecordedControl*> controls;
    RecordedSurface* dialogs = nullptr;
    RecordedSurface* printer = nullptr;
    ToolkitWindow* activeWindow = nullptr;
    PixelBox workArea = {0, 0, 1024, 768};
    // Colours of the desktop that differ from those in force.
    std::map<std::int32_t, std::uint32_t> systemColors;
    int pumps = 0;
    // Called by the next pump, and taken away by it: where a test tells of events.
    std::vector<void (*)()> atPump;
    // Called by the members Show of windows and ShowOpen … of the dialogs.
    void (*whenCalled)(RecordedMembers& object, std::u16string_view member) = nullptr;
    // Files that can be loaded as a picture or icon. Others fail with this number.
    std::map<std::u16string, Pixmap> pictures;
    int pictureFailure = 53;
    bool hasTrayIcon = false;
    std::u16string trayTip;
    std::u16string balloon;

  private:
    std::map<std::u16string, int> counts_;
};

template <class Base>
void RecordedBase<Base>::SetGeometry(const PixelBox& to) {
    box = to;
    ResizeCanvas();
    Note(u"Move " + MemberToText(static_cast<double>(to.left)) + u"," +
         MemberToText(static_cast<double>(to.top)) + u"," +
         MemberToText(static_cast<double>(to.width)) + u"," +
         MemberToText(static_cast<double>(to.height)));
}

template <class Base>
void RecordedBase<Base>::SetPicture(const Pixmap& to) {
    picture = to;
    Note(u"SetPicture " + MemberToText(static_cast<double>(to.width)) + u"x" +
         MemberToText(static_cast<double>(to.height)));
}

// Puts a recording toolkit in force while it lives, and starts with a fresh run and object system.
class InstallRecordingToolkit {
  public:
    InstallRecordingToolkit();
    ~InstallRecordingToolkit();
    InstallRecordingToolkit(const InstallRecordingToolkit&) = delete;
    InstallRecordingToolkit& operator=(const InstallRecordingToolkit&) = delete;

    RecordedDialogs dialogs;
    RecordingToolkit toolkit;
};

// The recorded side of an object; its control is made when there is none yet.
RecordedControl& Recorded(Object& object);
RecordedWindow& Recorded(Window& window);
// Tells the object's listener of an event, as the toolkit would; the listener's answer.
bool Fire(Object& object, const ControlEvent& event);
bool Fire(Object& object, EventKind kind);

// Runs a script as a program whose run goes on behind its end: windows and tables stay for the test.
void RunLines(std::u16string_view source);

}  // namespace velm
