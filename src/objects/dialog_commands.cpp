// 選択: the dialogs that let the user choose a file, a folder, a colour or a font. The answers are
// members of 選択ウィンドウ.
#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "core/diagnostics.h"
#include "data/failure.h"
#include "data/text.h"
#include "objects/font_members.h"
#include "objects/object_commands.h"
#include "objects/resolve.h"

namespace velm {

namespace {

constexpr int kNothingToChoose = 106;
constexpr std::int32_t kAskBeforeOverwriting = 2;

// Shows a dialog. Returns whether the user chose something.
bool Show(Object& dialogs, std::u16string_view member, const MemberArguments& arguments = {}) {
    dialogs.Call(member, arguments);
    return !dialogs.GetBool(u"Cancel");
}

void ChooseFile(Object& dialogs, std::u16string_view member) {
    if (!Show(dialogs, member)) dialogs.Set(u"FileName", std::u16string());
}

void ChooseFileToOpen(Object& dialogs) { ChooseFile(dialogs, u"ShowOpen"); }

void ChooseFileToSave(Object& dialogs) {
    const std::int32_t flags = MemberToInt(dialogs.Get(u"Flags"));
    dialogs.Set(u"Flags", static_cast<double>(flags | kAskBeforeOverwriting));
    ChooseFile(dialogs, u"ShowSave");
}

void ChooseFolder(Object& dialogs) { ChooseFile(dialogs, u"ShowDir"); }

void ChooseColor(Object& dialogs) {
    if (!Show(dialogs, u"ShowColor")) dialogs.Set(u"Color", 0.0);
}

void ChooseFont(Object& dialogs) {
    CopyFontOutside(
        *objects.CurrentWindow,
        [&](std::u16string_view member, const MemberValue& value) { dialogs.Set(member, value); });
    Show(dialogs, u"ShowFont");
}

void SetUpPage(Object& dialogs) {
    constexpr double kPageMode = 2;
    Show(dialogs, u"ShowPrintPage", {kPageMode});
}

struct DialogWord {
    std::u16string_view word;
    void (*choose)(Object& dialogs);
};
constexpr DialogWord kDialogWords[] = {
    {u"開くファイル", ChooseFileToOpen}, {u"保存するファイル", ChooseFileToSave},
    {u"フォルダ", ChooseFolder},         {u"色", ChooseColor},
    {u"フォント", ChooseFont},           {u"ページ設定", SetUpPage},
};

}  // namespace

ObjectPtr DialogsObject() {
    const ObjectPtr that = objects.ThatObject;
    ObjectPtr dialogs = ResolveObject(u"選択ウィンドウ", false);
    objects.ThatObject = that;
    return dialogs;
}

void CmdChoose(Statement& statement, Context& /*context*/) {
    const std::u16string_view word = StripPair(statement.WoArg, u"「", u"」");
    const auto* const row = std::find_if(std::begin(kDialogWords), std::end(kDialogWords),
                                         [&](const DialogWord& each) { return each.word == word; });
    if (row == std::end(kDialogWords)) {
        RaiseError(kNothingToChoose, kIconWarning, word, word, -1);
        return;
    }
    const ObjectPtr dialogs = DialogsObject();
    if (!dialogs) return;
    Attempt([&] { row->choose(*dialogs); });
    dialogs->Set(u"Flags", 0.0);
}

}  // namespace velm
