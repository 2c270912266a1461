// See object_system.h.
#include "objects/object_system.h"

#include "core/eval.h"
#include "core/hooks.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "objects/create.h"
#include "objects/menus.h"
#include "objects/object_commands.h"
#include "objects/object_settings.h"
#include "objects/properties.h"
#include "objects/resolve.h"
#include "objects/window_keys.h"

namespace velm {

namespace {

constexpr std::u16string_view kOf = u"の";
constexpr std::u16string_view kOnTop = u"常に手前";
// What is left of it as a bare word, since its に is a particle.
constexpr std::u16string_view kOnTopCut = u"手前";

// A word without の is nobody's property; most words that are asked for are such. A host may ask outside
// a sentence, where nobody catches a failure.
bool ReadProperty(std::u16string_view path, std::u16string_view arguments, Value& value) {
    if (FindOutsideBrackets(path, kOf) == 0) return false;
    bool notHandled = true;
    Attempt([&] { value = GetProperty(path, arguments, notHandled, false); });
    return !notHandled;
}

void WriteProperty(std::u16string_view path, Statement& statement) {
    SetProperty(path, statement.WoArg);
}

bool ObjectExists(std::u16string_view name) { return ResolveObject(name, true) != nullptr; }

void MakeObjectOf(Statement& statement) {
    const Word alias = GetWord(statement, u"として");
    const Word word = statement.WoArg;
    MakeObject(word, EvalWord(alias).Text(), true);
}

// Kept: a word with の outside brackets goes to the maker, whatever it is, and the current window is
// shown.
bool ShowWindowOf(Statement& statement, std::u16string_view word) {
    const ObjectPtr known = FindGlobal(word);
    if (known != nullptr && known->IsWindow()) {
        SetCurrentWindow(std::static_pointer_cast<Window>(known));
    } else if (SplitWindowName(word).kind >= 0 || FindOutsideBrackets(word, kOf) != 0) {
        if (!MakeObject(word, u"", false)) return true;
    } else {
        return false;
    }
    const WindowPtr window = objects.CurrentWindow;
    if (window == nullptr) return true;
    objects.ThatObject = window;
    const std::u16string& how = statement.DeArg.Text();
    const bool isModal = how == u"モーダル" || how == u"ダイアログ";
    const std::u16string& where = statement.HeArg.Text();
    ShowWindowAs(*window, isModal, where == kOnTop || where == kOnTopCut);
    return true;
}

// Nothing can wait before the toolkit was started. A failure of what is delivered isn't one of the
// sentence that pumps.
void PumpToolkit() {
    if (!HasToolkit()) return;
    RefreshMenus();
    TheToolkit().Pump();
    if (!Attempt(DeliverDeferredDrops)) pendingFailure.Clear();
}

bool IsRunOver() { return process.Interrupted || (run.StopFlag && run.Status != RunStatus::kIdle); }

}  // namespace

void InstallObjectSystem() {
    hooks.GetProperty = ReadProperty;
    hooks.IsProperty = IsProperty;
    hooks.SetProperty = WriteProperty;
    hooks.ObjectExists = ObjectExists;
    hooks.ShowWindow = ShowWindowOf;
    hooks.MakeObject = MakeObjectOf;
    hooks.SearchInObject = SearchInObject;
    hooks.ShowBalloon = ShowBalloon;
    hooks.PumpEvents = PumpToolkit;
    hooks.SetScreenPointer = SetScreenPointer;
    hooks.RefreshMenus = RefreshMenus;
    hooks.ResetObjects = InitObjectSystem;
    hooks.CloseObjects = CloseObjectSystem;
    hooks.ClearObject = ClearObject;
    hooks.ApplySetting = ApplyObjectSetting;
    SetWaitCheck(IsRunOver);
}

}  // namespace velm
