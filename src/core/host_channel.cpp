// The general channel of the engine: GetSetInfo and its keys.
#include <array>
#include <string>
#include <vector>

#include "core/blocks.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/prepare.h"
#include "core/procedures.h"
#include "core/sentence.h"
#include "core/velm.h"
#include "core/word_lists.h"
#include "data/brackets.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr int kHostError = 699;
constexpr std::u16string_view kOf = u"の";
constexpr std::u16string_view kListSeparator = u"\x01";

using Answer = std::u16string (*)(std::u16string_view value);

struct Key {
    std::u16string_view name;
    Answer answer;
};

bool IsTrue(std::u16string_view value) { return value == u"True" || TextToNumber(value) != 0; }

// A copy of the last command sentence, so that a host's questions leave the sentence itself alone.
StatementPtr CopyOfCurrent() {
    return StatementPtr(run.CurrentStatement ? new Statement(*run.CurrentStatement)
                                             : new Statement);
}

std::u16string AskVariable(std::u16string_view value) { return EvalText(value).Text(); }

std::u16string CallNamed(std::u16string_view value) {
    const StatementPtr statement = CopyOfCurrent();
    CallProcedureAsCommand(FindSymbol(value), false, *statement);
    return {};
}

std::u16string AskProperty(std::u16string_view value) {
    Value result;
    if (hooks.GetProperty != nullptr) hooks.GetProperty(value, u"", result);
    return result.Text();
}

std::u16string RaiseFromHost(std::u16string_view value) {
    RaiseMessage(ReplaceAll(value, u"{ch}", u"\\n"), kHostError, kIconWarning, u"", u"", -1);
    return {};
}

std::u16string AskColor(std::u16string_view value) { return FormatNumber(ParseColor(Word(value))); }

std::u16string AskColorText(std::u16string_view value) {
    return ColorToText(ToInt32(TextToNumber(value)));
}

std::u16string AskVerb(std::u16string_view /*value*/) {
    return run.CurrentStatement ? run.CurrentStatement->Verb.Text() : std::u16string();
}

std::u16string AskWords(std::u16string_view value) {
    const StatementPtr statement = CopyOfCurrent();
    JoshiList particles;
    for (const std::u16string_view particle : Split(value, u"\t")) particles.emplace_back(particle);
    std::vector<std::u16string> words;
    for (const Word& word : SplitArgs(*statement, particles)) words.push_back(word.Text());
    return Join(words, u"\t");
}

std::u16string AskVerbAndWord(std::u16string_view /*value*/) {
    if (!run.CurrentStatement) return u"\t";
    const Statement& statement = *run.CurrentStatement;
    const std::u16string& word = statement.WoArg.Text();
    const std::size_t of = word.find(kOf);
    return statement.Verb.Text() + u"\t" + (of == kNotFound ? word : word.substr(of + 1));
}

std::u16string CutAtOf(std::u16string_view value) {
    return Join(SplitOutsideBrackets(value, kOf, false), u"\t");
}

std::u16string CutList(std::u16string_view value) {
    return UnescapeItem(Join(SplitList(value, true), kListSeparator));
}

std::u16string CutTable(std::u16string_view value) {
    return Join(ParseList(value), kListSeparator);
}

std::u16string SetCommandLine(std::u16string_view value) {
    process.CommandLine = value;
    return {};
}

std::u16string SetProgram(std::u16string_view value) {
    ProgramPtr program(new Program);
    program->Statements = PrepareProgram(value);
    if (Programs.empty()) Programs.resize(1);
    Programs[0] = program;
    ScanBlocks(*program);
    RegisterProcedures(*program, 0);
    return {};
}

std::u16string SetStop(std::u16string_view value) {
    run.StopFlag = IsTrue(value);
    return {};
}

std::u16string AskProgress(std::u16string_view /*value*/) {
    return std::u16string(BoolText(run.ProgressOn));
}

std::u16string TellProgress(std::u16string_view value) {
    const std::vector<std::u16string_view> numbers = Split(value, u",");
    if (numbers.size() == 2) {
        ProgressTick(ToInt32(TextToNumber(numbers[0])), ToInt32(TextToNumber(numbers[1])));
    }
    return {};
}

std::u16string AskVersion(std::u16string_view /*value*/) {
    const std::string_view version = VELM_VERSION;
    const std::string_view major = version.substr(0, version.find('.'));
    return std::u16string(major.begin(), major.end()) + u".1.32";
}

std::u16string SetHostRuns(std::u16string_view value) {
    process.HostRuns = IsTrue(value);
    return {};
}

std::u16string SetAdvancedErrors(std::u16string_view value) {
    process.AdvancedErrors = IsTrue(value);
    return {};
}

constexpr Key kKeys[] = {
    {u"変数", AskVariable},
    {u"手順", CallNamed},
    {u"オブジェクトの設定", AskProperty},
    {u"エラー", RaiseFromHost},
    {u"色", AskColor},
    {u"色変換", AskColorText},
    {u"動詞", AskVerb},
    {u"引数", AskWords},
    {u"引数２", AskVerbAndWord},
    {u"分割", CutAtOf},
    {u"カンマ", CutList},
    {u"配列", CutTable},
    {u"コマンドライン", SetCommandLine},
    {u"プログラム", SetProgram},
    {u"状態", SetStop},
    {u"処理状況", AskProgress},
    {u"処理状況通知", TellProgress},
    {u"バージョン", AskVersion},
    {u"起動中", SetHostRuns},
    {u"高度エラーメッセージ", SetAdvancedErrors},
};

}  // namespace

std::u16string Velm::GetSetInfo(std::u16string_view key, std::u16string_view value) {
    for (const Key& known : kKeys) {
        if (known.name == key) return known.answer(value);
    }
    return {};
}

}  // namespace velm
