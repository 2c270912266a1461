// Objects: what a script reaches by name: windows, the controls on them, dialogs, printers, drives and
// plug-in objects. An object joins what the runtime keeps about it (name, number, owner) with the member
// surface that does the work. Members that need no toolkit are served here: place and size in the unit
// of the container, the drawing surface, the tag. The others go to the toolkit.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/value.h"
#include "platform/toolkit.h"

namespace velm {

class ObjectCanvas;
class Window;
class Object;
using ObjectPtr = std::shared_ptr<Object>;
using WindowPtr = std::shared_ptr<Window>;

// The numbers of a scale mode: in which unit a container's lengths are told.
namespace scale_mode {
constexpr std::int32_t kLayoutUnit = 1;  // 15 to a pixel
constexpr std::int32_t kPoint = 2;
constexpr std::int32_t kPixel = 3;
constexpr std::int32_t kMillimetre = 6;
constexpr std::int32_t kCentimetre = 7;
}  // namespace scale_mode

// Units of a scale mode in one pixel, at 96 pixels an inch. Throws Failure(5) for another number.
double UnitsInPixel(std::int32_t scaleMode);

class Object : public std::enable_shared_from_this<Object>, public ControlListener {
  public:
    // `name` and `index` are the members Name and Index: the control array and the element in it, or the
    // run-time control and -1. `owner` is nullptr for what is on no window.
    Object(ControlClass which, std::u16string name, std::int32_t index, const WindowPtr& owner);
    ~Object() override;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    ControlClass Class() const { return class_; }
    bool IsWindow() const { return class_ == ControlClass::kWindow; }
    const std::u16string& Name() const { return name_; }
    std::int32_t Index() const { return index_; }
    // A number of its own, never used again in this process.
    std::uint64_t Identity() const { return identity_; }
    // The window that the object stands on; of a window itself; nullptr for what is on none.
    WindowPtr Owner() const;
    // The window, frame or picture that it stands in; nullptr for a window.
    ObjectPtr Container() const;

    // The late-bound surface. Throws Failure(438) for an unknown member, 340 once the object is unloaded.
    // Text answers and texts as values are the usual case, so there are short forms.
    MemberValue Get(std::u16string_view member, const MemberArguments& arguments = {});
    void Set(std::u16string_view member, const MemberValue& value,
             const MemberArguments& arguments = {});
    MemberValue Call(std::u16string_view member, const MemberArguments& arguments = {});
    std::u16string GetText(std::u16string_view member) { return MemberToText(Get(member)); }
    double GetNumber(std::u16string_view member) { return MemberToNumber(Get(member)); }
    bool GetBool(std::u16string_view member) { return MemberToBool(Get(member)); }

    // Moves the object into another container; its place there is what its place was.
    void SetContainer(const ObjectPtr& container);
    // Place and size in pixels within the container, the frame on the screen of a window.
    PixelBox Geometry();
    void SetGeometry(const PixelBox& box);
    // Units of the container in a pixel: what Left and Width of this object are told in.
    double ContainerUnits() const;
    // Units of its own surface in a pixel, for what stands in it and for mouse events.
    double OwnUnits() const;

    // The drawing surface of a window or picture; nullptr for others.
    ObjectCanvas* Canvas() { return canvas_.get(); }
    // The picture shown by a control that is no drawing surface, and of a turtle, which faces up until
    // it gets another one.
    void SetPicture(const Pixmap& picture);
    const Pixmap& Picture() const;
    // The file that the picture came from.
    std::u16string pictureFile;
    std::u16string tag;       // member Tag
    bool isTemplate = false;  // element 0 of an array: never shown, never unloaded by a script

    // The toolkit's control, made at the first need. Throws Failure when there is no toolkit.
    ToolkitControl& Control();
    // Whether the toolkit has made it yet.
    bool HasControl() const { return control_ != nullptr; }
    // Gives the object a surface that is no control: dialogs, printer, drive.
    void SetSurface(std::unique_ptr<MemberSurface> surface);

    // Takes the object off the screen; what others still hold of it answers 340 from then on.
    virtual void Unload();
    bool IsUnloaded() const { return isUnloaded_; }

    bool OnEvent(const ControlEvent& event) override;

  protected:
    // Makes the toolkit's control in its first look. Throws Failure.
    virtual std::unique_ptr<ToolkitControl> MakeControl();

    std::unique_ptr<ToolkitControl> control_;
    std::unique_ptr<ObjectCanvas> canvas_;

