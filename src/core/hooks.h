// The few places where the core reaches upward: the object system, the media layer and the platform's
// event queue put their functions here. A hook that nobody set finds nothing, and the sentence or word
// falls through, as it does for anything unknown.
#pragma once

#include <string>
#include <string_view>

#include "data/value.h"

namespace velm {

struct Statement;

struct Hooks {
    // Reads the property that a path names. Returns whether it is one.
    bool (*GetProperty)(std::u16string_view path, std::u16string_view arguments,
                        Value& value) = nullptr;
    // Whether a path names an object's property; says and creates nothing.
    bool (*IsProperty)(std::u16string_view path) = nullptr;
    void (*SetProperty)(std::u16string_view path, Statement& statement) = nullptr;
    // Whether an object of this name exists.
    bool (*ObjectExists)(std::u16string_view name) = nullptr;
    // Offers a sentence to the plug-in object that its object word names, or to the plug-in control
    // that its を word names. Returns whether it took the sentence.
    bool (*TakeObjectSentence)(Statement& statement) = nullptr;
    bool (*TakeControlSentence)(Statement& statement) = nullptr;
    // Shows or makes the window that a word names, for 表示. Returns whether the word is a window's.
    bool (*ShowWindow)(Statement& statement, std::u16string_view word) = nullptr;
    // Makes the window, control or other object that the sentence of 作れ names.
    void (*MakeObject)(Statement& statement) = nullptr;
    // Saves the picture of the object that a word names; false when it names none, or one whose value
    // is text. Throws Failure.
    bool (*SavePicture)(std::u16string_view word, const std::u16string& file) = nullptr;
    // Looks a text up in the object of a name: a list box picks the item, a text object opens its find
    // dialog, a browser its own search. False when there is no such object, or none to search in.
    bool (*SearchInObject)(std::u16string_view name, const Value& text) = nullptr;
    // Opens the replace dialog on the text object of a name. False when it is no text object.
    bool (*ReplaceInObject)(std::u16string_view name, const Value& text,
                            const Value& replacement) = nullptr;
    // The balloon at the task-tray icon.
    void (*ShowBalloon)(const std::u16string& text, int style) = nullptr;
    // Delivers what waits in the platform's event queue. Must be quick when nothing waits.
    void (*PumpEvents)() = nullptr;
    // Sets the mouse pointer of the whole screen by its number: 11 the hourglass, 0 the plain one.
    void (*SetScreenPointer)(int pointer) = nullptr;
    // Brings the menus of all open windows up to date.
    void (*RefreshMenus)() = nullptr;
    // Restarts a repeating tune that has ended.
    void (*RestartRepeatedMedia)() = nullptr;
    // Looks at the inter-program channel, when it is open.
    void (*CheckChannel)() = nullptr;
    // Sends a text to the media control interface; the reply.
    std::u16string (*SendMediaCommand)(const std::u16string& text) = nullptr;
    // The object system's part of the reset before a run, and of the end of one.
    void (*ResetObjects)() = nullptr;
    void (*CloseObjects)() = nullptr;
    // クリア of the drawing surface, an object or all objects.
    void (*ClearObject)(Statement& statement) = nullptr;
    // A settings word whose target the toolkit owns; the value has been evaluated.
    void (*ApplySetting)(std::u16string_view word, const Value& value) = nullptr;
};

extern Hooks hooks;

// Lets the platform deliver pending messages; event procedures run inside. What the caller holds of the
// run (the current line, the flags, objects) may have changed afterwards.
inline void PumpEvents() {
    if (hooks.PumpEvents != nullptr) hooks.PumpEvents();
}

}  // namespace velm
