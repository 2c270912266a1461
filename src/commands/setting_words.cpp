// The table of settings words and their setters.
#include "commands/setting_words.h"

#include <iterator>
#include <string>

#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/run_state.h"
#include "core/settings_state.h"
#include "core/tables.h"
#include "core/variables.h"
#include "core/word_lists.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/resources.h"
#include "data/text.h"
#include "platform/files.h"

namespace velm {

namespace {

constexpr int kBadNumber = 8;
constexpr int kNotFoundError = 201;
constexpr std::u16string_view kTurtleNames[] = {u"かめ", u"亀", u"カメ"};

struct SettingRow {
    const char16_t* words;  // the aliases, joined by commas
    CommandHandler setter;
};

constexpr SettingRow kSettingRows[] = {
    {u"色,いろ", SetColor},
    {u"形,かたち", SetShape},
    {u"背景,はいけい", SetBackground},
    {u"タイトル", SetTitle},
    {u"位置,いち", SetTurtlePosition},
    {u"場所,ばしょ", SetCanvas},
    {u"向き,むき", SetHeading},
    {u"太さ,ふとさ", SetLineWidth},
    {u"エラー", SetErrorMode},
    {u"処理状況", SetProgress},
    {u"マウスカーソル", SetMousePointer},
    {u"作業フォルダ", SetWorkFolder},
    {u"音色,ねいろ,おんしょく", SetInstrument},
    {u"テンポ", SetTempo},
    {u"JPEGプログレッシブ", SetJpegProgressive},
    {u"JPEG圧縮率", SetJpegQuality},
    {u"起動時設定", SetStartLine},
    {u"設定ファイル", SetSettingsFile},
    {u"ここだけの変数", SetLocals},
};
static_assert(std::size(kSettingRows) == 19);

// Tells the toolkit of a new value, where one is loaded.
void Apply(const Statement& statement, const Value& value) {
    if (hooks.ApplySetting != nullptr) hooks.ApplySetting(statement.Verb, value);
}

}  // namespace

void BuildSettingTable() {
    for (const SettingRow& row : kSettingRows) {
        xxCmdData::Pointer setter = {nullptr};
        setter.command = row.setter;
        RegisterEntries(SettingWords, setter, row.words, 0, u"");
    }
}

void SetColor(Statement& statement, Context& /*context*/) {
    settings.TurtleColor = ParseColor(statement.WoArg);
}

void SetShape(Statement& statement, Context& /*context*/) {
    for (const std::u16string_view name : kTurtleNames) {
        if (statement.WoArg.Text() != name) continue;
        settings.TurtleIconOn = true;
        settings.turtlePicture.clear();
        Apply(statement, Value());
        return;
    }
    settings.TurtleIconOn = false;
    const Value picture = EvalWord(statement.WoArg);
    settings.turtlePicture = picture.Text();
    Apply(statement, picture);
}

void SetBackground(Statement& statement, Context& /*context*/) {
    settings.backColor = ParseColor(statement.WoArg);
    Apply(statement, Value::OfNumber(settings.backColor));
    PumpEvents();
}

void SetTitle(Statement& statement, Context& /*context*/) {
    const Value title = EvalWord(statement.WoArg);
    run.ProgramTitle = title.Text();
    Apply(statement, title);
}

void SetTurtlePosition(Statement& statement, Context& /*context*/) {
    settings.position = statement.WoArg.Text();
    Apply(statement, Value(settings.position));
}

void SetCanvas(Statement& statement, Context& /*context*/) {
    settings.canvas = statement.WoArg.Text();
    Apply(statement, Value(settings.canvas));
}

void SetHeading(Statement& statement, Context& /*context*/) {
    settings.TurtleDirection = TurtleDirectionOf(90 - EvalNumber(statement.WoArg));
    Apply(statement, Value::OfNumber(settings.TurtleDirection));
}

void SetLineWidth(Statement& statement, Context& /*context*/) {
    settings.lineWidth = EvalNumber(statement.WoArg);
    Apply(statement, Value::OfNumber(settings.lineWidth));
}

// The word is compared as it is written: 「無視」 in brackets is the name of a procedure.
void SetErrorMode(Statement& statement, Context& /*context*/) {
    const std::u16string& word = statement.WoArg.Text();
    if (word == u"表示") {
        run.ErrorMode = ErrorModes::kShow;
    } else if (word == u"無視") {
        run.ErrorMode = ErrorModes::kIgnore;
    } else if (word == u"続ける") {
        run.ErrorMode = ErrorModes::kContinue;
    } else if (word == u"報告") {
        run.ErrorMode = ErrorModes::kReport;
    } else {
        run.ErrorMode = ErrorModes::kProcedure;
        run.ErrorProc = word;
    }
}

void SetProgress(Statement& statement, Context& /*context*/) {
    run.ProgressProc = statement.WoArg.Text();
    run.ProgressOn = !run.ProgressProc.empty();
}

void SetMousePointer(Statement& statement, Context& /*context*/) {
    constexpr std::size_t kLongestPlainWord = 3;
    const Value word = EvalWord(statement.WoArg);
    settings.mousePointerFile.clear();
    if (const std::optional<double> number = word.Number()) {
        settings.mousePointer = ToInt32(*number);
    } else {
        const std::int32_t known = ResourceNumber(kCursorWords, word.Text());
        if (known < 0 && word.Text().size() <= kLongestPlainWord) {
            throw Failure(failure::kTypeMismatch);
        }
        constexpr std::int32_t kCustomPointer = 99;
        settings.mousePointer = known < 0 ? kCustomPointer : known;
        if (known < 0) settings.mousePointerFile = word.Text();
    }
    Apply(statement, word);
}

void SetWorkFolder(Statement& statement, Context& /*context*/) {
    const Value folder = EvalWord(statement.WoArg);
    if (!Attempt([&] { ChangeFolder(folder.Text()); })) {
        RaiseError(kNotFoundError, kIconStop, folder.Text(), u"", -1);
    }
}

void SetInstrument(Statement& statement, Context& /*context*/) {
    settings.midiProgram = ToInt16(EvalNumber(statement.WoArg));
}

void SetTempo(Statement& statement, Context& /*context*/) {
    settings.tempo = ToInt16(EvalNumber(statement.WoArg));
}

void SetJpegProgressive(Statement& statement, Context& /*context*/) {
    settings.jpegProgressive = EvalNumber(statement.WoArg) == 1;
}

void SetJpegQuality(Statement& statement, Context& /*context*/) {
    // Kept: a value outside the range is reported, and stays stored.
    settings.jpegQuality = ToInt16(EvalNumber(statement.WoArg));
    if (settings.jpegQuality < 0 || settings.jpegQuality > 100) {
        RaiseError(kBadNumber, kIconWarning, statement.WoArg, u"", -1);
    }
}

void SetStartLine(Statement& statement, Context& /*context*/) {
    if (process.RunMode != RunModes::kEditor) return;
    process.CommandLine = EvalWord(statement.WoArg).Text();
}

void SetSettingsFile(Statement& statement, Context& /*context*/) {
    settings.settingsFile = EvalWord(statement.WoArg).Text();
}

void SetLocals(Statement& statement, Context& /*context*/) {
    for (const std::u16string& name : SplitList(statement.WoArg, false)) {
        LocalsForChange().Add(Word(name), Value());
    }
}

}  // namespace velm
