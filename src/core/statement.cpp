// What a statement works out about itself.
#include "core/statement.h"

#include "data/text.h"

namespace velm {

Statement::Statement(const Statement& other)
    : Kind(other.Kind),
      FuncPnt(other.FuncPnt),
      Source(other.Source),
      Marked(other.Marked),
      Args(other.Args),
      Verb(other.Verb),
      WoArg(other.WoArg),
      HeArg(other.HeArg),
      DeArg(other.DeArg),
      mark(other.mark),
      exact(other.exact),
      fences(other.fences) {}

Symbol* Statement::SourceName() {
    StatementCache& own = Cache();
    if (own.source == nullptr) own.source = Intern(Source);
    return own.source;
}

LoopMark Statement::ReadVerb() const {
    const std::u16string& verb = Verb.Text();
    const bool loop = Contains(verb, u"繰り返");
    const bool end = Contains(verb, u"終わり");
    if (end) return loop ? LoopMark::kLoopEnd : LoopMark::kOtherEnd;
    return loop ? LoopMark::kLoopHead : LoopMark::kNone;
}

}  // namespace velm
