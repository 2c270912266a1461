// The members of the dialogs object.
#include "platform/qt/qt_dialogs_object.h"

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QFontDialog>
#include <QGroupBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>

#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"
#include "platform/qt/file_choice.h"
#include "platform/qt/outside_surface.h"
#include "platform/qt/page_margins.h"
#include "platform/qt/printer_pages.h"
#include "platform/qt/qt_dialog_run.h"
#include "platform/qt/qt_printer.h"

namespace velm {

namespace {

// Flags of the colour and the font dialog that mean something here.
constexpr std::int32_t kStartWithColor = 1;
constexpr std::int32_t kFontEffects = 256;
constexpr std::int32_t kFixedPitchOnly = 16384;
constexpr std::int32_t kScalableOnly = 131072;
constexpr std::int32_t kTrueTypeOnly = 262144;

constexpr std::int32_t kWhite = 0xFFFFFF;

struct DialogsState {
    std::u16string title;
    std::u16string filter;
    std::u16string file;
    std::u16string folder;
    std::int32_t flags = 0;
    std::int32_t color = 0;
    QFont font = QApplication::font();
    bool isCancelled = false;

    bool Has(std::int32_t flag) const { return (flags & flag) != 0; }
};

using State = DialogsState;
using Row = OutsideMember<State>;

QColor ColorOf(std::int32_t color) {
    return QColor(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
}

std::int32_t NumberOf(const QColor& color) {
    return color.red() | color.green() << 8 | color.blue() << 16;
}

// Shows one of the toolkit's dialogs and waits. Returns whether the user chose.
bool Run(State& state, QDialog& dialog) {
    if (!state.title.empty()) dialog.setWindowTitle(ToTitle(state.title));
    dialog.setWindowModality(Qt::ApplicationModal);
    state.isCancelled = RunDialog(dialog) != QDialog::Accepted;
    return !state.isCancelled;
}

void AskForFiles(State& state, FileQuestion question) {
    const std::vector<std::u16string> chosen =
        AskFiles({question, state.title, state.filter, state.file, state.flags});
    state.isCancelled = chosen.empty();
    if (state.isCancelled) return;
    const bool isList = question == FileQuestion::kOpen && state.Has(file_flag::kSeveral);
    state.file = isList ? ListOfNames(chosen) : chosen.front();
    state.folder = question == FileQuestion::kFolder ? WithBackslash(chosen.front())
                                                     : std::u16string(FolderOf(chosen.front()));
}

template <FileQuestion question>
MemberValue ShowFiles(State& state, const MemberArguments&) {
    AskForFiles(state, question);
    return {};
}

MemberValue ShowColor(State& state, const MemberArguments&) {
    QColorDialog dialog(QApplication::activeWindow());
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setCurrentColor(state.Has(kStartWithColor) ? ColorOf(state.color) : Qt::black);
    if (Run(state, dialog)) state.color = NumberOf(dialog.selectedColor());
    return {};
}

// Underlining and striking out are offered only where the script wants them.
void HideEffects(QFontDialog& dialog) {
    for (QGroupBox* group : dialog.findChildren<QGroupBox*>())
        if (group->findChild<QCheckBox*>() != nullptr) group->hide();
}

MemberValue ShowFont(State& state, const MemberArguments&) {
    QFontDialog dialog(QApplication::activeWindow());
    dialog.setOption(QFontDialog::DontUseNativeDialog);
    dialog.setOption(QFontDialog::MonospacedFonts, state.Has(kFixedPitchOnly));
    dialog.setOption(QFontDialog::ScalableFonts, state.Has(kScalableOnly | kTrueTypeOnly));
    dialog.setCurrentFont(state.font);
    if (!state.Has(kFontEffects)) HideEffects(dialog);
    if (Run(state, dialog)) state.font = dialog.selectedFont();
    return {};
}

template <class Dialog>
MemberValue ShowForPrinter(State& state, const MemberArguments&) {
    Dialog dialog(&QtPrinterInForce(), QApplication::activeWindow());
    if (Run(state, dialog)) TakeQtPrinter();
    return {};
}

MemberValue CustomColors(State&) {
    std::u16string text;
    for (int i = 0; i < QColorDialog::customCount(); ++i) {
        if (i != 0) text += u',';
        AppendNumber(text, NumberOf(QColorDialog::customColor(i)));
    }
    return text;
}

// Colours that are not given are white, as they are at first.
void SetCustomColors(State&, const MemberValue& value) {
    const std::u16string text = MemberToText(value);
    std::vector<QColor> colors;
    if (!text.empty()) {
        for (const std::u16string& item : ParseList(text))
            colors.push_back(ColorOf(MemberToInt(item)));
    }
    colors.resize(static_cast<std::size_t>(QColorDialog::customCount()), ColorOf(kWhite));
    for (std::size_t i = 0; i < colors.size(); ++i)
        QColorDialog::setCustomColor(static_cast<int>(i), colors[i]);
}

template <std::u16string State::*text>
constexpr Row TextMember(std::u16string_view name) {
    return {name, [](State& state) -> MemberValue { return state.*text; },
            [](State& state, const MemberValue& value) { state.*text = MemberToText(value); }};
}

template <std::int32_t State::*number>
constexpr Row NumberMember(std::u16string_view name) {
    return {name, [](State& state) -> MemberValue { return static_cast<double>(state.*number); },
            [](State& state, const MemberValue& value) { state.*number = MemberToInt(value); }};
}

using Fonts = FontMembers<State>;

constexpr Row kRows[] = {
    TextMember<&State::title>(u"DialogTitle"),
    TextMember<&State::filter>(u"Filter"),
    TextMember<&State::file>(u"FileName"),
    {u"FolderName", [](State& state) -> MemberValue { return state.folder; }},
    NumberMember<&State::flags>(u"Flags"),
    NumberMember<&State::color>(u"Color"),
    {u"CustColors", CustomColors, SetCustomColors},
    Fonts::kName,
    Fonts::kSize,
    Fonts::kBold,
    Fonts::kItalic,
    Fonts::kUnderline,
    Fonts::kStruck,
    {u"PrintMargins",
     [](State&) -> MemberValue { return MarginsText(ThePrinterPages().Printer()); },
     [](State&, const MemberValue& value) {
         SetMargins(ThePrinterPages().Printer(), MemberToText(value));
     }},
    {u"Cancel", [](State& state) -> MemberValue { return state.isCancelled; }},
    {u"ShowOpen", nullptr, nullptr, ShowFiles<FileQuestion::kOpen>},
    {u"ShowSave", nullptr, nullptr, ShowFiles<FileQuestion::kSave>},
    {u"ShowDir", nullptr, nullptr, ShowFiles<FileQuestion::kFolder>},
    {u"ShowColor", nullptr, nullptr, ShowColor},
    {u"ShowFont", nullptr, nullptr, ShowFont},
    {u"ShowPrinter", nullptr, nullptr, ShowForPrinter<QPrintDialog>},
    {u"ShowPrintPage", nullptr, nullptr, ShowForPrinter<QPageSetupDialog>},
};

// Owns its state, whose address the rows get.
struct OwnState {
    State state;
};

class DialogsObject : private OwnState, public OutsideSurface<State> {
  public:
    DialogsObject() : OutsideSurface(OwnState::state, kRows) {}
};

}  // namespace

std::unique_ptr<MemberSurface> MakeQtDialogs() { return std::make_unique<DialogsObject>(); }

}  // namespace velm
