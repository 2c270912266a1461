// What 削除 removes beside files: keys of the registry, entries of settings files, file associations.
#pragma once

namespace velm {

struct Statement;

// Carries the sentence of 削除 out when its を word has one of these forms.
bool RemoveByForm(Statement& statement);

}  // namespace velm
