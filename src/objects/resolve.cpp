// From a word to the object. See resolve.h.
#include "objects/resolve.h"

#include <algorithm>

#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/procedures.h"
#include "core/sentence.h"
#include "core/variables.h"
#include "core/word_plan.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/text.h"
#include "objects/create.h"
#include "objects/drive_object.h"
#include "objects/kinds.h"

namespace velm {

namespace {

constexpr int kNoObject = 104;
constexpr int kObjectMissing = 105;
constexpr int kUnclear = 90;
constexpr std::u16string_view kOf = u"の";
constexpr std::u16string_view kThatUnclear =
    u"「その」が何を表すか分かりません。\\n「使う」命令を使ってください。";
constexpr std::u16string_view kThisUnclear =
    u"「この」が何を表すか分かりません。\\n「～について」命令を使ってください。";
constexpr std::u16string_view kActive = u"アクティブ";
constexpr std::u16string_view kActiveWindow = u"アクティブウィンドウ";
constexpr std::u16string_view kFirstWindow = u"ウィンドウ０";
constexpr std::u16string_view kDialogs = u"選択ウィンドウ";
constexpr std::u16string_view kTurtleArray = u"MainIcon";

bool MeansThat(std::u16string_view name) { return name.starts_with(u'そ'); }
bool MeansThis(std::u16string_view name) { return name.starts_with(u'こ'); }

// A name on its way to the object.
struct Search {
    std::u16string name;       // shown in the report
    std::u16string canonical;  // the kind word with its number
    std::int32_t number = 0;
    ObjectPtr object;
    bool quiet;
};

// Kept: only the first character is looked at, so that こんにちは is この.
ObjectPtr PointedAt(std::u16string_view name) {
    return MeansThat(name) ? objects.ThatObject : objects.ThisObject;
}

ObjectPtr FindOnCurrentWindow(std::u16string_view name) {
    const WindowPtr window = objects.CurrentWindow;
    return window == nullptr ? nullptr : FindControl(*window, name);
}

// Tables first. Kept: of a name with の the part behind counts, whatever stands in front.
void FindByTable(Search& search) {
    search.object = FindGlobal(search.name);
    if (search.object == nullptr) search.object = FindOnCurrentWindow(search.name);
    if (search.object != nullptr) return;
    std::u16string_view front;
    std::u16string_view back;
    if (CutAtOf(search.name, front, back)) search.name = std::u16string(Trim(back));
}

WindowPtr ActiveWindow() {
    if (!HasToolkit()) return nullptr;
    const ToolkitWindow* active = TheToolkit().ActiveWindow();
    const auto found = std::find_if(objects.Windows.begin(), objects.Windows.end(),
                                    [active](const WindowPtr& window) {
                                        return window->HasControl() && &window->Frame() == active;
                                    });
    return found == objects.Windows.end() ? nullptr : *found;
}

ObjectPtr ActiveControl() {
    const WindowPtr window = ActiveWindow();
    if (window == nullptr) return nullptr;
    const ToolkitControl* active = window->Frame().ActiveControl();
    const auto found = std::find_if(
        window->Controls.begin(), window->Controls.end(), [active](const ObjectPtr& control) {
            return control->HasControl() && &control->Control() == active;
        });
    return found == window->Controls.end() ? nullptr : *found;
}

ObjectPtr OutsideObject(ObjectPtr& kept, ControlClass which) {
    if (kept == nullptr) kept = std::make_shared<Object>(which, u"", -1, nullptr);
    return kept;
}

// プリンタ alone is the one in force, a number selects one.
ObjectPtr FindPrinter(std::u16string_view rest, bool quiet) {
    const std::int32_t number = NumberBehind(rest, quiet);
    if (number == 0 && !rest.empty()) return nullptr;
    const ObjectPtr printer = OutsideObject(objects.Printer, ControlClass::kPrinter);
    if (number == 0) return printer;
    const bool isThere = Attempt([&] { printer->Set(u"Index", static_cast<double>(number - 1)); });
    return isThere ? printer : nullptr;
}

ObjectPtr FindTurtle(std::int32_t number) {
    const WindowPtr window = objects.CurrentWindow;
    const ObjectPtr turtle = window == nullptr ? nullptr : window->Element(kTurtleArray, number);
    if (turtle != nullptr) SetTurtleObject(turtle);
    return turtle;
}

// Whether the word can be evaluated without a report, and without a procedure of the script.
bool IsSilent(const Word& word) {
    if (word.IsEmpty()) return true;
    const WordPlan& plan = word.Plan();
    if (plan.kind != PlanKind::kName && plan.kind != PlanKind::kCall) return true;
    if (Procedures.Find(plan.symbol) != nullptr) return false;
    return plan.kind == PlanKind::kName || plan.Function().function != nullptr ||
           FindVariable(plan.symbol) != nullptr;
}

// The drive of a letter, or of a word whose value is one.
ObjectPtr FindDrive(std::u16string_view rest, bool quiet) {
    const Word word = CachedWord(Trim(rest));
    if (word.IsEmpty() || (quiet && !IsSilent(word))) return nullptr;
    auto drive = std::make_shared<Object>(ControlClass::kDrive, u"", -1, nullptr);
    const bool isThere = Attempt([&] { drive->SetSurface(MakeDrive(EvalWord(word).Text())); });
    return isThere ? drive : nullptr;
}

// Kept: between ライン and its number one character is passed over.
std::u16string_view RestOf(std::u16string_view name, const ResolverRow& row) {
    const std::size_t skipped = row.kind == ResolverKind::kLine ? 1 : 0;
    return name.substr(std::min(row.word.size() + skipped, name.size()));
}

void FindByKind(Search& search, const ResolverRow& row) {
    const std::u16string_view rest = RestOf(search.name, row);
    switch (row.kind) {
        case ResolverKind::kPrinter: search.object = FindPrinter(rest, search.quiet); return;
        case ResolverKind::kDrive: search.object = FindDrive(rest, search.quiet); return;
        case ResolverKind::kTurtle:
            search.object = FindTurtle(NumberBehind(rest, search.quiet));
            return;
        case ResolverKind::kTimer:
            Attempt([&] { search.number = ToInt16(TextToNumber(rest)); });
            break;
        default: search.number = NumberBehind(rest, search.quiet); break;
    }
    search.canonical = std::u16string(row.word) + FormatNumber(search.number);
}

void FindByWord(Search& search) {
    if (search.name == kActive) {
        search.object = ActiveControl();
        if (search.object != nullptr) search.name = ObjectKindName(*search.object);
    } else if (search.name == kActiveWindow) {
        search.object = ActiveWindow();
    } else if (search.name == kFirstWindow) {
        search.object = objects.FirstWindow;
    } else if (search.name == kDialogs) {
        search.object = OutsideObject(objects.Dialogs, ControlClass::kDialogs);
    } else if (SplitWindowName(search.name).kind >= 0) {
        search.object = WindowByName(search.name, search.quiet);
    } else {
        for (const ResolverRow& row : ResolverRows()) {
            if (!std::u16string_view(search.name).starts_with(row.word)) continue;
            FindByKind(search, row);
            return;
        }
    }
}

// Kept: while the first window is the only one, a canonical name isn't looked for on it.
void FindOrMakeCanonical(Search& search) {
    if (objects.HostedMode) NewObject(search.canonical, u"", search.number != 0);
    search.object = FindGlobal(search.canonical);
    if (search.object == nullptr && objects.WindowCount != 1) {
        search.object = FindOnCurrentWindow(search.canonical);
    }
    if (search.object == nullptr && !search.quiet) {
        search.object = NewObject(search.canonical, u"", true);
    }
}

}  // namespace

std::int32_t NumberBehind(std::u16string_view rest, bool quiet) {
    std::int32_t number = 0;
    Attempt([&] {
        const Word word = CachedWord(Trim(rest));
        if (word.IsEmpty() || (quiet && !IsSilent(word))) return;
        number = ToInt16(EvalNumber(word));
    });
    pendingFailure.Clear();
    return number;
}

ObjectPtr ResolveObject(std::u16string_view name, bool quiet) {
    Search search;
    search.name = std::u16string(Trim(name));
    search.quiet = quiet;
    if (search.name.empty()) {
        if (!quiet) RaiseError(kObjectMissing, kIconStop, u"", u"", -1);
        return nullptr;
    }
    if (MeansThat(search.name) || MeansThis(search.name)) {
        search.object = PointedAt(search.name);
    } else {
        FindByTable(search);
    }
    if (search.object == nullptr) FindByWord(search);
    if (!search.canonical.empty()) {
        FindOrMakeCanonical(search);
    } else if (search.object != nullptr && search.object->IsWindow() && !objects.HostedMode) {
        SetCurrentWindow(std::static_pointer_cast<Window>(search.object));
    }
    if (search.object == nullptr && !quiet) {
        RaiseError(kNoObject, kIconWarning, search.name, u"", -1);
    }
    if (search.object != nullptr) objects.ThatObject = search.object;
    pendingFailure.Clear();
    return search.object;
}

// Plug-in objects are none yet: what is found is always another object.
ObjectPtr FindPluginObject(std::u16string_view name, bool quiet) {
    const std::u16string_view trimmed = Trim(name);
    const bool isPointer = MeansThat(trimmed) || MeansThis(trimmed);
    if (!isPointer || quiet || PointedAt(trimmed) != nullptr) return nullptr;
    const std::u16string_view text = MeansThat(trimmed) ? kThatUnclear : kThisUnclear;
    RaiseMessage(text, kUnclear, kIconStop, u"", u"", -1);
    return nullptr;
}

WindowName SplitWindowName(std::u16string_view name) {
    for (const WindowWord& word : WindowWords()) {
        if (!name.starts_with(word.word)) continue;
        return {word.kind, word.word, name.substr(word.word.size())};
    }
    return {};
}

WindowPtr WindowByName(std::u16string_view name, bool quiet) {
    const WindowName parts = SplitWindowName(name);
    if (parts.kind < 0) return nullptr;
    std::u16string key(parts.word);
    if (!parts.rest.empty()) key += FormatNumber(NumberBehind(parts.rest, quiet));
    ObjectPtr found = FindGlobal(key);
    // ウィンドウ0 in whatever width; a word that is no number is another window's.
    if (found == nullptr && parts.kind == 0 && ParseNumber(parts.rest) == 0.0) {
        found = objects.FirstWindow;
    }
    if (found == nullptr || !found->IsWindow()) return nullptr;
    const auto window = std::static_pointer_cast<Window>(found);
    SetCurrentWindow(window);
    objects.ThatObject = window;
    return window;
}

ObjectPtr FindControl(const Window& window, std::u16string_view name) {
    const auto found = window.CollObj.find(ObjectKey(name));
    return found == window.CollObj.end() ? nullptr : found->second;
}

ObjectPtr FindGlobal(std::u16string_view name) {
    const auto found = objects.ObjectTable.find(ObjectKey(name));
    return found == objects.ObjectTable.end() ? nullptr : found->second;
}

bool CutAtOf(std::u16string_view name, std::u16string_view& front, std::u16string_view& back) {
    const std::size_t at = FindOutsideBrackets(name, kOf);
    if (at == 0) return false;
    back = name.substr(at);
    front = name.substr(0, at - 1);
    return true;
}

bool CutAtLastOf(std::u16string_view name, std::u16string_view& front, std::u16string_view& back) {
    const std::size_t at = FindLastOutsideBrackets(name, kOf, -1, kQuotesAndWide);
    if (at == 0) return false;
    back = name.substr(at);
    front = name.substr(0, at - 1);
    return true;
}

}  // namespace velm
