// Words and what is kept with their text.
#include "core/word.h"

#include "core/names.h"
#include "core/word_plan.h"

namespace velm {

const std::u16string Word::kEmptyText;

Word::Word(std::u16string_view text) {
    if (text.empty()) return;
    body_ = new Body;
    body_->text = text;
}

void Word::Destroy(Body* body) noexcept { delete body; }

const WordPlan& Word::MakePlan() const {
    body_->plan = PlanWord(body_->text);
    return *body_->plan;
}

const std::vector<Word>& Word::Pieces() const {
    static const std::vector<Word> none;
    if (body_ == nullptr) return none;
    if (!body_->pieces) {
        body_->pieces = std::make_unique<const std::vector<Word>>(CutWords(body_->text));
    }
    return *body_->pieces;
}

Symbol* Word::MakeName() const {
    body_->symbol = Intern(body_->text);
    return body_->symbol;
}

}  // namespace velm
