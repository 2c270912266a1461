// Diagnostics: everything that a user is told goes through RaiseError and RaiseMessage. They fill the
// error registers and then act as the error mode says: a message box, silence, a procedure, or a line
// to the host.
#pragma once

#include <cstdint>
#include <string_view>

namespace velm {

// Buttons hold the icon of a report.
inline constexpr int kIconStop = 16;
inline constexpr int kIconQuestion = 32;
inline constexpr int kIconWarning = 48;
inline constexpr int kIconInformation = 64;

// Reports the message of a number. detail replaces "%1"; word is kept as ErrorWord, detail when it is
// empty; line -1 is the current line. Returns the user's answer (1 OK, 2 Cancel), 0 when nobody was asked.
int RaiseError(std::int32_t number, int buttons, std::u16string_view detail,
               std::u16string_view word, std::int32_t line);

// The same with the caller's text, in which "\n" (two characters) is a line break.
int RaiseMessage(std::u16string_view text, std::int32_t number, int buttons,
                 std::u16string_view detail, std::u16string_view word, std::int32_t line);

// Ends the run in order: every loop unwinds.
void StopRun();

// Reports progress of a long work to the procedure that 処理状況 named, once a percent.
void ProgressTick(std::int64_t done, std::int64_t total);

}  // namespace velm
