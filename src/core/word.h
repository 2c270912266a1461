// A word: a piece of sentence text that becomes a value only when a handler asks (EvalWord). The text
// of a word never changes; a handle is copied like a pointer and carries along what was worked out
// about the text: its plan (core/word_plan.h) and its symbol. "Rewriting a word in place" means that
// the handle takes another text.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velm {

class WordPlan;
struct Symbol;

class Word {
  public:
    Word() noexcept = default;
    explicit Word(std::u16string_view text);
    Word(const Word& other) noexcept : body_(other.body_) {
        if (body_ != nullptr) ++body_->owners;
    }
    Word(Word&& other) noexcept : body_(std::exchange(other.body_, nullptr)) {}
    Word& operator=(const Word& other) noexcept {
        Word copy(other);
        std::swap(body_, copy.body_);
        return *this;
    }
    Word& operator=(Word&& other) noexcept {
        std::swap(body_, other.body_);
        return *this;
    }
    Word& operator=(std::u16string_view text) { return *this = Word(text); }
    ~Word() {
        if (body_ != nullptr && --body_->owners == 0) Destroy(body_);
    }

    bool IsEmpty() const { return body_ == nullptr; }
    const std::u16string& Text() const { return body_ == nullptr ? kEmptyText : body_->text; }
    operator std::u16string_view() const { return Text(); }

    // What the text is, worked out at the first asking. Not for an empty word.
    const WordPlan& Plan() const { return body_->plan ? *body_->plan : MakePlan(); }
    // The pieces between the commas outside brackets, trimmed; none for an empty word.
    const std::vector<Word>& Pieces() const {
        return body_ != nullptr && body_->pieces ? *body_->pieces : MakePieces();
    }
    // The symbol of the whole text as a name. Not for an empty word.
    Symbol* AsName() const { return body_->symbol != nullptr ? body_->symbol : MakeName(); }

  private:
    struct Body {
        std::uint32_t owners = 1;
        std::u16string text;
        std::shared_ptr<const WordPlan> plan;
        Symbol* symbol = nullptr;
        std::unique_ptr<const std::vector<Word>> pieces;
    };

    static void Destroy(Body* body) noexcept;
    const WordPlan& MakePlan() const;
    Symbol* MakeName() const;
    const std::vector<Word>& MakePieces() const;

    static const std::u16string kEmptyText;

    Body* body_ = nullptr;
};

}  // namespace velm
