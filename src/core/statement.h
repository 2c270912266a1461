// The statement: one sentence of the source, analysed once when it is loaded.
//
// Nine members carry what the sentence says; handlers read them and ask for more words through
// GetWords (core/sentence.h). Behind them lies one pointer to what was worked out to run the sentence
// fast: the words found for each set of particles, and the plans of assignments, conditions, loops and
// branches. All of it follows from the text alone, with one exception: the handler that FuncPnt binds
// and the kinds 9 and 10 follow from the name tables, and hold for the life of the statement. What is
// parsed afresh on each pass (sentences behind なら, sentences of a line of several) is kept parsed,
// but goes back to its unbound form when Commands or Procedures have changed since.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/action.h"
#include "core/counted.h"
#include "core/names.h"
#include "core/word.h"

namespace velm {

enum class StatementKind : std::int32_t {
    kCommand = 0,
    kAssignment = 1,
    kSetting = 2,
    kProperty = 3,
    kIf = 4,
    kSentences = 5,
    kProcedureHead = 6,
    kProcedureEnd = 7,
    kLabel = 8,
    kCallBySource = 9,
    kCallByVerb = 10,
};

// What a line means to the block walkers, told by its whole text.
enum class LineMark : std::uint8_t {
    kNone,
    kIfEnd,     // もし終わり
    kElse,      // 他なら, でないなら
    kElseIf,    // begins with 他でもし
    kCaseEnd,   // 分岐終わり
    kEnd,       // 終わり
    kDefault,   // 他の場合
    kCaseHead,  // holds について分岐
    kCase,      // holds の場合 outside brackets
};

// Whether the verb is the end or the head of a loop.
enum class LoopMark : std::uint8_t { kUnknown, kNone, kLoopEnd, kOtherEnd, kLoopHead };

struct AssignmentTarget;
struct IfPlan;
struct LoopPlan;
struct CasePlan;
struct LeavePlan;
class SentenceList;

// One split: fencing a set of particles in a Marked text depends on nothing but the two, so what it
// gave is kept: from the fences before to those behind, and the words.
struct SplitCache {
    std::uint32_t before = 0;  // Statement::fences
    std::uint32_t after = 0;
    std::vector<std::u16string> particles;
    std::vector<Word> found;
    Word marked;
    Word wo;
    Word he;
    Word verb;
    std::size_t parts = 1;
    bool takesWo = false;
    bool takesHe = false;
};

struct StatementCache {
    std::vector<SplitCache> splits;
    std::uint32_t lastFences = 0;  // the highest number given to a state of the fences
    std::shared_ptr<const AssignmentTarget> target;
    std::shared_ptr<const IfPlan> condition;
    std::shared_ptr<const LoopPlan> loop;
    std::shared_ptr<const CasePlan> branch;
    std::shared_ptr<const LeavePlan> leave;
    std::shared_ptr<SentenceList> sentences;  // of a line of several
    Symbol* source = nullptr;                 // the whole sentence as a name
};

struct Statement {
    StatementKind Kind = StatementKind::kCommand;
    CommandHandler FuncPnt = nullptr;
    std::u16string Source;
    Word Marked;
    std::vector<Word> Args;
    Word Verb;
    Word WoArg;
    Word HeArg;
    Word DeArg;

    LineMark mark = LineMark::kNone;
    LoopMark loopMark = LoopMark::kUnknown;
    bool exact = false;        // the verb itself was found in Commands
    bool compiled = false;     // action is what it can be
    bool temporary = false;    // starts from its analysis at each run (core/temporary_sentence.h)
    std::uint32_t fences = 0;  // which state of the fences Marked is in; 0: as analysed
    std::uint32_t owners = 0;
    ActionPtr action;  // after the first run, unless there is no shorter road
    std::unique_ptr<StatementCache> cache;

    Statement() = default;
    // A copy shares nothing, and has neither action nor cache.
    Statement(const Statement& other);
    Statement& operator=(const Statement&) = delete;

    StatementCache& Cache() {
        if (!cache) cache = std::make_unique<StatementCache>();
        return *cache;
    }
    // The symbol of the whole sentence as a name.
    Symbol* SourceName();
    LoopMark VerbMark() {
        if (loopMark == LoopMark::kUnknown) loopMark = ReadVerb();
        return loopMark;
    }

  private:
    LoopMark ReadVerb() const;
};

inline void Destroy(Statement* statement) noexcept { delete statement; }

// A running sentence lives on when its program is replaced under it.
using StatementPtr = CountedPtr<Statement>;

}  // namespace velm
