// Sentences that are analysed afresh each time they run: behind なら, in a line of several, in the text of
// a loop's body. To do that over and over would cost most of the time of a loop, so the analysis is
// kept, and a run starts by putting the statement back to what a fresh analysis gives: the fences and
// words as analysed, and the binding forgotten when Commands or Procedures have changed since. A verb
// that was not a keyword itself clears Response when it is looked up; the kept one does so too.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "core/statement.h"
#include "core/word.h"

namespace velm {

class TemporarySentence {
  public:
    explicit TemporarySentence(Word text) : text_(std::move(text)) {}

    // One analysed copy of the sentence. A sentence that runs within itself gets a second one.
    class Instance {
      public:
        explicit Instance(const Word& text);
        // Puts everything back to what a fresh analysis gives.
        void Renew();
        void Exec();
        // Runs the action of the statement, when it has one and nothing that it is bound to has changed since
        // it last ran, without renewing anything; else false.
        bool TryExec();
        Statement* IfBound() const { return IsBound() ? statement_.Get() : nullptr; }

      private:
        StatementPtr statement_;
        StatementKind kind_;
        Word marked_;
        Word verb_;
        Word wo_;
        Word he_;
        std::uint64_t commands_ = 0;
        std::uint64_t procedures_ = 0;
        bool renewed_ = false;

        bool IsBound() const;
    };

    using InstancePtr = std::unique_ptr<Instance>;

    // A renewed copy for the caller's use; given back with Return.
    InstancePtr Take();
    void Return(InstancePtr instance) { spare_.push_back(std::move(instance)); }

    // Runs the sentence once.
    void Run();
    // Run for no sentence at all and for one with an action: such a sentence leaves its statement as it found
    // it, so that nothing needs to be renewed. false: nothing was done.
    bool TryRun();

    const Word& Text() const { return text_; }
    // The statement of a copy that has run, when nothing that it is bound to has changed since; else nullptr.
    Statement* Bound() const { return spare_.empty() ? nullptr : spare_.back()->IfBound(); }

  private:
    Word text_;
    std::vector<InstancePtr> spare_;
};

// The sentences of a line, as 。 cuts them.
class SentenceList {
  public:
    // A line's head that ends in "：" is a label as a whole, and nothing of it runs; in the text of a
    // loop's body each sentence stands for itself.
    enum class Heads : std::uint8_t { kMayBeLabels, kAsTheyAre };

    explicit SentenceList(std::u16string_view line, Heads heads = Heads::kMayBeLabels);

    // A "なら" in a sentence but the last one: nothing of the line runs.
    bool IsBarred() const { return barred_; }
    std::vector<TemporarySentence>& All() { return sentences_; }

  private:
    std::vector<TemporarySentence> sentences_;
    bool barred_ = false;
};

}  // namespace velm
