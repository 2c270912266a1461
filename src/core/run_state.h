// The state of a run: where it is, the flags that unwind it, the registers of answer and error. One
// struct, one reset.
#pragma once

#include <atomic>
#include <bit>
#include <cstdint>
#include <string>
#include <vector>

#include "core/counted.h"
#include "core/statement.h"
#include "data/value.h"

namespace velm {

// How the run was started; decides how errors are shown.
enum class RunModes : std::int32_t { kEditor = 1, kScript = 2, kStandAlone = 3 };

enum class RunStatus : std::int16_t { kRunning = 0, kIdle = 1, kPaused = 2, kStoppedByUser = 3 };

// What エラーは … chose.
enum class ErrorModes : std::int32_t {
    kShow = 0,       // message box with OK and Cancel
    kProcedure = 1,  // message box with the caller's buttons; the word is kept as ErrorProc
    kIgnore = 2,     // ErrorProc once, then kProcedure
    kContinue = 3,   // message box with the caller's buttons
    kReport = 4,     // to the host only
};

// One loaded source.
struct Program {
    std::vector<StatementPtr> Statements;  // one a line
    std::u16string FileName;          // base name of a file added by 参照; empty: main script
    std::vector<std::int32_t> Depth;  // block depth of each line
    std::uint64_t version = 0;  // another one after each change of lines or depths; see NewVersion
    std::uint32_t owners = 0;
};
inline void Destroy(Program* program) noexcept { delete program; }

// To be called when the lines of a program or their depths have changed: no two states of programs ever
// have the same version.
inline void NewVersion(Program& program) {
    static std::uint64_t last = 0;
    program.version = ++last;
}

// What a statement asks of the walkers over lines.
struct FlowFlags {
    bool JumpFlag = false;       // a statement has set CurLine: go on behind it
    bool ReturnFlag = false;     // leave the running procedure
    bool LoopBreakFlag = false;  // leave the innermost loop
    bool IfBreakFlag = false;    // leave the innermost もし block

    // Whether any of them is set.
    bool AnySet() const { return std::bit_cast<std::uint32_t>(*this) != 0; }
};

struct RunState : FlowFlags {
    std::int32_t CurLine = 0;
    std::int32_t CurProgram = 0;
    std::atomic<bool> StopFlag = false;  // the run is to end; a signal handler may set it
    bool Exhausted = false;              // the stack was used up: nested runs end as well
    RunStatus Status = RunStatus::kIdle;
    StatementPtr CurrentStatement;  // the last command sentence that ran
    Value Response;                 // the answer behind それ

    std::int32_t ErrorNumber = 0;
    std::int32_t ErrorLine = 0;  // 1-based; 0: no error yet
    std::u16string ErrorFile;
    std::u16string ErrorText;
    std::u16string ErrorWord;
    std::u16string ErrorProc;
    ErrorModes ErrorMode = ErrorModes::kShow;

    std::u16string ProgramTitle = u"Velmrun";
    std::u16string ProgressProc;  // the procedure that 処理状況 names
    bool ProgressOn = false;
    std::int32_t LastPercent = -1;
};

// Set from outside a run and kept over runs.
struct ProcessState {
    RunModes RunMode = RunModes::kScript;
    bool AdvancedErrors = false;
    std::atomic<bool> Interrupted = false;  // by a signal: no run goes on or begins any more
    bool HostRuns = false;                  // 起動中 answers 1; set through GetSetInfo
    std::u16string CommandLine;
    std::u16string ProgramPath;
    std::vector<bool> StopLines = std::vector<bool>(1);
};

extern RunState run;
extern ProcessState process;

// The loaded sources; index 0 is the main script. A program that a nested run put aside lives on as
// long as something runs in it.
using ProgramPtr = CountedPtr<Program>;
extern std::vector<ProgramPtr> Programs;

// The program that runs.
inline Program& CurrentProgram() { return *Programs[static_cast<std::size_t>(run.CurProgram)]; }

}  // namespace velm
