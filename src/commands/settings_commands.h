// 設定 and 関連づけ. What they write is removed by 削除 (commands/removal.h).
#pragma once

#include "core/execute.h"
#include "core/statement.h"

namespace velm {

// レジストリのROOT\key\value, 設定ファイルのsection の key, or group の key, を value へ 設定.
void CmdStoreSetting(Statement& statement, Context& context);

// .ext を program へ 関連づけ.
void CmdAssociate(Statement& statement, Context& context);

}  // namespace velm
