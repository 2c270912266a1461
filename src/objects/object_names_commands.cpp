// The commands about names and focus: 使う, ついて, ついておわり, 焦点, 最前面, 最背面.
#include "core/diagnostics.h"
#include "core/sentence.h"
#include "data/text.h"
#include "objects/create.h"
#include "objects/object_commands.h"
#include "objects/resolve.h"

namespace velm {

namespace {

constexpr int kNotInUse = 91;
constexpr std::u16string_view kNotInUseText = u"「～について」が使われていません。";
constexpr double kToBack = 1;

// The object that ついて names stands in front of the verb, or of に as in ボタン1について.
Word SubjectOf(const Statement& statement) {
    return statement.WoArg.IsEmpty() ? statement.HeArg : statement.WoArg;
}

}  // namespace

std::u16string AliasWord(Statement& statement) {
    const Word word = GetWord(statement, u"として");
    return std::u16string(StripPair(word, u"「", u"」"));
}

void CmdUse(Statement& statement, Context& /*context*/) {
    const std::u16string alias = AliasWord(statement);
    const Word word = statement.WoArg;
    if (ResolveObject(word, true) == nullptr) MakeObject(word, alias, false);
}

void CmdAbout(Statement& statement, Context& /*context*/) {
    objects.SavedThisObject = objects.ThisObject;
    objects.ThisObject = ResolveObject(SubjectOf(statement), false);
}

// Kept: one level is remembered, so that the second of two ends leaves この as the first did.
void CmdAboutEnd(Statement& /*statement*/, Context& /*context*/) {
    if (objects.ThisObject == nullptr) {
        RaiseMessage(kNotInUseText, kNotInUse, kIconStop, u"", u"", -1);
        return;
    }
    objects.ThisObject = objects.SavedThisObject;
}

void CmdFocus(Statement& statement, Context& /*context*/) {
    if (const ObjectPtr object = ResolveObject(SubjectOf(statement), false)) {
        object->Call(u"SetFocus");
    }
}

void CmdToFront(Statement& statement, Context& /*context*/) {
    if (const ObjectPtr object = ResolveObject(SubjectOf(statement), true)) {
        object->Call(u"ZOrder");
    }
}

void CmdToBack(Statement& statement, Context& /*context*/) {
    if (const ObjectPtr object = ResolveObject(SubjectOf(statement), true)) {
        object->Call(u"ZOrder", {kToBack});
    }
}

}  // namespace velm
