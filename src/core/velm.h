// The engine as seen from outside: the entry points, an editor that debugs a script, and plug-ins drive
// it through the same operations and hear from it through four events. One engine a process; its state
// is the process-wide state of the run.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/run_state.h"

namespace velm {

enum class HostMode : std::uint8_t { kQuery = 0, kValue = 1, kCommand = 2, kProperty = 3 };

// What a host hears. A handler of value, command and property answers whether it took the sentence.
struct HostEvents {
    std::function<std::u16string(std::u16string_view key)> HostQuery;
    std::function<bool(std::u16string_view key, std::u16string_view text, double number,
                       std::u16string_view word)>
        HostValue;
    std::function<bool(std::u16string_view key, std::u16string_view value)> HostCommand;
    std::function<bool(std::u16string_view key, std::u16string_view value)> HostProperty;
};

class Velm {
  public:
    Velm();
    Velm(const Velm&) = delete;
    Velm& operator=(const Velm&) = delete;

    void DoPause();
    void DoStop();
    // The line of the last error, or the running line before any error.
    std::int16_t GetErrLine() const;
    const std::u16string& GetErrWord() const { return run.ErrorWord; }
    std::int16_t GetStatus() const { return static_cast<std::int16_t>(run.Status); }
    std::u16string GetFunc(std::u16string_view word);
    // 1: the globals and their values; 3: the names of locals and globals; 2: an empty text.
    std::u16string GetForEditor(std::int16_t what) const;
    void Run(std::u16string_view source, std::u16string_view path, bool nested);
    void RunComnd(std::u16string_view sentence);
    // A missing or unreadable file runs nothing; the failure is then the pending one.
    void RunFile(std::u16string_view path, bool nested);
    // The general channel; an unknown key answers empty and changes nothing.
    std::u16string GetSetInfo(std::u16string_view key, std::u16string_view value);
    // Declares an editor host, or none.
    void SetDebugObj(bool present);
    void SetStopLine(std::vector<bool> lines) { process.StopLines = std::move(lines); }
    int ErrMessage(std::u16string_view text, std::int32_t number, int buttons,
                   std::u16string_view word);

    HostEvents events;
    // A host that has given a form of its own hands the program over through "プログラム".
    bool hosted = false;
};

// The one engine, made at its first use.
Velm& TheEngine();

// Raises an event of the engine; the answer text of a query, else the text of not-handled.
std::u16string RaiseHost(HostMode mode, std::u16string_view key, std::u16string_view value);

// Starts a run from nothing: every register, table and cache of a run.
void ResetRunState();

// Runs statements in place of the main script's, and puts those back: 実行 and 日本語処理.
void RunNested(std::u16string_view source);

// The numbered messages that were raised in this process; the tests' coverage of the message table.
std::set<std::int32_t>& UsedMessages();

}  // namespace velm