  private:
    // What serves a member that isn't served here.
    MemberSurface& Outside();
    bool GetOwn(std::u16string_view member, MemberValue& value);
    bool SetOwn(std::u16string_view member, const MemberValue& value);
    bool CallOwn(std::u16string_view member, const MemberArguments& arguments);
    bool HasPlace() const;
    std::int32_t PixelsOf(const MemberValue& value) const;
    void SetSide(std::u16string_view member, const MemberValue& value);
    void Move(const MemberArguments& arguments);
    void LeaveWindow();

    ControlClass class_;
    std::u16string name_;
    std::int32_t index_;
    std::uint64_t identity_;
    std::weak_ptr<Window> owner_;
    std::weak_ptr<Object> container_;
    std::unique_ptr<MemberSurface> surface_;
    std::optional<Pixmap> picture_;
    PixelBox box_;  // while there is no control
    bool isUnloaded_ = false;
};

// A key of a name table: letter case and width ignored.
std::u16string ObjectKey(std::u16string_view name);

// An entry of a window's menus; see menus.h.
struct xxMenuCls {
    std::int32_t Id = 0;
    std::u16string Caption;
    std::u16string Key;   // captions of the open levels, joined by の
    std::u16string text;  // as given, with the label of a shortcut behind a tab
    bool Checked = false;
    bool Enabled = true;
    bool Visible = true;
    bool isSubMenu = false;
    bool isSeparator = false;
    std::int32_t parent = -1;  // place in MenuInfo of the sub-menu that it stands in; -1: the bar
};

class Window : public Object {
  public:
    Window();

    ToolkitWindow& Frame() { return static_cast<ToolkitWindow&>(Control()); }
    WindowPtr Self() { return std::static_pointer_cast<Window>(shared_from_this()); }

    // Name to control, and identity to the name under which an object was registered.
    std::unordered_map<std::u16string, ObjectPtr> CollObj;
    std::unordered_map<std::uint64_t, std::u16string> CollObAlias;
    std::unordered_map<std::uint64_t, std::u16string> CollObjType;
    // Per-window settings by key: 種類, 透明度, 最前面, 初期状態, and the highest number of each run-time
    // kind.
    std::unordered_map<std::u16string, Value> Prop;
    std::u16string WindowType;  // the kind word with which it was made

    // Every control on the window in the order of creation, templates and turtle among them.
    std::vector<ObjectPtr> Controls;
    // The element of an array; nullptr when it isn't loaded.
    ObjectPtr Element(std::u16string_view array, std::int32_t index) const;
    // The control of a name of its own; nullptr when there is none.
    ObjectPtr RunTimeControl(std::u16string_view name) const;
    // The turtle's picture, element 0 of MainIcon.
    ObjectPtr MainIcon() const;

    std::int16_t TimerInEvent = 0;
    bool RgnFlag = false;    // a window with a shape
    bool isShown = false;    // it was shown once; hiding it changes nothing here
    bool isClosing = false;  // its closing procedure runs

    std::vector<xxMenuCls> MenuInfo;  // in the order of the entries
    std::vector<std::int32_t>
        openMenus;  // places in MenuInfo of the levels that new entries go into
    bool hasMenuBar = false;
    bool hasChangedMenus = false;  // the toolkit shows older ones

    void Unload() override;

  protected:
    std::unique_ptr<ToolkitControl> MakeControl() override;
};

// Everything process-wide about objects; InitObjectSystem sets it to what a run starts with.
struct ObjectState {
    std::unordered_map<std::u16string, ObjectPtr> ObjectTable;  // by ObjectKey
    std::unordered_map<std::u16string, std::u16string> PluginClassTable;
    WindowPtr FirstWindow;  // ウィンドウ０
    WindowPtr CurrentWindow;
    ObjectPtr ThatObject;
    ObjectPtr ThisObject;
    ObjectPtr SavedThisObject;
    ObjectPtr DrawTarget;
    ObjectPtr TurtleObject;
    std::int32_t WindowCount = 1;
    // 閉じない was said: the close by the user that is under way, or the next one, is cancelled.
    bool KeepOpen = false;
    bool HostedMode = false;
    // Every window that is loaded, the first one in front.
    std::vector<WindowPtr> Windows;
    ObjectPtr Dialogs;  // 選択ウィンドウ, made at its first use
    ObjectPtr Printer;
    std::int32_t MenuCount = 0;  // menu bars made in the run
};

extern ObjectState objects;

// Drops what the state holds of an object that is being unloaded. A window takes the place of a current
// one that goes.
void ForgetObject(const Object& object);

// Sets a member of ObjectState together with what the drawing commands see of it. An object that was
// unloaded isn't taken.
void SetCurrentWindow(const WindowPtr& window);
void SetDrawTarget(const ObjectPtr& target);
void SetTurtleObject(const ObjectPtr& turtle);

}  // namespace velm
