// 印刷: a text, what a text box holds, a window or a picture goes to the current printer.
#include <memory>
#include <string>
#include <string_view>

#include "core/diagnostics.h"
#include "core/eval.h"
#include "data/failure.h"
#include "objects/font_members.h"
#include "objects/object_canvas.h"
#include "objects/object_commands.h"
#include "objects/resolve.h"
#include "platform/picture_target.h"

namespace velm {

namespace {

constexpr int kCannotPrint = 301;
constexpr int kNothingToPrint = 302;
constexpr std::u16string_view kNextPage = u"次ページ";

using Printer = std::unique_ptr<MemberSurface>;

// All printer objects share one state: the printer in force and its document.
Printer CurrentPrinter() { return TheToolkit().MakePrinter(); }

void TakeFont(Object& from, MemberSurface& printer) {
    CopyFontOutside(from, [&](std::u16string_view member, const MemberValue& value) {
        printer.Set(member, value, {});
    });
}

void PrintText(const std::u16string& text, bool goesOn) {
    const Printer printer = CurrentPrinter();
    printer->Call(u"Print", {text});
    printer->Call(goesOn ? u"NewPage" : u"EndDoc", {});
}

void PrintWithFont(Object& object, const std::u16string& text) {
    const Printer printer = CurrentPrinter();
    TakeFont(object, *printer);
    printer->Call(u"Print", {text});
    printer->Call(u"EndDoc", {});
}

void PrintTextBox(Object& object) {
    const ObjectPtr dialogs = DialogsObject();
    if (!dialogs) return;
    dialogs->Call(u"ShowPrinter");
    if (!dialogs->GetBool(u"Cancel")) PrintWithFont(object, object.GetText(u"Text"));
}

// The selection, or everything where nothing is selected.
void PrintRichText(Object& object) {
    const std::u16string selection = object.GetText(u"SelText");
    PrintWithFont(object, selection.empty() ? object.GetText(u"Text") : selection);
}

void PrintPicture(Object& object) {
    const Printer printer = CurrentPrinter();
    auto* const target = dynamic_cast<PictureTarget*>(printer.get());
    if (target == nullptr) throw Failure(failure::kNoSuchMember);
    target->PaintPicture(ImageOf(object), 0, 0, 0, 0);
    printer->Call(u"EndDoc", {});
}

void PrintObject(Object& object, std::u16string_view word) {
    switch (object.Class()) {
        case ControlClass::kText:
        case ControlClass::kMultiLineText:
        case ControlClass::kWrappedText: return PrintTextBox(object);
        case ControlClass::kRichText: return PrintRichText(object);
        case ControlClass::kWindow: object.Call(u"PrintForm"); return;
        case ControlClass::kPicture:
        case ControlClass::kImage: return PrintPicture(object);
        default: RaiseError(kNothingToPrint, kIconWarning, word, word, -1);
    }
}

// What stands before the last の, or the whole word where there is none.
ObjectPtr ObjectToPrint(std::u16string_view word) {
    std::u16string_view front;
    std::u16string_view range;
    return ResolveObject(CutAtLastOf(word, front, range) ? front : word, true);
}

}  // namespace

void CmdPrint(Statement& statement, Context& /*context*/) {
    const Word word = statement.WoArg;
    const bool goesOn = statement.HeArg.Text() == kNextPage;
    const ObjectPtr object = ObjectToPrint(word);
    const std::u16string text = object ? std::u16string() : EvalWord(word).Text();
    const bool isPrinted = Attempt([&] {
        if (object) {
            PrintObject(*object, word);
        } else {
            PrintText(text, goesOn);
        }
    });
    if (isPrinted) return;
    RaiseError(kCannotPrint, kIconStop, pendingFailure.description, u"", -1);
    pendingFailure.Clear();
}

}  // namespace velm
