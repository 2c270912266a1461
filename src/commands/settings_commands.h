// 設定 and 関連づけ, and the forms of 削除 that remove what those write.
#pragma once

#include "core/execute.h"
#include "core/statement.h"

namespace velm {

// レジストリのROOT\key\value, 設定ファイルのsection の key, or group の key, を value へ 設定.
void CmdStoreSetting(Statement& statement, Context& context);

// .ext を program へ 関連づけ.
void CmdAssociate(Statement& statement, Context& context);

// 削除 of a registry key, of something in the settings file, or of a file association. Returns false when
// the sentence is about something else; nothing is done then.
bool DeleteSetting(const Statement& statement);

}  // namespace velm
