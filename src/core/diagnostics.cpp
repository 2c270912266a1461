// The report of errors.
#include "core/diagnostics.h"

#include <cmath>
#include <string>

#include "core/hooks.h"
#include "core/names.h"
#include "core/procedures.h"
#include "core/run_state.h"
#include "core/velm.h"
#include "data/dates.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/resources.h"
#include "data/text.h"
#include "platform/dialogs.h"

namespace velm {

namespace {

constexpr std::u16string_view kReportKey = u"報告";
constexpr std::u16string_view kErrorKey = u"エラー";

std::u16string Number(std::int64_t number) { return FormatNumber(static_cast<double>(number)); }

std::u16string FillIn(std::u16string_view text, std::u16string_view detail) {
    std::u16string out = ReplaceAll(text, u"\\n", kCrLf);
    out = ReplaceAll(out, u"%1", detail);
    return ReplaceAll(out, u"%d", pendingFailure.description);
}

// Notes where the error is and tells it, as "［script.vlm 3行目 エラー番号1］".
std::u16string PlaceLine(std::int32_t line) {
    std::u16string place;
    if (line != -1) {
        run.ErrorLine = line;
    } else {
        run.ErrorLine = run.CurLine + 1;
        const bool known = static_cast<std::size_t>(run.CurProgram) < Programs.size();
        run.ErrorFile = known ? CurrentProgram().FileName : std::u16string();
        if (run.ErrorFile.empty()) run.ErrorFile = FileNameOf(process.ProgramPath);
        place.append(run.ErrorFile) += u' ';
    }
    place.append(Number(run.ErrorLine)).append(u"行目");
    return u"［" + place + u" エラー番号" + Number(run.ErrorNumber) + u"］";
}

void ReportToHost(const std::u16string& text) {
    if (process.RunMode != RunModes::kEditor) return;
    const std::u16string now = FormatDate(DateOf(MomentOfNow()).value_or(0));
    RaiseHost(HostMode::kCommand, kReportKey, now + u"** エラー:");
    RaiseHost(HostMode::kCommand, kReportKey, text);
}

// Under 無視 the named procedure hears of one error; the mode then falls to that of a named procedure.
void ReportToProcedure() {
    run.ErrorMode = ErrorModes::kContinue;
    CallProcedureByName(run.ErrorProc);
    run.ErrorMode = ErrorModes::kProcedure;
}

int Show(const std::u16string& text, int buttons) {
    if (process.RunMode == RunModes::kEditor && process.AdvancedErrors) {
        RaiseHost(HostMode::kCommand, kErrorKey, text);
        return static_cast<int>(NumericPrefix(RaiseHost(HostMode::kQuery, kErrorKey, u"")));
    }
    return TheDialogs().Report(text, buttons, run.ProgramTitle);
}

int ReportError(std::u16string_view message, int buttons, std::u16string_view detail,
                std::u16string_view word, std::int32_t line) {
    if (run.Status == RunStatus::kStoppedByUser) return 0;
    std::u16string text = FillIn(message, detail);
    run.ErrorText = text;
    // A stand-alone program shows its user the bare text.
    if (process.RunMode != RunModes::kStandAlone) text.append(kCrLf).append(PlaceLine(line));
    if (run.Status == RunStatus::kRunning && run.StopFlag) return 0;
    switch (run.ErrorMode) {
        case ErrorModes::kShow:
            buttons += box::kOkCancel;
            run.ErrorWord = word.empty() ? detail : word;
            break;
        case ErrorModes::kIgnore: ReportToProcedure(); return 0;
        case ErrorModes::kReport: ReportToHost(text); return 0;
        case ErrorModes::kProcedure:
        case ErrorModes::kContinue: break;
    }
    const int answer = Show(text, buttons);
    if (answer == box::kAnswerCancel) {
        StopRun();
        run.Status = RunStatus::kStoppedByUser;
    }
    return answer;
}

}  // namespace

int RaiseError(std::int32_t number, int buttons, std::u16string_view detail,
               std::u16string_view word, std::int32_t line) {
    run.ErrorNumber = number;
    UsedMessages().insert(number);
    return ReportError(ResourceValue(kMessages, Number(number)), buttons, detail, word, line);
}

int RaiseMessage(std::u16string_view text, std::int32_t number, int buttons,
                 std::u16string_view detail, std::u16string_view word, std::int32_t line) {
    run.ErrorNumber = number;
    return ReportError(text, buttons, detail, word, line);
}

void StopRun() {
    run.StopFlag = true;
    if (hooks.CloseObjects != nullptr) hooks.CloseObjects();
}

void ProgressTick(std::int64_t done, std::int64_t total) {
    if (!run.ProgressOn || total == 0) return;
    const double share = static_cast<double>(done) / static_cast<double>(total) * 100;
    const auto percent = static_cast<std::int32_t>(std::trunc(share));
    if (percent == run.LastPercent) return;
    run.LastPercent = percent;
    const std::u16string text = Number(percent) + u"," + Number(done) + u"," + Number(total);
    CallProcedureAsWord(FindSymbol(run.ProgressProc), Word(text));
}

}  // namespace velm
