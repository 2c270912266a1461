// The commands on files and folders: 作れ 移動 コピー 削除 ファイル属性変更 変更. Bound by the command table.
#pragma once

namespace velm {

struct Context;
struct Statement;

void CmdMake(Statement& statement, Context& context);
void CmdMove(Statement& statement, Context& context);
void CmdCopy(Statement& statement, Context& context);
void CmdDelete(Statement& statement, Context& context);
void CmdSetAttributes(Statement& statement, Context& context);
void CmdRename(Statement& statement, Context& context);

}  // namespace velm
