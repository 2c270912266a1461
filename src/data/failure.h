// Failures of single steps. A failing step is passed over: Attempt runs one step and keeps the
// failure as the pending one, which a few fixed places look at and the end of a statement clears.
// What a user hears goes through RaiseError and RaiseMessage (core/diagnostics.h), never through here.
#pragma once

#include <string>
#include <utility>

namespace velm {

// Numbers of the platform's failures that the runtime uses.
namespace failure {
constexpr int kBadCall = 5;
constexpr int kOverflow = 6;
constexpr int kOutOfMemory = 7;
constexpr int kSubscript = 9;
constexpr int kDivisionByZero = 11;
constexpr int kTypeMismatch = 13;
constexpr int kOutOfStack = 28;
constexpr int kBadFileName = 52;
constexpr int kFileNotFound = 53;
constexpr int kFileOpen = 55;
constexpr int kIoError = 57;
constexpr int kFileExists = 58;
constexpr int kDiskFull = 61;
constexpr int kPastEnd = 62;
constexpr int kTooManyFiles = 67;
constexpr int kDeviceUnavailable = 68;
constexpr int kPermissionDenied = 70;
constexpr int kPathFileAccess = 75;
constexpr int kPathNotFound = 76;
constexpr int kNothingThere = 91;
constexpr int kNoSuchElement = 340;
constexpr int kNoSuchMember = 438;
}  // namespace failure

// The only exception type of the runtime: a step that could not be done.
class Failure {
  public:
    explicit Failure(int number) : number_(number) {}
    Failure(int number, std::u16string description)
        : number_(number), description_(std::move(description)) {}

    int Number() const { return number_; }
    // The description in Japanese, for "%d" in a message; the platform's own text unless one was given.
    std::u16string Description() const;

  private:
    int number_;
    std::u16string description_;
};

// The Japanese description of a platform failure number; a general text for an unknown number.
std::u16string FailureDescription(int number);

// The failure of the last step that failed since the record was cleared; number 0 when there is none.
struct PendingFailure {
    int number = 0;
    std::u16string description;

    bool IsSet() const { return number != 0; }
    void Clear() {
        if (number != 0) {
            number = 0;
            description.clear();
        }
    }
    void Store(const Failure& failed) {
        number = failed.Number();
        description = failed.Description();
    }
};

// The one pending failure of the process (everything that can fail runs on one thread).
extern PendingFailure pendingFailure;

// Runs one step; a failure becomes the pending one. Returns whether the step ran to its end.
// Running out of memory counts as the failure of that number, so that no text however long ends
// the process.
template <class Step>
bool Attempt(Step&& step);

// Stores the exception that is being handled as the pending failure; only inside a catch block.
void StoreCurrentFailure();

template <class Step>
bool Attempt(Step&& step) {
    try {
        std::forward<Step>(step)();
        return true;
    } catch (...) {
        StoreCurrentFailure();
        return false;
    }
}

}  // namespace velm
