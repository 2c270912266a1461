// Sentences that run as if analysed for the first time.
#include "core/temporary_sentence.h"

#include <string>
#include <utility>

#include "core/execute.h"
#include "core/names.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "data/brackets.h"
#include "data/text.h"

namespace velm {

namespace {
constexpr std::u16string_view kThen = u"なら";
}  // namespace

TemporarySentence::Instance::Instance(const Word& text)
    : statement_(ParseStatement(text)),
      kind_(statement_->Kind),
      marked_(statement_->Marked),
      verb_(statement_->Verb),
      wo_(statement_->WoArg),
      he_(statement_->HeArg) {
    if (!text.IsEmpty()) statement_->temporary = true;
}

void TemporarySentence::Instance::Renew() {
    Statement& statement = *statement_;
    renewed_ = true;
    statement.WoArg = wo_;
    if (kind_ != StatementKind::kCommand) return;
    if (statement.fences != 0) {
        statement.fences = 0;
        statement.Marked = marked_;
    }
    statement.Verb = verb_;  // trimmed also where no fence was set
    statement.loopMark = LoopMark::kUnknown;
    statement.HeArg = he_;
    statement.DeArg = Word();
    if (commands_ != Commands.Generation() || procedures_ != Procedures.Generation()) {
        commands_ = Commands.Generation();
        procedures_ = Procedures.Generation();
        statement.Kind = kind_;
        statement.FuncPnt = nullptr;
        statement.action = ActionPtr();
        statement.compiled = false;
    }
}

void TemporarySentence::Instance::Exec() {
    const bool bound = statement_->FuncPnt != nullptr || statement_->Kind != kind_;
    if (renewed_ && kind_ == StatementKind::kCommand && bound && !statement_->exact) {
        run.Response = Value();
    }
    renewed_ = false;
    ExecStatement(*statement_);
}

bool TemporarySentence::Instance::IsBound() const {
    return kind_ != StatementKind::kCommand ||
           (commands_ == Commands.Generation() && procedures_ == Procedures.Generation());
}

bool TemporarySentence::Instance::TryExec() {
    if (!statement_->action || !IsBound()) return false;
    if (kind_ == StatementKind::kCommand && !statement_->exact) run.Response = Value();
    const ActionPtr held =
        statement_->action;  // a sentence that runs within itself may take another one
    return TryStatement(*statement_);
}

TemporarySentence::InstancePtr TemporarySentence::Take() {
    InstancePtr instance;
#ifndef VELM_NO_CACHES
    if (!spare_.empty()) {
        instance = std::move(spare_.back());
        spare_.pop_back();
    }
#endif
    if (!instance) instance = std::make_unique<Instance>(text_);
    instance->Renew();
    return instance;
}

bool TemporarySentence::TryRun() {
    if (text_.IsEmpty()) return true;
    return !spare_.empty() && spare_.back()->TryExec();
}

void TemporarySentence::Run() {
    if (TryRun()) return;
    InstancePtr instance = Take();
    instance->Exec();
    Return(std::move(instance));
}

SentenceList::SentenceList(std::u16string_view line, Heads heads) {
    const std::vector<std::u16string_view> cut = CutSentences(line);
    const std::u16string_view last = cut.back();
    barred_ = cut.size() > 1 && Contains(line.substr(0, line.size() - last.size() - 1), kThen);
    std::size_t first = 0;
    for (std::size_t i = 0; i + 1 < cut.size(); ++i) {
        if (heads == Heads::kMayBeLabels && cut[i].ends_with(u'：')) first = i + 1;
    }
    for (std::size_t i = first; i < cut.size(); ++i) sentences_.emplace_back(Word(cut[i]));
}

}  // namespace velm
