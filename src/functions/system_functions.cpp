// Machine, system and desktop as functions.
#include "functions/system_functions.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/arguments.h"
#include "core/protection.h"
#include "core/registry.h"
#include "data/code_page_932.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/utf.h"
#include "data/value.h"
#include "platform/desktop.h"
#include "platform/special_folders.h"
#include "platform/system_info.h"

namespace velm {

namespace {

constexpr std::u16string_view kSystemKey = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\";
constexpr std::u16string_view kProgramFilesValue = u"ProgramFilesDir";

constexpr std::int32_t kBuildMask = 0xFFFF;
constexpr std::size_t kLongestTitle = 256;

constexpr std::int32_t kKeyShift = 0x10;
constexpr std::int32_t kKeyControl = 0x11;
constexpr std::int32_t kKeyAlt = 0x12;

// The number of a key: a single character, or a line break, goes by its character code, anything longer
// is the virtual key's number. Fails for the empty text.
std::int32_t KeyNumber(const Value& key) {
    const std::u16string& text = key.Text();
    if (text.empty()) throw Failure(failure::kBadCall);
    if (text.size() == 1 || text == kCrLf) return EncodeUnit932(text.front());
    return ToInt32(ToDouble(key));
}

// The key that a modifier word asks for; 0 for a word that asks for none.
std::int32_t ModifierKey(std::u16string_view word) {
    if (word == u"コントロール") return kKeyControl;
    if (word == u"シフト") return kKeyShift;
    return word == u"オルト" ? kKeyAlt : 0;
}

bool AreModifiersDown(std::u16string_view modifiers) {
    for (const std::u16string_view word : Split(modifiers, u" ")) {
        const std::int32_t key = ModifierKey(word);
        if (key != 0 && !TheDesktop().IsKeyDown(key)) return false;
    }
    return true;
}

void GiveFolder(SpecialFolder folder, Value& result) {
    result = Value(WithBackslash(FolderOfPurpose(folder)));
}

// A folder that only the home platform has.
[[noreturn]] void FailWithoutCounterpart() { throw Failure(failure::kNoSuchMember); }

}  // namespace

void FnSystemVersion(Value& result, Arguments&) {
    const SystemRelease release = TheSystemRelease();
    result = Value(FormatNumber(release.major) + u"." + FormatNumber(release.minor));
}

void FnSystemBuild(Value& result, Arguments&) {
    result = Value::OfInteger(TheSystemRelease().build & kBuildMask);
}

// The kinds have names for the home platform's two families only; any other system has none.
void FnSystemKind(Value&, Arguments&) {}

void FnEnvironmentVariable(Value& result, Arguments& arguments) {
    std::u16string name;
    arguments.Split(name);
    if (const auto value = EnvironmentValue(Utf16ToUtf8(name))) result = Value(Utf8ToUtf16(*value));
}

void FnSystemRootFolder(Value&, Arguments&) { FailWithoutCounterpart(); }
void FnSystemFolder(Value&, Arguments&) { FailWithoutCounterpart(); }
void FnFavoritesFolder(Value&, Arguments&) { FailWithoutCounterpart(); }
void FnSendToFolder(Value&, Arguments&) { FailWithoutCounterpart(); }

void FnTemporaryFolder(Value& result, Arguments&) { GiveFolder(SpecialFolder::kTemporary, result); }
void FnDesktopFolder(Value& result, Arguments&) { GiveFolder(SpecialFolder::kDesktop, result); }
void FnDocumentsFolder(Value& result, Arguments&) { GiveFolder(SpecialFolder::kDocuments, result); }

// The menu here is one folder of programs: the menu's folder and that of its programs are the same.
void FnStartMenuFolder(Value& result, Arguments&) { GiveFolder(SpecialFolder::kMenu, result); }
void FnProgramsFolder(Value& result, Arguments&) { GiveFolder(SpecialFolder::kMenu, result); }

// Kept in the registry, where whoever installs programs may have put it.
void FnProgramFilesFolder(Value& result, Arguments&) {
    bool found = false;
    const StorePath key = {store_root::kLocalMachine, std::u16string(kSystemKey)};
    const std::u16string folder = ReadRegistry(key, kProgramFilesValue, u"", found);
    if (found) result = Value(WithBackslash(folder));
}

// What is put there runs at every log-in: only for scripts that the protection allows it.
void FnStartupFolder(Value& result, Arguments&) {
    if (!IsProtected(Protected::kSystem)) GiveFolder(SpecialFolder::kAutostart, result);
}

void FnWindowTitles(Value& result, Arguments&) {
    std::vector<std::u16string> titles = TheDesktop().WindowTitles();
    for (std::u16string& title : titles) title = BeforeNul(title);
    result = Value(ListOfNames(titles));
}

void FnActiveWindowTitle(Value& result, Arguments&) {
    result = Value(TheDesktop().ActiveWindowTitle().substr(0, kLongestTitle));
}

// Names that begin with "@" are fonts for vertical writing, the same ones once more.
void FnFonts(Value& result, Arguments&) {
    std::vector<std::u16string> fonts = TheDesktop().Fonts();
    std::erase_if(fonts, [](const std::u16string& name) { return name.starts_with(u'@'); });
    result = Value(ListOfNames(fonts));
}

void FnKeyState(Value& result, Arguments& arguments) {
    Value key;
    std::u16string modifiers;
    arguments.Split(key, modifiers);
    result = Value::OfBool(TheDesktop().IsKeyDown(KeyNumber(key)) && AreModifiersDown(modifiers));
}

void FnScreenWidth(Value& result, Arguments&) {
    result = Value::OfInteger(TheDesktop().ScreenSize().x);
}

void FnScreenHeight(Value& result, Arguments&) {
    result = Value::OfInteger(TheDesktop().ScreenSize().y);
}

void FnScreenMouseX(Value& result, Arguments&) {
    result = Value::OfInteger(TheDesktop().MousePosition().x);
}

void FnScreenMouseY(Value& result, Arguments&) {
    result = Value::OfInteger(TheDesktop().MousePosition().y);
}

void FnMousePointer(Value& result, Arguments&) {
    result = Value::OfInteger(TheDesktop().MainWindowPointer());
}

void FnPaste(Value& result, Arguments&) { result = Value(TheDesktop().ClipboardText()); }

}  // namespace velm
